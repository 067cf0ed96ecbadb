#include "App/AppDelegate.h"

#include "Composition/TimerCommands.h"

namespace tomcatto {

namespace {

// Old enough that nothing a person did goes, but a clock once set wrong by centuries does not stay for good.
constexpr qint64 pruneDays = 36'500;

// A key of its own: it is not a setting.
const QString popoverRevealedKey = QStringLiteral("didRevealPopover");

}

AppDelegate::AppDelegate(AppDependencies &dependencies, QObject *parent)
    : QObject(parent)
    , m_dependencies(dependencies)
{
    connectLanguage();
}

void AppDelegate::applicationWillFinishLaunching(const LaunchConditions &conditions)
{
    const UserDefaults &defaults = m_dependencies.platform.defaults;
    const bool isFirstAfterOnboarding =
        m_dependencies.settings.hasCompletedOnboarding() && !defaults.storedValue(popoverRevealedKey);
    m_pendingPopoverReveal = isFirstAfterOnboarding && !conditions.isBackground && !conditions.isUiTest;
}

void AppDelegate::applicationDidFinishLaunching(ApplicationSurfaces &surfaces)
{
    m_dependencies.platform.httpSession.configureUrlCache(remoteLibraryUrlCache);
    surfaces.prepare();
    m_dependencies.launchAtLoginService.readStatus();
    m_dependencies.session.recover();
    m_dependencies.sessionRepository.prune(pruneDays);
    m_dependencies.notificationCenterService.becomeDelegate();
    installAppUI(surfaces);
    surfaces.showOnboardingIfNeeded();
    m_dependencies.remoteVideoProvider.start();
}

void AppDelegate::applicationMayTerminate()
{
    m_dependencies.session.noteActivity();
    m_dependencies.coreDataStack.save();
    m_dependencies.platform.defaults.synchronize();
}

void AppDelegate::applicationWillTerminate()
{
    m_dependencies.session.recordTermination();
    m_dependencies.coreDataStack.save();
    m_dependencies.widgetBridge.writeFinalSnapshot();
    m_dependencies.platform.defaults.synchronize();
}

void AppDelegate::connectLanguage()
{
    // Settings and language service keep one choice; either may set it, and the change is announced once.
    PomodoroSettings &settings = m_dependencies.settings;
    LanguageOverrideService &service = m_dependencies.languageOverrideService;
    connect(&settings, &PomodoroSettings::changed, this, [&settings, &service](PomodoroSettings::Key key) {
        if (key == PomodoroSettings::Key::selectedLanguage)
            service.setLanguage(settings.selectedLanguage());
    });
    connect(&service, &LanguageOverrideService::languageDidChange, this,
            [&settings, &service] { settings.setSelectedLanguage(service.currentLanguage()); });
}

void AppDelegate::attachShortcuts()
{
    if (!m_dependencies.platform.desktop)
        return;
    const auto act = [&machine = m_dependencies.stateMachine](ShortcutAction action) {
        switch (action) {
        case ShortcutAction::toggleTimer:
            return toggleTimer(machine);
        case ShortcutAction::skip:
            return machine.skip();
        case ShortcutAction::extend:
            return machine.extend(extensionSeconds);
        }
        return false;
    };
    m_dependencies.shortcutsService.attach(std::make_unique<GlobalHotkeyController>(
        m_dependencies.platform.desktop->hotKeys, m_dependencies.strings, act));
}

void AppDelegate::followSleep()
{
    SleepWakeObserver &observer = m_dependencies.sleepWakeObserver;
    SleepWakeCoordinator &coordinator = m_dependencies.sleepWakeCoordinator;
    MannersService &manners = m_dependencies.manners;
    connect(&observer, &SleepWakeObserver::willSleep, &manners, &MannersService::prepareForSleep);
    coordinator.setResumeQuestion([&manners] { return !manners.hasPaused(); });
    coordinator.start();
    connect(&observer, &SleepWakeObserver::didWake, &manners, &MannersService::wakeUp);
    // Connected after the coordinator, so that the pause is part of it.
    connect(&observer, &SleepWakeObserver::willSleep, this, &AppDelegate::applicationMayTerminate);
}

void AppDelegate::installAppUI(ApplicationSurfaces &surfaces)
{
    if (std::exchange(m_appUIInstalled, true))
        return;
    surfaces.install();
    m_dependencies.notificationCenterService.start();
    m_dependencies.phaseSoundService.bind(m_dependencies.stateMachine, m_dependencies.manners);
    followSleep();
    attachShortcuts();
    m_dependencies.widgetBridge.start();
    if (std::exchange(m_pendingPopoverReveal, false)) {
        m_dependencies.platform.defaults.setValue(popoverRevealedKey, true);
        surfaces.revealPopover();
    }
}

}
