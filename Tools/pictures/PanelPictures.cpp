#include "Appearance/AppearanceSettings.h"
#include "Appearance/Texts.h"
#include "Fakes/MenuBarFixture.h"
#include "MenuBar/MenubarPanelViewModel.h"
#include "MenuBar/StatusPillRenderer.h"
#include "MenuBar/TrayIconRenderer.h"
#include "pictures/SampleHistory.h"
#include "StatisticsViews/StatisticsViewModel.h"
#include "StatusPill/StatusPillSource.h"

#include <QtCore/QDir>
#include <QtCore/QTimer>
#include <QtGui/QGuiApplication>
#include <QtQml/QQmlComponent>
#include <QtQml/QQmlEngine>
#include <QtQuick/QQuickWindow>

// Writes a picture of the panel in every state, light and dark, in the language given:
// TomcattoPanelPictures FOLDER [LANGUAGE]

namespace {

using namespace std::chrono_literals;
using namespace tomcatto;

const char *const states[] = {"idle",     "working",    "paused", "short-break", "long-paused", "pending",
                              "overtime", "statistics", "empty",  "held",        "full-screen", "away"};

void reach(MenuBarFixture &services, PopoverNavigationStore &navigation, const QString &state)
{
    PomodoroStateMachine &machine = services.machine;
    services.settings.setAutoStartBreaks(state != QLatin1String("pending"));
    services.settings.setOverflowEnabled(state == QLatin1String("overtime"));
    if (state == QLatin1String("statistics") || state == QLatin1String("empty"))
        navigation.append(PopoverRoute::stats);
    else if (state != QLatin1String("idle"))
        machine.start();
    if (state == QLatin1String("working") || state == QLatin1String("paused"))
        services.pass(528s);
    if (state == QLatin1String("long-paused")) {
        services.settings.setCyclesBeforeLongBreak(1);
        services.pass(1502s);
    }
    if (state.endsWith(QLatin1String("paused")))
        machine.pause();
    if (state == QLatin1String("short-break") || state == QLatin1String("pending"))
        services.pass(1602s);
    if (state == QLatin1String("held") || state == QLatin1String("full-screen")) {
        services.turnOn({MannersSettings::Key::waitsDuringCalls, MannersSettings::Key::waitsInFullScreen});
        services.tell(state == QLatin1String("held") ? services.surroundings.call : services.surroundings.fullScreen,
                      Fact::yes);
        services.pass(1602s);
    }
    if (state == QLatin1String("away")) {
        services.turnOn({MannersSettings::Key::pausesWhenAway});
        services.pass(528s);
        services.tell(services.surroundings.lock, Fact::yes);
        services.tell(services.surroundings.lock, Fact::no);
    }
    if (state == QLatin1String("overtime"))
        services.pass(1661s);
}

bool picture(const QString &state, bool dark, const QString &language, const QDir &folder)
{
    MenuBarFixture services(language);
    if (state != QLatin1String("empty")) {
        services.history.stamps = samplePhases(services.wallClock.now(), 109);
        services.history.earliest = services.history.stamps.front().startedAt;
    }
    PopoverNavigationStore navigation;
    MainWindowRouter router;
    reach(services, navigation, state);
    QCoreApplication::processEvents();
    MenubarPanelViewModel panel(services.services, navigation, router);
    StatisticsViewModel statistics(
        {services.aggregator, services.settings, services.strings, services.wallClock, services.sessionExport},
        StatisticsForm::panel);
    statistics.setShown(true);

    QQmlEngine engine;
    AppearanceSettings appearance(nullptr);
    appearance.setDark(dark);
    appearance.setReducedMotion(true);
    appearance.install(engine);
    Texts::install(engine, services.strings);
    QQmlComponent component(&engine,
                            QUrl(QStringLiteral("qrc:/qt-project.org/imports/Tomcatto/MenuBar/MenubarPanelView.qml")));
    const std::unique_ptr<QObject> root(component.createWithInitialProperties(
        {{QStringLiteral("viewModel"), QVariant::fromValue<QObject *>(&panel)},
         {QStringLiteral("statistics"), QVariant::fromValue<QObject *>(&statistics)}}));
    auto *window = qobject_cast<QQuickWindow *>(root.get());
    if (!window) {
        qWarning("%s", qPrintable(component.errorString()));
        return false;
    }
    if (panel.showsStatistics())
        window->resize(400, 560);
    window->show();
    QEventLoop settling;
    QTimer::singleShot(300, &settling, &QEventLoop::quit);
    settling.exec();
    const QString name =
        QStringLiteral("%1-%2-%3").arg(state, dark ? QStringLiteral("dark") : QStringLiteral("light"), language);
    const StatusArt art;
    const StatusPillSource source(services.machine, services.timer, services.settings, services.strings);
    return window->grabWindow().save(folder.filePath(name + QStringLiteral(".png"))) &&
           StatusPillRenderer(art)
               .render(source.content(dark), 2)
               ->save(folder.filePath(name + QStringLiteral("-pill.png"))) &&
           TrayIconRenderer(art)
               .render(source.content(dark), 48)
               ->save(folder.filePath(name + QStringLiteral("-tray.png")));
}

}

int main(int argc, char **argv)
{
    const QGuiApplication application(argc, argv);
    const QStringList arguments = QGuiApplication::arguments();
    const QDir folder(arguments.value(1, QStringLiteral(".")));
    bool written = folder.mkpath(QStringLiteral("."));
    for (const char *state : states) {
        for (const bool dark : {false, true})
            written =
                picture(QString::fromLatin1(state), dark, arguments.value(2, QStringLiteral("en")), folder) && written;
    }
    return written ? 0 : 1;
}
