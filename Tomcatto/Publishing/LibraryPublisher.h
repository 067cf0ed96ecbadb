#pragma once

#include "Media/RemoteManifest.h"
#include "Platform/Ports/ClipStudio.h"
#include "Publishing/ClipFiles.h"

#include <functional>
#include <QtCore/QUrl>

namespace tomcatto {

/// What is published, and where.
struct PublishRequest
{
    /// The folder with the clips.
    QString folder;
    /// Where the output folder will be on the net: https, or http of this machine.
    QUrl baseUrl;
    /// The folder that gets "manifest.json", "videos" and "previews"; it may be there already.
    QString output;
};

/// Makes a remote library, which any web server can hand out, out of a folder of clips: the same files for the same
/// clips. Every clip is looked at before the first file is written, and the manifest is written last, so that a library
/// that is being served is never one that refers to what is not there. What lies in the output folder besides stays.
/// Blocking.
class LibraryPublisher final
{
public:
    /// @param studio outlives the publisher. @param tell gets a line for each clip that was looked at
    LibraryPublisher(const ClipStudio &studio, std::function<void(const QString &line)> tell);

    /// @return the number of clips
    [[nodiscard]] std::expected<std::size_t, Refusal> publish(const PublishRequest &request) const;

private:
    struct Item
    {
        ClipFile clip;
        RemoteVideoEntry entry;
        QByteArray preview;
    };

    [[nodiscard]] std::expected<Item, Refusal> itemOf(const ClipFile &clip, const QUrl &base) const;
    [[nodiscard]] std::expected<std::vector<Item>, Refusal> itemsOf(const std::vector<ClipFile> &clips,
                                                                    const QUrl &base) const;
    [[nodiscard]] static std::expected<std::size_t, Refusal> write(std::vector<Item> items, const QDir &output);

    const ClipStudio &m_studio;
    std::function<void(const QString &line)> m_tell;
};

}
