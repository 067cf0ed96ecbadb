#include "CommandLine/Doctor.h"

#include "CommandLine/HistoryReports.h"
#include "Persistence/CoreDataStack.h"
#include "Persistence/StoreExamination.h"

#include <algorithm>
#include <QtCore/QDir>
#include <QtCore/QRegularExpression>
#include <QtCore/QSysInfo>

namespace tomcatto {

namespace {

using Mark = Finding::Mark;
using namespace std::chrono_literals;

/// The application answers at once; it is asked like every command.
constexpr auto longestAnswer = 3s;
/// In pixels.
constexpr int smallPicture = 64;

Finding findProgram()
{
    return {QStringLiteral("program"),
            Mark::there,
            QStringLiteral("Tomcatto %1, Qt %2, %3, %4")
                .arg(QStringLiteral(TOMCATTO_VERSION), QString::fromLatin1(qVersion()), QSysInfo::prettyProductName(),
                     QSysInfo::currentCpuArchitecture()),
            {}};
}

/// Leaves out who the user is and what the machine is called.
QString withoutNames(QString text)
{
    const QString home = QDir::homePath();
    if (home != QDir::rootPath())
        text.replace(home, QStringLiteral("~"));
    // Folders outside the home that bear a name.
    for (const QString &name : {QDir(home).dirName(), qEnvironmentVariable("USER"), QSysInfo::machineHostName()}) {
        if (!name.isEmpty())
            text.replace(QRegularExpression(QStringLiteral("(?<=/)%1(?![\\w-])").arg(QRegularExpression::escape(name))),
                         QStringLiteral("…"));
    }
    return text;
}

QString asText(const Findings &findings)
{
    static constexpr std::array marks{"ok   ", "lack ", "FAIL "};
    const auto width = std::ranges::max(findings, {}, [](const Finding &each) { return each.part.size(); }).part.size();
    QStringList lines;
    for (const Finding &each : findings) {
        const QString advice = each.advice.isEmpty() ? QString() : QStringLiteral(". ") + each.advice;
        lines << textOf(marks, each.mark) + each.part.leftJustified(width + 2) + each.found + advice;
    }
    return lines.join(QLatin1Char('\n'));
}

QString asJson(const Findings &findings)
{
    auto array = nlohmann::ordered_json::array();
    for (const Finding &each : findings)
        array.push_back({{"part", each.part.toStdString()},
                         {"mark", findingMarks.at(static_cast<std::size_t>(each.mark))},
                         {"found", each.found.toStdString()},
                         {"advice", each.advice.toStdString()}});
    return QString::fromStdString(array.dump());
}

}

ExitStatus Doctor::report(bool isJson) const
{
    Findings all = findings();
    for (Finding &each : all) {
        each.found = withoutNames(each.found.simplified());
        each.advice = withoutNames(each.advice.simplified());
    }
    const bool isPrinted = m_surroundings.print(isJson ? asJson(all) : asText(all)) != PrintOutcome::failed;
    const bool isWell = std::ranges::none_of(all, [](const Finding &each) { return each.mark == Mark::failing; });
    return isPrinted && isWell ? ExitStatus::done : ExitStatus::failed;
}

Findings Doctor::findings() const
{
    Findings all{findProgram(), findApplication(), findHistory()};
    const Findings surroundings = m_surroundings.diagnose();
    all.insert(all.end(), surroundings.begin(), surroundings.end());
    all.push_back(findVideos());
    return all;
}

Finding Doctor::findApplication() const
{
    const QString part = QStringLiteral("application");
    const auto answer = m_client.ask({QStringLiteral("status"), {}, false}, QDeadlineTimer(longestAnswer));
    if (answer)
        return {part, Mark::there, QStringLiteral("it runs and answers"), {}};
    if (answer.error() == NoAnswer::silent)
        return {part, Mark::failing, QStringLiteral("it runs but does not answer"),
                QStringLiteral("End its process; what ran is recorded with the next start")};
    return {part, Mark::there, QStringLiteral("it does not run"), {}};
}

Finding Doctor::findHistory() const
{
    const QString part = QStringLiteral("history");
    const auto &support = m_surroundings.applicationSupportDirectory;
    if (!support)
        return {part, Mark::failing, QStringLiteral("it has no place"),
                QStringLiteral("Set HOME to the path of your home folder")};
    const QString path = CoreDataStack::storePath(*support);
    if (HistoryReports::hasNoStore(support))
        return {part, Mark::there, path + QStringLiteral(", not made yet"), {}};
    const auto phases = examineStore(path);
    if (!phases)
        return {part, Mark::failing, path + QStringLiteral(": ") + phases.error().detail, phases.error().advice()};
    return {part, Mark::there, QStringLiteral("%1, whole, %2 phases").arg(path).arg(*phases), {}};
}

Finding Doctor::findVideos() const
{
    const QString part = QStringLiteral("videos");
    const QString folder = m_surroundings.bundledVideosDirectory;
    const QStringList names = QDir(folder).entryList({QStringLiteral("*.mp4")}, QDir::Files);
    if (names.isEmpty())
        return {part, Mark::lacking, QStringLiteral("none came with the program: ") + folder,
                QStringLiteral("Install Tomcatto completely, or add videos of your own")};
    const QString found = QStringLiteral("%1 came with the program").arg(names.size());
    const auto look = m_surroundings.stillFrame.look(QDir(folder).filePath(names.first()), {0, smallPicture}, {});
    if (!look || !look->picture)
        return {part, Mark::lacking, found + QStringLiteral(", but no video can be looked into"),
                QStringLiteral("Install Tomcatto completely; videos cannot be added meanwhile")};
    return {part, Mark::there, found, {}};
}

}
