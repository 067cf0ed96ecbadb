#pragma once

#include "Platform/Qt/WindowSystem.h"

#include <functional>

class QWidget;

namespace tomcatto {

/// Where dialogs of this process belong: the windows that they are about are another's. Main thread only.
class DialogPlace final
{
public:
    /// @param windowSystem outlives this
    explicit DialogPlace(const WindowSystem &windowSystem)
        : m_windowSystem(windowSystem)
    {
    }

    /// @param behind tells the ordinary window that has the keyboard or had it last, as the display server knows it; 0
    /// where there is none
    void setBehind(std::function<quint64()> behind) { m_behind = std::move(behind); }

    /// Shows a hidden dialog in front of that window, with the keyboard.
    void show(QWidget &dialog) const;

private:
    const WindowSystem &m_windowSystem;
    std::function<quint64()> m_behind = [] { return 0; };
};

}
