#pragma once

#include <functional>
#include <QtCore/QtGlobal>

namespace tomcatto {

/// Follows one download and reports how far it is, in steps that a bar can show.
class RemoteDownloadDelegate final
{
public:
    /// @param onProgress takes a fraction from 0 to 1; may be empty
    explicit RemoteDownloadDelegate(std::function<void(double)> onProgress)
        : m_onProgress(std::move(onProgress))
    {
    }

    /// @param total below 1 where nobody knows
    void didReceive(qint64 received, qint64 total)
    {
        constexpr double step = 0.02;
        // The end is reported once the file is whole.
        const double fraction = total > 0 ? static_cast<double>(received) / static_cast<double>(total) : 0;
        if (fraction < 1 && fraction >= m_lastReportedProgress + step)
            report(fraction);
    }
    void didFinish() { report(1); }

private:
    void report(double fraction)
    {
        m_lastReportedProgress = fraction;
        if (m_onProgress)
            m_onProgress(fraction);
    }

    std::function<void(double)> m_onProgress;
    double m_lastReportedProgress = 0;
};

}
