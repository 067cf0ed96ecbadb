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
    /// Takes the answer; called once, at once or later.
    using Answer = std::function<void(const ControlReply &reply)>;
    using LaterHandler = std::function<void(const nlohmann::ordered_json &arguments, Answer answer)>;

    /// Adds a command; a second one of the same name takes its place.
    void add(const QString &name, Handler handler);
    /// Adds a command that may answer later.
    void addLater(const QString &name, const LaterHandler &handler) { m_handlers.insert(name, handler); }
    /// Runs a command. An unknown one gives a usage error that names it.
    void run(const QString &name, const nlohmann::ordered_json &arguments, const Answer &answer) const;

private:
    QMap<QString, LaterHandler> m_handlers;
};

}
