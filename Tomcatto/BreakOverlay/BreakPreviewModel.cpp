#include "BreakOverlay/BreakPreviewModel.h"

namespace tomcatto {

BreakPreviewModel::BreakPreviewModel(const PomodoroSettings &settings, const LocalizedStrings &strings,
                                     MainRunLoop &runLoop, BreakVideoSource videos, QObject *parent)
    : BreakContentModel(std::move(videos), !settings.soundEnabled(), parent)
    , m_settings(settings)
    , m_strings(strings)
    , m_totalSeconds(settings.shortBreakDurationSeconds())
    , m_remainingSeconds(m_totalSeconds)
    , m_cancellable(runLoop.every(std::chrono::seconds(1), [this] { count(); }))
{
    connect(&m_settings, &PomodoroSettings::changed, this, &BreakPreviewModel::refresh);
    connect(&m_strings, &LocalizedStrings::changed, this, &BreakPreviewModel::refresh);
    refresh();
}

void BreakPreviewModel::count()
{
    if (m_remainingSeconds == 0)
        return;
    --m_remainingSeconds;
    refresh();
}

void BreakPreviewModel::refresh()
{
    BreakContent content;
    content.phase = rawValue(PomodoroPhase::shortBreak);
    content.title = m_strings.text(QStringLiteral("breakoverlay.title"));
    content.subtitle = m_strings.text(QStringLiteral("breakoverlay.subtitle"));
    setCountdown(content, m_strings, m_remainingSeconds, m_totalSeconds);
    content.soundEnabled = m_settings.soundEnabled();
    setContent(content);
}

}
