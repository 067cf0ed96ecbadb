#pragma once

#include "Foundation/HandlerList.h"
#include "Platform/Ports/HotKeys.h"
#include "Platform/Ports/KeyMonitor.h"

#include <map>

namespace tomcatto {

/// Keys of the application's own windows that a test presses.
class FakeKeyMonitor final : public KeyMonitor
{
public:
    [[nodiscard]] Cancellable onKeyDown(std::optional<Qt::Key> only,
                                        std::function<void(const KeyPress &)> pressed) override
    {
        watched = only;
        handler = std::move(pressed);
        return Cancellable([this] { handler = nullptr; });
    }
    /// Whether the key was swallowed.
    bool press(const KeyPress &press) const
    {
        const auto current = handler;
        if (!current || (watched && watched != press.key))
            return false;
        current(press);
        return true;
    }
    bool press(Qt::Key key) const { return press({key, Qt::NoModifier}); }
    bool press(quint16 keyCode, KeyModifiers held) const
    {
        return press({Qt::Key_unknown, Qt::NoModifier, keyCode, held});
    }

    std::optional<Qt::Key> watched;
    std::function<void(const KeyPress &)> handler;
};

/// Hot keys that a test presses. As the real ones it gives a combination to one holder only.
class FakeHotKeys final : public HotKeys
{
public:
    using Combination = std::pair<quint16, KeyModifiers::Int>;

    [[nodiscard]] HotKeySupport support() const override { return current; }
    [[nodiscard]] Cancellable onSupportChanged(std::function<void()> handler) override
    {
        return m_supportHandlers.add(std::move(handler));
    }
    void setDelegate(HotKeysDelegate *other) override { delegate = other; }
    [[nodiscard]] std::expected<Cancellable, int> registerHotKey(const HotKeyRequest &request) override
    {
        const Combination combination(request.keyCode, request.modifiers.toInt());
        if (combination == taken || held.contains(combination))
            return std::unexpected(10);
        held.insert({combination, request.identifier});
        return Cancellable([this, combination] { held.erase(combination); });
    }

    void press(quint16 keyCode, KeyModifiers modifiers) const
    {
        if (const auto found = held.find({keyCode, modifiers.toInt()}); found != held.end())
            delegate->hotKeyPressed(found->second);
    }
    void become(HotKeySupport support)
    {
        current = support;
        m_supportHandlers.call();
    }

    HotKeySupport current = HotKeySupport::works;
    std::map<Combination, HotKeyIdentifier> held;
    /// Another program holds it.
    std::optional<Combination> taken;
    HotKeysDelegate *delegate = nullptr;

private:
    HandlerList m_supportHandlers;
};

}
