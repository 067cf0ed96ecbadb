#pragma once

namespace tomcatto {

/// Opens pages of the system's settings. Main thread only; the calls return before the page shows.
class SystemSettings
{
public:
    virtual ~SystemSettings() = default;

    /// Opens the page on what starts at login; where the system has none, the folder that holds the entries.
    /// @return whether something was opened.
    virtual bool openLoginItems() = 0;
    /// Opens the page on notifications. @return false where the system has none.
    virtual bool openNotifications() = 0;
};

}
