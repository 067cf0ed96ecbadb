#pragma once

#include <QtCore/QString>
#include <system_error>

namespace tomcatto {

/// What the file of the widgets says now and did not say before.
enum class TimelineNews {
    /// Nothing but that time has passed, which widgets count by themselves.
    timePassed,
    changed,
};

/// The system's desktop widgets. Main thread only.
class WidgetCenter
{
public:
    virtual ~WidgetCenter() = default;

    /// Puts a file that was just written in the place of the one that widgets read, beside it, so that they see either
    /// whole. It is not forced to the disk.
    /// @return why it cannot be; the earlier file stays then
    [[nodiscard]] virtual std::error_code replaceFile(const QString &part, const QString &file) = 0;
    /// Asks every widget of a kind to read its data anew; the system may leave it out where only time has passed. Waits
    /// for nobody; without widgets it does nothing.
    virtual void reloadTimelines(const QString &kind, TimelineNews news) = 0;
};

}
