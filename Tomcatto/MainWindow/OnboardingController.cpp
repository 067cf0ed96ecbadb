#include "MainWindow/OnboardingController.h"

namespace tomcatto {

OnboardingController::OnboardingController(ViewWindows &windows, PomodoroSettings &settings,
                                           PomodoroStateMachine &stateMachine, OnboardingViewModel &viewModel,
                                           QObject *parent)
    : QObject(parent)
    , m_windows(windows)
    , m_settings(settings)
    , m_stateMachine(stateMachine)
    , m_viewModel(viewModel)
{
    connect(&viewModel, &OnboardingViewModel::finished, this, &OnboardingController::finish);
}

void OnboardingController::showIfNeeded()
{
    if (!m_settings.hasCompletedOnboarding())
        show();
}

void OnboardingController::reset()
{
    m_settings.setHasCompletedOnboarding(false);
    m_logger.debug(onboardingResetNotification);
    Q_EMIT wasReset();
    show();
}

void OnboardingController::show()
{
    m_viewModel.restart();
    if (!m_window) {
        m_window = m_windows.make({QStringLiteral("Tomcatto.MainWindow"),
                                   QStringLiteral("OnboardingWindow"),
                                   {{QStringLiteral("viewModel"), QVariant::fromValue<QObject *>(&m_viewModel)}}});
        if (!m_window)
            return;
        connect(m_window.get(), &ViewWindow::closed, this, [this] { m_window.reset(); });
    }
    m_window->view().present();
}

void OnboardingController::finish()
{
    m_settings.setHasCompletedOnboarding(true);
    // Seen again later, it may find a focus phase that waits or is paused.
    if (!m_stateMachine.start() && m_stateMachine.currentPhase() == PomodoroPhase::working)
        m_stateMachine.resume();
    m_window.reset();
    m_logger.debug(onboardingCompletedNotification);
    Q_EMIT completed();
}

}
