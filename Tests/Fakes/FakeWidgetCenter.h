#pragma once

#include "Platform/Ports/WidgetCenter.h"

namespace tomcatto {

/// Counts how often the application's widgets were asked to read anew.
class FakeWidgetCenter final : public WidgetCenter
{
public:
    void reloadTimelines(const QString &kind) override { reloads += kind == QLatin1String("TomcattoWidget") ? 1 : 0; }

    int reloads = 0;
};

}
