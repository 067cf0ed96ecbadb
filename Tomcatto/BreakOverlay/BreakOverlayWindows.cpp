#include "BreakOverlay/BreakOverlayWindows.h"

namespace tomcatto {

BreakOverlayWindows::BreakOverlayWindows(const BreakOverlayServices &services, ViewWindows &windows,
                                         BreakVideoSource videos, QObject *parent)
    : QObject(parent)
    , m_services(services)
    , m_windows(windows)
    , m_videos(std::move(videos))
{
    // What was chosen holds for one break.
    connect(&m_services.stateMachine, &PomodoroStateMachine::transitioned, this, [this] {
        m_mutes.clear();
        m_wasMuted = false;
    });
}

std::unique_ptr<ViewWindow> BreakOverlayWindows::makeView(const QString &component,
                                                          const std::shared_ptr<BreakContentModel> &model)
{
    return m_windows.make({QStringLiteral("Tomcatto.BreakOverlay"),
                           component,
                           {{QStringLiteral("viewModel"), QVariant::fromValue<QObject *>(model.get())}},
                           ViewDescription::Kind::cover},
                          model);
}

std::unique_ptr<OverlayWindow> BreakOverlayWindows::make(const Screen &screen, std::function<void()> onClosed)
{
    const auto model = std::make_shared<BreakOverlayModel>(m_services, m_videos, startsMuted(screen));
    auto view = makeView(QStringLiteral("BreakOverlayView"), model);
    if (!view)
        return nullptr;
    connect(model.get(), &BreakContentModel::isMutedChanged, this, [this, id = screen.id, model = model.get()] {
        m_mutes[id] = model->isMuted();
        m_wasMuted = model->isMuted();
    });
    connect(view.get(), &ViewWindow::closed, this, std::move(onClosed));
    ++m_openWindows;
    return std::make_unique<BreakOverlayWindow>(std::move(view), screen, *this);
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
    const auto model = std::make_shared<BreakOverlayModel>(m_services, m_videos, true);
    return Cancellable([warm = std::shared_ptr(makeView(QStringLiteral("BreakOverlayWarmUp"), model))] {});
}

void BreakOverlayWindows::retire(std::unique_ptr<ViewWindow> view)
{
    view->disconnect(this);
    const auto leaving = m_leaving.insert(m_leaving.end(), std::move(view));
    connect(leaving->get(), &ViewWindow::left, this, [this, leaving] { m_leaving.erase(leaving); });
    (*leaving)->view().leave();
    if (--m_openWindows == 0 && m_videos.finished)
        m_videos.finished();
}

}
