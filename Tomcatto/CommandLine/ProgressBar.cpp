#include "CommandLine/ProgressBar.h"

#include <algorithm>
#include <cmath>

namespace tomcatto {

namespace {

constexpr int longestBar = 60;
// Brackets, a space and "100 %".
constexpr int aroundBar = 9;
constexpr double hundred = 100;

}

ProgressBar::ProgressBar(const CommandSurroundings &surroundings)
    : m_surroundings(surroundings)
    , m_display(surroundings.outputDisplay())
{
}

void ProgressBar::show(double fraction)
{
    if (!m_display.isTerminal)
        return;
    const double part = std::clamp(fraction, 0.0, 1.0);
    const int width = std::clamp(m_display.columns - aroundBar, 1, longestBar);
    const int full = static_cast<int>(std::lround(part * width));
    const QByteArray line = "\r[" + QByteArray(full, '#') + QByteArray(width - full, ' ') + "] " +
                            QByteArray::number(std::lround(part * hundred)).rightJustified(3) + " %";
    static_cast<void>(m_surroundings.write(line));
    m_isShown = true;
}

void ProgressBar::end()
{
    // Back to the beginning, and the rest of the line gone.
    if (m_isShown)
        static_cast<void>(m_surroundings.write("\r\033[K"));
}

}
