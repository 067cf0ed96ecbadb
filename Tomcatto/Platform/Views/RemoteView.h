#pragma once

#include "Platform/Views/ProcessViewHost.h"

namespace tomcatto {

/// A view in the process for them. Once that is lost it does nothing any more. Main thread only.
class RemoteView final : public QObject, public HostedView
{
public:
    RemoteView(ProcessViewHost &host, int number, ViewDescription::Kind kind)
        : m_host(host)
        , m_number(number)
        , m_kind(kind)
    {
    }
    ~RemoteView() override;

    void present() override;
    void hide() override { send(ViewMessageKind::hide); }
    void place(const QRect &rectangle) override;
    void cover(const QRect &frame) override { send(ViewMessageKind::cover, frame); }
    void makeKey() override { send(ViewMessageKind::makeKey); }
    void leave() override;
    [[nodiscard]] bool isActive() const override { return m_isActive; }
    [[nodiscard]] QRect frame() const override { return m_frame; }
    [[nodiscard]] quint64 serverWindow() const override { return m_window; }

    /// What the process tells of it.
    void take(const QVariantList &told);
    /// The process has ended, and the window with it; it tells so in a later turn.
    void lose();

private:
    void tellLater(ViewEvent event);
    void send(ViewMessageKind kind, const QVariant &value = {}) const;

    ProcessViewHost &m_host;
    int m_number;
    ViewDescription::Kind m_kind;
    quint64 m_window = 0;
    bool m_isActive = false;
    bool m_isLeaving = false;
    bool m_isLost = false;
    QRect m_frame;
};

}
