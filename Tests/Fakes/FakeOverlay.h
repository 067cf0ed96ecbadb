#pragma once

#include "BreakOverlay/OverlayWindows.h"
#include "Fakes/FakeHotKeys.h"
#include "Platform/Qt/ScreenChanges.h"

namespace tomcatto {

/// Screens that a test plugs in and out. Changes are reported as the real ones are.
class FakeScreens final : public Screens
{
public:
    explicit FakeScreens(MainRunLoop &runLoop)
        : m_changes(runLoop, [this] { return !live.empty(); })
    {
    }

    [[nodiscard]] std::vector<Screen> screens() const override { return live; }
    [[nodiscard]] Cancellable onChanged(std::function<void()> handler) override
    {
        return m_changes.onChanged(std::move(handler));
    }

    /// Makes these the screens, the first one the main one. None: only the stand-in is left.
    void plug(const QStringList &ids)
    {
        live.clear();
        for (const QString &id : ids)
            live.push_back({id, QRect(0, 0, 800, 600), 1, live.empty()});
        m_changes.note();
    }

    std::vector<Screen> live;

private:
    ScreenChanges m_changes;
};

/// Notes which screens have windows, and whether the next ones are ready.
class FakeOverlayWindows final : public OverlayWindows
{
public:
    [[nodiscard]] std::unique_ptr<OverlayWindow> make(const Screen &screen, std::function<void()> onClosed) override
    {
        ++made;
        close = std::move(onClosed);
        return std::make_unique<Window>(*this, screen.id);
    }
    [[nodiscard]] Cancellable warm() override
    {
        isWarm = true;
        return Cancellable([this] { isWarm = false; });
    }

    QStringList open;
    /// Closes the window made last, as the desktop does.
    std::function<void()> close;
    int made = 0;
    bool isWarm = false;

private:
    class Window final : public OverlayWindow
    {
    public:
        Window(FakeOverlayWindows &windows, QString id)
            : m_windows(windows)
            , m_id(std::move(id))
        {
            m_windows.open.append(m_id);
        }
        ~Window() override { m_windows.open.removeOne(m_id); }
        void makeKey() override {}

    private:
        FakeOverlayWindows &m_windows;
        QString m_id;
    };
};

}
