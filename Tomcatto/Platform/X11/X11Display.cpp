#include "Platform/X11/X11Display.h"

#include <QtGui/QGuiApplication>
#include <QtGui/qguiapplication_platform.h>

namespace tomcatto {

X11Display::X11Display(xcb_connection_t *connection)
    : m_connection(connection)
    , m_root(xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root)
{
}

X11Display::X11Display()
{
    auto *application = qGuiApp == nullptr ? nullptr : qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    if (application == nullptr)
        return;
    m_connection = application->connection();
    // A platform that draws nowhere can be an application of this kind as well, without a server.
    if (m_connection == nullptr)
        return;
    m_root = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data->root;
}

xcb_atom_t X11Display::atom(const QByteArray &name) const
{
    const auto request = xcb_intern_atom(m_connection, 0, static_cast<uint16_t>(name.size()), name.constData());
    const X11Reply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(m_connection, request, nullptr));
    return reply ? reply->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
}

bool X11Display::hasExtension(const QByteArray &name) const
{
    const auto request = xcb_query_extension(m_connection, static_cast<uint16_t>(name.size()), name.constData());
    const X11Reply<xcb_query_extension_reply_t> reply(xcb_query_extension_reply(m_connection, request, nullptr));
    return reply && reply->present != 0;
}

xcb_window_t X11Display::selectionOwner(xcb_atom_t selection) const
{
    const auto request = xcb_get_selection_owner(m_connection, selection);
    const X11Reply<xcb_get_selection_owner_reply_t> reply(
        xcb_get_selection_owner_reply(m_connection, request, nullptr));
    return reply ? reply->owner : static_cast<xcb_window_t>(XCB_WINDOW_NONE);
}

bool X11Display::isComposited() const
{
    return selectionOwner(atom("_NET_WM_CM_S0")) != XCB_WINDOW_NONE;
}

}
