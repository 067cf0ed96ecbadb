#include "MenuBar/TrayMenuPopover.h"

#include "MenuBar/PopoverPlacement.h"
#include "MenuBar/TrayMenuViewModel.h"

#include <QtGui/QGuiApplication>
#include <QtGui/QScreen>

namespace tomcatto {

TrayMenuPopover::TrayMenuPopover(ViewWindows &windows, GlobalClickMonitor &clickMonitor, MainRunLoop &runLoop)
    : m_windows(windows)
    , m_clickMonitor(clickMonitor)
    , m_runLoop(runLoop)
{
}

TrayMenuPopover::~TrayMenuPopover() = default;

void TrayMenuPopover::setMenu(const TrayMenu &menu)
{
    m_menu = menu;
    if (m_model)
        m_model->setMenu(menu);
}

void TrayMenuPopover::show(QPoint place)
{
    close();
    m_place = place;
    m_isPresented = false;
    m_model = std::make_shared<TrayMenuViewModel>(m_menu);
    connectModel();
    m_window = m_windows.make({QStringLiteral("Tomcatto.MenuBar"),
                               QStringLiteral("TrayMenuView"),
                               {{QStringLiteral("viewModel"), QVariant::fromValue<QObject *>(m_model.get())}},
                               ViewDescription::Kind::panel},
                              m_model);
    if (!m_window)
        return close();
    m_dismissal = std::make_unique<quillbay::PopoverFocusDismissal>(m_window->view(), m_clickMonitor, m_runLoop,
                                                                    [this] { close(); });
    connect(m_window.get(), &ViewWindow::activeChanged, m_dismissal.get(),
            &quillbay::PopoverFocusDismissal::activeChanged);
    connect(m_window.get(), &ViewWindow::closed, this, &TrayMenuPopover::close);
}

void TrayMenuPopover::connectModel()
{
    const TrayMenuViewModel *const model = m_model.get();
    connect(model, &TrayMenuViewModel::sizeChanged, this, &TrayMenuPopover::fit);
    connect(model, &TrayMenuViewModel::dismissRequested, this, &TrayMenuPopover::close);
    connect(model, &TrayMenuViewModel::chosen, this, [this](const TrayMenuCommand &command) {
        close();
        Q_EMIT chosen(command);
    });
}

void TrayMenuPopover::fit(QSize size)
{
    if (!m_window)
        return;
    const QScreen *screen = QGuiApplication::screenAt(m_place);
    if (screen == nullptr)
        screen = QGuiApplication::primaryScreen();
    m_window->view().place(screen ? menuRectangle(size, m_place, screen->availableGeometry()) : QRect(m_place, size));
    if (!std::exchange(m_isPresented, true))
        m_window->view().present();
}

void TrayMenuPopover::close()
{
    m_dismissal.reset();
    m_window.reset();
    if (m_model)
        m_model->disconnect(this);
    m_model.reset();
}

}
