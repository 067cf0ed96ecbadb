#include "Platform/Qt/StatusItemSwitch.h"

#include <algorithm>

namespace tomcatto {

namespace {

Cancellable held(const QMetaObject::Connection &connection)
{
    return Cancellable([connection] { QObject::disconnect(connection); });
}

}

StatusItemSwitch::StatusItemSwitch(std::vector<std::unique_ptr<TrayIcon>> trays, const DesktopAppearance &appearance,
                                   UserDefaults &defaults, const WindowSystem &windowSystem)
    : m_appearance(appearance)
    , m_defaults(defaults)
    , m_windowSystem(windowSystem)
    , m_trays(std::move(trays))
{
    for (const auto &tray : m_trays) {
        connect(tray.get(), &TrayIcon::hostChanged, this, &StatusItemSwitch::update);
        connect(tray.get(), &TrayIcon::activated, this, &StatusItemSwitch::activated);
        connect(tray.get(), &TrayIcon::menuCommandChosen, this, &StatusItemSwitch::menuCommandChosen);
        connect(tray.get(), &TrayIcon::menuWanted, this, &StatusItemSwitch::menuWanted);
    }
    connect(&m_appearance, &DesktopAppearance::desktopDarkChanged, this, &StatusItemSwitch::update);
    connect(&m_appearance, &DesktopAppearance::reducedMotionChanged, this, &StatusItemSwitch::update);
    update();
}

StatusItemSwitch::~StatusItemSwitch() = default;

Cancellable StatusItemSwitch::onFormsChanged(std::function<void()> handler)
{
    return held(connect(this, &StatusItemSwitch::formsChanged, this, std::move(handler)));
}

Cancellable StatusItemSwitch::onActivated(std::function<void(std::optional<QRect>)> handler)
{
    return held(connect(this, &StatusItemSwitch::activated, this, std::move(handler)));
}

Cancellable StatusItemSwitch::onMenuWanted(std::function<void(QPoint)> handler)
{
    return held(connect(this, &StatusItemSwitch::menuWanted, this, std::move(handler)));
}

Cancellable StatusItemSwitch::onMenuCommand(std::function<void(const TrayMenuCommand &)> handler)
{
    return held(connect(this, &StatusItemSwitch::menuCommandChosen, this, std::move(handler)));
}

const TrayIcon *StatusItemSwitch::currentTray() const
{
    const auto found = std::ranges::find_if(m_trays, [](const auto &tray) { return tray->isHosted(); });
    return found == m_trays.end() ? nullptr : found->get();
}

bool StatusItemSwitch::isDecided() const
{
    return std::ranges::all_of(m_trays, [](const auto &tray) { return tray->isDecided(); });
}

bool StatusItemSwitch::isPillDue() const
{
    if (m_isPillWanted)
        return true;
    // While it is not known yet, a pill that goes at once again would only flash.
    return isDecided() && currentTray() == nullptr;
}

void StatusItemSwitch::makePill()
{
    m_pill = std::make_unique<FloatingPillWindow>(m_defaults, m_windowSystem);
    connect(m_pill.get(), &FloatingPillWindow::activated, this, [this] { Q_EMIT activated(m_pill->geometry()); });
    connect(m_pill.get(), &FloatingPillWindow::menuWanted, this, &StatusItemSwitch::menuWanted);
    // In a later turn: the pill may go then.
    connect(m_pill.get(), &FloatingPillWindow::scaleChanged, this, &StatusItemSwitch::update, Qt::QueuedConnection);
}

void StatusItemSwitch::update()
{
    const TrayIcon *tray = currentTray();
    for (const auto &each : m_trays)
        each->setShown(isDecided() && tray == each.get());
    if (!isPillDue())
        m_pill.reset();
    else if (!m_pill)
        makePill();
    StatusItemForms forms;
    if (tray != nullptr)
        forms.squareSizes = tray->iconSizes();
    if (m_pill) {
        m_pill->setDark(m_appearance.isDesktopDark());
        forms.pillScale = m_pill->scale();
    }
    forms.isDark = m_appearance.isDesktopDark();
    forms.isStill = m_appearance.reducedMotion();
    if (std::exchange(m_forms, forms) != forms)
        Q_EMIT formsChanged();
}

void StatusItemSwitch::show(const StatusItemPresentation &presentation)
{
    for (const auto &tray : m_trays)
        tray->show(presentation);
    if (!m_pill)
        return;
    m_pill->present(presentation);
    m_pill->show();
}

void StatusItemSwitch::setMenu(const TrayMenu &menu)
{
    for (const auto &tray : m_trays)
        tray->setMenu(menu);
}

void StatusItemSwitch::setPillWanted(bool isWanted)
{
    m_isPillWanted = isWanted;
    update();
}

std::optional<QRect> StatusItemSwitch::geometry() const
{
    if (m_pill && m_pill->isVisible())
        return m_pill->geometry();
    const TrayIcon *tray = currentTray();
    return tray == nullptr ? std::nullopt : tray->geometry();
}

}
