#pragma once

#include <QtCore/QString>

namespace tomcatto {

/// The system's desktop widgets. Main thread only.
class WidgetCenter
{
public:
    virtual ~WidgetCenter() = default;

    /// Asks every widget of a kind to read its data anew. Waits for nobody; without widgets it does nothing.
    virtual void reloadTimelines(const QString &kind) = 0;
};

}
