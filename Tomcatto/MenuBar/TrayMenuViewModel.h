#pragma once

#include "Platform/Ports/StatusItem.h"

#include <QtCore/QObject>
#include <QtCore/QSize>
#include <QtCore/QVariantList>

namespace tomcatto {

/// The item's menu as a view shows it. Lives while that is shown, and follows what it is given. Main thread only.
class TrayMenuViewModel final : public QObject
{
    Q_OBJECT
    /// From top to bottom, each with `key`, which stays as long as the line means the same and is empty for a
    /// separator, `text`, `isEnabled`, `isToggle` and `isChecked`.
    Q_PROPERTY(QVariantList lines READ lines NOTIFY linesChanged FINAL)

public:
    explicit TrayMenuViewModel(const TrayMenu &menu)
        : m_menu(menu)
    {
    }

    [[nodiscard]] QVariantList lines() const;
    void setMenu(const TrayMenu &menu);

public Q_SLOTS:
    /// Does what a line means, if the menu still has it.
    void choose(const QString &key);
    void dismiss() { Q_EMIT dismissRequested(); }
    /// The view tells how large it is, in logical pixels.
    void fit(int width, int height) { Q_EMIT sizeChanged(QSize(width, height)); }

Q_SIGNALS:
    void linesChanged();
    void chosen(const tomcatto::TrayMenuCommand &command);
    void dismissRequested();
    void sizeChanged(QSize size);

private:
    TrayMenu m_menu;
};

}
