#include "Platform/Film/FilmPipeline.h"

#include "Platform/Film/FramePool.h"

#include <algorithm>
#include <gst/video/video.h>
#include <utility>

namespace tomcatto {
namespace {

struct KnownFormat
{
    GstVideoFormat stored;
    AVPixelFormat read;
};

// Only what decoders give; the player converts the others.
constexpr std::array<KnownFormat, 8> knownFormats{{
    {GST_VIDEO_FORMAT_I420, AV_PIX_FMT_YUV420P},
    {GST_VIDEO_FORMAT_Y42B, AV_PIX_FMT_YUV422P},
    {GST_VIDEO_FORMAT_Y444, AV_PIX_FMT_YUV444P},
    {GST_VIDEO_FORMAT_NV12, AV_PIX_FMT_NV12},
    {GST_VIDEO_FORMAT_I420_10LE, AV_PIX_FMT_YUV420P10LE},
    {GST_VIDEO_FORMAT_I422_10LE, AV_PIX_FMT_YUV422P10LE},
    {GST_VIDEO_FORMAT_P010_10LE, AV_PIX_FMT_P010LE},
    {GST_VIDEO_FORMAT_BGRx, AV_PIX_FMT_BGR0},
}};

ElementPointer make(const char *name)
{
    GstElement *element = gst_element_factory_make(name, nullptr);
    return ElementPointer(element ? static_cast<GstElement *>(gst_object_ref_sink(element)) : nullptr);
}

/// Gives an element to a pipeline and links it to what comes before it.
bool append(GstElement *pipeline, GstElement *last, GstElement *next)
{
    gst_bin_add(reinterpret_cast<GstBin *>(pipeline), next);
    return !last || gst_element_link(last, next) != FALSE;
}

/// Links a decoder's pad to an element, unless their formats do not meet.
bool link(GstPad *pad, GstElement *element)
{
    GstPad *taking = gst_element_get_static_pad(element, "sink");
    const bool isLinked = gst_pad_link(pad, taking) == GST_PAD_LINK_OK;
    gst_object_unref(taking);
    return isLinked;
}

QByteArray kindOf(const GstCaps *caps)
{
    return caps && gst_caps_get_size(caps) > 0 ? gst_structure_get_name(gst_caps_get_structure(caps, 0)) : "";
}

QByteArray factoryName(GstElement *element)
{
    GstElementFactory *factory = gst_element_get_factory(element);
    return factory ? gst_plugin_feature_get_name(reinterpret_cast<GstPluginFeature *>(factory)) : "";
}

/// The mapped frame of a sample.
struct MappedSample
{
    explicit MappedSample(GstSample *taken)
    {
        GstVideoInfo info;
        const GstCaps *caps = gst_sample_get_caps(taken);
        isMapped = caps && gst_video_info_from_caps(&info, caps) &&
                   gst_video_frame_map(&frame, &info, gst_sample_get_buffer(taken), GST_MAP_READ);
        // The sink uses it again for the next frame.
        gst_sample_unref(taken);
    }
    MappedSample(const MappedSample &) = delete;
    MappedSample &operator=(const MappedSample &) = delete;
    ~MappedSample()
    {
        if (isMapped)
            gst_video_frame_unmap(&frame);
    }

