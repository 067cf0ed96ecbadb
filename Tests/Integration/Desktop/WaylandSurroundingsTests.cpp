#include "Foundation/ApplicationIdentity.h"
#include "Platform/Wayland/WaylandFullScreen.h"
#include "Platform/Wayland/WaylandRest.h"
#include "ToldFacts.h"

#include <ext-idle-notify-v1-server-header.h>
#include <gmock/gmock.h>
#include <wlr-foreign-toplevel-management-unstable-v1-server-header.h>

using namespace std::chrono_literals;
using testing::ElementsAre;

namespace tomcatto {

using enum Fact;

namespace {

/// A compositor in the test's own process that shows nothing, named by WAYLAND_DISPLAY meanwhile.
class MockCompositor final
{
public:
    MockCompositor()
    {
        qputenv("WAYLAND_DISPLAY", wl_display_add_socket_auto(m_display));
        QObject::connect(&m_requests, &QSocketNotifier::activated, &m_requests, [this] {
            wl_event_loop_dispatch(wl_display_get_event_loop(m_display), 0);
            flush();
        });
    }
    ~MockCompositor()
    {
        qunsetenv("WAYLAND_DISPLAY");
        m_requests.setEnabled(false);
        wl_display_destroy_clients(m_display);
        wl_display_destroy(m_display);
    }
    MockCompositor(const MockCompositor &) = delete;
    MockCompositor &operator=(const MockCompositor &) = delete;

    void flush() { wl_display_flush_clients(m_display); }
    /// The resource of the client that binds it becomes `bound`.
    void offer(const wl_interface &interface, int version, const void *implementation)
    {
        m_offers.push_back(std::make_unique<Offer>(*this, interface, implementation));
        wl_global_create(m_display, &interface, version, m_offers.back().get(),
                         [](wl_client *client, void *data, uint32_t bindAs, uint32_t id) {
                             const Offer &offer = *static_cast<Offer *>(data);
                             auto *resource =
                                 wl_resource_create(client, &offer.interface, static_cast<int>(bindAs), id);
                             wl_resource_set_implementation(resource, offer.implementation, &offer.compositor, nullptr);
                             offer.compositor.bound = resource;
                         });
    }
    /// A window that other programs see.
    wl_resource *window(const QByteArray &program)
    {
        auto *handle =
            wl_resource_create(wl_resource_get_client(bound), &zwlr_foreign_toplevel_handle_v1_interface, 2, 0);
        static const auto requests = [] {
            struct zwlr_foreign_toplevel_handle_v1_interface all
            {
            };
            all.destroy = [](wl_client *, wl_resource *each) { wl_resource_destroy(each); };
            return all;
        }();
        wl_resource_set_implementation(handle, &requests, nullptr, nullptr);
        zwlr_foreign_toplevel_manager_v1_send_toplevel(bound, handle);
        zwlr_foreign_toplevel_handle_v1_send_app_id(handle, program.constData());
        return handle;
    }
    void setStates(wl_resource *window, std::vector<uint32_t> states)
    {
        wl_array array{states.size() * sizeof(uint32_t), 0, states.data()};
        zwlr_foreign_toplevel_handle_v1_send_state(window, &array);
        zwlr_foreign_toplevel_handle_v1_send_done(window);
    }

    wl_resource *bound = nullptr;
    wl_resource *notification = nullptr;
    uint32_t timeout = 0;

private:
    struct Offer
    {
        MockCompositor &compositor;
        const wl_interface &interface;
        const void *implementation;
    };

    wl_display *m_display = wl_display_create();
    std::vector<std::unique_ptr<Offer>> m_offers;
    QSocketNotifier m_requests{wl_event_loop_get_fd(wl_display_get_event_loop(m_display)), QSocketNotifier::Read};
};

constexpr uint32_t activated = ZWLR_FOREIGN_TOPLEVEL_HANDLE_V1_STATE_ACTIVATED;
constexpr uint32_t fullScreen = ZWLR_FOREIGN_TOPLEVEL_HANDLE_V1_STATE_FULLSCREEN;

constexpr struct ext_idle_notifier_v1_interface idleRequests
{
    .destroy = nullptr, .get_idle_notification = [](wl_client *client, wl_resource *notifier, uint32_t id,
                                                    uint32_t timeout, wl_resource *) {
        auto &compositor = *static_cast<MockCompositor *>(wl_resource_get_user_data(notifier));
        compositor.timeout = timeout;
        compositor.notification = wl_resource_create(client, &ext_idle_notification_v1_interface, 1, id);
    }
};

}

TEST(WaylandSurroundingsTests, RestIsToldByTheCompositorWhileItIsThere)
{
    WaylandRest source(3s);
    {
        MockCompositor compositor;
        compositor.offer(wl_seat_interface, 1, nullptr);
        compositor.offer(ext_idle_notifier_v1_interface, 1, &idleRequests);
        ToldFacts told(source);
        ASSERT_TRUE(told.becomes(no) && QTest::qWaitFor([&] { return compositor.notification != nullptr; }));
        EXPECT_EQ(compositor.timeout, 3000);
        ext_idle_notification_v1_send_idled(compositor.notification);
        compositor.flush();
        EXPECT_TRUE(told.becomes(yes));
        ext_idle_notification_v1_send_resumed(compositor.notification);
        compositor.flush();
        EXPECT_TRUE(told.becomes(no));
    }
    ToldFacts told(source);
    EXPECT_TRUE(told.becomes(untold)) << "there is no compositor";
}

TEST(WaylandSurroundingsTests, FullScreenIsOfAnotherProgramAndOutlivesALookAtOwnWindows)
{
    WaylandFullScreen source;
    auto compositor = std::make_unique<MockCompositor>();
    {
        ToldFacts told(source);
        EXPECT_TRUE(told.becomes(untold)) << "this compositor does not tell";
    }
    compositor->offer(zwlr_foreign_toplevel_manager_v1_interface, 2, nullptr);
    ToldFacts told(source);
    ASSERT_TRUE(told.becomes(no) && QTest::qWaitFor([&] { return compositor->bound != nullptr; }));
    auto *const film = compositor->window("film");
    auto *const own = compositor->window(applicationIdentifier.toUtf8());
    const auto become = [&](const std::vector<uint32_t> &ofFilm, const std::vector<uint32_t> &ofOwn, Fact fact) {
        compositor->setStates(film, ofFilm);
        compositor->setStates(own, ofOwn);
        compositor->flush();
        return told.becomes(fact);
    };
    EXPECT_TRUE(become({activated, fullScreen}, {}, yes));
    EXPECT_TRUE(become({activated}, {fullScreen}, no));
    EXPECT_TRUE(become({activated, fullScreen}, {}, yes));
    EXPECT_TRUE(become({fullScreen}, {activated, fullScreen}, yes));
    zwlr_foreign_toplevel_handle_v1_send_closed(film);
    compositor->flush();
    EXPECT_TRUE(told.becomes(no));
    EXPECT_THAT(told.facts, ElementsAre(no, yes, no, yes, no)) << "own windows are passed over";
    compositor.reset();
    EXPECT_TRUE(told.becomes(untold));
}

}
