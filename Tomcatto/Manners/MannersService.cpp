#include "Manners/MannersService.h"

namespace tomcatto {

MannersService::MannersService(const Parts &parts, QObject *parent)
    : QObject(parent)
    , m_parts(parts)
    , m_settings(parts.defaults)
{
}

void MannersService::resumeAfterAway()
{
    m_parts.stateMachine.resume();
}

void MannersService::takeBreakAfterAway()
{
    if (!m_parts.stateMachine.takeBreak())
        m_parts.stateMachine.skip();
}

}
