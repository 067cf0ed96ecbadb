#pragma once

#include "Platform/Freedesktop/TrayIcon.h"
#include "Platform/Qt/TrayMenuPopup.h"
#include "Platform/X11/X11TrayWatcher.h"

#include <memory>
#include <QtCore/QTimer>

class QSystemTrayIcon;

namespace tomcatto {

/// The icon in trays that take in a window (XEmbed), for desktops without the newer kind. The toolkit's own icon does
/// it; it lives only while it is wanted and such a tray runs, because the toolkit decides once which kind it uses.
class XEmbedTray final : public TrayIcon
{
    Q_OBJECT

public:
    XEmbedTray();
    ~XEmbedTray() override;

    [[nodiscard]] bool isDecided() const override { return true; }
    [[nodiscard]] bool isHosted() const override { return m_watcher.hasTray(); }
    /// The edge that the tray gave the icon; a usual one until it has.
    [[nodiscard]] std::vector<int> iconSizes() const override { return {m_edge}; }
    [[nodiscard]] std::optional<QRect> geometry() const override;

    void setShown(bool isShown) override;
    void show(const StatusItemPresentation &presentation) override;
    void setMenu(const TrayMenu &menu) override { m_popup.setMenu(menu); }

private:
    void update();
    void makeIcon();
    void followEdge();

    X11TrayWatcher m_watcher;
    TrayMenuPopup m_popup;
    std::unique_ptr<QSystemTrayIcon> m_icon;
    /// The tray fits the icon in some time after it was shown and the toolkit does not tell when.
    QTimer m_fitting;
    std::vector<QImage> m_images;
    QString m_toolTip;
    int m_edge = 24;
    bool m_isShown = false;
};

}
