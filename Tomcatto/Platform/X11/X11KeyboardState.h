#pragma once

#include "Platform/Ports/KeyModifiers.h"
#include "Platform/X11/X11Display.h"

#include <vector>

namespace tomcatto {

/// Which bits of the server's modifier states mean what, as the keyboard is set up now. A value.
class X11KeyboardState final
{
public:
    X11KeyboardState() = default;
    /// Waits for the server.
    explicit X11KeyboardState(const X11Display &display);

    /// The state while exactly these modifiers are held.
    [[nodiscard]] uint16_t mask(KeyModifiers modifiers) const;
    /// The state without what locks add.
    [[nodiscard]] uint16_t withoutLocks(uint16_t state) const;
    /// Every state that locks, such as those of capitals and numbers, may have.
    [[nodiscard]] const std::vector<uint16_t> &lockStates() const noexcept { return m_lockStates; }

    bool operator==(const X11KeyboardState &) const = default;

private:
    void addLock(uint16_t lock);

    uint16_t m_option = XCB_MOD_MASK_1;
    uint16_t m_command = XCB_MOD_MASK_4;
    uint16_t m_locks = 0;
    std::vector<uint16_t> m_lockStates{0};
};

}
