#pragma once

#include "Foundation/Cancellable.h"

#include <optional>
#include <QtCore/QRect>
#include <QtCore/QString>
#include <QtGui/QImage>
#include <vector>

namespace tomcatto {

/// What a command of the item's menu does.
enum class TrayMenuAction {
    openPanel,
    start,
    startBreak,
    pause,
    resume,
    skip,
    takeBreak,
    extend,
    reset,
    statistics,
    settings,
    togglePill,
    quit,
};

/// What an entry of the item's menu means.
struct TrayMenuCommand
{
    TrayMenuAction action = TrayMenuAction::openPanel;
    /// The token of the phase that it is about; empty where it is about none. A menu may stand open for longer than its
    /// phase lasts.
    QString phaseToken;

    bool operator==(const TrayMenuCommand &) const = default;
};

/// One line of the item's menu.
struct TrayMenuEntry
{
    /// Nothing for a separator.
    std::optional<TrayMenuCommand> command;
    QString text;
    bool isEnabled = true;
    /// Whether it is ticked; nothing for an entry that is not a toggle.
    std::optional<bool> isChecked;

    bool operator==(const TrayMenuEntry &) const = default;
};

/// The item's menu from top to bottom, localised.
struct TrayMenu
{
    std::vector<TrayMenuEntry> entries;

    bool operator==(const TrayMenu &) const = default;
};

/// The shapes that an item can show now.
struct StatusItemForms
{
    /// Edges of the square icons that the bar wants, in device pixels; empty where no square icon is shown.
    std::vector<int> squareSizes;
    /// Device pixels to a logical pixel of the pill; nothing while no pill is shown.
    std::optional<double> pillScale;
    /// Whether the bar, or the strip behind the pill, is dark.
    bool isDark = false;
    /// Whether nothing is to move, because the desktop prefers reduced motion.
    bool isStill = false;

    bool operator==(const StatusItemForms &) const = default;
};

/// What an item shows.
struct StatusItemPresentation
{
    /// One icon to each of `StatusItemForms::squareSizes`; empty where there is no image.
    std::vector<QImage> squareIcons;
    /// The pill with its device pixel ratio set; its logical width is the item's length. Null where none is wanted or
    /// none could be drawn: then `title` is shown as text in whatever length it takes.
    QImage pill;
    /// The time or the ready caption as plain text; empty while an image shows.
    QString title;
    QString toolTip;
    /// What a screen reader says.
    QString accessibleText;
};

/// The application's item in the system's bar: a square icon in a tray, the whole pill, or both. Main thread only.
class StatusItem
{
public:
    virtual ~StatusItem() = default;

    /// The shapes to be drawn for it.
    [[nodiscard]] virtual StatusItemForms forms() const = 0;
    /// Calls `handler` after `forms` changed: a tray came or went, the bar turned dark, the scale is another.
    [[nodiscard]] virtual Cancellable onFormsChanged(std::function<void()> handler) = 0;

    virtual void show(const StatusItemPresentation &presentation) = 0;
    /// Replaces the menu where the bar shows it by itself, an open one as well.
    virtual void setMenu(const TrayMenu &menu) = 0;
    /// Whether the user wants the pill although a tray shows the square icon. It always shows where there is no tray.
    virtual void setPillWanted(bool isWanted) = 0;

    /// Where the item is on the screen, in logical pixels; nothing if the system does not tell.
    [[nodiscard]] virtual std::optional<QRect> geometry() const = 0;
    /// Calls `handler` on a click with the item's rectangle, or with an empty rectangle at the click's place where only
    /// that is known, or with nothing.
    [[nodiscard]] virtual Cancellable onActivated(std::function<void(std::optional<QRect>)> handler) = 0;
    /// Calls `handler` where the application is to show the menu, with the place of the click in logical pixels.
    [[nodiscard]] virtual Cancellable onMenuWanted(std::function<void(QPoint)> handler) = 0;
    /// Calls `handler` when an entry was chosen in the bar's own menu, possibly of one that has been replaced since.
    [[nodiscard]] virtual Cancellable onMenuCommand(std::function<void(const TrayMenuCommand &)> handler) = 0;
};

}
