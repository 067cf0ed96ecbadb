#include "BreakOverlay/BreakOverlayWindows.h"

#include <QtCore/QPropertyAnimation>
#include <QtGui/QWindow>

namespace tomcatto {

BreakOverlayWindows::BreakOverlayWindows(const BreakOverlayServices &services, ViewHost &viewHost, Screens &screens,
                                         MainRunLoop &runLoop, BreakVideoSource videos, QObject *parent)
    : QObject(parent)
    , m_services(services)
    , m_viewHost(viewHost)
    , m_screens(screens)
    , m_runLoop(runLoop)
    , m_videos(std::move(videos))
{
    // What was chosen holds for one break.
    connect(&m_services.stateMachine, &PomodoroStateMachine::transitioned, this, [this] {
        m_mutes.clear();
        m_wasMuted = false;
    });
}

OverlayView BreakOverlayWindows::makeView(const QString &component, bool isMuted)
{
    OverlayView contents;
    contents.model = std::make_unique<BreakOverlayModel>(m_services, m_videos, isMuted);
    contents.view =
        m_viewHost.create({QStringLiteral("Tomcatto.BreakOverlay"),
                           component,
                           {{QStringLiteral("viewModel"), QVariant::fromValue<QObject *>(contents.model.get())}}});
    return contents;
}

std::unique_ptr<OverlayWindow> BreakOverlayWindows::make(const Screen &screen, std::function<void()> onClosed)
{
    OverlayView contents = makeView(QStringLiteral("BreakOverlayView"), startsMuted(screen));
    if (!contents.view)
        return nullptr;
    connect(contents.model.get(), &BreakContentModel::isMutedChanged, this,
            [this, id = screen.id, model = contents.model.get()] {
                m_mutes[id] = model->isMuted();
                m_wasMuted = model->isMuted();
            });
    ++m_openWindows;
    return std::make_unique<BreakOverlayWindow>(std::move(contents), screen, m_screens, *this, std::move(onClosed));
}

bool BreakOverlayWindows::startsMuted(const Screen &screen) const
{
    if (const auto chosen = m_mutes.constFind(screen.id); chosen != m_mutes.cend())
        return *chosen;
    // One video is heard, that of the main screen, until the user turns on another. A screen that takes over as the
    // main one goes on as the user left the sound.
    return !screen.isMain || m_wasMuted;
}

Cancellable BreakOverlayWindows::warm()
{
    const auto warm = std::make_shared<OverlayView>(makeView(QStringLiteral("BreakOverlayWarmUp"), true));
    return Cancellable([warm] {});
}

void BreakOverlayWindows::retire(OverlayView contents)
{
    m_leaving.push_back(std::move(contents));
    const auto leaving = std::prev(m_leaving.end());
    QWindow &window = leaving->view->window();
    window.setProperty("isLeaving", true);
    m_screens.uncover(window);
    if (m_screens.canFade() && window.isVisible()) {
        qDeleteAll(window.findChildren<QPropertyAnimation *>(Qt::FindDirectChildrenOnly));
        auto *fade = new QPropertyAnimation(&window, "opacity", &window);
        fade->setDuration(window.property("outTime").toInt());
        fade->setEasingCurve(QEasingCurve::OutQuad);
        fade->setEndValue(0.0);
        connect(fade, &QAbstractAnimation::finished, this, [this, leaving] { finish(leaving); });
        fade->start();
    } else {
        finish(leaving);
    }
    if (--m_openWindows == 0 && m_videos.finished)
        m_videos.finished();
}

void BreakOverlayWindows::finish(Leaving::iterator leaving)
{
    leaving->view->window().hide();
    m_runLoop.async(*this, [this, leaving] { m_leaving.erase(leaving); });
}

}
