#include "Media/VideoFileValidator.h"

#include "Foundation/EnumTexts.h"
#include "Persistence/Repositories/UserVideoThumbnailRenderer.h"

#include <array>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>

namespace tomcatto {

namespace {

constexpr qint64 signatureBytes = 12;

struct Signature
{
    qsizetype offset;
    QByteArrayView bytes;
};

// MP4 and QuickTime, Matroska and WebM, AVI.
const std::array signatures{Signature{4, "ftyp"}, Signature{4, "moov"}, Signature{0, "\x1A\x45\xDF\xA3"},
                            Signature{8, "AVI "}};

bool beginsLikeVideo(QByteArrayView start)
{
    for (const Signature &signature : signatures) {
        if (start.sliced(qMin(signature.offset, start.size())).startsWith(signature.bytes))
            return true;
    }
    return false;
}

}

QString description(VideoFileError error, const QString &path)
{
    constexpr std::array texts{"There is no file \"%1\".",
                               "\"%1\" is a folder, not a video.",
                               "\"%1\" is a pipe or a device, not a video.",
                               "\"%1\" cannot be read.",
                               "\"%1\" is empty.",
                               "\"%1\" is not a video: its format is unknown or damaged.",
                               "\"%1\" is not a video: it has no picture that can be shown.",
                               "\"%1\" takes too long to read."};
    return textOf(texts, error).arg(path);
}

// Looks at the file from outside, opens it last: opening a pipe waits for its other end.
std::expected<QByteArray, VideoFileError> VideoFileValidator::firstSight(const QString &path)
{
    const QFileInfo info(path);
    if (!info.exists())
        return std::unexpected(VideoFileError::notFound);
    if (info.isDir())
        return std::unexpected(VideoFileError::isDirectory);
    if (!info.isFile())
        return std::unexpected(VideoFileError::notAFile);
    if (info.size() == 0)
        return std::unexpected(VideoFileError::empty);
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return std::unexpected(VideoFileError::unreadable);
    QByteArray start = file.read(signatureBytes);
    if (start.isEmpty())
        return std::unexpected(VideoFileError::unreadable);
    return start;
}

std::expected<VideoLook, VideoFileError> VideoFileValidator::validate(const QString &path,
                                                                      const std::stop_token &stop) const
{
    const auto start = firstSight(path);
    return start ? validate(path, *start, stop) : std::unexpected(start.error());
}

std::expected<VideoLook, VideoFileError> VideoFileValidator::validate(const QString &path, const QByteArray &start,
                                                                      const std::stop_token &stop) const
{
    auto look = m_stillFrame.look(path, UserVideoThumbnailRenderer::request, stop);
    if (look)
        return *std::move(look);
    switch (look.error()) {
    case StillFrameFailure::unavailable:
        if (beginsLikeVideo(start))
            return VideoLook{0, std::unexpected(look.error())};
        return std::unexpected(VideoFileError::noContainer);
    case StillFrameFailure::unreadable:
        return std::unexpected(VideoFileError::unreadable);
    case StillFrameFailure::noContainer:
        return std::unexpected(VideoFileError::noContainer);
    case StillFrameFailure::noPicture:
    case StillFrameFailure::noFrame:
        return std::unexpected(VideoFileError::noPicture);
    case StillFrameFailure::timedOut:
        return std::unexpected(VideoFileError::timedOut);
    }
    return std::unexpected(VideoFileError::unreadable);
}

}
