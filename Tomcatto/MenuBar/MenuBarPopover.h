#pragma once

#include "ViewWindows/ViewWindows.h"

#include <optional>
#include <QtCore/QObject>
#include <QtCore/QRect>

namespace tomcatto {

/// The frameless window that hosts the panel beside the status item. Its view and the models behind it exist only while
/// it is shown. Main thread only.
class MenuBarPopover final : public QObject
{
    Q_OBJECT

public:
    /// Makes the view's models as children of `owner` and names them as the view's properties.
    using ModelFactory = std::function<QVariantMap(QObject &owner)>;

    MenuBarPopover(ViewWindows &windows, ModelFactory models, QObject *parent = nullptr);

    [[nodiscard]] bool isShown() const noexcept { return m_shown != nullptr; }
    /// The window while it is shown, else null.
    [[nodiscard]] ViewWindow *window() const { return m_shown.get(); }
    /// The size of the next showing; a shown window glides to it.
    void setContentSize(QSize size);

    /// Shows the window beside the item's rectangle, or brings it to the front where it is shown. @return whether it is
    /// shown now.
    bool show(std::optional<QRect> item);
    /// Closes the window, if one is shown.
    void performClose();

Q_SIGNALS:
    void willShow();
    void didClose();

private:
    bool makeWindow(std::optional<QRect> item);
    [[nodiscard]] QRect target() const;

    ViewWindows &m_windows;
    ModelFactory m_models;
    QSize m_contentSize;
    std::optional<QRect> m_item;
    std::unique_ptr<ViewWindow> m_shown;
};

}
