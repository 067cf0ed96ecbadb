#pragma once

#include "Platform/Ports/ViewHost.h"

#include <map>
#include <QtGui/QWindow>

namespace tomcatto {

/// Makes empty windows in place of views and keeps what was asked for.
class FakeViewHost final : public ViewHost
{
public:
    [[nodiscard]] std::unique_ptr<HostedView> create(const ViewDescription &description) override
    {
        if (isBroken)
            return nullptr;
        last = description;
        ++made;
        return std::make_unique<View>(*this);
    }

    [[nodiscard]] QString problem() const override { return {}; }

    ViewDescription last;
    /// The last window made; null once it was let go.
    QWindow *current = nullptr;
    /// Of the windows, as they are made.
    std::map<const char *, QVariant> properties;
    QSize size{200, 100};
    int made = 0;
    int alive = 0;
    bool isBroken = false;

private:
    class View final : public HostedView
    {
    public:
        explicit View(FakeViewHost &host)
            : m_host(host)
        {
            ++m_host.alive;
            m_host.current = &m_window;
            m_window.resize(m_host.size);
            for (const auto &[name, value] : m_host.properties)
                m_window.setProperty(name, value);
        }
        ~View() override
        {
            --m_host.alive;
            m_host.current = nullptr;
        }
        [[nodiscard]] QWindow &window() override { return m_window; }

    private:
        QWindow m_window;
        FakeViewHost &m_host;
    };
};

}
