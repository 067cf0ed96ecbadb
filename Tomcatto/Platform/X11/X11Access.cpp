#include "Platform/X11/X11Access.h"

#include <xcb/xcb.h>

namespace tomcatto {

X11Access::X11Access()
    : m_connection(xcb_connect(nullptr, nullptr))
{
}

X11Access::~X11Access()
{
    xcb_disconnect(m_connection);
}

bool X11Access::isGranted() const
{
    return xcb_connection_has_error(m_connection) == 0;
}

}
