#pragma once

#include "Platform/Qt/TrayPresence.h"

#include <QtCore/QTimer>

namespace tomcatto {

/// What the toolkit knows of trays. It tells of no change by itself, so it is asked now and then.
class ToolkitTrayPresence final : public TrayPresence
{
    Q_OBJECT

public:
    ToolkitTrayPresence();

    [[nodiscard]] bool hasTray() const override { return m_hasTray; }

private:
    void look();

    QTimer m_timer;
    bool m_hasTray;
};

}
