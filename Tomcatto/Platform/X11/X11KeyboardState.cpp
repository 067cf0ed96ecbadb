#include "Platform/X11/X11KeyboardState.h"

#include <algorithm>
#include <span>

namespace tomcatto {

namespace {

constexpr xcb_keysym_t leftAlt = 0xFFE9;
constexpr xcb_keysym_t rightAlt = 0xFFEA;
constexpr xcb_keysym_t leftSuper = 0xFFEB;
constexpr xcb_keysym_t rightSuper = 0xFFEC;
constexpr xcb_keysym_t numLock = 0xFF7F;
constexpr xcb_keysym_t scrollLock = 0xFF14;
constexpr int firstFreeModifier = 3;
constexpr int modifierCount = 8;

/// What the keys of each modifier mean.
class ModifierKeys final
{
public:
    explicit ModifierKeys(const X11Display &display)
    {
        xcb_connection_t *const connection = display.connection();
        const xcb_setup_t *const setup = xcb_get_setup(connection);
        const uint8_t first = setup->min_keycode;
        const auto modifiersRequest = xcb_get_modifier_mapping(connection);
        const auto keysRequest =
            xcb_get_keyboard_mapping(connection, first, static_cast<uint8_t>(setup->max_keycode - first + 1));
        m_modifiers.reset(xcb_get_modifier_mapping_reply(connection, modifiersRequest, nullptr));
        m_keys.reset(xcb_get_keyboard_mapping_reply(connection, keysRequest, nullptr));
        m_first = first;
    }

    /// The state's bit of the modifier with one of these keys; 0 where there is none.
    [[nodiscard]] uint16_t bitOf(std::initializer_list<xcb_keysym_t> symbols) const
    {
        if (!m_modifiers || !m_keys)
            return 0;
        const auto width = static_cast<std::size_t>(m_modifiers->keycodes_per_modifier);
        const std::span all(xcb_get_modifier_mapping_keycodes(m_modifiers.get()), width * modifierCount);
        for (int modifier = firstFreeModifier; modifier < modifierCount; ++modifier) {
            const auto codes = all.subspan(static_cast<std::size_t>(modifier) * width, width);
            if (std::ranges::any_of(codes, [&](xcb_keycode_t code) { return means(code, symbols); }))
                return static_cast<uint16_t>(1U << static_cast<unsigned>(modifier));
        }
        return 0;
    }

private:
    [[nodiscard]] bool means(xcb_keycode_t code, std::initializer_list<xcb_keysym_t> symbols) const
    {
        const auto width = static_cast<std::size_t>(m_keys->keysyms_per_keycode);
        const std::span all(xcb_get_keyboard_mapping_keysyms(m_keys.get()),
                            static_cast<std::size_t>(xcb_get_keyboard_mapping_keysyms_length(m_keys.get())));
        if (code < m_first || (static_cast<std::size_t>(code - m_first) + 1) * width > all.size())
            return false;
        return std::ranges::any_of(
            all.subspan(static_cast<std::size_t>(code - m_first) * width, width),
            [&](xcb_keysym_t each) { return std::ranges::find(symbols, each) != symbols.end(); });
    }

    X11Reply<xcb_get_modifier_mapping_reply_t> m_modifiers;
    X11Reply<xcb_get_keyboard_mapping_reply_t> m_keys;
    uint8_t m_first = 0;
};

}

X11KeyboardState::X11KeyboardState(const X11Display &display)
{
    const ModifierKeys keys(display);
    if (const uint16_t option = keys.bitOf({leftAlt, rightAlt}))
        m_option = option;
    if (const uint16_t command = keys.bitOf({leftSuper, rightSuper}))
        m_command = command;
    addLock(XCB_MOD_MASK_LOCK);
    addLock(keys.bitOf({numLock}));
    addLock(keys.bitOf({scrollLock}));
}

void X11KeyboardState::addLock(uint16_t lock)
{
    if ((lock & ~(m_locks | m_option | m_command)) == 0)
        return;
    m_locks |= lock;
    const std::vector<uint16_t> before = m_lockStates;
    for (const uint16_t state : before)
        m_lockStates.push_back(state | lock);
}

uint16_t X11KeyboardState::mask(KeyModifiers modifiers) const
{
    uint16_t mask = 0;
    if (modifiers.testFlag(KeyModifier::shift))
        mask |= XCB_MOD_MASK_SHIFT;
    if (modifiers.testFlag(KeyModifier::control))
        mask |= XCB_MOD_MASK_CONTROL;
    if (modifiers.testFlag(KeyModifier::option))
        mask |= m_option;
    if (modifiers.testFlag(KeyModifier::command))
        mask |= m_command;
    return mask;
}

uint16_t X11KeyboardState::withoutLocks(uint16_t state) const
{
    // Above the modifiers stand pointer buttons and the chosen layout.
    constexpr uint16_t allModifiers = 0xFF;
    return static_cast<uint16_t>(state & allModifiers & ~m_locks);
}

}