    GstVideoFrame frame{};
    bool isMapped = false;
};

bool isStandardDefinition(const GstVideoInfo &info)
{
    constexpr int firstHighDefinitionHeight = 720;
    const GstVideoColorMatrix matrix = info.colorimetry.matrix;
    return matrix == GST_VIDEO_COLOR_MATRIX_BT601 ||
           (matrix == GST_VIDEO_COLOR_MATRIX_UNKNOWN && info.height < firstHighDefinitionHeight);
}

FilmFrame frameOf(GstSample *sample)
{
    const auto mapped = std::make_shared<MappedSample>(sample);
    const GstVideoInfo &info = mapped->frame.info;
    const auto known = std::ranges::find(knownFormats, mapped->isMapped ? info.finfo->format : GST_VIDEO_FORMAT_UNKNOWN,
                                         &KnownFormat::stored);
    if (known == knownFormats.end())
        return {};
    FilmFrame frame;
    frame.size = QSize(info.width, info.height);
    frame.format = known->read;
    for (size_t plane = 0; plane < info.finfo->n_planes; ++plane) {
        frame.planes.at(plane) = static_cast<const uint8_t *>(mapped->frame.data[plane]);
        frame.strides.at(plane) = info.stride[plane];
    }
    frame.isStandard = isStandardDefinition(info);
    frame.isFullRange = info.colorimetry.range == GST_VIDEO_COLOR_RANGE_0_255;
    frame.memory = mapped;
    return frame;
}

void offerPool(GstQuery *query)
{
    GstCaps *caps = nullptr;
    gst_query_parse_allocation(query, &caps, nullptr);
    GstVideoInfo info;
    if (!caps || !gst_video_info_from_caps(&info, caps))
        return;
    GstBufferPool *pool = makeFramePool();
    gst_query_add_allocation_pool(query, pool, static_cast<guint>(info.size), 0, 0);
    gst_object_unref(pool);
}

/// What a file says of how it lies, such as "rotate-90" or "flip-rotate-180": flipped from left to right, then turned.
std::pair<int, bool> orientation(const QByteArray &text)
{
    const bool isFlipped = text.startsWith("flip-");
    return {text.mid(text.lastIndexOf('-') + 1).toInt() % 360, isFlipped};
}

}

void FilmPipeline::load()
{
    gst_init(nullptr, nullptr);
    for (const char *name : {"uridecodebin", "decodebin", "qtdemux", "multiqueue", "avdec_h264", "appsink"})
        make(name);
}

FilmPipeline::FilmPipeline(FilmPlayback &film, const std::string &source)
    : m_film(film)
    , m_pipeline(static_cast<GstElement *>(gst_object_ref_sink(gst_pipeline_new(nullptr))))
    , m_sink(makeSink())
{
    const ElementPointer decoder = make("uridecodebin");
    if (!decoder || !m_sink) {
        m_film.fail(QStringLiteral("nothing that plays videos is installed"));
        return;
    }
    openSound();
    g_object_set(decoder.get(), "uri", source.c_str(), nullptr);
    g_signal_connect(decoder.get(), "autoplug-continue", G_CALLBACK(isDecoded), this);
    g_signal_connect(decoder.get(), "pad-added", G_CALLBACK(connectPad), this);
    g_signal_connect(m_pipeline.get(), "deep-element-added", G_CALLBACK(prepareDecoder), nullptr);
    append(m_pipeline.get(), nullptr, decoder.get());
    GstBus *bus = gst_element_get_bus(m_pipeline.get());
    gst_bus_set_sync_handler(bus, hear, this, nullptr);
    gst_object_unref(bus);
}

FilmPipeline::~FilmPipeline()
{
    gst_element_set_state(m_pipeline.get(), GST_STATE_NULL);
    if (m_sound)
        gst_element_set_state(m_sound.get(), GST_STATE_NULL);
}

ElementPointer FilmPipeline::makeSink()
{
    ElementPointer sink = make("appsink");
    if (!sink)
        return nullptr;
    GValue formats = G_VALUE_INIT;
    g_value_init(&formats, GST_TYPE_LIST);
    for (const KnownFormat &known : knownFormats) {
        GValue name = G_VALUE_INIT;
        g_value_init(&name, G_TYPE_STRING);
        g_value_set_static_string(&name, gst_video_format_to_string(known.stored));
        gst_value_list_append_and_take_value(&formats, &name);
    }
    GstCaps *caps = gst_caps_new_empty_simple("video/x-raw");
    gst_caps_set_value(caps, "format", &formats);
    g_value_unset(&formats);
    // As any video sink does it: what comes too late is left out, so that a busy machine catches up.
    constexpr gint64 lateness = 20 * GST_MSECOND;
    g_object_set(sink.get(), "caps", caps, "max-lateness", lateness, "qos", TRUE, "enable-last-sample", FALSE, nullptr);
    gst_caps_unref(caps);
    GstAppSinkCallbacks callbacks{};
    callbacks.new_preroll = takePreroll;
    callbacks.new_sample = takeSample;
    gst_app_sink_set_callbacks(reinterpret_cast<GstAppSink *>(sink.get()), &callbacks, this, nullptr);
    GstPad *pad = gst_element_get_static_pad(sink.get(), "sink");
    constexpr int wanted = GST_PAD_PROBE_TYPE_QUERY_DOWNSTREAM | GST_PAD_PROBE_TYPE_EVENT_DOWNSTREAM;
    gst_pad_add_probe(pad, static_cast<GstPadProbeType>(wanted), answerSink, this, nullptr);
    gst_object_unref(pad);
    return sink;
}

void FilmPipeline::openSound()
{
    m_sound = make("autoaudiosink");
    m_volume = make("volume");
    // Opening it tells whether there is a device; where there is none it takes a sink that swallows everything.
    const bool isOpen = m_sound && gst_element_set_state(m_sound.get(), GST_STATE_READY) == GST_STATE_CHANGE_SUCCESS;
    const auto *children = isOpen ? reinterpret_cast<GstBin *>(m_sound.get())->children : nullptr;
    if (children && m_volume && !factoryName(static_cast<GstElement *>(children->data)).startsWith("fake"))
        return;
    if (m_sound)
        gst_element_set_state(m_sound.get(), GST_STATE_NULL);
    m_sound.reset();
    m_volume.reset();
    m_film.missSound();
}

gboolean FilmPipeline::isDecoded(GstElement *, GstPad *, GstCaps *caps, gpointer self)
{
    const QByteArray kind = kindOf(caps);
    const bool isSound = kind.startsWith("audio/");
    return !kind.startsWith("text/") && (!isSound || static_cast<FilmPipeline *>(self)->m_sound);
}

void FilmPipeline::prepareDecoder(GstBin *, GstBin *, GstElement *element, gpointer)
{
    if (!g_object_class_find_property(G_OBJECT_GET_CLASS(element), "max-threads"))
        return;
    GstPad *pad = gst_element_get_static_pad(element, "sink");
    gst_pad_add_probe(pad, GST_PAD_PROBE_TYPE_EVENT_DOWNSTREAM, chooseThreads, nullptr, nullptr);
    gst_object_unref(pad);
}

GstPadProbeReturn FilmPipeline::chooseThreads(GstPad *pad, GstPadProbeInfo *info, gpointer)
{
    GstEvent *event = gst_pad_probe_info_get_event(info);
    if (GST_EVENT_TYPE(event) != GST_EVENT_CAPS)
        return GST_PAD_PROBE_OK;
    GstCaps *caps = nullptr;
    gst_event_parse_caps(event, &caps);
    const GstStructure *film = gst_caps_get_structure(caps, 0);
    int width = 0;
    int height = 0;
    int frames = 0;
    int seconds = 1;
    // One thread decodes such a film many times faster than it plays; several would mostly wait for each other.
    constexpr double easyPixelsPerSecond = 1920.0 * 1088 * 31;
    if (gst_structure_get(film, "width", G_TYPE_INT, &width, "height", G_TYPE_INT, &height, nullptr) &&
        gst_structure_get_fraction(film, "framerate", &frames, &seconds) && frames > 0 &&
        double(width) * height * frames / seconds <= easyPixelsPerSecond) {
        GstObject *decoder = gst_pad_get_parent(pad);
        g_object_set(decoder, "max-threads", 1, nullptr);
        gst_object_unref(decoder);
    }
    return GST_PAD_PROBE_OK;
}

void FilmPipeline::connectPad(GstElement *, GstPad *pad, gpointer self)
{
    GstCaps *caps = gst_pad_get_current_caps(pad);
    const QByteArray kind = kindOf(caps);
    gst_caps_replace(&caps, nullptr);
    auto *pipeline = static_cast<FilmPipeline *>(self);
    if (kind == "video/x-raw")
        pipeline->connectPicture(pad);
    else if (kind == "audio/x-raw")
        pipeline->connectSound(pad);
}

void FilmPipeline::connectPicture(GstPad *pad)
{
    // Of several pictures the first one shows.
    if (std::exchange(m_hasPicture, true))
        return;
    append(m_pipeline.get(), nullptr, m_sink.get());
    if (!link(pad, m_sink.get())) {
        const ElementPointer convert = make("videoconvert");
        if (!convert || !append(m_pipeline.get(), nullptr, convert.get()) || !link(pad, convert.get()) ||
            !gst_element_link(convert.get(), m_sink.get()))
            return m_film.fail(QStringLiteral("the picture is of an unknown kind"));
        gst_element_sync_state_with_parent(convert.get());
    }
    gst_element_sync_state_with_parent(m_sink.get());
}

void FilmPipeline::connectSound(GstPad *pad)
{
    if (!m_sound || std::exchange(m_hasSound, true))
        return;
    const ElementPointer convert = make("audioconvert");
    const ElementPointer resample = make("audioresample");
    if (!convert || !resample)
        return m_film.fail(QStringLiteral("the sound cannot be converted"));
    const std::array chain{convert.get(), resample.get(), m_volume.get(), m_sound.get()};
    GstElement *last = nullptr;
    for (GstElement *element : chain)
        append(m_pipeline.get(), std::exchange(last, element), element);
    if (!link(pad, convert.get()))
        return m_film.fail(QStringLiteral("the sound is of an unknown kind"));
    for (GstElement *element : chain)
        gst_element_sync_state_with_parent(element);
}

void FilmPipeline::follow(const FilmWish &wish, bool isReady)
{
    if (m_volume)
        g_object_set(m_volume.get(), "mute", wish.isMuted ? TRUE : FALSE, nullptr);
    gst_element_set_state(m_pipeline.get(), isReady && !wish.isStill ? GST_STATE_PLAYING : GST_STATE_PAUSED);
}

void FilmPipeline::rewind()
{
    gst_element_seek_simple(m_pipeline.get(), GST_FORMAT_TIME, GST_SEEK_FLAG_FLUSH, 0);
}

GstFlowReturn FilmPipeline::takePreroll(GstAppSink *sink, gpointer self)
{
    return static_cast<FilmPipeline *>(self)->show(gst_app_sink_try_pull_preroll(sink, 0));
}

GstFlowReturn FilmPipeline::takeSample(GstAppSink *sink, gpointer self)
{
    return static_cast<FilmPipeline *>(self)->show(gst_app_sink_try_pull_sample(sink, 0));
}

GstFlowReturn FilmPipeline::show(GstSample *sample)
{
    FilmFrame frame = sample ? frameOf(sample) : FilmFrame();
    frame.angle = m_angle;
    frame.isMirrored = m_isMirrored;
    if (frame.isValid())
        m_film.put(std::move(frame));
    return GST_FLOW_OK;
}

GstPadProbeReturn FilmPipeline::answerSink(GstPad *, GstPadProbeInfo *info, gpointer self)
{
    if ((info->type & GST_PAD_PROBE_TYPE_EVENT_DOWNSTREAM) != 0) {
        static_cast<FilmPipeline *>(self)->readTags(gst_pad_probe_info_get_event(info));
        return GST_PAD_PROBE_OK;
    }
    GstQuery *query = gst_pad_probe_info_get_query(info);
    if (GST_QUERY_TYPE(query) != GST_QUERY_ALLOCATION || (info->type & GST_PAD_PROBE_TYPE_PUSH) == 0)
        return GST_PAD_PROBE_OK;
    // Frames are read wherever their planes lie, so that the decoder need not copy them. Into memory of its own it
    // would copy all whose height is not a multiple of 16, as these are decoded into more rows than they show.
    gst_query_add_allocation_meta(query, GST_VIDEO_META_API_TYPE, nullptr);
    offerPool(query);
    return GST_PAD_PROBE_HANDLED;
}

void FilmPipeline::readTags(GstEvent *event)
{
    if (GST_EVENT_TYPE(event) != GST_EVENT_TAG)
        return;
    GstTagList *tags = nullptr;
    gst_event_parse_tag(event, &tags);
    gchar *text = nullptr;
    if (!tags || !gst_tag_list_get_string(tags, GST_TAG_IMAGE_ORIENTATION, &text))
        return;
    const auto [angle, isMirrored] = orientation(text);
    g_free(text);
    m_angle = angle;
    m_isMirrored = isMirrored;
}

GstBusSyncReply FilmPipeline::hear(GstBus *, GstMessage *message, gpointer self)
{
    FilmPlayback &film = static_cast<FilmPipeline *>(self)->m_film;
    if (GST_MESSAGE_TYPE(message) == GST_MESSAGE_ASYNC_DONE)
        film.noteReady();
    if (GST_MESSAGE_TYPE(message) == GST_MESSAGE_EOS)
        film.noteEnd();
    if (GST_MESSAGE_TYPE(message) == GST_MESSAGE_ERROR) {
        GError *error = nullptr;
        gst_message_parse_error(message, &error, nullptr);
        film.fail(QString::fromUtf8(error->message));
        g_error_free(error);
    }
    gst_message_unref(message);
    return GST_BUS_DROP;
}

}
