#pragma once

#include "Control/ControlMessage.h"

#include <functional>
#include <QtCore/QMap>

namespace tomcatto {

/// The one table of commands: the control socket, the command line's operations and the terminal's keys all end here.
/// Handlers are injected. Main thread only.
class CommandTable final
{
public:
    using Handler = std::function<ControlReply(const nlohmann::ordered_json &arguments)>;

    /// Adds a command; a second one of the same name takes its place.
    void add(const QString &name, Handler handler) { m_handlers.insert(name, std::move(handler)); }
    /// Runs a command. An unknown one gives a usage error that names it.
    [[nodiscard]] ControlReply run(const QString &name, const nlohmann::ordered_json &arguments = {}) const;

private:
    QMap<QString, Handler> m_handlers;
};

}
