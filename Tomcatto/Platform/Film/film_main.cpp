// Plays films for the application that has started it, until that one closes the input: what it reads there are orders,
// and its output is news. Called with "--findings", it tells what it could play.

#include "Platform/Film/FilmDesk.h"
#include "Platform/Film/FilmPipeline.h"
#include "Platform/Film/FrameAllocator.h"
#include "Platform/Ports/Finding.h"

#include <gst/gst.h>
#include <string_view>
#include <sys/mman.h>
#include <unistd.h>

namespace tomcatto {

namespace {

struct KnownKind
{
    const char *name;
    const char *caps;
    GstElementFactoryListType reader;
};

constexpr GstElementFactoryListType decoders = GST_ELEMENT_FACTORY_TYPE_DECODER | GST_ELEMENT_FACTORY_TYPE_MEDIA_VIDEO;

// The first two are those of the films that ship with the application.
constexpr std::array<KnownKind, 8> knownKinds{{
    {"MP4", "video/quicktime", GST_ELEMENT_FACTORY_TYPE_DEMUXER},
    {"H.264", "video/x-h264", decoders},
    {"Matroska", "video/x-matroska", GST_ELEMENT_FACTORY_TYPE_DEMUXER},
    {"H.265", "video/x-h265", decoders},
    {"MPEG-4", "video/mpeg, mpegversion=(int)4", decoders},
    {"VP8", "video/x-vp8", decoders},
    {"VP9", "video/x-vp9", decoders},
    {"AV1", "video/x-av1", decoders},
}};

bool isPlayable(const KnownKind &kind)
{
    GstCaps *caps = gst_caps_from_string(kind.caps);
    GList *all = gst_element_factory_list_get_elements(kind.reader, GST_RANK_MARGINAL);
    GList *fitting = gst_element_factory_list_filter(all, caps, GST_PAD_SINK, FALSE);
    const bool result = fitting != nullptr;
    gst_plugin_feature_list_free(fitting);
    gst_plugin_feature_list_free(all);
    gst_caps_unref(caps);
    return result;
}

/// Elements that every film goes through and that none of the application's libraries brings.
QStringList missingElements()
{
    QStringList missing;
    for (const char *name : {"uridecodebin", "videoconvert", "appsink"}) {
        GstElementFactory *factory = gst_element_factory_find(name);
        if (!factory)
            missing << QString::fromLatin1(name);
        else
            gst_object_unref(factory);
    }
    return missing;
}

/// Looks at what is installed to play films with. Needs GStreamer.
Finding findCodecs()
{
    const QString part = QStringLiteral("codecs");
    const QString loss = QStringLiteral(", so breaks show no film");
    if (const QStringList missing = missingElements(); !missing.empty())
        return {part, Finding::Mark::lacking,
                QStringLiteral("GStreamer has no %1").arg(missing.join(QLatin1String(", "))) + loss,
                QStringLiteral("Install gstreamer1.0-plugins-base")};
    QStringList playable;
    for (const KnownKind &kind : knownKinds) {
        if (isPlayable(kind))
            playable << QString::fromLatin1(kind.name);
    }
    const bool playsOwn = playable.value(0) == QLatin1String(knownKinds[0].name) &&
                          playable.value(1) == QLatin1String(knownKinds[1].name);
    if (!playsOwn)
        return {part, Finding::Mark::lacking, QStringLiteral("GStreamer plays no H.264 in MP4") + loss,
                QStringLiteral("Install gstreamer1.0-libav and gstreamer1.0-plugins-good")};
    return {part, Finding::Mark::there, QStringLiteral("GStreamer plays ") + playable.join(QLatin1String(", ")), {}};
}

}

}

int main(int argc, char **argv)
{
    using namespace tomcatto;
    if (argc == 2 && std::string_view(argv[1]) == "--findings") {
        FilmPipeline::load();
        std::fputs(findingLine(findCodecs()).constData(), stdout);
        return 0;
    }
    if (argc != 3)
        return 2;
    const std::size_t size = std::stoull(argv[2]);
    void *begin = ::mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_SHARED, std::stoi(argv[1]), 0);
    // What libraries print must not lie between the news.
    const int output = ::dup(STDOUT_FILENO);
    const std::unique_ptr<std::FILE, int (*)(std::FILE *)> news(output < 0 ? nullptr : ::fdopen(output, "w"),
                                                                std::fclose);
    if (begin == MAP_FAILED || !news || ::dup2(STDERR_FILENO, STDOUT_FILENO) < 0)
        return 4;
    FilmPipeline::load();
    FrameMemory memory(static_cast<std::byte *>(begin), size);
    allocateFramesIn(memory);
    FilmDesk desk(news.get(), memory);
    FilmOrder order;
    while (std::fread(&order, sizeof(order), 1, stdin) == 1) {
        std::string text(static_cast<std::size_t>(order.textSize), '\0');
        if (std::fread(text.data(), 1, text.size(), stdin) != text.size())
            break;
        desk.obey(order, text);
    }
    // Films that hang keep nobody, and the system takes everything back.
    ::_exit(0);
}
