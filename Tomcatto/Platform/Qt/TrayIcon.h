#pragma once

#include "Platform/Ports/StatusItem.h"

#include <QtCore/QObject>

namespace tomcatto {

/// A square icon in one kind of tray. It follows the tray's coming and going by itself. Main thread only.
class TrayIcon : public QObject
{
    Q_OBJECT

public:
    /// Whether it is known if there is a tray. Until then `isHosted` is false.
    [[nodiscard]] virtual bool isDecided() const = 0;
    /// Whether a tray of this kind is there to show the icon.
    [[nodiscard]] virtual bool isHosted() const = 0;
    /// Edges of the images that the tray wants, in device pixels.
    [[nodiscard]] virtual std::vector<int> iconSizes() const = 0;
    /// Where the icon is, in logical pixels; nothing if the tray does not tell.
    [[nodiscard]] virtual std::optional<QRect> geometry() const = 0;

    /// Whether the icon is to show when there is a tray.
    virtual void setShown(bool isShown) = 0;
    /// Shows the square icons, the tooltip and the accessible text; the rest is for other forms.
    virtual void show(const StatusItemPresentation &presentation) = 0;
    /// The menu, for a tray that shows it by itself.
    virtual void setMenu(const TrayMenu & /*menu*/) {}

Q_SIGNALS:
    /// `isDecided`, `isHosted` or `iconSizes` changed.
    void hostChanged();
    void activated(std::optional<QRect> place);
    /// The application is to show the menu at this place, in logical pixels.
    void menuWanted(QPoint place);
    void menuCommandChosen(const tomcatto::TrayMenuCommand &command);
};

}
