#pragma once

#include "Platform/Ports/WidgetCenter.h"

#include <functional>
#include <QtDBus/QDBusConnection>

namespace tomcatto {

/// Tells widgets on the session bus that their data changed, by the signal `ReloadTimelines` with the kind of the
/// widgets. That time has passed is not told. Main thread only.
class WidgetSignal final : public WidgetCenter
{
public:
    using FileReplacer = std::function<std::error_code(const QString &part, const QString &file)>;

    /// @param sessionBus it may be without a connection; then nothing is told.
    WidgetSignal(QDBusConnection sessionBus, FileReplacer replaceFile)
        : m_bus(std::move(sessionBus))
        , m_replaceFile(std::move(replaceFile))
    {
    }

    [[nodiscard]] std::error_code replaceFile(const QString &part, const QString &file) override
    {
        return m_replaceFile(part, file);
    }
    void reloadTimelines(const QString &kind, TimelineNews news) override;

private:
    QDBusConnection m_bus;
    FileReplacer m_replaceFile;
};

}
