#pragma once

#include "Platform/Qt/ApplicationClickMonitor.h"
#include "Platform/X11/X11Display.h"

#include <QtCore/QAbstractNativeEventFilter>

namespace tomcatto {

/// Presses of the mouse anywhere on the screens. On X11 the server tells of every one, whichever window it is for,
/// while somebody is subscribed and not otherwise; elsewhere, or with an old server, only those in the application's
/// own windows are known. The wheel is not a press.
class X11ClickMonitor final : public ApplicationClickMonitor, private QAbstractNativeEventFilter
{
    Q_OBJECT

public:
    X11ClickMonitor();
    ~X11ClickMonitor() override;

    void notice(QPoint place) override;

private:
    bool nativeEventFilter(const QByteArray &eventType, void *message, qintptr *result) override;
    void subscribe() override;
    void unsubscribe() override;
    void selectRawPresses(bool isOn) const;

    X11Display m_display;
    /// Opcode of the input extension; 0 where presses elsewhere cannot be seen.
    uint8_t m_extension = 0;
};

}
