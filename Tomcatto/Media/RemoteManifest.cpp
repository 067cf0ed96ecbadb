#include "Media/RemoteManifest.h"

#include "Foundation/JsonFields.h"

namespace tomcatto {

static constexpr auto jsonFields(const RemoteLoopInfo *)
{
    using Loop = RemoteLoopInfo;
    return std::tuple(std::pair("mode", &Loop::mode), std::pair("crossfadeSec", &Loop::crossfadeSec),
                      std::pair("detection", &Loop::detection), std::pair("seamSSIM", &Loop::seamSSIM),
                      std::pair("confidence", &Loop::confidence), std::pair("fps", &Loop::fps));
}

static constexpr auto jsonFields(const RemoteVideoAsset *)
{
    using Asset = RemoteVideoAsset;
    return std::tuple(std::pair("url", &Asset::url), std::pair("sizeBytes", &Asset::sizeBytes),
                      std::pair("durationSec", &Asset::durationSec), std::pair("width", &Asset::width),
                      std::pair("height", &Asset::height), std::pair("codec", &Asset::codec),
                      std::pair("loop", &Asset::loop));
}

static constexpr auto jsonFields(const RemoteThumbnailAsset *)
{
    using Asset = RemoteThumbnailAsset;
    return std::tuple(std::pair("url", &Asset::url), std::pair("sizeBytes", &Asset::sizeBytes),
                      std::pair("width", &Asset::width), std::pair("fps", &Asset::fps),
                      std::pair("durationSec", &Asset::durationSec));
}

static constexpr auto jsonFields(const RemoteVideoEntry *)
{
    using Entry = RemoteVideoEntry;
    return std::tuple(std::pair("id", &Entry::id), std::pair("slug", &Entry::slug), std::pair("title", &Entry::title),
                      std::pair("video", &Entry::video), std::pair("thumbnail", &Entry::thumbnail),
                      std::pair("sourceHash", &Entry::sourceHash));
}

/// Without the videos, which are read and written one by one.
static constexpr auto jsonFields(const RemoteManifest *)
{
    return std::tuple(std::pair("version", &RemoteManifest::version),
                      std::pair("generatedAt", &RemoteManifest::generatedAt));
}

namespace {

using Json = nlohmann::ordered_json;

QByteArray text(const Json &json)
{
    return QByteArray::fromStdString(json.dump(-1, ' ', false, Json::error_handler_t::replace));
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
        if (!readJson(top, m_manifest) || !m_hasVideos)
            throw JsonFieldError("videos");
        return std::move(m_manifest);
    }

private:
    // Depths, as the parser counts them: the document 0, its fields 1, a video 2, its fields 3, those of its files 4,
    // and those of the loop 5.
    static bool isKnown(int depth, std::string_view key)
    {
        switch (depth) {
        case 1:
            return key == "videos" || hasJsonField<RemoteManifest>(key);
        case 3:
            return hasJsonField<RemoteVideoEntry>(key);
        case 4:
            return hasJsonField<RemoteVideoAsset>(key) || hasJsonField<RemoteThumbnailAsset>(key);
        case 5:
            return hasJsonField<RemoteLoopInfo>(key);
        default:
            return false;
        }
    }

    bool isWanted(int depth, Json::parse_event_t event, Json &parsed)
    {
        constexpr int deepest = 64;
        if (depth > deepest)
            throw std::runtime_error("it is nested too deeply");
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
                throw JsonFieldError("videos");
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
            throw JsonFieldError(m_key.c_str());
        if (isVideos) {
            m_manifest.videos.clear();
            m_hasVideos = true;
        }
        return true;
    }

    bool takeEntry(const Json &object)
    {
        readJson(object, m_manifest.videos.emplace_back());
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
                          ",\"generatedAt\":" + text(jsonValue(manifest.generatedAt)) + ",\"videos\":[";
    for (bool isFirst = true; const RemoteVideoEntry &entry : manifest.videos)
        document += (std::exchange(isFirst, false) ? "\n" : ",\n") + text(jsonValue(entry));
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
