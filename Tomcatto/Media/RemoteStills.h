#pragma once

#include "Media/RemoteVideoEntryView.h"
#include "Persistence/DiskQuestions.h"
#include "Platform/Ports/HttpSession.h"
#include "Platform/Ports/StillFrame.h"

#include <QtCore/QCache>
#include <QtCore/QSet>

namespace tomcatto {

/// Still pictures of a remote library's videos, made when they are asked for: of the file where it is downloaded, else
/// of the preview, which is fetched. Nothing waits for them. Main thread only.
class RemoteStills final : public QObject
{
    Q_OBJECT
public:
    /// The largest preview that is taken, in bytes.
    static constexpr qint64 largestPreview = qint64{8} << 20;

    /// @param httpSession outlives this. @param stillFrame outlives the process's use of videos
    RemoteStills(HttpSession &httpSession, const StillFrame &stillFrame, MainRunLoop &runLoop,
                 QObject *parent = nullptr);

    /// The video's first picture as a JPEG. Empty while there is none: then it is looked for, once until `forget`, and
    /// `ready` tells when it is there.
    [[nodiscard]] QByteArray still(const RemoteVideoEntryView &video);
    /// Lets go of all pictures, and of what is not fetched yet.
    void forget();

Q_SIGNALS:
    void ready(const QString &id);

private:
    void next();
    void look(const QString &id, const QByteArray &preview, const QString &file);
    void finish(const QString &id, const QByteArray &picture);

    HttpSession &m_httpSession;
    const StillFrame &m_stillFrame;
    DiskQuestions m_questions;
    QCache<QString, QByteArray> m_pictures;
    QSet<QString> m_asked;
    /// What is still to be made, the last wanted at the end: it is what is seen.
    std::vector<RemoteVideoEntryView> m_line;
    int m_underWay = 0;
};

}
