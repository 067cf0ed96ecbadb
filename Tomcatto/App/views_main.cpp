#include "Foundation/ApplicationIdentity.h"
#include "Foundation/Logger.h"
#include "Localization/LocalizedStrings.h"
#include "Platform/Posix/CompanionProgram.h"
#include "Platform/Qt/QtMainRunLoop.h"
#include "Platform/Qt/QuickViewHost.h"
#include "Platform/Sets/ViewSet.h"
#include "Platform/Views/ViewDesk.h"

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <QtGui/QIcon>
#include <QtQuick/QQuickWindow>
#include <string_view>

using namespace tomcatto;

namespace {

/// The program says which language its texts have. Nothing is kept.
class SpokenLanguage final : public UserDefaults
{
public:
    [[nodiscard]] std::optional<DefaultsValue> value(const QString & /*key*/) const override { return m_language; }
    [[nodiscard]] std::optional<DefaultsValue> storedValue(const QString & /*key*/) const override
    {
        return m_language;
    }
    void setValue(const QString & /*key*/, const DefaultsValue &value) override { m_language = value; }
    void remove(const QString & /*key*/) override {}
    bool synchronize() override { return true; }

private:
    std::optional<DefaultsValue> m_language;
};

bool isDrawingChosenByEnvironment()
{
    constexpr const char *variables[] = {"QT_QUICK_BACKEND", "QSG_RHI_BACKEND", "QMLSCENE_DEVICE"};
    return std::ranges::any_of(variables, [](const char *name) { return qEnvironmentVariableIsSet(name); });
}

void chooseDrawing(const ViewSet &set)
{
    const bool isDrawnBySoftware = !isDrawingChosenByEnvironment() && !set.hasGraphicsProcessor;
    if (isDrawnBySoftware)
        QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    Logger(QStringLiteral("Views"))
        .debug(isDrawnBySoftware ? QStringLiteral("views are drawn by the processor")
                                 : QStringLiteral("views are drawn as the environment or the graphics processor does"));
}

int runViews(LocalConnection &connection)
{
    const ViewSet set = makeViewSet();
    QtMainRunLoop runLoop;
    WindowPlaces places(runLoop, set.windowSystem);
    SpokenLanguage spoken;
    LanguageOverrideService language(spoken);
    LocalizedStrings texts(language);
    ViewDesk desk({connection, runLoop, set.taskbar,
                   [&](QObject &looks) { return std::make_unique<QuickViewHost>(looks, texts, places); },
                   [&](const QString &name) {
                       if (const auto known = fromRawValue<SelectedLanguage>(name))
                           language.setLanguage(*known);
                   },
                   [] { QCoreApplication::quit(); }});
    // The lines belong into the program's log, those of threads that draw as well.
    setLogSink([&desk](LogLevel level, const QString &category, const QString &message) {
        QMetaObject::invokeMethod(&desk, [&desk, line = QVariantList{static_cast<int>(level), category, message}] {
            desk.send(ViewMessageKind::logged, line);
        });
    });
    qInstallMessageHandler([](QtMsgType type, const QMessageLogContext &, const QString &message) {
        // The process ends right after it.
        if (type == QtFatalMsg)
            std::fputs(qUtf8Printable(message + u'\n'), stderr);
        const Logger logger(QStringLiteral("Qt"));
        if (type == QtDebugMsg || type == QtInfoMsg)
            logger.debug(message);
        else
            logger.error(message);
    });
    chooseDrawing(set);
    const int status = QGuiApplication::exec();
    qInstallMessageHandler(nullptr);
    setLogSink({});
    return status;
}

}

/// Started by the program with the number of a socket; with `--check` only to see whether it starts.
int main(int argc, char **argv)
{
    if (argc == 2 && std::string_view(argv[1]) == "--check")
        return 0;
    const auto connection = argc == 2 ? companionsConnection(QByteArray(argv[1]).toInt()) : nullptr;
    if (!connection) {
        std::fputs("tomcatto-views is started by Tomcatto itself.\n", stderr);
        return 2;
    }
    // For the program too, which ends this one.
    std::signal(SIGINT, SIG_IGN);
    prepareForViews();
    const QGuiApplication application(argc, argv);
    QCoreApplication::setApplicationName(productName);
    QGuiApplication::setDesktopFileName(applicationIdentifier);
    QGuiApplication::setWindowIcon(QIcon(QStringLiteral(":/tomcatto/app-icon.svg")));
    QGuiApplication::setQuitOnLastWindowClosed(false);
    return runViews(*connection);
}
