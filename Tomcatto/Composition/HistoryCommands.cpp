#include "Composition/HistoryCommands.h"

#include "Foundation/EnumTexts.h"
#include "Persistence/CoreDataStack.h"
#include "Platform/Ports/IdentifierSource.h"

#include <QtCore/QDir>

namespace tomcatto {

namespace {

using Json = nlohmann::ordered_json;

ControlReply refused(const QString &text)
{
    return controlReply(ExitStatus::notApplicable, text);
}

/// That of the one who asks: the application may live in another time zone.
Calendar calendarOf(const HistoryCommandParts &parts, const Json &arguments)
{
    Calendar calendar = parts.wallClock.calendar();
    const QTimeZone zone(textArgument(arguments, "zone").toUtf8());
    if (zone.isValid())
        calendar.timeZone = zone;
    return calendar;
}

QString phaseName(PomodoroPhase phase)
{
    return textOf(std::array{"A phase", "Focus", "Short break", "Long break"}, phase);
}

QString localText(Date date, const Calendar &calendar, const QString &format)
{
    return toDateTime(date).toTimeZone(calendar.timeZone).toString(format);
}

QString overlapText(const EndedPhase &phase, const Calendar &calendar)
{
    const QString start = localText(phase.startedAt.value_or(Date()), calendar, QStringLiteral("yyyy-MM-dd HH:mm"));
    if (!phase.endedAt)
        return QStringLiteral("%1 has been there since %2.").arg(phaseName(phase.phase), start);
    return QStringLiteral("%1, %2 – %3, is there already.")
        .arg(phaseName(phase.phase), start, localText(*phase.endedAt, calendar, QStringLiteral("HH:mm")));
}

ControlReply replyTo(const AddRefusal &refusal, const Calendar &calendar)
{
    switch (refusal.reason) {
    case AddRefusal::Reason::length:
        break;
    case AddRefusal::Reason::future:
        return refused(QStringLiteral("It would end after now."));
    case AddRefusal::Reason::overlap:
        return refused(refusal.phase ? overlapText(*refusal.phase, calendar)
                                     : QStringLiteral("A phase of another kind is there already."));
    case AddRefusal::Reason::store:
        return controlReply(ExitStatus::failed, refusal.problem);
    }
    return controlReply(ExitStatus::usage, QStringLiteral("The length is out of bounds."));
}

ControlReply addPhase(const HistoryCommandParts &parts, const Json &arguments)
{
    const auto wanted = forgottenPhase(textArgument(arguments, "start"), textArgument(arguments, "minutes"));
    if (!wanted)
        return controlReply(ExitStatus::usage, wanted.error());
    const Calendar calendar = calendarOf(parts, arguments);
    const auto start = calendar.instant(wanted->day, wanted->time);
    if (!start)
        return controlReply(
            ExitStatus::usage,
            QStringLiteral("The clocks skip %1, so it was never that time.").arg(textArgument(arguments, "start")));
    const auto id = identifierFromText(textArgument(arguments, "id"));
    const auto added = parts.editor.add(*start, wanted->minutes, id);
    if (added)
        return controlReply(ExitStatus::done, identifierText(added->id));
    const auto &taken = added.error().phase;
    return id && taken && taken->id == *id ? controlReply(ExitStatus::done, identifierText(*id))
                                           : replyTo(added.error(), calendar);
}

ControlReply removePhase(const HistoryCommandParts &parts, const Json &arguments)
{
    const QString text = textArgument(arguments, "id");
    const auto id = identifierFromText(text);
    if (!id)
        return controlReply(ExitStatus::usage,
                            QStringLiteral("\"%1\" is not the id of a phase; see history list").arg(text));
    const auto removed = parts.editor.remove(*id);
    if (!removed)
        return controlReply(ExitStatus::failed, removed.error().description());
    return *removed ? ControlReply{} : refused(QStringLiteral("There is no phase \"%1\".").arg(text));
}

QString countText(qint64 phases)
{
    return phases == 1 ? QStringLiteral("1 phase") : QStringLiteral("%1 phases").arg(phases);
}

QString importedText(const HistoryImporter::Imported &imported)
{
    const qint64 present = imported.all - imported.added;
    const QString added = QStringLiteral("%1 added").arg(countText(imported.added));
    return present == 0 ? added + u'.' : QStringLiteral("%1, %2 there already.").arg(added).arg(present);
}

void importFile(const HistoryCommandParts &parts, const Json &arguments, const CommandTable::Answer &answer)
{
    const QString path = textArgument(arguments, "path");
    if (!QDir::isAbsolutePath(path))
        return answer(controlReply(ExitStatus::usage, QStringLiteral("\"%1\" is not an absolute path").arg(path)));
    parts.importer.importFile(path, [answer](const HistoryImporter::Result &imported) {
        answer(imported ? controlReply(ExitStatus::done, importedText(*imported))
                        : controlReply(ExitStatus::failed, imported.error()));
    });
}

}

std::expected<ForgottenPhase, QString> forgottenPhase(const QString &start, const QString &minutes)
{
    // Apart: together they may be a time that the program's own time zone skips.
    const QStringList parts = start.split(u'T');
    const QDate day = QDate::fromString(parts.value(0), QStringLiteral("yyyy-MM-dd"));
    const QTime time = QTime::fromString(parts.value(1), QStringLiteral("HH:mm"));
    if (!day.isValid() || !time.isValid() || parts.size() != 2)
        return std::unexpected(
            QStringLiteral("\"%1\" is not a local date and time such as 2026-11-21T09:30").arg(start));
    bool isNumber = false;
    const qint64 number = minutes.toLongLong(&isNumber);
    if (!isNumber || number < HistoryEditor::shortestMinutes || number > HistoryEditor::longestMinutes)
        return std::unexpected(QStringLiteral("minutes: \"%1\" is not allowed; use a whole number from %2 to %3")
                                   .arg(minutes)
                                   .arg(HistoryEditor::shortestMinutes)
                                   .arg(HistoryEditor::longestMinutes));
    return ForgottenPhase{day, time, number};
}

QString keptStoreName(const WallClock &wallClock)
{
    return QStringLiteral("Tomcatto ") +
           localText(wallClock.now(), wallClock.calendar(), QStringLiteral("yyyy-MM-dd HH.mm.ss"));
}

ControlReply replyTo(const StoreCopyResult<QString> &kept)
{
    if (kept)
        return controlReply(ExitStatus::done, kept->isEmpty()
                                                  ? QString()
                                                  : QStringLiteral("The earlier history is kept as %1").arg(*kept));
    return controlReply(kept.error());
}

void addHistoryCommands(CommandTable &table, const HistoryCommandParts &parts)
{
    table.addLater(QStringLiteral("history"), [parts](const Json &arguments, const CommandTable::Answer &answer) {
        const QString action = textArgument(arguments, "action");
        if (action == QStringLiteral("add"))
            return answer(addPhase(parts, arguments));
        if (action == QStringLiteral("remove"))
            return answer(removePhase(parts, arguments));
        if (action == QStringLiteral("import"))
            return importFile(parts, arguments, answer);
        if (action == QStringLiteral("restore"))
            return answer(
                replyTo(parts.stack.replaceStore(textArgument(arguments, "path"), keptStoreName(parts.wallClock))));
        answer(controlReply(ExitStatus::usage, QStringLiteral("Unknown action \"%1\" on the history").arg(action)));
    });
}

}
