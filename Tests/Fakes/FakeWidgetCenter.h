#pragma once

#include "Platform/Ports/WidgetCenter.h"

#include <filesystem>

namespace tomcatto {

/// Counts how often the application's widgets were asked to read anew, and how often for more than the time.
class FakeWidgetCenter final : public WidgetCenter
{
public:
    [[nodiscard]] std::error_code replaceFile(const QString &part, const QString &file) override
    {
        std::error_code error;
        std::filesystem::rename(part.toStdString(), file.toStdString(), error);
        return error;
    }
    void reloadTimelines(const QString &kind, TimelineNews news) override
    {
        reloads += kind == QLatin1String("TomcattoWidget") ? 1 : 0;
        changes += news == TimelineNews::changed ? 1 : 0;
    }

    int reloads = 0;
    int changes = 0;
};

}
