#include "Platform/Views/ProcessViewHost.h"

#include "Platform/Views/RemoteView.h"

#include <QtCore/QFile>
#include <QtCore/QLibraryInfo>
#include <QtCore/QProcess>

namespace tomcatto {

namespace {

/// The modules that views import, which packages of their own bring, as the engine's folders have them.
QStringList missingModules()
{
    const QString folder = QLibraryInfo::path(QLibraryInfo::QmlImportsPath) + u'/';
    QStringList missing;
    for (const char *module :
         {"QtQml", "QtQml/Models", "QtQml/WorkerScript", "QtQuick", "QtQuick/Templates", "QtQuick/Window"}) {
        if (!QFile::exists(folder + QLatin1String(module) + QStringLiteral("/qmldir")))
            missing << QString::fromLatin1(module).replace(u'/', u'.');
    }
    return missing;
}

/// Why a program does not even begin; empty where it does.
QString whyNotStarting(const QString &program)
{
    if (!QFile::exists(program))
        return QStringLiteral("%1 is not there").arg(program);
    QProcess process;
    process.start(program, {QStringLiteral("--check")});
    process.waitForFinished();
    if (process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0 &&
        process.error() == QProcess::UnknownError)
        return {};
    const QString said = QString::fromLocal8Bit(process.readAllStandardError()).simplified();
    return said.isEmpty() ? QStringLiteral("%1 does not start").arg(program) : said;
}

}

ProcessViewHost::ProcessViewHost(ViewProcess &process, MainRunLoop &runLoop, QObject &appearance, QObject &texts,
                                 std::function<void()> released)
    : m_process(process)
    , m_runLoop(runLoop)
    , m_appearance(appearance)
    , m_texts(texts)
    , m_released(std::move(released))
{
    connect(&process, &ViewProcess::began, this, &ProcessViewHost::begin);
    connect(&process, &ViewProcess::received, this, &ProcessViewHost::take);
    connect(&process, &ViewProcess::lost, this, &ProcessViewHost::loseAll);
}

ProcessViewHost::~ProcessViewHost() = default;

Finding ProcessViewHost::find(const QStringList &programs)
{
    const QString part = QStringLiteral("windows");
    const QString advice = QStringLiteral("Install Tomcatto completely, with the packages that it depends on");
    for (const QString &program : programs) {
        if (const QString reason = whyNotStarting(program); !reason.isEmpty())
            return {part, Finding::Mark::failing, reason, advice};
    }
    if (const QStringList missing = missingModules(); !missing.empty())
        return {part, Finding::Mark::failing,
                QStringLiteral("these modules of QML are missing: ") + missing.join(QLatin1String(", ")), advice};
    return {part, Finding::Mark::there, QStringLiteral("what they need is there"), {}};
}

void ProcessViewHost::begin()
{
    m_publisher =
        std::make_shared<ObjectPublisher>(m_runLoop, [this](const ViewMessage &message) { m_process.send(message); });
    const int looks = m_publisher->publish(m_appearance);
    m_process.send(ViewMessageKind::surroundings, {looks, m_publisher->publish(m_texts)});
}

void ProcessViewHost::ask(int number, const ViewDescription &description)
{
    m_process.start();
    if (m_process.isRunning()) {
        const QVariant properties = m_publisher->published(description.properties);
        m_process.send(ViewMessageKind::create, {number, static_cast<int>(description.kind), description.module,
                                                 description.component, properties});
    }
    const auto answer = m_process.await(ViewMessageKind::created);
    m_problem = answer ? answer->arguments.value(1).toString() : m_process.problem();
}

std::unique_ptr<HostedView> ProcessViewHost::create(const ViewDescription &description)
{
    m_rest.cancel();
    const int number = ++m_lastView;
    const bool wasRunning = m_process.isRunning();
    ask(number, description);
    // One that hung or ended before is not the view's fault.
    if (wasRunning && !m_process.isRunning())
        ask(number, description);
    if (!m_problem.isEmpty()) {
        rest();
        return nullptr;
    }
    auto view = std::make_unique<RemoteView>(*this, number, description.kind);
    m_views[number] = view.get();
    return view;
}

void ProcessViewHost::take(const ViewMessage &message)
{
    const QVariantList &arguments = message.arguments;
    switch (message.kind) {
    case ViewMessageKind::call:
    case ViewMessageKind::fetchMore:
        return std::shared_ptr(m_publisher)->obey(message);
    case ViewMessageKind::told:
        if (const auto view = m_views.find(arguments.value(0).toInt()); view != m_views.end())
            view->second->take(arguments);
        return;
    case ViewMessageKind::logged:
        return log(arguments);
    case ViewMessageKind::destroyed:
        m_leaving.erase(arguments.value(0).toInt());
        return rest();
    default:
        return;
    }
}

void ProcessViewHost::log(const QVariantList &line)
{
    const Logger logger(line.value(1).toString());
    const QString message = line.value(2).toString();
    switch (static_cast<LogLevel>(line.value(0).toInt())) {
    case LogLevel::debug:
        return logger.debug(message);
    case LogLevel::info:
        return logger.info(message);
    case LogLevel::error:
    case LogLevel::fault:
        return logger.error(message);
    }
}

void ProcessViewHost::awaitEnd(int view)
{
    m_leaving[view] = m_runLoop.after(ViewProcess::patience, [this] { m_process.giveUp(); });
}

void ProcessViewHost::forget(int view)
{
    m_views.erase(view);
    if (!m_process.isRunning())
        return;
    m_process.send(ViewMessageKind::destroy, {view});
    awaitEnd(view);
}

void ProcessViewHost::rest()
{
    if (!m_views.empty() || !m_leaving.empty())
        return;
    m_rest = m_runLoop.after(keptTime, [this] {
        m_process.end();
        m_publisher.reset();
        m_released();
    });
}

void ProcessViewHost::loseAll()
{
    m_publisher.reset();
    m_leaving.clear();
    m_rest.cancel();
    for (const auto &[number, view] : std::exchange(m_views, {}))
        view->lose();
}

}
