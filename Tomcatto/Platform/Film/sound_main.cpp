// Plays the one sound that it is given, as loud as the system wants it, and ends: with 0 where it was heard, else with
// 1 and the reason on standard output. What playing loads goes with the process. Called with "--findings", it tells
// whether it would be heard.

#include <csignal>
#include <cstdio>
#include <gst/gst.h>
#include <string>
#include <string_view>
#include <unistd.h>

namespace {

/// In seconds; more than the application waits, which may be gone.
constexpr unsigned longestLife = 30;

int fail(const std::string &reason)
{
    std::puts(reason.c_str());
    std::fflush(stdout);
    return 1;
}

/// The device that the system plays on unless told otherwise; null if there is none.
GstElement *openDevice(GstElement *choice)
{
    if (gst_element_set_state(choice, GST_STATE_READY) != GST_STATE_CHANGE_SUCCESS)
        return nullptr;
    const auto *children = reinterpret_cast<GstBin *>(choice)->children;
    auto *device = children ? static_cast<GstElement *>(children->data) : nullptr;
    const auto *factory = device ? reinterpret_cast<GstPluginFeature *>(gst_element_get_factory(device)) : nullptr;
    // Without one it takes a sink that swallows everything.
    return factory && !std::string(gst_plugin_feature_get_name(factory)).starts_with("fake") ? device : nullptr;
}

bool has(GstElement *element, const char *property)
{
    return g_object_class_find_property(G_OBJECT_GET_CLASS(element), property) != nullptr;
}

/// As a sound of the system, which mixers have a volume for, and without a long buffer before it.
void prepare(GstElement *device)
{
    constexpr gint64 bufferMicroseconds = 60'000;
    if (has(device, "buffer-time"))
        g_object_set(device, "buffer-time", bufferMicroseconds, nullptr);
    if (!has(device, "stream-properties"))
        return;
    GstStructure *properties = gst_structure_new("props", "media.role", G_TYPE_STRING, "event", nullptr);
    g_object_set(device, "stream-properties", properties, nullptr);
    gst_structure_free(properties);
}

std::string errorOf(GstMessage *message)
{
    GError *error = nullptr;
    gst_message_parse_error(message, &error, nullptr);
    return error->message;
}

GstElement *makePipeline()
{
    return gst_parse_launch("filesrc name=file ! decodebin ! audioconvert ! audioresample ! autoaudiosink name=sound",
                            nullptr);
}

constexpr auto nothingInstalled = "nothing that plays sounds is installed";
constexpr auto noDevice = "there is no audio device";

/// One line: what was looked at, the mark, what was found, what to do.
int tellFindings()
{
    GstElement *pipeline = makePipeline();
    auto *sink = pipeline ? gst_bin_get_by_name(reinterpret_cast<GstBin *>(pipeline), "sound") : nullptr;
    GstElement *device = sink ? openDevice(sink) : nullptr;
    if (device)
        std::printf("audio\tthere\tsounds go to %s\t\n",
                    gst_plugin_feature_get_name(reinterpret_cast<GstPluginFeature *>(gst_element_get_factory(device))));
    else
        std::printf("audio\tlacking\t%s, so phases end without a sound\t%s\n", pipeline ? noDevice : nothingInstalled,
                    pipeline ? "Start the audio server of the session, such as PipeWire or PulseAudio"
                             : "Install gstreamer1.0-plugins-good and gstreamer1.0-plugins-base");
    std::fflush(stdout);
    return 0;
}

int play(const char *file)
{
    GstElement *pipeline = makePipeline();
    if (!pipeline)
        return fail(nothingInstalled);
    auto *bin = reinterpret_cast<GstBin *>(pipeline);
    GstElement *device = openDevice(gst_bin_get_by_name(bin, "sound"));
    if (!device)
        return fail(noDevice);
    prepare(device);
    g_object_set(gst_bin_get_by_name(bin, "file"), "location", file, nullptr);
    gst_element_set_state(pipeline, GST_STATE_PLAYING);
    constexpr auto awaited = static_cast<GstMessageType>(GST_MESSAGE_EOS | GST_MESSAGE_ERROR);
    GstMessage *end = gst_bus_timed_pop_filtered(gst_element_get_bus(pipeline), GST_CLOCK_TIME_NONE, awaited);
    return GST_MESSAGE_TYPE(end) == GST_MESSAGE_EOS ? 0 : fail(errorOf(end));
}

}

int main(int argc, char **argv)
{
    if (argc != 2)
        return 2;
    ::alarm(longestLife);
    // What a terminal sends is for the application, which ends its players itself.
    std::signal(SIGINT, SIG_IGN);
    std::signal(SIGHUP, SIG_IGN);
    gst_init(nullptr, nullptr);
    // The system takes everything back, and a server that hangs keeps nobody.
    ::_exit(std::string_view(argv[1]) == "--findings" ? tellFindings() : play(argv[1]));
}
