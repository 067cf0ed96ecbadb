#pragma once

#include "Platform/PulseAudio/ServerComing.h"

#include <functional>
#include <memory>
#include <optional>
#include <pulse/context.h>
#include <pulse/introspect.h>
#include <set>

namespace tomcatto {

/// Follows whether a program records from a microphone, as the sound server tells it, and waits for a server that is
/// gone. One thread, that of the loop.
class Recordings final
{
public:
    /// Told whether somebody records, `nullopt` if no server tells; with each change, and more often.
    using Handler = std::function<void(std::optional<bool>)>;

    Recordings(pa_mainloop_api &loop, Handler handler);
    Recordings(const Recordings &) = delete;
    Recordings &operator=(const Recordings &) = delete;
    ~Recordings();

private:
    void connect();
    void onState();
    void lose();
    /// Tries again after a time, instead of the time that was set before.
    void connectAfter(pa_usec_t time);
    void look();
    void addSource(const pa_source_info *source);
    void addRecording(const pa_source_output_info *recording);

    pa_mainloop_api &m_loop;
    const Handler m_handler;
    pa_context *m_context = nullptr;
    pa_time_event *m_nextTry = nullptr;
    std::unique_ptr<ServerComing> m_coming;
    pa_usec_t m_rest;
    pa_usec_t m_connectedAt = 0;
    bool m_isLooking = false;
    bool m_looksAgain = false;
    std::set<uint32_t> m_microphones;
    bool m_isRecorded = false;
};

}
