#pragma once

#include "Media/RemoteVideoProvider.h"

namespace tomcatto {

/// For its manifest and its previews.
inline constexpr UrlCacheCapacity remoteLibraryUrlCache{.memory = 26'214'400, .disk = 209'715'200};

/// All of a remote library's parts over one folder, in the order they need each other. Main thread only.
class RemoteLibrary final
{
public:
    /// What they stand on; everything outlives them.
    struct Surroundings
    {
        /// The address of the manifest; not set without a library.
        std::optional<QString> manifestUrl;
        HttpSession &httpSession;
        UserDefaults &defaults;
        const WallClock &wallClock;
        QRandomGenerator &random;
    };

    /// @param folder the application's own folder, in which the library gets one for itself
    RemoteLibrary(const QString &folder, const Surroundings &surroundings,
                  RemoteVideoProvider::Seeds seeds = RemoteVideoProvider::Seeds::areDownloaded)
        : manifestClient(surroundings.manifestUrl, surroundings.httpSession, manifestFile(folder))
        , cacheStore(stateFile(folder), cacheFolder(folder))
        , downloader(cacheStore, surroundings.httpSession, surroundings.wallClock)
        , provider(manifestClient, downloader, cacheStore, surroundings.defaults, surroundings.wallClock,
                   surroundings.random, seeds)
    {
    }

    [[nodiscard]] static QString cacheFolder(const QString &folder)
    {
        return folder + QStringLiteral("/RemoteVideoCache");
    }
    [[nodiscard]] static QString stateFile(const QString &folder)
    {
        return cacheFolder(folder) + QStringLiteral("/state.json");
    }
    [[nodiscard]] static QString manifestFile(const QString &folder)
    {
        return cacheFolder(folder) + QStringLiteral("/manifest.json");
    }

    RemoteManifestClient manifestClient;
    RemoteVideoCacheStore cacheStore;
    RemoteVideoDownloader downloader;
    RemoteVideoProvider provider;
};

}
