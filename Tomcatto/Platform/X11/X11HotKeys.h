#pragma once

#include "Platform/Ports/HotKeys.h"
#include "Platform/Ports/MainRunLoop.h"
#include "Platform/X11/X11KeyboardState.h"

#include <QtCore/QAbstractNativeEventFilter>
#include <QtCore/QObject>

namespace tomcatto {

/// Hot keys by grabs on every root window of an X server, with every state of the locks. A combination is held by the
/// place of its key, whatever layout is chosen; when the keyboard changes, all are taken anew. Main thread only;
/// registering waits for the server.
class X11HotKeys final : public QObject, public HotKeys, private QAbstractNativeEventFilter
{
    Q_OBJECT

public:
    /// @param runLoop outlives this
    explicit X11HotKeys(MainRunLoop &runLoop);
    ~X11HotKeys() override;

    [[nodiscard]] HotKeySupport support() const override;
    [[nodiscard]] Cancellable onSupportChanged(std::function<void()> /*handler*/) override { return {}; }
    void setDelegate(HotKeysDelegate *delegate) override { m_delegate = delegate; }
    [[nodiscard]] std::expected<Cancellable, int> registerHotKey(const HotKeyRequest &request) override;

private:
    struct Held
    {
        HotKeyIdentifier identifier;
        xcb_keycode_t key = 0;
        KeyModifiers modifiers;
        /// What the modifiers were when it was taken; the bits may mean others later.
        uint16_t mask = 0;
        std::vector<uint16_t> lockStates = {};
        bool isGrabbed = false;
        /// Nothing is done until the key was up. The keyboard repeats one that is held as releases and presses, in
        /// pairs of one instant.
        bool isDown = false;
        xcb_timestamp_t releasedAt = 0;
    };

    bool nativeEventFilter(const QByteArray &eventType, void *message, qintptr *result) override;
    bool handlePress(const xcb_key_press_event_t &event);
    void handleRelease(const xcb_key_release_event_t &event);
    [[nodiscard]] int grab(Held &held) const;
    void ungrab(Held &held) const;
    void noteKeyboardChange();
    void grabAnew();
    void unregister(HotKeyIdentifier identifier);
    void tellLater(std::function<void(HotKeysDelegate &)> action);
    [[nodiscard]] bool isDown(const Held &held) const;
    void awaitRelease();

    MainRunLoop &m_runLoop;
    X11Display m_display;
    std::vector<xcb_window_t> m_roots;
    X11KeyboardState m_keyboard;
    /// The first event of the keyboard extension; 0 without it.
    uint8_t m_keyboardEvent = 0;
    std::vector<Held> m_held;
    HotKeysDelegate *m_delegate = nullptr;
    Cancellable m_release;
    bool m_isChangeNoted = false;
};

}
