#include "Publishing/ClipFiles.h"

#include "Media/RemoteTrust.h"

#include <QtCore/QDir>
#include <QtCore/QHash>
#include <QtCore/QRegularExpression>

namespace tomcatto {

namespace {

/// Without the number that puts the files of a folder in order.
QString unnumbered(const QString &name)
{
    static const QRegularExpression number(QStringLiteral("^\\d+[\\s._-]+(?=.)"));
    return QString(name).remove(number);
}

Refusal refused(const QFileInfo &file, const QString &reason)
{
    return {Refusal::Kind::failed, QStringLiteral("%1: %2").arg(file.filePath(), reason)};
}

}

QString clipId(const QString &name)
{
    static const QRegularExpression gaps(QStringLiteral("[^\\p{L}\\p{M}\\p{N}]+"),
                                         QRegularExpression::UseUnicodePropertiesOption);
    static const QRegularExpression edges(QStringLiteral("^-+|-+$"));
    return unnumbered(name)
        .normalized(QString::NormalizationForm_C)
        .toLower()
        .replace(gaps, QStringLiteral("-"))
        .remove(edges);
}

QString clipTitle(const QString &name)
{
    QString title =
        unnumbered(name).replace(QLatin1Char('-'), QLatin1Char(' ')).replace(QLatin1Char('_'), QLatin1Char(' '));
    title = title.simplified();
    return title.left(1).toUpper() + title.mid(1);
}

std::expected<std::vector<ClipFile>, Refusal> clipsIn(const QString &folder)
{
    const QDir directory(folder);
    if (!directory.exists() || !directory.isReadable())
        return std::unexpected(
            Refusal{Refusal::Kind::failed, QStringLiteral("%1 is not a folder that can be read.").arg(folder)});
    static const QStringList endings{QStringLiteral("*.mp4"), QStringLiteral("*.m4v"),  QStringLiteral("*.mov"),
                                     QStringLiteral("*.mkv"), QStringLiteral("*.webm"), QStringLiteral("*.avi"),
                                     QStringLiteral("*.ogv"), QStringLiteral("*.mpg"),  QStringLiteral("*.mpeg")};
    std::vector<ClipFile> clips;
    QHash<QString, QString> names;
    for (const QFileInfo &file : directory.entryInfoList(endings, QDir::Files, QDir::Name)) {
        ClipFile clip{file, clipId(file.completeBaseName()), clipTitle(file.completeBaseName())};
        if (!isPlainFileName(clip.id))
            return std::unexpected(
                refused(file, QStringLiteral("its name makes no identifier; give it a shorter one with letters.")));
        if (names.contains(clip.id))
            return std::unexpected(
                refused(file, QStringLiteral("it would have the same identifier as %1, \"%2\"; rename one of them.")
                                  .arg(names.value(clip.id), clip.id)));
        names.insert(clip.id, file.fileName());
        clips.push_back(std::move(clip));
    }
    if (clips.empty())
        return std::unexpected(
            Refusal{Refusal::Kind::notApplicable, QStringLiteral("There are no videos in %1.").arg(folder)});
    return clips;
}

}
