#include "Platform/Qt/StatusItemSwitch.h"

namespace tomcatto {

namespace {

Cancellable held(const QMetaObject::Connection &connection)
{
    return Cancellable([connection] { QObject::disconnect(connection); });
}

}

StatusItemSwitch::StatusItemSwitch(const QDBusConnection &sessionBus, DesktopAppearance &appearance,
                                   UserDefaults &defaults)
    : m_appearance(appearance)
    , m_notifier(sessionBus)
    , m_pill(defaults)
{
    for (TrayIcon *tray : std::initializer_list<TrayIcon *>{&m_notifier, &m_embedded}) {
        connect(tray, &TrayIcon::hostChanged, this, &StatusItemSwitch::update);
        connect(tray, &TrayIcon::activated, this, &StatusItemSwitch::activated);
        connect(tray, &TrayIcon::menuCommandChosen, this, &StatusItemSwitch::menuCommandChosen);
    }
    connect(&m_notifier, &StatusNotifierTray::menuWanted, this,
            [this](QPoint place) { m_popup.popUp(place, m_pill.isVisible() ? &m_pill : nullptr); });
    connect(&m_popup, &TrayMenuPopup::chosen, this, &StatusItemSwitch::menuCommandChosen);
    connect(&m_pill, &FloatingPillWindow::activated, this, [this] { Q_EMIT activated(m_pill.geometry()); });
    connect(&m_pill, &FloatingPillWindow::menuCommandChosen, this, &StatusItemSwitch::menuCommandChosen);
    connect(&m_pill, &FloatingPillWindow::scaleChanged, this, &StatusItemSwitch::update);
    connect(&m_appearance, &DesktopAppearance::desktopDarkChanged, this, &StatusItemSwitch::update);
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

Cancellable StatusItemSwitch::onMenuCommand(std::function<void(const TrayMenuCommand &)> handler)
{
    return held(connect(this, &StatusItemSwitch::menuCommandChosen, this, std::move(handler)));
}

const TrayIcon *StatusItemSwitch::currentTray() const
{
    if (m_notifier.isHosted())
        return &m_notifier;
    return m_embedded.isHosted() ? &m_embedded : nullptr;
}

bool StatusItemSwitch::isPillDue() const
{
    if (m_isPillWanted)
        return true;
    // While it is not known yet, a pill that goes at once again would only flash.
    return m_notifier.isDecided() && currentTray() == nullptr;
}

void StatusItemSwitch::update()
{
    const TrayIcon *tray = currentTray();
    m_embedded.setShown(m_notifier.isDecided() && tray == &m_embedded);
    m_pill.setDark(m_appearance.isDesktopDark());
    StatusItemForms forms;
    if (tray != nullptr)
        forms.squareSizes = tray->iconSizes();
    if (isPillDue())
        forms.pillScale = m_pill.scale();
    forms.isDark = m_appearance.isDesktopDark();
    if (std::exchange(m_forms, forms) != forms)
        Q_EMIT formsChanged();
    m_pill.setShown(m_hasPresentation && isPillDue());
}

void StatusItemSwitch::show(const StatusItemPresentation &presentation)
{
    m_notifier.show(presentation);
    m_embedded.show(presentation);
    if (isPillDue())
        m_pill.present(presentation);
    m_hasPresentation = true;
    m_pill.setShown(isPillDue());
}

void StatusItemSwitch::setMenu(const TrayMenu &menu)
{
    m_notifier.setMenu(menu);
    m_embedded.setMenu(menu);
    m_pill.setMenu(menu);
    m_popup.setMenu(menu);
}

void StatusItemSwitch::setPillWanted(bool isWanted)
{
    m_isPillWanted = isWanted;
    update();
}

std::optional<QRect> StatusItemSwitch::geometry() const
{
    if (m_pill.isVisible())
        return m_pill.geometry();
    const TrayIcon *tray = currentTray();
    return tray == nullptr ? std::nullopt : tray->geometry();
}

}
