#pragma once

#include "Platform/Qt/DesktopAppearance.h"

#include <QtGui/QPalette>

namespace tomcatto {

/// Lets the toolkit's own windows (menus, warnings, the choice of files) be as dark or as light as the application's.
/// Where the desktop's palette is that already, it stays. Main thread only.
class ToolkitTheme final : public QObject
{
    Q_OBJECT

public:
    /// @param appearance tells the theme; must outlive this object.
    explicit ToolkitTheme(const DesktopAppearance &appearance);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void apply();

    const DesktopAppearance &m_appearance;
    std::optional<QPalette> m_applied;
};

}
