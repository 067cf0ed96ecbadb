#include "MainWindow/OnboardingController.h"

#include <QtGui/QWindow>

namespace tomcatto {

OnboardingController::OnboardingController(ViewHost &viewHost, PomodoroSettings &settings,
                                           PomodoroStateMachine &stateMachine, OnboardingViewModel &viewModel,
                                           QObject *parent)
    : QObject(parent)
    , m_viewHost(viewHost)
    , m_settings(settings)
    , m_stateMachine(stateMachine)
    , m_viewModel(viewModel)
{
    connect(&viewModel, &OnboardingViewModel::finished, this, &OnboardingController::finish);
}

OnboardingController::~OnboardingController() = default;

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
    if (!m_view) {
        m_view = m_viewHost.create({QStringLiteral("Tomcatto.MainWindow"),
                                    QStringLiteral("OnboardingWindow"),
                                    {{QStringLiteral("viewModel"), QVariant::fromValue<QObject *>(&m_viewModel)}}});
        if (!m_view)
            return;
        // The window is let go after its signal has been delivered.
        connect(
            &m_view->window(), &QWindow::visibleChanged, this,
            [this](bool isVisible) {
                if (!isVisible)
                    close();
            },
            Qt::QueuedConnection);
    }
    m_view->window().show();
    m_view->window().raise();
    m_view->window().requestActivate();
}

void OnboardingController::close()
{
    if (m_view && !m_view->window().isVisible())
        m_view.reset();
}

void OnboardingController::finish()
{
    m_settings.setHasCompletedOnboarding(true);
    // Seen again later, it may find a focus phase that waits or is paused.
    if (!m_stateMachine.start() && m_stateMachine.currentPhase() == PomodoroPhase::working)
        m_stateMachine.resume();
    if (m_view)
        m_view->window().hide();
    m_logger.debug(onboardingCompletedNotification);
    Q_EMIT completed();
}

}
