#include "Media/RemoteManifest.h"

#include <algorithm>
#include <array>
#include <nlohmann/json.hpp>
#include <stdexcept>
#include <string_view>
#include <utility>

namespace tomcatto {

namespace {

using Json = nlohmann::ordered_json;

/// For `decodedManifest` to catch.
struct DecodingError : std::runtime_error
{
    using std::runtime_error::runtime_error;
};

[[noreturn]] void refuse(const char *name)
{
    throw DecodingError(std::string("\"") + name + "\" is missing or of another type");
}

QByteArray text(const Json &json)
{
    return QByteArray::fromStdString(json.dump(-1, ' ', false, Json::error_handler_t::replace));
}

void read(const Json &value, const char *name, QString &into)
{
    if (!value.is_string())
        refuse(name);
    into = QString::fromStdString(value.get_ref<const std::string &>());
}

void read(const Json &value, const char *name, qint64 &into)
{
    // A greater one would come back negative.
    const bool fits =
        value.is_number_integer() && (!value.is_number_unsigned() || std::in_range<qint64>(value.get<std::uint64_t>()));
    into = fits ? value.get<qint64>() : (refuse(name), 0);
}

void read(const Json &value, const char *name, double &into)
{
    into = value.is_number() ? value.get<double>() : (refuse(name), 0);
}

template<typename T>
void take(const Json &object, const char *name, T &into)
{
    const auto found = object.find(name);
    read(found != object.end() ? *found : (refuse(name), *found), name, into);
}

template<typename T>
void take(const Json &object, const char *name, std::optional<T> &into)
{
    if (const auto found = object.find(name); found != object.end() && !found->is_null())
        read(*found, name, into.emplace());
}

const Json &objectIn(const Json &object, const char *name)
{
    const auto found = object.find(name);
    if (found == object.end() || !found->is_object())
        refuse(name);
    return *found;
}

Json toJson(const RemoteLoopInfo &loop)
{
    Json object{{"mode", loop.mode.toStdString()}, {"crossfadeSec", loop.crossfadeSec}};
    if (loop.detection)
        object["detection"] = loop.detection->toStdString();
    if (loop.seamSSIM)
        object["seamSSIM"] = *loop.seamSSIM;
    if (loop.confidence)
        object["confidence"] = loop.confidence->toStdString();
    if (loop.fps)
        object["fps"] = *loop.fps;
    return object;
}

Json toJson(const RemoteVideoEntry &entry)
{
    const RemoteVideoAsset &video = entry.video;
    const RemoteThumbnailAsset &thumbnail = entry.thumbnail;
    return {{"id", entry.id.toStdString()},
            {"slug", entry.slug.toStdString()},
            {"title", entry.title.toStdString()},
            {"video",
             {{"url", video.url.toStdString()},
              {"sizeBytes", video.sizeBytes},
              {"durationSec", video.durationSec},
              {"width", video.width},
              {"height", video.height},
              {"codec", video.codec.toStdString()},
              {"loop", toJson(video.loop)}}},
            {"thumbnail",
             {{"url", thumbnail.url.toStdString()},
              {"sizeBytes", thumbnail.sizeBytes},
              {"width", thumbnail.width},
              {"fps", thumbnail.fps},
              {"durationSec", thumbnail.durationSec}}},
            {"sourceHash", entry.sourceHash.toStdString()}};
}

RemoteLoopInfo loopOf(const Json &object)
{
    RemoteLoopInfo loop;
    take(object, "mode", loop.mode);
    take(object, "crossfadeSec", loop.crossfadeSec);
    take(object, "detection", loop.detection);
    take(object, "seamSSIM", loop.seamSSIM);
    take(object, "confidence", loop.confidence);
    take(object, "fps", loop.fps);
    return loop;
}

RemoteVideoAsset videoOf(const Json &object)
{
    RemoteVideoAsset video;
    take(object, "url", video.url);
    take(object, "sizeBytes", video.sizeBytes);
    take(object, "durationSec", video.durationSec);
    take(object, "width", video.width);
    take(object, "height", video.height);
    take(object, "codec", video.codec);
    video.loop = loopOf(objectIn(object, "loop"));
    return video;
}

RemoteThumbnailAsset thumbnailOf(const Json &object)
{
    RemoteThumbnailAsset thumbnail;
    take(object, "url", thumbnail.url);
    take(object, "sizeBytes", thumbnail.sizeBytes);
    take(object, "width", thumbnail.width);
    take(object, "fps", thumbnail.fps);
    take(object, "durationSec", thumbnail.durationSec);
    return thumbnail;
}

RemoteVideoEntry entryOf(const Json &object)
{
    RemoteVideoEntry entry;
    take(object, "id", entry.id);
    take(object, "slug", entry.slug);
    take(object, "title", entry.title);
    entry.video = videoOf(objectIn(object, "video"));
    entry.thumbnail = thumbnailOf(objectIn(object, "thumbnail"));
    take(object, "sourceHash", entry.sourceHash);
    return entry;
}

/// Follows the parser through a document, takes each video as soon as it is whole, and keeps nothing else in memory
/// than the fields that are known.
class ManifestReader final
{
public:
    RemoteManifest read(const QByteArray &json)
    {
        const auto top =
            Json::parse(json.begin(), json.end(), [this](int depth, Json::parse_event_t event, Json &parsed) {
                return isWanted(depth, event, parsed);
            });
        if (!top.is_object() || !m_hasVideos)
            refuse("videos");
        take(top, "version", m_manifest.version);
        take(top, "generatedAt", m_manifest.generatedAt);
        return std::move(m_manifest);
    }

private:
    // Depths, as the parser counts them: the document 0, its fields 1, a video 2, its fields 3, those of its files 4,
    // and those of the loop 5.
    static bool isKnown(int depth, std::string_view key)
    {
        using Keys = std::vector<std::string_view>;
        static const std::array<Keys, 6> levels{
            Keys{},
            Keys{"version", "generatedAt", "videos"},
            Keys{},
            Keys{"id", "slug", "title", "video", "thumbnail", "sourceHash"},
            Keys{"url", "sizeBytes", "durationSec", "width", "height", "codec", "loop", "fps"},
            Keys{"mode", "crossfadeSec", "detection", "seamSSIM", "confidence", "fps"}};
        const auto level = static_cast<std::size_t>(depth);
        return level < levels.size() && std::ranges::find(levels.at(level), key) != levels.at(level).end();
    }

