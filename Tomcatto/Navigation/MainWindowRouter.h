#pragma once

#include "Navigation/MainWindowPage.h"

#include <QtCore/QObject>

namespace tomcatto {

/// Opens the main window on a page. Surfaces ask here, without knowing the window; its owner listens. Main thread
/// only.
class MainWindowRouter final : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// The page asked for last; at first the timer.
    [[nodiscard]] MainWindowPage page() const noexcept { return m_page; }

    /// Opens the window on a page, or brings it to the front there.
    void open(MainWindowPage page);
    /// Opens the window on the page it showed last.
    void open() { open(m_page); }
    /// Opens the window on its first page, the timer's settings.
    void openSettings() { open(MainWindowPage::timer); }
    /// Notes the page that the user went to inside the window; opens nothing.
    void setCurrentPage(MainWindowPage page) noexcept { m_page = page; }

Q_SIGNALS:
    /// Asks the window to show this page, in front.
    void pageRequested(tomcatto::MainWindowPage page);

private:
    MainWindowPage m_page = MainWindowPage::timer;
};

}
