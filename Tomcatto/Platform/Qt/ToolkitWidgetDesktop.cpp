#include "Platform/Qt/ToolkitWidgetDesktop.h"

namespace tomcatto {

ToolkitWidgetDesktop::ToolkitWidgetDesktop(const WindowSystem &windowSystem, const DesktopAppearance &appearance)
    : m_windowSystem(windowSystem)
    , m_appearance(appearance)
{
}

void ToolkitWidgetDesktop::putOnDesktop(QWindow &window, bool isEverywhere)
{
    m_windowSystem.setOnDesktop(window, isEverywhere);
}

Cancellable ToolkitWidgetDesktop::onLookChanged(std::function<void()> changed)
{
    const auto connection =
        QObject::connect(&m_appearance, &DesktopAppearance::darkChanged, &m_appearance, std::move(changed));
    return Cancellable([connection] { QObject::disconnect(connection); });
}

}
