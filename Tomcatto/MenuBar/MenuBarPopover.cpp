#include "MenuBar/MenuBarPopover.h"

#include "MenuBar/PopoverPlacement.h"

#include <QtGui/QGuiApplication>
#include <QtGui/QScreen>

namespace tomcatto {

MenuBarPopover::MenuBarPopover(ViewWindows &windows, ModelFactory models, QObject *parent)
    : QObject(parent)
    , m_windows(windows)
    , m_models(std::move(models))
{
}

void MenuBarPopover::setContentSize(QSize size)
{
    if (std::exchange(m_contentSize, size) != size && m_shown)
        m_shown->view().place(target());
}

QRect MenuBarPopover::target() const
{
    QScreen *screen = m_item ? QGuiApplication::screenAt(m_item->center()) : nullptr;
    if (!screen)
        screen = QGuiApplication::primaryScreen();
    return screen ? popoverRectangle(m_contentSize, m_item, screen->availableGeometry()) : QRect({}, m_contentSize);
}

bool MenuBarPopover::show(std::optional<QRect> item)
{
    if (!m_shown && !makeWindow(item))
        return false;
    m_shown->view().present();
    return true;
}

bool MenuBarPopover::makeWindow(std::optional<QRect> item)
{
    Q_EMIT willShow();
    const auto models = std::make_shared<QObject>();
    m_shown = m_windows.make({QStringLiteral("Tomcatto.MenuBar"), QStringLiteral("MenubarPanelView"), m_models(*models),
                              ViewDescription::Kind::panel},
                             models);
    if (!m_shown) {
        Q_EMIT didClose();
        return false;
    }
    m_item = item;
    m_shown->view().place(target());
    connect(m_shown.get(), &ViewWindow::closed, this, &MenuBarPopover::performClose);
    return true;
}

void MenuBarPopover::performClose()
{
    if (!isShown())
        return;
    m_shown.reset();
    Q_EMIT didClose();
}

}
