#include "Media/RemoteVideoCacheState.h"

#include "Media/RemoteTrust.h"

#include <algorithm>
#include <nlohmann/json.hpp>

namespace tomcatto {

namespace {

using Json = nlohmann::ordered_json;
// Looks a name up fast, however many there are.
using SortedJson = nlohmann::json;

/// Throws where a field is missing or of another type, for `decodedCacheState` to catch.
template<typename T>
T member(const SortedJson &entry, const char *name)
{
    const SortedJson &value = entry.at(name);
    bool isRight = value.is_string();
    if constexpr (std::is_same_v<T, bool>)
        isRight = value.is_boolean();
    else if constexpr (std::is_same_v<T, qint64>)
        isRight = value.is_number_integer();
    return isRight ? value.get<T>() : throw std::invalid_argument(name);
}

Date dateOf(const SortedJson &entry, const char *name)
{
    const auto text = QString::fromStdString(member<std::string>(entry, name));
    const QDateTime instant = QDateTime::fromString(text, Qt::ISODate);
    return instant.isValid() ? toDate(instant) : throw std::invalid_argument(name);
}

RemoteVideoCacheEntry entryOf(const SortedJson &object)
{
    RemoteVideoCacheEntry entry;
    entry.sourceHash = QString::fromStdString(member<std::string>(object, "sourceHash"));
    entry.downloadedAt = dateOf(object, "downloadedAt");
    // Nothing that was downloaded is larger, and their sum is to be a number.
    entry.sizeBytes = std::clamp(member<qint64>(object, "sizeBytes"), qint64{0}, largestRemoteVideo);
    if (object.contains("lastPlayedAt") && !object.at("lastPlayedAt").is_null())
        entry.lastPlayedAt = dateOf(object, "lastPlayedAt");
    entry.userSelected = member<bool>(object, "userSelected");
    return entry;
}

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
    for (const auto &[id, entry] : state.entries) {
        Json &object = entries[id.toStdString()];
        object["sourceHash"] = entry.sourceHash.toStdString();
        object["downloadedAt"] = toIso8601(entry.downloadedAt).toStdString();
        object["sizeBytes"] = entry.sizeBytes;
        if (entry.lastPlayedAt)
            object["lastPlayedAt"] = toIso8601(*entry.lastPlayedAt).toStdString();
        object["userSelected"] = entry.userSelected;
    }
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
            if (isPlainFileName(id))
                state.entries.emplace(id, entryOf(value));
        }
        return state;
    } catch (const std::exception &error) {
        return std::unexpected(QString::fromUtf8(error.what()));
    }
}

}
