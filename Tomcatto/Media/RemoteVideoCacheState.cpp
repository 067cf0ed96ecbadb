#include "Media/RemoteVideoCacheState.h"

#include "Foundation/JsonFields.h"
#include "Media/RemoteTrust.h"

#include <algorithm>

namespace tomcatto {

static constexpr auto jsonFields(const RemoteVideoCacheEntry *)
{
    using Entry = RemoteVideoCacheEntry;
    return std::tuple(std::pair("sourceHash", &Entry::sourceHash), std::pair("downloadedAt", &Entry::downloadedAt),
                      std::pair("sizeBytes", &Entry::sizeBytes), std::pair("lastPlayedAt", &Entry::lastPlayedAt),
                      std::pair("userSelected", &Entry::userSelected));
}

namespace {

using Json = nlohmann::ordered_json;
// Looks a name up fast, however many there are.
using SortedJson = nlohmann::json;

qint64 sizeOf(const RemoteVideoCacheState &state)
{
    qint64 sum = 0;
    for (const auto &[id, entry] : state.entries)
        sum += entry.sizeBytes;
    return sum;
}

/// What has not been of use for the longest time, of those that breaks do not play.
const std::pair<const QString, RemoteVideoCacheEntry> *leastOfUse(const RemoteVideoCacheState &state)
{
    const auto lastUse = [](const RemoteVideoCacheEntry &entry) {
        return entry.lastPlayedAt.value_or(entry.downloadedAt);
    };
    const std::pair<const QString, RemoteVideoCacheEntry> *least = nullptr;
    for (const auto &each : state.entries) {
        if (!each.second.userSelected && (!least || lastUse(each.second) < lastUse(least->second)))
            least = &each;
    }
    return least;
}

}

std::vector<QString> beyondBudget(RemoteVideoCacheState state, qint64 budget)
{
    std::vector<QString> ids;
    for (qint64 size = sizeOf(state); size > budget;) {
        const auto *const least = leastOfUse(state);
        if (!least)
            break;
        size -= least->second.sizeBytes;
        ids.push_back(least->first);
        state.entries.erase(ids.back());
    }
    return ids;
}

QByteArray encoded(const RemoteVideoCacheState &state)
{
    Json entries = Json::object();
    for (const auto &[id, entry] : state.entries)
        entries[id.toStdString()] = jsonValue(entry);
    return QByteArray::fromStdString(
        Json{{"entries", std::move(entries)}}.dump(-1, ' ', false, Json::error_handler_t::replace));
}

std::expected<RemoteVideoCacheState, QString> decodedCacheState(const QByteArray &json)
{
    try {
        const auto object = SortedJson::parse(json.begin(), json.end());
        RemoteVideoCacheState state;
        for (const auto &[key, value] : object.at("entries").items()) {
            const QString id = QString::fromStdString(key);
            if (!isPlainFileName(id))
                continue;
            RemoteVideoCacheEntry &entry = state.entries[id];
            if (!readJson(value, entry))
                throw JsonFieldError(key.c_str());
            // Nothing that was downloaded is larger, and their sum is to be a number.
            entry.sizeBytes = std::clamp(entry.sizeBytes, qint64{0}, largestRemoteVideo);
        }
        return state;
    } catch (const std::exception &error) {
        return std::unexpected(QString::fromUtf8(error.what()));
    }
}

}
