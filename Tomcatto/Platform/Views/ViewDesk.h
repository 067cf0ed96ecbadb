#pragma once

#include "Platform/Ports/ActivationPolicyPort.h"
#include "Platform/Ports/LocalConnection.h"
#include "Platform/Qt/ApplicationClickMonitor.h"
#include "Platform/Qt/ApplicationKeyMonitor.h"
#include "Platform/Qt/WindowView.h"
#include "Platform/Views/Replicas.h"

namespace tomcatto {

/// What the process with the views gives them.
struct ViewDeskParts
{
    LocalConnection &connection;
    MainRunLoop &runLoop;
    ActivationPolicyPort &taskbar;
    /// Makes the host of the views, once, from what looks are read from.
    std::function<std::unique_ptr<ViewHost>(QObject &looks)> makeHost;
    /// Called with the language of texts and after each change of it.
    std::function<void(const QString &language)> speak;
    /// Called when the program is gone.
    std::function<void()> quit;
};

/// Carries out in the process with the views what the program says, and tells it what happens there. Main thread only.
class ViewDesk final : public QObject
{
    Q_OBJECT

public:
    /// Everything outlives it.
    explicit ViewDesk(ViewDeskParts parts);
    ~ViewDesk() override;

    void send(ViewMessageKind kind, const QVariantList &arguments);

private:
    void read();
    void obey(const ViewMessage &message);
    void obeyView(ViewMessageKind kind, HostedView &view, const QVariant &value) const;
    void setSurroundings(int looks, int texts);
    void create(const QVariantList &description);
    void tell(int number, ViewEvent event);
    void watchKeys(int number, std::optional<Qt::Key> key);

    ViewDeskParts m_parts;
    ViewMessageReader m_reader;
    Replicas m_replicas;
    ApplicationKeyMonitor m_keys;
    std::map<int, Cancellable> m_watched;
    ApplicationClickMonitor m_clicks;
    Cancellable m_presses;
    std::unique_ptr<ViewHost> m_host;
    std::map<int, std::unique_ptr<HostedView>> m_views;
    int m_texts = 0;
};

}
