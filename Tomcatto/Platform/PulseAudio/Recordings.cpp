#include "Platform/PulseAudio/Recordings.h"

#include <algorithm>
#include <pulse/error.h>
#include <pulse/proplist.h>
#include <pulse/rtclock.h>
#include <pulse/subscribe.h>
#include <pulse/timeval.h>
#include <string_view>
#include <utility>

namespace tomcatto {

namespace {

/// A server that has just made its socket may not listen yet.
constexpr pa_usec_t timeToListen = 200 * PA_USEC_PER_MSEC;
/// The socket's coming is told; trying is for servers elsewhere and for one that its socket starts. So it tries less
/// and less often.
constexpr pa_usec_t shortestRest = PA_USEC_PER_SEC;
constexpr pa_usec_t longestRest = 600 * PA_USEC_PER_SEC;
/// A connection that held for so long was a sound one.
constexpr pa_usec_t soundTime = 60 * PA_USEC_PER_SEC;

Recordings &of(void *self)
{
    return *static_cast<Recordings *>(self);
}

bool says(const char *text, std::string_view expected)
{
    return text && text == expected;
}

/// The server's own filters record all the time, and a level that is shown listens to nobody's words. PulseAudio and
/// PipeWire have different signs for both.
bool isCall(const pa_source_output_info &recording)
{
    const bool isFilter =
        recording.client == PA_INVALID_INDEX || pa_proplist_contains(recording.proplist, "node.link-group") > 0;
    const bool isLevel = says(recording.resample_method, "peaks") ||
                         says(pa_proplist_gets(recording.proplist, "resample.peaks"), "true");
    return !recording.corked && !isFilter && !isLevel;
}

void start(pa_operation *operation)
{
    // It is null while the connection is being lost, which the state tells.
    if (operation)
        pa_operation_unref(operation);
}

}

Recordings::Recordings(pa_mainloop_api &loop, Handler handler)
    : m_loop(loop)
    , m_handler(std::move(handler))
    , m_rest(shortestRest)
{
    connectAfter(0);
}

Recordings::~Recordings()
{
    m_loop.time_free(m_nextTry);
    if (m_context) {
        pa_context_set_state_callback(m_context, nullptr, nullptr);
        pa_context_disconnect(m_context);
        pa_context_unref(m_context);
    }
}

void Recordings::connectAfter(pa_usec_t time)
{
    timeval at{};
    pa_timeval_add(pa_gettimeofday(&at), time);
    if (m_nextTry)
        m_loop.time_restart(m_nextTry, &at);
    else
        m_nextTry = m_loop.time_new(
            &m_loop, &at, [](pa_mainloop_api *, pa_time_event *, const timeval *, void *self) { of(self).connect(); },
            this);
}

void Recordings::connect()
{
    if (m_context)
        pa_context_unref(m_context);
    pa_proplist *properties = pa_proplist_new();
    pa_proplist_sets(properties, PA_PROP_APPLICATION_ID, "studio.quillbay.Tomcatto");
    m_context = pa_context_new_with_proplist(&m_loop, "Tomcatto", properties);
    pa_proplist_free(properties);
    pa_context_set_state_callback(
        m_context, [](pa_context *, void *self) { of(self).onState(); }, this);
    // Looking at the server should not start one.
    const bool isUnderWay = pa_context_connect(m_context, nullptr, PA_CONTEXT_NOAUTOSPAWN, nullptr) >= 0;
    if (!isUnderWay && pa_context_get_state(m_context) == PA_CONTEXT_UNCONNECTED)
        lose();
}

void Recordings::onState()
{
    const pa_context_state_t state = pa_context_get_state(m_context);
    if (!PA_CONTEXT_IS_GOOD(state))
        return lose();
    if (state != PA_CONTEXT_READY)
        return;
    m_coming.reset();
    m_connectedAt = pa_rtclock_now();
    pa_context_set_subscribe_callback(
        m_context, [](pa_context *, pa_subscription_event_type_t, uint32_t, void *self) { of(self).look(); }, this);
    start(pa_context_subscribe(m_context, PA_SUBSCRIPTION_MASK_SOURCE_OUTPUT, nullptr, nullptr));
    m_isLooking = false;
    look();
}

void Recordings::lose()
{
    pa_context_set_state_callback(m_context, nullptr, nullptr);
    if (m_connectedAt > 0 && pa_rtclock_now() - m_connectedAt > soundTime)
        m_rest = shortestRest;
    m_connectedAt = 0;
    if (!m_coming)
        m_coming = std::make_unique<ServerComing>(m_loop, [this] { connectAfter(timeToListen); });
    connectAfter(m_rest);
    m_rest = std::min(2 * m_rest, longestRest);
    m_handler(std::nullopt);
}

void Recordings::look()
{
    m_looksAgain = true;
    if (m_isLooking)
        return;
    m_isLooking = true;
    m_looksAgain = false;
    m_microphones.clear();
    m_isRecorded = false;
    start(pa_context_get_source_info_list(
        m_context, [](pa_context *, const pa_source_info *info, int, void *self) { of(self).addSource(info); }, this));
}

void Recordings::addSource(const pa_source_info *source)
{
    if (!source)
        start(pa_context_get_source_output_info_list(
            m_context,
            [](pa_context *, const pa_source_output_info *info, int, void *self) { of(self).addRecording(info); },
            this));
    else if (source->monitor_of_sink == PA_INVALID_INDEX)
        m_microphones.insert(source->index);
}

void Recordings::addRecording(const pa_source_output_info *recording)
{
    if (recording) {
        m_isRecorded = m_isRecorded || (m_microphones.contains(recording->source) && isCall(*recording));
        return;
    }
    m_isLooking = false;
    m_handler(m_isRecorded);
    if (m_looksAgain)
        look();
}

}
