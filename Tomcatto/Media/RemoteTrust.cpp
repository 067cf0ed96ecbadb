#include "Media/RemoteTrust.h"

#include "Foundation/Logger.h"
#include "Foundation/TrustedAddress.h"

#include <algorithm>
#include <QtCore/QSet>

namespace tomcatto {

namespace {

// A hostile document could fill the log.
constexpr int mostLines = 20;

bool isTrusted(const QString &address)
{
    return isTrustedAddress(QUrl(address, QUrl::StrictMode));
}

QString refusal(const RemoteVideoEntry &entry, const QSet<QString> &taken)
{
    if (!isPlainFileName(entry.id))
        return QStringLiteral("its identifier is not a file name");
    if (taken.contains(entry.id))
        return QStringLiteral("its identifier is there already");
    if (!isTrusted(entry.video.url))
        return QStringLiteral("its address is neither https nor of this machine");
    if (entry.video.sizeBytes < 0 || entry.video.sizeBytes > largestRemoteVideo)
        return QStringLiteral("its size cannot be");
    return {};
}

/// Something to read, however it came.
QString shown(const QString &id)
{
    constexpr qsizetype longest = 128;
    QString text = id.left(longest);
    std::ranges::replace_if(
        text, [](QChar character) { return !character.isPrint(); }, QLatin1Char('?'));
    return text;
}

}

bool isPlainFileName(const QString &text)
{
    constexpr qsizetype mostBytes = 128;
    const auto isSeparator = [](QChar character) {
        return character == QLatin1Char('/') || character == QLatin1Char('\\') || character.unicode() < 0x20 ||
               character.unicode() == 0x7f;
    };
    return !text.isEmpty() && !text.startsWith(QLatin1Char('.')) && text.toUtf8().size() <= mostBytes &&
           std::ranges::none_of(text, isSeparator);
}

RemoteManifest trustedPart(RemoteManifest manifest, const Logger &logger)
{
    QSet<QString> taken;
    int refused = 0;
    const auto refuse = [&](const RemoteVideoEntry &entry, const QString &reason) {
        if (++refused <= mostLines)
            logger.error(QStringLiteral("refused of the remote library: \"%1\", %2").arg(shown(entry.id), reason));
    };
    std::erase_if(manifest.videos, [&](RemoteVideoEntry &entry) {
        if (const QString reason = refusal(entry, taken); !reason.isEmpty()) {
            refuse(entry, reason);
            return true;
        }
        taken.insert(entry.id);
        if (!isTrusted(entry.thumbnail.url)) {
            refuse(entry, QStringLiteral("the address of its preview is neither https nor of this machine"));
            entry.thumbnail.url.clear();
        }
        return false;
    });
    if (refused > mostLines)
        logger.error(QStringLiteral("refused of the remote library: %1 more").arg(refused - mostLines));
    return manifest;
}

}
