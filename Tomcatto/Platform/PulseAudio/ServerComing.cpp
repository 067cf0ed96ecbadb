#include "Platform/PulseAudio/ServerComing.h"

#include <array>
#include <cstdlib>
#include <cstring>
#include <string>
#include <sys/inotify.h>
#include <unistd.h>
#include <utility>

namespace tomcatto {

namespace {

std::string variable(const char *name)
{
    const char *const value = std::getenv(name);
    return value ? value : "";
}

/// Where the server makes its socket, as its library looks for it.
std::string serverFolder()
{
    const std::string own = variable("PULSE_RUNTIME_PATH");
    return own.empty() ? variable("XDG_RUNTIME_DIR") + "/pulse" : own;
}

}

ServerComing::ServerComing(pa_mainloop_api &loop, std::function<void()> came)
    : m_loop(loop)
    , m_came(std::move(came))
    , m_descriptor(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC))
{
    if (m_descriptor < 0)
        return;
    follow();
    m_event = loop.io_new(
        &loop, m_descriptor, PA_IO_EVENT_INPUT,
        [](pa_mainloop_api *, pa_io_event *, int, pa_io_event_flags_t, void *self) {
            static_cast<ServerComing *>(self)->read();
        },
        this);
}

ServerComing::~ServerComing()
{
    if (m_event)
        m_loop.io_free(m_event);
    if (m_descriptor >= 0)
        ::close(m_descriptor);
}

void ServerComing::follow()
{
    const std::string folder = serverFolder();
    ::inotify_add_watch(m_descriptor, folder.c_str(), IN_CREATE | IN_MOVED_TO);
    ::inotify_add_watch(m_descriptor, folder.substr(0, folder.rfind('/')).c_str(), IN_CREATE | IN_MOVED_TO);
}

void ServerComing::read()
{
    // Others make files there as well.
    const std::string folder = serverFolder();
    const std::string name = folder.substr(folder.rfind('/') + 1);
    bool came = false;
    alignas(inotify_event) std::array<char, 4096> bytes{};
    for (ssize_t size = 0; (size = ::read(m_descriptor, bytes.data(), bytes.size())) > 0;) {
        for (ssize_t at = 0; at < size;) {
            const auto *event = reinterpret_cast<const inotify_event *>(bytes.data() + at);
            came = came || (event->len > 0 && (name == event->name || std::strcmp(event->name, "native") == 0));
            at += static_cast<ssize_t>(sizeof(inotify_event) + event->len);
        }
    }
    if (!came)
        return;
    follow();
    m_came();
}

}
