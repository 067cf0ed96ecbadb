#pragma once

#include "Platform/Qt/WindowView.h"

#include <map>

namespace tomcatto {

/// Makes empty windows in place of views and keeps what was asked for.
class FakeViewHost final : public ViewHost
{
public:
    explicit FakeViewHost(MainRunLoop &runLoop)
        : m_places(runLoop, m_windowSystem)
    {
    }

    [[nodiscard]] std::unique_ptr<HostedView> create(const ViewDescription &description) override
    {
        if (isBroken)
            return nullptr;
        last = description;
        ++made;
        auto window = std::make_unique<QWindow>();
        window->resize(size);
        for (const auto &[name, value] : properties)
            window->setProperty(name, value);
        current = window.get();
        ++alive;
        QObject::connect(current, &QObject::destroyed, [this] {
            --alive;
            current = nullptr;
        });
        return std::make_unique<WindowView>(std::move(window), description.kind, m_places);
    }

    [[nodiscard]] QString problem() const override { return {}; }
    void setFading(bool canFade) { m_windowSystem.isFading = canFade; }

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
    struct System final : WindowSystem
    {
        [[nodiscard]] bool canFade() const override { return isFading; }
        bool isFading = false;
    };

    System m_windowSystem;
    WindowPlaces m_places;
};

}
