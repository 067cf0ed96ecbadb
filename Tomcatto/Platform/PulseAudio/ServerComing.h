#pragma once

#include <functional>
#include <pulse/mainloop-api.h>

namespace tomcatto {

/// Waits for the socket of a sound server that is not there, until it is destroyed: the kernel tells when it is made.
class ServerComing final
{
public:
    ServerComing(pa_mainloop_api &loop, std::function<void()> came);
    ServerComing(const ServerComing &) = delete;
    ServerComing &operator=(const ServerComing &) = delete;
    ~ServerComing();

private:
    /// The server makes its folder as well.
    void follow();
    void read();

    pa_mainloop_api &m_loop;
    const std::function<void()> m_came;
    int m_descriptor = -1;
    pa_io_event *m_event = nullptr;
};

}
