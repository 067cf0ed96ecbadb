#pragma once

#include "Platform/Qt/DesktopAppearance.h"
#include "Platform/Qt/FloatingPillWindow.h"
#include "Platform/Qt/TrayIcon.h"

namespace tomcatto {

/// The status item of a desktop with trays. The square icon shows in the first of them that is there; the pill floats
/// at the top edge where there is none, or beside the icon when the user wants it.
/// All of that is followed live. Main thread only.
class StatusItemSwitch final : public QObject, public StatusItem
{
    Q_OBJECT

public:
    /// @param trays the kinds of trays, the best first.
    /// @param defaults keeps the place of the floating pill. What is referred to outlives this.
    StatusItemSwitch(std::vector<std::unique_ptr<TrayIcon>> trays, const DesktopAppearance &appearance,
                     UserDefaults &defaults, const WindowSystem &windowSystem);
    ~StatusItemSwitch() override;

    [[nodiscard]] StatusItemForms forms() const override { return m_forms; }
    [[nodiscard]] Cancellable onFormsChanged(std::function<void()> handler) override;
    void show(const StatusItemPresentation &presentation) override;
    void setMenu(const TrayMenu &menu) override;
    void setPillWanted(bool isWanted) override;
    /// The pill's place while it shows, else the icon's.
    [[nodiscard]] std::optional<QRect> geometry() const override;
    [[nodiscard]] Cancellable onActivated(std::function<void(std::optional<QRect>)> handler) override;
    [[nodiscard]] Cancellable onMenuWanted(std::function<void(QPoint)> handler) override;
    [[nodiscard]] Cancellable onMenuCommand(std::function<void(const TrayMenuCommand &)> handler) override;

Q_SIGNALS:
    void formsChanged();
    void activated(std::optional<QRect> place);
    void menuWanted(QPoint place);
    void menuCommandChosen(const tomcatto::TrayMenuCommand &command);

private:
    [[nodiscard]] const TrayIcon *currentTray() const;
    [[nodiscard]] bool isDecided() const;
    [[nodiscard]] bool isPillDue() const;
    void makePill();
    void update();

    const DesktopAppearance &m_appearance;
    UserDefaults &m_defaults;
    const WindowSystem &m_windowSystem;
    std::vector<std::unique_ptr<TrayIcon>> m_trays;
    StatusItemForms m_forms;
    /// While it is due.
    std::unique_ptr<FloatingPillWindow> m_pill;
    bool m_isPillWanted = false;
};

}
