#include "Control/CommandTable.h"

namespace tomcatto {

ControlReply CommandTable::run(const QString &name, const nlohmann::ordered_json &arguments) const
{
    const auto found = m_handlers.find(name);
    if (found == m_handlers.end())
        return controlReply(ExitStatus::usage, QStringLiteral("Unknown command \"%1\"").arg(name));
    return (*found)(arguments);
}

}
