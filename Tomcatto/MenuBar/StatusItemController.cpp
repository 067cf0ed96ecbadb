#include "MenuBar/StatusItemController.h"

#include "MenuBar/MenubarPanelViewModel.h"
#include "MenuBar/StateSubscription.h"
#include "MenuBar/TransportControls.h"
#include "MenuBar/TrayMenuBuilder.h"
#include "StatisticsViews/StatisticsViewModel.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <QtGui/QCursor>
#include <QtGui/QGuiApplication>
#include <QtGui/QStyleHints>

namespace tomcatto {
namespace {

constexpr QSize panelSize{280, 460};
constexpr QSize statisticsSize{400, 560};
/// A press that took the keyboard from the panel and then reached the item is one click: it only closes.
constexpr quint64 dismissalNanoseconds = 300'000'000;
/// The same where it is known that the press was on the item: the button may be held for long.
constexpr quint64 heldPressNanoseconds = 2'000'000'000;
/// Half the edge of a large icon.
constexpr int iconReach = 16;

/// With the clock's own pictures no more than four a second: each one goes to the tray or the display server.
constexpr std::chrono::milliseconds breathStep(333);
constexpr int stepsPerBreath = 12;

/// How far the pill has breathed at a step, 0 to 1, beginning with 0.
double breath(int step)
{
    return (1 - std::cos(2 * std::numbers::pi * step / stepsPerBreath)) / 2;
}

QString pillWantedKey()
{
    return QStringLiteral("showsFloatingPill");
}

Cancellable cancellable(const QMetaObject::Connection &connection)
{
    return Cancellable([connection] { QObject::disconnect(connection); });
}

}

StatusItemController::StatusItemController(const MenuBarServices &services, const Platform &platform,
                                           MainWindowRouter &router, QObject *parent)
    : QObject(parent)
    , m_services(services)
    , m_statusItem(platform.statusItem)
    , m_clickMonitor(platform.clickMonitor)
    , m_router(router)
    , m_source(services.stateMachine, services.timer, services.settings, services.strings)
    , m_popover(platform.windows, [this](QObject &owner) { return makeModels(owner); })
    , m_menu(platform.windows, platform.clickMonitor, services.runLoop)
{
    m_popover.setContentSize(panelSize);
    connect(&m_popover, &MenuBarPopover::willShow, this, &StatusItemController::popoverWillShow);
    connect(&m_popover, &MenuBarPopover::didClose, this, &StatusItemController::popoverDidClose);
    connect(&m_menu, &TrayMenuPopover::chosen, this, &StatusItemController::choose);
    const auto wanted = services.defaults.value(pillWantedKey());
    m_isPillWanted = wanted && std::holds_alternative<bool>(*wanted) && std::get<bool>(*wanted);
    connectItem();
    subscribe();
    updateStatusItem();
}

void StatusItemController::connectItem()
{
    m_statusItem.setPillWanted(m_isPillWanted);
    m_itemCancellables.push_back(m_statusItem.onActivated([this](std::optional<QRect> item) { togglePopover(item); }));
    m_itemCancellables.push_back(m_statusItem.onMenuWanted([this](QPoint place) {
        // The press that closed the panel was this one.
        m_noReopeningUntilNanoseconds.reset();
        m_menu.show(place);
    }));
    m_itemCancellables.push_back(
        m_statusItem.onMenuCommand([this](const TrayMenuCommand &command) { choose(command); }));
    m_itemCancellables.push_back(m_statusItem.onFormsChanged([this] { updateStatusItem(); }));
}

void StatusItemController::subscribe()
{
    m_statusCancellable = subscribeToState(m_services, [this] { updateStatusItem(); });
    m_themeCancellable =
        cancellable(connect(&m_services.settings, &PomodoroSettings::changed, this, [this](PomodoroSettings::Key key) {
            if (key == PomodoroSettings::Key::themePreference)
                updateStatusItem();
        }));
    m_routeCancellable = cancellable(connect(&m_navigationStore, &PopoverNavigationStore::pathChanged, this,
                                             &StatusItemController::updateContentSize));
    // The panel's texts follow by themselves; those already handed to the item do not.
    m_languageCancellable = cancellable(connect(&m_services.strings, &LocalizedStrings::changed, this, [this] {
        m_shownContent.reset();
        updateStatusItem();
    }));
}

QVariantMap StatusItemController::makeModels(QObject &owner)
{
    auto *panel = new MenubarPanelViewModel(m_services, m_navigationStore, m_router, &owner);
    connect(panel, &MenubarPanelViewModel::dismissRequested, this, &StatusItemController::closePopover);
    connect(panel, &MenubarPanelViewModel::quitRequested, this, &StatusItemController::quitRequested);
    auto *statistics = new StatisticsViewModel({m_services.statsAggregator, m_services.settings, m_services.strings,
                                                m_services.wallClock, m_services.sessionExport},
                                               StatisticsForm::panel, &owner);
    statistics->setShown(true);
    return {{QStringLiteral("viewModel"), QVariant::fromValue<QObject *>(panel)},
            {QStringLiteral("statistics"), QVariant::fromValue<QObject *>(statistics)}};
}

void StatusItemController::updateStatusItem()
{
    updateMenu();
    if (const auto choice = pillChoice(); std::exchange(m_announcedPillChoice, choice) != choice)
        Q_EMIT pillChoiceChanged(choice);
    followBreath();
    const StatusItemForms forms = m_statusItem.forms();
    StatusPillContent content = m_source.content(forms.isDark);
    content.breath = breath(m_breathStep);
    if (content == m_shownContent && forms == m_shownForms)
        return;
    m_shownContent = content;
    m_shownForms = forms;

    StatusItemPresentation presentation;
    presentation.accessibleText =
        m_services.strings.format(QStringLiteral("menubar.accessibility.remaining %@"), content.title);
    // A square icon has no room for the time, whatever the style.
    const bool showsTime = content.style == MenuBarStyle::countdown && forms.squareSizes.empty();
    presentation.toolTip = showsTime ? QStringLiteral("Tomcatto") : presentation.accessibleText;
    for (const int size : forms.squareSizes) {
        if (const auto icon = m_iconRenderer.render(content, size))
            presentation.squareIcons.push_back(*icon);
    }
    if (forms.pillScale)
        presentation.pill = m_pillRenderer.render(content, *forms.pillScale).value_or(QImage());
    if (presentation.pill.isNull() && presentation.squareIcons.empty())
        presentation.title = content.title;
    m_statusItem.show(presentation);
}

void StatusItemController::followBreath()
{
    const StatusItemForms forms = m_statusItem.forms();
    const bool isSeen = forms.pillScale || !forms.squareSizes.empty();
    const bool isDue = m_services.manners.isBreakNear() && isSeen && !forms.isStill;
    if (isDue == m_breathing.isActive())
        return;
    m_breathStep = 0;
    m_breathing = isDue ? m_services.runLoop.every(breathStep,
                                                   [this] {
                                                       ++m_breathStep;
                                                       updateStatusItem();
                                                   })
                        : Cancellable();
}

TrayMenu StatusItemController::currentMenu() const
{
    return trayMenu(m_services.stateMachine, m_services.strings, pillChoice());
}

void StatusItemController::updateMenu()
{
    const TrayMenu menu = currentMenu();
    if (menu == m_shownMenu)
        return;
    m_shownMenu = menu;
    m_menu.setMenu(menu);
    m_statusItem.setMenu(menu);
}

void StatusItemController::updateContentSize()
{
    m_popover.setContentSize(m_navigationStore.showsStatistics() ? statisticsSize : panelSize);
}

void StatusItemController::togglePopover(std::optional<QRect> item)
{
    if (m_popover.isShown()) {
        if (!hasJustOpened())
            m_popover.performClose();
        return;
    }
    const auto noReopeningUntil = std::exchange(m_noReopeningUntilNanoseconds, std::nullopt);
    if (noReopeningUntil && m_services.monotonicClock.nowNanoseconds() < *noReopeningUntil)
        return;
    present(item ? item : m_statusItem.geometry());
}

bool StatusItemController::showPopover()
{
    return present(m_statusItem.geometry());
}

void StatusItemController::showStatistics()
{
    m_navigationStore.setPath({PopoverRoute::stats});
    showPopover();
}

bool StatusItemController::present(std::optional<QRect> item)
{
    const bool wasShown = m_popover.isShown();
    if (!m_popover.show(item) || wasShown)
        return wasShown;
    m_openedNanoseconds = m_services.monotonicClock.nowNanoseconds();
    awaitDismissal();
    return true;
}

void StatusItemController::awaitDismissal()
{
    // One that has asked does not ask again.
    m_focusDismissal.reset();
    ViewWindow &window = *m_popover.window();
    m_focusDismissal = std::make_unique<quillbay::PopoverFocusDismissal>(window.view(), m_clickMonitor,
                                                                         m_services.runLoop, [this] { dismiss(); });
    connect(&window, &ViewWindow::activeChanged, m_focusDismissal.get(),
            &quillbay::PopoverFocusDismissal::activeChanged);
}

bool StatusItemController::hasJustOpened() const
{
    const std::chrono::milliseconds longest(QGuiApplication::styleHints()->mouseDoubleClickInterval());
    const std::chrono::nanoseconds since(m_services.monotonicClock.nowNanoseconds() - m_openedNanoseconds);
    return since < longest;
}

void StatusItemController::dismiss()
{
    auto item = m_statusItem.geometry();
    // Of some trays only a point of the icon is known.
    if (item && item->isEmpty())
        item = item->marginsAdded({iconReach, iconReach, iconReach, iconReach});
    const bool isOnItem = item && item->contains(QCursor::pos());
    if (isOnItem && hasJustOpened()) {
        m_popover.show(item);
        awaitDismissal();
        return;
    }
    m_noReopeningUntilNanoseconds =
        m_services.monotonicClock.nowNanoseconds() + (isOnItem ? heldPressNanoseconds : dismissalNanoseconds);
    m_popover.performClose();
}

void StatusItemController::popoverWillShow()
{
    m_menu.close();
    if (m_onWillShow)
        m_onWillShow();
}

void StatusItemController::closePopover()
{
    m_menu.close();
    m_popover.performClose();
}

void StatusItemController::popoverDidClose()
{
    m_focusDismissal.reset();
    m_navigationStore.setPath({});
    if (m_onDidClose)
        m_onDidClose();
}

void StatusItemController::choose(const TrayMenuCommand &command)
{
    // The menu that was clicked may be one of a moment that is over.
    const TrayMenu menu = currentMenu();
    const bool isOffered = std::ranges::any_of(
        menu.entries, [&](const TrayMenuEntry &entry) { return entry.isEnabled && entry.command == command; });
    if (isOffered)
        perform(command.action);
}

void StatusItemController::perform(TrayMenuAction action)
{
    PomodoroStateMachine &machine = m_services.stateMachine;
    switch (action) {
    case TrayMenuAction::openPanel:
        showPopover();
        return;
    case TrayMenuAction::start:
    case TrayMenuAction::startBreak:
    case TrayMenuAction::pause:
    case TrayMenuAction::resume:
        return performPrimary(machine);
    case TrayMenuAction::skip:
        machine.skip();
        return;
    case TrayMenuAction::takeBreak:
        machine.takeBreak();
        return;
    case TrayMenuAction::extend:
        machine.extend(extensionSeconds);
        return;
    case TrayMenuAction::reset:
        machine.reset();
        return;
    case TrayMenuAction::statistics:
        return showStatistics();
    case TrayMenuAction::settings:
        return m_router.openSettings();
    case TrayMenuAction::togglePill:
        return setPillWanted(!m_isPillWanted);
    case TrayMenuAction::quit:
        Q_EMIT quitRequested();
        return;
    }
}

std::optional<bool> StatusItemController::pillChoice() const
{
    return m_statusItem.forms().squareSizes.empty() ? std::nullopt : std::optional(m_isPillWanted);
}

void StatusItemController::setPillWanted(bool isWanted)
{
    if (std::exchange(m_isPillWanted, isWanted) == isWanted)
        return;
    m_services.defaults.setValue(pillWantedKey(), m_isPillWanted);
    m_statusItem.setPillWanted(m_isPillWanted);
    updateStatusItem();
}

}
