#include "Platform/X11/X11ClickMonitor.h"

#include <array>
#include <QtGui/QCursor>
#include <QtGui/QGuiApplication>
#include <sys/uio.h>
#include <xcb/xcbext.h>

namespace tomcatto {

namespace {

// The input extension's own library is not part of what the application is built with: the one request and the one
// event that are needed here are written out, as the X Input 2 protocol has them.
constexpr uint8_t selectEventsOpcode = 46;
constexpr uint16_t rawButtonPress = 15;
constexpr uint16_t allMasterDevices = 1;
constexpr uint32_t firstWheelButton = 4;
constexpr uint32_t lastWheelButton = 7;

struct SelectEventsRequest
{
    uint8_t majorOpcode;
    uint8_t minorOpcode;
    uint16_t length;
    xcb_window_t window;
    uint16_t maskCount;
    uint16_t padding;
    uint16_t device;
    uint16_t maskWords;
    uint32_t mask;
};
static_assert(sizeof(SelectEventsRequest) == 20);

struct RawButtonEvent
{
    uint8_t responseType;
    uint8_t extension;
    uint16_t sequence;
    uint32_t length;
    uint16_t eventType;
    uint16_t device;
    uint32_t time;
    uint32_t button;
};
static_assert(sizeof(RawButtonEvent) == 20);

xcb_extension_t inputExtension{"XInputExtension", 0};

}

X11ClickMonitor::X11ClickMonitor()
{
    if (!m_display.isValid())
        return;
    const auto *extension = xcb_get_extension_data(m_display.connection(), &inputExtension);
    if (extension != nullptr && extension->present != 0)
        m_extension = extension->major_opcode;
}

X11ClickMonitor::~X11ClickMonitor()
{
    if (isWatching())
        X11ClickMonitor::unsubscribe();
}

void X11ClickMonitor::notice(QPoint place)
{
    // Else it sees that press itself.
    if (m_extension == 0)
        ApplicationClickMonitor::notice(place);
}

void X11ClickMonitor::subscribe()
{
    if (m_extension == 0)
        return ApplicationClickMonitor::subscribe();
    qGuiApp->installNativeEventFilter(this);
    selectRawPresses(true);
}

void X11ClickMonitor::unsubscribe()
{
    if (m_extension == 0)
        return ApplicationClickMonitor::unsubscribe();
    qGuiApp->removeNativeEventFilter(this);
    selectRawPresses(false);
}

void X11ClickMonitor::selectRawPresses(bool isOn) const
{
    // The toolkit selects other events for other devices on this window, which stay as they are.
    SelectEventsRequest request{};
    request.window = m_display.root();
    request.maskCount = 1;
    request.device = allMasterDevices;
    request.maskWords = 1;
    request.mask = isOn ? 1U << rawButtonPress : 0U;
    const xcb_protocol_request_t protocol{1, &inputExtension, selectEventsOpcode, 1};
    // The library takes the two elements before the first for itself.
    std::array<iovec, 3> parts{};
    parts[2] = {&request, sizeof request};
    xcb_send_request(m_display.connection(), 0, &parts[2], &protocol);
    xcb_flush(m_display.connection());
}

bool X11ClickMonitor::nativeEventFilter(const QByteArray &eventType, void *message, qintptr * /*result*/)
{
    if (eventType != "xcb_generic_event_t")
        return false;
    const auto *event = static_cast<const RawButtonEvent *>(message);
    if (event->responseType != XCB_GE_GENERIC || event->extension != m_extension || event->eventType != rawButtonPress)
        return false;
    if (event->button < firstWheelButton || event->button > lastWheelButton)
        Q_EMIT pressed(QCursor::pos());
    return false;
}

}
