#include "Platform/X11/X11Rest.h"

#include <cstddef>
#include <string_view>

namespace tomcatto {

namespace {

constexpr unsigned wordBits = 32;

xcb_sync_int64_t wideNumber(int64_t number)
{
    return {static_cast<int32_t>(number >> wordBits), static_cast<uint32_t>(number)};
}

int64_t number(const xcb_sync_int64_t &wide)
{
    return (static_cast<int64_t>(wide.hi) << wordBits) | wide.lo;
}

std::string_view nameOf(const xcb_sync_systemcounter_t &counter)
{
    // It follows the number of its letters at once; the library looks for it behind the padding of its structure.
    constexpr std::size_t place = offsetof(xcb_sync_systemcounter_t, name_len) + sizeof counter.name_len;
    return {reinterpret_cast<const char *>(&counter) + place, counter.name_len};
}

/// The server's count of milliseconds since the last input; 0 where it keeps none.
xcb_sync_counter_t idleCounter(xcb_connection_t *connection)
{
    const auto *const extension = xcb_get_extension_data(connection, &xcb_sync_id);
    if (extension == nullptr || extension->present == 0)
        return 0;
    // The server wants to be asked this first.
    const auto greeting = xcb_sync_initialize(connection, XCB_SYNC_MAJOR_VERSION, XCB_SYNC_MINOR_VERSION);
    const X11Reply<xcb_sync_initialize_reply_t> version(xcb_sync_initialize_reply(connection, greeting, nullptr));
    const auto request = xcb_sync_list_system_counters(connection);
    const X11Reply<xcb_sync_list_system_counters_reply_t> reply(
        xcb_sync_list_system_counters_reply(connection, request, nullptr));
    if (!reply)
        return 0;
    for (auto each = xcb_sync_list_system_counters_counters_iterator(reply.get()); each.rem > 0;
         xcb_sync_systemcounter_next(&each)) {
        if (nameOf(*each.data) == "IDLETIME")
            return each.data->counter;
    }
    return 0;
}

}

void X11Rest::begin()
{
    m_watch = std::make_unique<X11Watch>([this](const xcb_generic_event_t &event) { note(event); },
                                         [this] { tell(Fact::untold); });
    m_counter = m_watch->isOpen() ? idleCounter(m_watch->display().connection()) : 0;
    if (m_counter == 0) {
        m_watch.reset();
        return tell(Fact::untold);
    }
    look();
    m_watch->read();
}

void X11Rest::end()
{
    m_watch.reset();
    m_alarm = 0;
}

void X11Rest::note(const xcb_generic_event_t &event)
{
    constexpr uint8_t sentFlag = 0x80;
    xcb_connection_t *const connection = m_watch->display().connection();
    const auto first = xcb_get_extension_data(connection, &xcb_sync_id)->first_event;
    if ((event.response_type & ~sentFlag) != first + XCB_SYNC_ALARM_NOTIFY)
        return;
    // An alarm tells of its end as well.
    if (reinterpret_cast<const xcb_sync_alarm_notify_event_t &>(event).alarm == m_alarm)
        look();
}

void X11Rest::look()
{
    xcb_connection_t *const connection = m_watch->display().connection();
    const auto request = xcb_sync_query_counter(connection, m_counter);
    const X11Reply<xcb_sync_query_counter_reply_t> reply(xcb_sync_query_counter_reply(connection, request, nullptr));
    if (!reply)
        return tell(Fact::untold);
    const bool isResting = number(reply->counter_value) >= m_rest.count();
    tell(isResting ? Fact::yes : Fact::no);

    if (m_alarm != 0)
        xcb_sync_destroy_alarm(connection, m_alarm);
    m_alarm = xcb_generate_id(connection);
    // What has become true since the question sets it off at once. It goes off once.
    xcb_sync_create_alarm_value_list_t alarm{};
    alarm.counter = m_counter;
    alarm.valueType = XCB_SYNC_VALUETYPE_ABSOLUTE;
    alarm.value = wideNumber(isResting ? m_rest.count() - 1 : m_rest.count());
    alarm.testType = isResting ? XCB_SYNC_TESTTYPE_NEGATIVE_COMPARISON : XCB_SYNC_TESTTYPE_POSITIVE_COMPARISON;
    alarm.events = 1;
    xcb_sync_create_alarm_aux(connection, m_alarm,
                              XCB_SYNC_CA_COUNTER | XCB_SYNC_CA_VALUE_TYPE | XCB_SYNC_CA_VALUE | XCB_SYNC_CA_TEST_TYPE |
                                  XCB_SYNC_CA_DELTA | XCB_SYNC_CA_EVENTS,
                              &alarm);
    xcb_flush(connection);
}

}
