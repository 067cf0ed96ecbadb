#pragma once

#include "Platform/Ports/GlobalClickMonitor.h"
#include "Platform/Ports/StatusItem.h"

#include <algorithm>

namespace tomcatto {

/// An item that keeps what it was given; a test clicks it by hand.
class FakeStatusItem final : public StatusItem
{
public:
    [[nodiscard]] StatusItemForms forms() const override { return givenForms; }
    [[nodiscard]] Cancellable onFormsChanged(std::function<void()> handler) override
    {
        formsChanged = std::move(handler);
        return Cancellable([this] { formsChanged = nullptr; });
    }
    void show(const StatusItemPresentation &presentation) override
    {
        shown = presentation;
        ++shows;
    }
    void setMenu(const TrayMenu &given) override { menu = given; }
    void setPillWanted(bool isWanted) override { isPillWanted = isWanted; }
    [[nodiscard]] std::optional<QRect> geometry() const override { return place; }
    [[nodiscard]] Cancellable onActivated(std::function<void(std::optional<QRect>)> handler) override
    {
        activate = std::move(handler);
        return Cancellable([this] { activate = nullptr; });
    }
    [[nodiscard]] Cancellable onMenuWanted(std::function<void(QPoint)> handler) override
    {
        wantMenu = std::move(handler);
        return Cancellable([this] { wantMenu = nullptr; });
    }
    [[nodiscard]] Cancellable onMenuCommand(std::function<void(const TrayMenuCommand &)> handler) override
    {
        choose = std::move(handler);
        return Cancellable([this] { choose = nullptr; });
    }

    StatusItemForms givenForms{{}, 1.0, false};
    std::optional<QRect> place;
    StatusItemPresentation shown;
    TrayMenu menu;
    int shows = 0;
    bool isPillWanted = false;
    std::function<void()> formsChanged;
    std::function<void(std::optional<QRect>)> activate;
    std::function<void(QPoint)> wantMenu;
    std::function<void(const TrayMenuCommand &)> choose;

    /// The command of the entry that reads like this; one that does nothing if there is none.
    [[nodiscard]] TrayMenuCommand command(const QString &text) const
    {
        const auto found = std::ranges::find(menu.entries, text, &TrayMenuEntry::text);
        return found == menu.entries.end() ? TrayMenuCommand{} : found->command.value_or(TrayMenuCommand{});
    }
    void pick(const QString &text) { choose(command(text)); }
};

/// A mouse that a test presses by hand.
class ManualClickMonitor final : public GlobalClickMonitor
{
public:
    [[nodiscard]] Cancellable onPressed(std::function<void(QPoint)> handler) override
    {
        press = std::move(handler);
        return Cancellable([this] { press = nullptr; });
    }

    std::function<void(QPoint)> press;
};

}
