#pragma once

#include "Platform/X11/X11Display.h"

#include <QtCore/QAbstractNativeEventFilter>
#include <QtCore/QObject>

namespace tomcatto {

/// Tells whether a tray that takes in windows runs on the X server, and follows its coming and going by events. Where
/// there is no X server there is no tray. Main thread only.
class X11TrayWatcher final : public QObject, private QAbstractNativeEventFilter
{
    Q_OBJECT

public:
    X11TrayWatcher();
    ~X11TrayWatcher() override;

    [[nodiscard]] bool hasTray() const noexcept { return m_owner != XCB_WINDOW_NONE; }

Q_SIGNALS:
    /// The tray came, went or was replaced by another one.
    void trayChanged();

private:
    bool nativeEventFilter(const QByteArray &eventType, void *message, qintptr *result) override;
    [[nodiscard]] xcb_window_t watchedOwner() const;
    void update();

    X11Display m_display;
    xcb_atom_t m_selection = XCB_ATOM_NONE;
    xcb_atom_t m_manager = XCB_ATOM_NONE;
    xcb_window_t m_owner = XCB_WINDOW_NONE;
};

}
