#include "Control/CommandTable.h"

namespace tomcatto {

void CommandTable::add(const QString &name, Handler handler)
{
    addLater(name, [handler = std::move(handler)](const nlohmann::ordered_json &arguments, const Answer &answer) {
        answer(handler(arguments));
    });
}

void CommandTable::run(const QString &name, const nlohmann::ordered_json &arguments, const Answer &answer) const
{
    const auto found = m_handlers.find(name);
    if (found == m_handlers.end())
        answer(controlReply(ExitStatus::usage, QStringLiteral("Unknown command \"%1\"").arg(name)));
    else
        (*found)(arguments, answer);
}

}
