#pragma once

#include "Foundation/Calendar.h"
#include "Localization/LocalizedStrings.h"
#include "Statistics/EndedPhase.h"

namespace tomcatto {

/// How the log words phases and days. A light value; the texts outlive it. Main thread only.
struct SessionTexts
{
    const LocalizedStrings &strings;
    Calendar calendar;

    /// "Focus".
    [[nodiscard]] QString name(PomodoroPhase phase) const;
    /// "13:29 – 13:58"; the start alone where no end is stored.
    [[nodiscard]] QString times(const EndedPhase &phase) const;
    /// "25 min", with what it had more or less than planned: "29 min, 4 over", "8 min of 15", "20 s of 5 min".
    [[nodiscard]] QString length(const EndedPhase &phase) const;
    /// "Done", "Skipped" or "Stopped".
    [[nodiscard]] QString outcome(const EndedPhase &phase) const;
    /// "Today", "Yesterday", else the date; with its year where that is not this one.
    [[nodiscard]] QString day(QDate day, QDate today) const;
    /// The same, narrow: "Today, 18 November", "Mon 10 November", "Mon 10 Nov 2025".
    [[nodiscard]] QString shortDay(QDate day, QDate today) const;
    /// "Focus, 25 min".
    [[nodiscard]] QString summary(const EndedPhase &phase) const;

private:
    [[nodiscard]] QString plainLength(const EndedPhase &phase) const;
    [[nodiscard]] QString time(Date date) const;
};

}
