#pragma once

#include "BreakOverlay/BreakContentModel.h"
#include "Platform/Ports/MainRunLoop.h"
#include "Timer/PomodoroSettings.h"

namespace tomcatto {

/// A break that only the preview window runs: its own countdown of a short break, which stops at zero and leaves the
/// timer alone. Main thread only.
class BreakPreviewModel final : public BreakContentModel
{
    Q_OBJECT

public:
    BreakPreviewModel(const PomodoroSettings &settings, const LocalizedStrings &strings, MainRunLoop &runLoop,
                      BreakVideoSource videos, QObject *parent = nullptr);

private:
    void count();
    void refresh();

    const PomodoroSettings &m_settings;
    const LocalizedStrings &m_strings;
    qint64 m_totalSeconds;
    qint64 m_remainingSeconds;
    Cancellable m_cancellable;
};

}
