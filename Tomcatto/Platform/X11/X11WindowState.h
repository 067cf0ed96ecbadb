#pragma once

#include "Platform/X11/X11Display.h"

#include <QtCore/QList>
#include <QtGui/qrgb.h>

class QWindow;

namespace tomcatto {

/// Wishes about windows that the window manager fulfils and the toolkit has no words for. Where there is no X server,
/// nothing happens. A window manager forgets them when a window is hidden: they are given at each showing. Main thread
/// only.
class X11WindowState final
{
public:
    /// Keeps a window out of the taskbar and the pager, or shows it there.
    void setInTaskbar(QWindow &window, bool isInTaskbar) const;
    /// Keeps a window above the others, on every workspace, and out of taskbar and pager.
    void setFloating(QWindow &window) const;
    /// What the display server shows of the window where it was not drawn yet; otherwise that is whatever was there.
    void setGround(QWindow &window, QRgb colour) const;

private:
    void setStates(QWindow &window, const QList<QByteArray> &names, bool isOn) const;

    X11Display m_display;
};

}
