#pragma once

#include "Foundation/Logger.h"
#include "MainWindow/OnboardingViewModel.h"
#include "Timer/PomodoroStateMachine.h"
#include "ViewWindows/ViewWindows.h"

namespace tomcatto {

/// The names of what onboarding announces.
inline const QString onboardingCompletedNotification = QStringLiteral("studio.quillbay.Tomcatto.onboarding.completed");
inline const QString onboardingResetNotification = QStringLiteral("studio.quillbay.Tomcatto.onboarding.reset");

/// Shows onboarding until it was completed once. Closing its window leaves it for the next start. Main thread only.
class OnboardingController final : public QObject
{
    Q_OBJECT

public:
    OnboardingController(ViewWindows &windows, PomodoroSettings &settings, PomodoroStateMachine &stateMachine,
                         OnboardingViewModel &viewModel, QObject *parent = nullptr);

    /// Shows the window unless onboarding was completed.
    void showIfNeeded();
    /// Forgets that onboarding was completed and shows it again.
    void reset();
    [[nodiscard]] bool isShown() const noexcept { return m_window != nullptr; }

Q_SIGNALS:
    /// Posted as `onboardingCompletedNotification`, when the setting holds it already.
    void completed();
    /// Posted as `onboardingResetNotification`.
    void wasReset();

private:
    void show();
    void finish();

    ViewWindows &m_windows;
    PomodoroSettings &m_settings;
    PomodoroStateMachine &m_stateMachine;
    OnboardingViewModel &m_viewModel;
    Logger m_logger{QStringLiteral("OnboardingController")};
    std::unique_ptr<ViewWindow> m_window;
};

}
