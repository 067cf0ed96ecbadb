#pragma once

#include "Platform/Ports/ActivationPolicyPort.h"
#include "Platform/X11/X11WindowSystem.h"

#include <QtCore/QObject>

class QWindow;

namespace tomcatto {

/// The activation policy as presence in the taskbar: ordinary windows are listed there while the application is a
/// regular one. Frameless and tool windows never are. Where there is no X server the windows are listed as the desktop
/// likes.
class X11TaskbarPresence final : public QObject, public ActivationPolicyPort
{
    Q_OBJECT

public:
    X11TaskbarPresence();

    void setPolicy(ActivationPolicyKind kind) override;

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void apply(QWindow &window) const;

    X11WindowSystem m_state;
    ActivationPolicyKind m_kind = ActivationPolicyKind::accessory;
};

}
