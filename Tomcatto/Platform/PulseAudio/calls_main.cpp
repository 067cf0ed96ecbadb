// Tells whether another program records from a microphone, until its standard input is closed: a line on standard
// output, "yes", "no" or "untold", with each change. Called with "--findings", it says whether it can tell.

#include "Platform/PulseAudio/Recordings.h"

#include <array>
#include <csignal>
#include <cstdio>
#include <pulse/mainloop.h>
#include <string>
#include <string_view>
#include <unistd.h>
#include <utility>

namespace {

using IsRecorded = std::optional<bool>;

/// One line: what was looked at, the mark, what was found, what to do.
void tellFinding(IsRecorded isRecorded)
{
    std::puts(isRecorded ? "calls\tthere\tthe sound server tells when a program records from a microphone\t"
                         : "calls\tlacking\tno sound server answers, so a break waits for no call without a camera\t"
                           "Start the audio server of the session, such as PipeWire or PulseAudio");
    std::fflush(stdout);
}

void tellChange(IsRecorded isRecorded)
{
    static std::string told;
    const std::string text = !isRecorded ? "untold" : *isRecorded ? "yes" : "no";
    if (std::exchange(told, text) == text)
        return;
    std::puts(text.c_str());
    std::fflush(stdout);
}

/// Nobody writes to it; it ends with the application.
void endWithInput(pa_mainloop_api &loop)
{
    loop.io_new(
        &loop, STDIN_FILENO, PA_IO_EVENT_INPUT,
        [](pa_mainloop_api *api, pa_io_event *, int descriptor, pa_io_event_flags_t, void *) {
            std::array<char, 64> ignored{};
            if (::read(descriptor, ignored.data(), ignored.size()) <= 0)
                api->quit(api, 0);
        },
        nullptr);
}

}

int main(int argc, char **argv)
{
    const bool isFinding = argc == 2 && std::string_view(argv[1]) == "--findings";
    // What a terminal sends is for the application.
    std::signal(SIGINT, SIG_IGN);
    std::signal(SIGHUP, SIG_IGN);
    pa_mainloop *const mainLoop = pa_mainloop_new();
    pa_mainloop_api &loop = *pa_mainloop_get_api(mainLoop);
    if (!isFinding)
        endWithInput(loop);
    const tomcatto::Recordings recordings(loop, [&loop, isFinding](IsRecorded isRecorded) {
        if (!isFinding)
            return tellChange(isRecorded);
        tellFinding(isRecorded);
        loop.quit(&loop, 0);
    });
    pa_mainloop_run(mainLoop, nullptr);
    // The system takes everything back, and a server that hangs keeps nobody.
    ::_exit(0);
}