    bool isWanted(int depth, Json::parse_event_t event, Json &parsed)
    {
        constexpr int deepest = 64;
        if (depth > deepest)
            throw DecodingError("it is nested too deeply");
        if (m_skipped && depth > *m_skipped)
            return false;
        m_skipped.reset();
        switch (event) {
        case Json::parse_event_t::key:
            m_key = parsed.get_ref<const std::string &>();
            return m_isWantedKey = isKnown(depth, m_key);
        case Json::parse_event_t::object_start:
        case Json::parse_event_t::array_start:
            return isWantedStart(depth, event == Json::parse_event_t::array_start);
        case Json::parse_event_t::object_end:
            return depth == 2 ? takeEntry(parsed) : true;
        case Json::parse_event_t::value:
            if (depth == 2)
                refuse("videos");
            return true;
        case Json::parse_event_t::array_end:
            return true;
        }
        return false;
    }

    bool isWantedStart(int depth, bool isArray)
    {
        if (!m_isWantedKey) {
            m_skipped = depth;
            return false;
        }
        const bool isVideos = depth == 1 && m_key == "videos";
        // Lists only there, and objects where there are fields to come.
        if (isArray != isVideos || (!isArray && (depth == 1 || depth > 4)))
            refuse(m_key.c_str());
        if (isVideos) {
            m_manifest.videos.clear();
            m_hasVideos = true;
        }
        return true;
    }

    bool takeEntry(const Json &object)
    {
        m_manifest.videos.push_back(entryOf(object));
        // The next video has no key.
        m_isWantedKey = true;
        return false;
    }

    RemoteManifest m_manifest;
    bool m_hasVideos = false;
    std::string m_key;
    bool m_isWantedKey = true;
    /// The depth of what is being passed over.
    std::optional<int> m_skipped;
};

}

QByteArray encoded(const RemoteManifest &manifest)
{
    // One by one: a tree of everything would take many times the memory of its text.
    QByteArray document = "{\"version\":" + QByteArray::number(manifest.version) +
                          ",\"generatedAt\":" + text(Json(manifest.generatedAt.toStdString())) + ",\"videos\":[";
    for (bool isFirst = true; const RemoteVideoEntry &entry : manifest.videos)
        document += (std::exchange(isFirst, false) ? "\n" : ",\n") + text(toJson(entry));
    return document + "\n]}\n";
}

std::expected<RemoteManifest, QString> decodedManifest(const QByteArray &json)
{
    try {
        return ManifestReader().read(json);
    } catch (const std::exception &error) {
        return std::unexpected(QString::fromUtf8(error.what()));
    }
}

}
