#pragma once

#include "MenuBar/MenuBarPopover.h"
#include "MenuBar/MenuBarServices.h"
#include "MenuBar/StatusPillRenderer.h"
#include "MenuBar/TrayIconRenderer.h"
#include "MenuBar/TrayMenuPopover.h"
#include "Navigation/MainWindowRouter.h"
#include "Navigation/PopoverNavigationStore.h"
#include "Platform/Ports/GlobalClickMonitor.h"
#include "Platform/Ports/StatusItem.h"
#include "QuillbayKit/PopoverFocusDismissal.h"
#include "StatusPill/StatusPillSource.h"

namespace tomcatto {

/// Owns the application's face in the system's bar: draws the pill and the tray icon, keeps the menu and opens it where
/// the bar does not, and opens the panel beside the item. Main thread only.
class StatusItemController final : public QObject
{
    Q_OBJECT

public:
    /// What the controller needs of the platform; everything outlives it.
    struct Platform
    {
        StatusItem &statusItem;
        ViewWindows &windows;
        GlobalClickMonitor &clickMonitor;
    };

    StatusItemController(const MenuBarServices &services, const Platform &platform, MainWindowRouter &router,
                         QObject *parent = nullptr);

    /// Opens the panel at the item, or closes it.
    /// @param item where the item was clicked; the item's own place where that is not known.
    void togglePopover(std::optional<QRect> item = {});
    /// Opens the panel, or brings it to the front.
    /// @return whether the panel is shown now.
    bool showPopover();
    /// Closes the panel, and the menu.
    void closePopover();
    /// Opens the panel with the statistics.
    void showStatistics();
    [[nodiscard]] bool isPopoverShown() const noexcept { return m_popover.isShown(); }

    /// Whether the user wants the whole pill beside the tray's icon; nothing if there is no icon and the pill shows
    /// in any case.
    [[nodiscard]] std::optional<bool> pillChoice() const;
    /// Shows the pill beside the icon, or does not, now and at every start from now on.
    void setPillWanted(bool isWanted);

    /// Called when the panel is about to show, and after it closed; empty until set.
    void setOnWillShow(std::function<void()> onWillShow) { m_onWillShow = std::move(onWillShow); }
    void setOnDidClose(std::function<void()> onDidClose) { m_onDidClose = std::move(onDidClose); }

Q_SIGNALS:
    /// `pillChoice` changed, by whatever control or because a tray came or went.
    void pillChoiceChanged(std::optional<bool> choice);
    /// The user wants to end the application.
    void quitRequested();

private:
    void connectItem();
    void subscribe();
    [[nodiscard]] QVariantMap makeModels(QObject &owner);
    void updateStatusItem();
    /// Begins or ends the pill's breathing.
    void followBreath();
    void updateMenu();
    void updateContentSize();
    void popoverWillShow();
    void popoverDidClose();
    bool present(std::optional<QRect> item);
    void awaitDismissal();
    /// Whether a press on the item may be the rest of a double click, whose first half opened the panel.
    [[nodiscard]] bool hasJustOpened() const;
    void dismiss();
    [[nodiscard]] TrayMenu currentMenu() const;
    void choose(const TrayMenuCommand &command);
    void perform(TrayMenuAction action);

    MenuBarServices m_services;
    StatusItem &m_statusItem;
    GlobalClickMonitor &m_clickMonitor;
    MainWindowRouter &m_router;
    StatusArt m_art;
    StatusPillRenderer m_pillRenderer{m_art};
    TrayIconRenderer m_iconRenderer{m_art};
    StatusPillSource m_source;
    PopoverNavigationStore m_navigationStore;
    MenuBarPopover m_popover;
    TrayMenuPopover m_menu;
    std::unique_ptr<quillbay::PopoverFocusDismissal> m_focusDismissal;
    Cancellable m_statusCancellable;
    Cancellable m_themeCancellable;
    Cancellable m_routeCancellable;
    Cancellable m_languageCancellable;
    std::vector<Cancellable> m_itemCancellables;
    std::function<void()> m_onWillShow;
    std::function<void()> m_onDidClose;
    std::optional<StatusPillContent> m_shownContent;
    StatusItemForms m_shownForms;
    TrayMenu m_shownMenu;
    std::optional<bool> m_announcedPillChoice;
    Cancellable m_breathing;
    int m_breathStep = 0;
    bool m_isPillWanted = false;
    quint64 m_openedNanoseconds = 0;
    /// Set when a click elsewhere closed the panel: the same click may go on to the item.
    std::optional<quint64> m_noReopeningUntilNanoseconds;
};

}
