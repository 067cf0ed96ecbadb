#pragma once

#include "Platform/Qt/ToolkitTrayPresence.h"
#include "Platform/Qt/TrayIcon.h"

#include <memory>
#include <QtCore/QTimer>

class QSystemTrayIcon;

namespace tomcatto {

/// The toolkit's own icon. It lives only while it is wanted and a tray for it runs, because the toolkit decides once
/// which kind it uses.
class ToolkitTray final : public TrayIcon
{
    Q_OBJECT

public:
    ToolkitTray();
    ~ToolkitTray() override;

    [[nodiscard]] bool isDecided() const override { return true; }
    [[nodiscard]] bool isHosted() const override { return m_presence.hasTray(); }
    /// The edge that the tray gave the icon; a usual one until it has.
    [[nodiscard]] std::vector<int> iconSizes() const override { return {m_edge}; }
    [[nodiscard]] std::optional<QRect> geometry() const override;

    void setShown(bool isShown) override;
    void show(const StatusItemPresentation &presentation) override;
    /// Shows a message at the icon for some seconds, in the place of one that still shows; none where there is no icon.
    void showMessage(const QString &title, const QString &text);

Q_SIGNALS:
    void messagePressed();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void update();
    void makeIcon();
    void followEdge();

    ToolkitTrayPresence m_presence;
    std::unique_ptr<QSystemTrayIcon> m_icon;
    /// The tray fits the icon in some time after it was shown.
    QTimer m_fitting;
    std::vector<QImage> m_images;
    QString m_toolTip;
    int m_edge = 24;
    bool m_isShown = false;
};

}
