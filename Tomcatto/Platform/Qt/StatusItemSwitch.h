#pragma once

#include "Platform/Freedesktop/DesktopAppearance.h"
#include "Platform/Freedesktop/StatusNotifierTray.h"
#include "Platform/Qt/FloatingPillWindow.h"
#include "Platform/Qt/XEmbedTray.h"

namespace tomcatto {

/// The status item of a Linux desktop. The square icon shows in the tray that reads it over D-Bus, else in one that
/// takes in windows; the pill floats at the top edge where there is neither, or beside the icon when the user wants it.
/// All of that is followed live. Main thread only.
class StatusItemSwitch final : public QObject, public StatusItem
{
    Q_OBJECT

public:
    /// @param sessionBus the session's bus; it may be without a connection.
    /// @param defaults keeps the place of the floating pill.
    StatusItemSwitch(const QDBusConnection &sessionBus, DesktopAppearance &appearance, UserDefaults &defaults);
    ~StatusItemSwitch() override;

    [[nodiscard]] StatusItemForms forms() const override { return m_forms; }
    [[nodiscard]] Cancellable onFormsChanged(std::function<void()> handler) override;
    void show(const StatusItemPresentation &presentation) override;
    void setMenu(const TrayMenu &menu) override;
    void setPillWanted(bool isWanted) override;
    /// The pill's place while it shows, else the icon's.
    [[nodiscard]] std::optional<QRect> geometry() const override;
    [[nodiscard]] Cancellable onActivated(std::function<void(std::optional<QRect>)> handler) override;
    [[nodiscard]] Cancellable onMenuCommand(std::function<void(const TrayMenuCommand &)> handler) override;

    /// Whether a tray shows the square icon now.
    [[nodiscard]] bool hasTray() const { return currentTray() != nullptr; }

Q_SIGNALS:
    void formsChanged();
    void activated(std::optional<QRect> place);
    void menuCommandChosen(const tomcatto::TrayMenuCommand &command);

private:
    [[nodiscard]] const TrayIcon *currentTray() const;
    [[nodiscard]] bool isPillDue() const;
    void update();

    DesktopAppearance &m_appearance;
    StatusNotifierTray m_notifier;
    XEmbedTray m_embedded;
    FloatingPillWindow m_pill;
    TrayMenuPopup m_popup;
    StatusItemForms m_forms;
    bool m_isPillWanted = false;
    bool m_hasPresentation = false;
};

}
