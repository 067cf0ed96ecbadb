#include "Localization/StringsTable.h"

#include <QtCore/QFile>
#include <QtCore/QResource>

namespace tomcatto {

namespace {

struct Entry
{
    QByteArrayView key;
    QByteArrayView text;
};

std::optional<Entry> entryIn(QByteArrayView line)
{
    constexpr QByteArrayView middle = "\" = \"";
    constexpr QByteArrayView end = "\";";
    const qsizetype split = line.indexOf(middle);
    const qsizetype length = line.size() - split - middle.size() - end.size();
    if (!line.startsWith('"') || split < 2 || length < 0 || !line.endsWith(end) || line.contains('\\'))
        return std::nullopt;
    const Entry entry{line.sliced(1, split - 1), line.sliced(split + middle.size(), length)};
    return entry.key.contains('"') || entry.text.contains('"') ? std::nullopt : std::optional(entry);
}

bool isComment(QByteArrayView line)
{
    return line.size() >= 4 && line.startsWith("/*") && line.indexOf("*/", 2) == line.size() - 2;
}

/// Puts what a line says among the texts. The result is what is wrong with the line, empty when nothing is.
QString readLine(QByteArrayView line, StringsTable::Texts &texts)
{
    if (!line.isValidUtf8())
        return QStringLiteral("not UTF-8");
    if (line.isEmpty() || isComment(line))
        return {};
    const auto entry = entryIn(line);
    if (!entry)
        return QStringLiteral("neither a comment nor \"key\" = \"text\"; without escapes");
    if (texts.contains(entry->key))
        return QStringLiteral("the key %1 for the second time").arg(QString::fromUtf8(entry->key));
    texts.insert(entry->key, entry->text);
    return {};
}

/// The bytes of a file; those of a resource that is not compressed where they are.
std::expected<QByteArray, QString> contentOf(const QString &path)
{
    if (const QResource resource(path); path.startsWith(u':') && resource.isValid())
        return resource.uncompressedData();
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return std::unexpected(file.errorString());
    return file.readAll();
}

}

std::optional<QString> StringsTable::text(const QString &key) const
{
    const auto found = m_texts.constFind(key.toUtf8());
    return found != m_texts.cend() ? std::optional(QString::fromUtf8(*found)) : std::nullopt;
}

QStringList StringsTable::keys() const
{
    QStringList keys;
    for (auto key = m_texts.keyBegin(); key != m_texts.keyEnd(); ++key)
        keys << QString::fromUtf8(*key);
    return keys;
}

std::expected<StringsTable, QString> readStringsTable(const QString &path)
{
    const auto content = contentOf(path);
    if (!content)
        return std::unexpected(QStringLiteral("%1: %2").arg(path, content.error()));
    StringsTable::Texts texts;
    QByteArrayView rest = *content;
    for (int number = 1; !rest.isEmpty(); ++number) {
        const qsizetype end = rest.indexOf('\n');
        if (const QString fault = readLine(end < 0 ? rest : rest.first(end), texts); !fault.isEmpty())
            return std::unexpected(QStringLiteral("%1, line %2: %3").arg(path).arg(number).arg(fault));
        rest = end < 0 ? QByteArrayView() : rest.sliced(end + 1);
    }
    return StringsTable(*content, std::move(texts));
}

}
