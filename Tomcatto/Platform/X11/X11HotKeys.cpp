#include "Platform/X11/X11HotKeys.h"

#include "Platform/Qt/KeyPositions.h"

#include <algorithm>
#include <QtCore/QCoreApplication>
#include <QtCore/QPointer>
#include <xcb/xcbext.h>

namespace tomcatto {

namespace {

// The server's own numbers.
constexpr int valueError = XCB_VALUE;
constexpr int accessError = XCB_ACCESS;

// Kinds of the keyboard extension's events.
constexpr uint8_t newKeyboard = 0;
constexpr uint8_t newMap = 1;

constexpr std::chrono::milliseconds releaseInterval{50};

xcb_extension_t keyboardExtension{"XKEYBOARD", 0};

std::vector<xcb_window_t> rootsOf(xcb_connection_t *connection)
{
    std::vector<xcb_window_t> roots;
    for (auto screens = xcb_setup_roots_iterator(xcb_get_setup(connection)); screens.rem > 0; xcb_screen_next(&screens))
        roots.push_back(screens.data->root);
    return roots;
}

}

X11HotKeys::X11HotKeys(MainRunLoop &runLoop)
    : m_runLoop(runLoop)
{
    if (!m_display.isValid())
        return;
    m_roots = rootsOf(m_display.connection());
    const auto *const extension = xcb_get_extension_data(m_display.connection(), &keyboardExtension);
    if (extension != nullptr && extension->present != 0)
        m_keyboardEvent = extension->first_event;
    QCoreApplication::instance()->installNativeEventFilter(this);
}

X11HotKeys::~X11HotKeys()
{
    for (Held &held : m_held)
        ungrab(held);
}

HotKeySupport X11HotKeys::support() const
{
    return m_display.isValid() ? HotKeySupport::works : HotKeySupport::none;
}

std::expected<Cancellable, int> X11HotKeys::registerHotKey(const HotKeyRequest &request)
{
    const auto key = keyPositions::scanCode(request.keyCode);
    if (!m_display.isValid() || !key)
        return std::unexpected(valueError);
    // The server would let one client have it twice.
    if (std::ranges::any_of(m_held,
                            [&](const Held &held) { return held.key == *key && held.modifiers == request.modifiers; }))
        return std::unexpected(accessError);
    // Changes are followed only while something is held.
    if (m_held.empty())
        m_keyboard = X11KeyboardState(m_display);
    Held held{request.identifier, *key, request.modifiers};
    if (const int error = grab(held))
        return std::unexpected(error);
    // Held since before, as right after it was recorded: the keyboard goes on repeating it.
    held.isDown = isDown(held);
    m_held.push_back(held);
    if (held.isDown)
        awaitRelease();
    return Cancellable([self = QPointer(this), identifier = request.identifier] {
        if (self)
            self->unregister(identifier);
    });
}

void X11HotKeys::unregister(HotKeyIdentifier identifier)
{
    const auto found = std::ranges::find(m_held, identifier, &Held::identifier);
    if (found == m_held.end())
        return;
    ungrab(*found);
    m_held.erase(found);
}

int X11HotKeys::grab(Held &held) const
{
    held.mask = m_keyboard.mask(held.modifiers);
    held.lockStates = m_keyboard.lockStates();
    std::vector<xcb_void_cookie_t> requests;
    for (const xcb_window_t root : m_roots) {
        for (const uint16_t locks : held.lockStates)
            requests.push_back(xcb_grab_key_checked(m_display.connection(), 0, root, held.mask | locks, held.key,
                                                    XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC));
    }
    int refused = 0;
    for (const xcb_void_cookie_t request : requests) {
        const X11Reply<xcb_generic_error_t> error(xcb_request_check(m_display.connection(), request));
        if (error)
            refused = error->error_code;
    }
    held.isGrabbed = true;
    if (refused != 0)
        ungrab(held);
    return refused;
}

void X11HotKeys::ungrab(Held &held) const
{
    if (!std::exchange(held.isGrabbed, false))
        return;
    for (const xcb_window_t root : m_roots) {
        for (const uint16_t locks : held.lockStates)
            xcb_ungrab_key(m_display.connection(), held.key, root, held.mask | locks);
    }
    xcb_flush(m_display.connection());
}

bool X11HotKeys::isDown(const Held &held) const
{
    xcb_connection_t *const connection = m_display.connection();
    const auto keysRequest = xcb_query_keymap(connection);
    const auto stateRequest = xcb_query_pointer(connection, m_roots.front());
    const X11Reply<xcb_query_keymap_reply_t> keys(xcb_query_keymap_reply(connection, keysRequest, nullptr));
    const X11Reply<xcb_query_pointer_reply_t> state(xcb_query_pointer_reply(connection, stateRequest, nullptr));
    constexpr unsigned bitsPerByte = 8;
    // The key alone may be down for another reason, and its release may go elsewhere: Return, say, after a command.
    return keys && state && m_keyboard.withoutLocks(state->mask) == held.mask &&
           (keys->keys[held.key / bitsPerByte] & (1U << (held.key % bitsPerByte))) != 0;
}

/// The release of one that was down when it was taken may be told only to the window that has the keyboard, which
/// another process may have made.
void X11HotKeys::awaitRelease()
{
    m_release = m_runLoop.after(releaseInterval, [this] {
        for (Held &held : m_held)
            held.isDown = held.isDown && isDown(held);
        if (std::ranges::any_of(m_held, &Held::isDown))
            awaitRelease();
    });
}

bool X11HotKeys::nativeEventFilter(const QByteArray &eventType, void *message, qintptr * /*result*/)
{
    if (eventType != "xcb_generic_event_t")
        return false;
    const auto *const event = static_cast<const xcb_generic_event_t *>(message);
    constexpr uint8_t sentFlag = 0x80;
    const int type = event->response_type & ~sentFlag;
    if (type == XCB_KEY_PRESS)
        return handlePress(*reinterpret_cast<const xcb_key_press_event_t *>(event));
    if (type == XCB_KEY_RELEASE)
        handleRelease(*reinterpret_cast<const xcb_key_release_event_t *>(event));
    // The extension's events have their kind where others have a detail.
    const bool isKeyboards =
        m_keyboardEvent != 0 && type == m_keyboardEvent && (event->pad0 == newKeyboard || event->pad0 == newMap);
    if (isKeyboards || type == XCB_MAPPING_NOTIFY)
        noteKeyboardChange();
    return false;
}

bool X11HotKeys::handlePress(const xcb_key_press_event_t &event)
{
    // Keys for the application's own windows are not grabbed ones.
    if (std::ranges::find(m_roots, event.event) == m_roots.end())
        return false;
    const uint16_t mask = m_keyboard.withoutLocks(event.state);
    const auto found = std::ranges::find_if(
        m_held, [&](const Held &held) { return held.isGrabbed && held.key == event.detail && held.mask == mask; });
    if (found == m_held.end())
        return false;
    const bool isRepeat = found->isDown || (found->releasedAt != 0 && found->releasedAt == event.time);
    found->isDown = true;
    if (!isRepeat)
        tellLater([identifier = found->identifier](HotKeysDelegate &delegate) { delegate.hotKeyPressed(identifier); });
    return true;
}

void X11HotKeys::handleRelease(const xcb_key_release_event_t &event)
{
    // Whichever window it is for: the modifiers may be up already.
    for (Held &held : m_held) {
        if (held.key != event.detail)
            continue;
        held.isDown = false;
        held.releasedAt = event.time;
    }
}

void X11HotKeys::noteKeyboardChange()
{
    // A change comes as several events, and the server must not be asked from within the toolkit's handling of them.
    if (!std::exchange(m_isChangeNoted, true))
        QMetaObject::invokeMethod(this, &X11HotKeys::grabAnew, Qt::QueuedConnection);
}

void X11HotKeys::grabAnew()
{
    m_isChangeNoted = false;
    if (m_held.empty())
        return;
    // Where two keyboards are used in turn, each turn is a change; a press must not fall between two grabs then.
    const X11KeyboardState before = std::exchange(m_keyboard, X11KeyboardState(m_display));
    if (m_keyboard == before)
        return;
    std::vector<HotKeyIdentifier> grabbed;
    for (Held &held : m_held) {
        if (held.isGrabbed)
            grabbed.push_back(held.identifier);
        ungrab(held);
    }
    for (Held &held : m_held) {
        const bool isGrabbed = grab(held) == 0;
        if (isGrabbed == (std::ranges::find(grabbed, held.identifier) != grabbed.end()))
            continue;
        tellLater([identifier = held.identifier, isGrabbed](HotKeysDelegate &delegate) {
            delegate.hotKeyAvailabilityChanged(identifier, isGrabbed);
        });
    }
}

void X11HotKeys::tellLater(std::function<void(HotKeysDelegate &)> action)
{
    // What it does may open windows, for which the toolkit's handling of an event is the wrong place.
    QMetaObject::invokeMethod(
        this,
        [this, action = std::move(action)] {
            if (m_delegate)
                action(*m_delegate);
        },
        Qt::QueuedConnection);
}

}
