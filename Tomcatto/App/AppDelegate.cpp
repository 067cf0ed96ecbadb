#include "App/AppDelegate.h"

namespace tomcatto {

namespace {

// Old enough that nothing a person did goes, but a clock once set wrong by centuries does not stay for good.
constexpr qint64 pruneDays = 36'500;

}

AppDelegate::AppDelegate(AppDependencies &dependencies, std::function<void()> installSurfaces, QObject *parent)
    : QObject(parent)
    , m_dependencies(dependencies)
    , m_installSurfaces(std::move(installSurfaces))
{
    connectLanguage();
}

void AppDelegate::applicationDidFinishLaunching()
{
    m_dependencies.session.recover();
    m_dependencies.sessionRepository.prune(pruneDays);
    installAppUI();
}

void AppDelegate::applicationWillTerminate()
{
    m_dependencies.session.recordTermination();
    m_dependencies.coreDataStack.save();
    m_dependencies.platform.defaults.synchronize();
}

void AppDelegate::connectLanguage()
{
    // Settings and language service keep one choice; whoever sets it, the change is announced once.
    PomodoroSettings &settings = m_dependencies.settings;
    LanguageOverrideService &service = m_dependencies.languageOverrideService;
    connect(&settings, &PomodoroSettings::changed, this, [&settings, &service](PomodoroSettings::Key key) {
        if (key == PomodoroSettings::Key::selectedLanguage)
            service.setLanguage(settings.selectedLanguage());
    });
    connect(&service, &LanguageOverrideService::languageDidChange, this,
            [&settings, &service] { settings.setSelectedLanguage(service.currentLanguage()); });
}

void AppDelegate::installAppUI()
{
    if (std::exchange(m_appUIInstalled, true))
        return;
    m_installSurfaces();
    m_dependencies.sleepWakeCoordinator.start();
}

}
