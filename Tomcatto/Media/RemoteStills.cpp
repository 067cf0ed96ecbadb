#include "Media/RemoteStills.h"

#include <QtCore/QDir>
#include <QtCore/QPointer>
#include <QtCore/QTemporaryFile>

namespace tomcatto {

namespace {

constexpr qsizetype mostPictureBytes = 4'000'000;
constexpr int mostAtOnce = 2;
constexpr int pictureSide = 480;
constexpr std::chrono::seconds longestFetch{30};
constexpr std::chrono::seconds patience{10};

QByteArray pictureOf(const StillFrame &stillFrame, const QString &file)
{
    const auto look = stillFrame.look(file, {0, pictureSide}, {});
    return look ? look->picture.value_or(QByteArray()) : QByteArray();
}

QByteArray pictureOfBytes(const StillFrame &stillFrame, const QByteArray &preview)
{
    QTemporaryFile file(QDir::tempPath() + QStringLiteral("/tomcatto-preview.XXXXXX"));
    if (!file.open() || file.write(preview) != preview.size() || !file.flush())
        return {};
    return pictureOf(stillFrame, file.fileName());
}

}

RemoteStills::RemoteStills(HttpSession &httpSession, const StillFrame &stillFrame, MainRunLoop &runLoop,
                           QObject *parent)
    : QObject(parent)
    , m_httpSession(httpSession)
    , m_stillFrame(stillFrame)
    , m_questions(runLoop)
    , m_pictures(mostPictureBytes)
{
}

QByteArray RemoteStills::still(const RemoteVideoEntryView &video)
{
    if (const QByteArray *const known = m_pictures.object(video.id))
        return *known;
    const bool isWanted = video.isCached || !video.thumbnailUrl.isEmpty();
    if (!isWanted || m_asked.contains(video.id))
        return {};
    m_asked.insert(video.id);
    m_line.push_back(video);
    next();
    return {};
}

void RemoteStills::forget()
{
    m_pictures.clear();
    m_asked.clear();
    m_line.clear();
}

void RemoteStills::next()
{
    if (m_line.empty() || m_underWay == mostAtOnce)
        return;
    const RemoteVideoEntryView video = std::move(m_line.back());
    m_line.pop_back();
    ++m_underWay;
    if (video.isCached)
        return look(video.id, {}, video.localFileUrl.toLocalFile());
    HttpRequest request;
    request.url = video.thumbnailUrl;
    request.largestBody = largestPreview;
    request.wholeLimit = longestFetch;
    request.isKept = true;
    m_httpSession.get(request, {}, [self = QPointer(this), id = video.id](const HttpResult &result) {
        if (self && result && !result->body.isEmpty())
            self->look(id, result->body, {});
        else if (self)
            self->finish(id, {});
    });
}

void RemoteStills::look(const QString &id, const QByteArray &preview, const QString &file)
{
    const auto ask = [&stillFrame = m_stillFrame, preview, file] {
        return preview.isEmpty() ? pictureOf(stillFrame, file) : pictureOfBytes(stillFrame, preview);
    };
    m_questions.ask<QByteArray>({{id.toUtf8(), ask}}, patience,
                                [this, id](const std::vector<std::optional<QByteArray>> &answers) {
                                    finish(id, answers.at(0).value_or(QByteArray()));
                                });
}

void RemoteStills::finish(const QString &id, const QByteArray &picture)
{
    --m_underWay;
    // Nobody may want it any more.
    if (!picture.isEmpty() && m_asked.contains(id)) {
        m_pictures.insert(id, new QByteArray(picture), picture.size());
        Q_EMIT ready(id);
    }
    next();
}

}
