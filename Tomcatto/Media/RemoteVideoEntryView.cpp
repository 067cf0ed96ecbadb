#include "Media/RemoteVideoEntryView.h"

#include "Media/RemoteManifest.h"
#include "Media/RemoteVideoCacheState.h"

#include <QtCore/QFileInfo>

namespace tomcatto {

RemoteVideoEntryView makeEntryView(const RemoteVideoEntry &entry, const RemoteVideoCacheEntry *cached,
                                   const QString &file)
{
    RemoteVideoEntryView view;
    view.id = entry.id;
    view.title = entry.title;
    view.sizeBytes = entry.video.sizeBytes;
    view.durationSec = entry.video.durationSec;
    view.thumbnailUrl = QUrl(entry.thumbnail.url);
    view.isCached = cached && QFileInfo::exists(file);
    if (view.isCached) {
        view.userSelected = cached->userSelected;
        view.localFileUrl = QUrl::fromLocalFile(file);
    }
    return view;
}

}
