#pragma once

#include "Platform/Qt/TrayPresence.h"
#include "Platform/X11/X11Display.h"

#include <QtCore/QAbstractNativeEventFilter>

namespace tomcatto {

/// The tray of an X server that takes in windows. Where there is no X server there is none. Main thread only.
class X11TrayWatcher final : public TrayPresence, private QAbstractNativeEventFilter
{
    Q_OBJECT

public:
    X11TrayWatcher();
    ~X11TrayWatcher() override;

    [[nodiscard]] bool hasTray() const override { return m_owner != XCB_WINDOW_NONE; }

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
