#include "Localization/StringsTable.h"

#include <optional>
#include <QtCore/QFile>

namespace tomcatto {

namespace {

struct Entry
{
    QStringView key;
    QStringView text;
};

std::optional<Entry> entryIn(QStringView line)
{
    constexpr QStringView middle = u"\" = \"";
    constexpr QStringView end = u"\";";
    const qsizetype split = line.indexOf(middle);
    const qsizetype length = line.size() - split - middle.size() - end.size();
    if (!line.startsWith(u'"') || split < 2 || length < 0 || !line.endsWith(end) || line.contains(u'\\'))
        return std::nullopt;
    const Entry entry{line.mid(1, split - 1), line.mid(split + middle.size(), length)};
    return entry.key.contains(u'"') || entry.text.contains(u'"') ? std::nullopt : std::optional(entry);
}

bool isComment(QStringView line)
{
    return line.size() >= 4 && line.startsWith(u"/*") && line.indexOf(u"*/", 2) == line.size() - 2;
}

/// Puts what a line says into the table. The result is what is wrong with the line, empty when nothing is.
QString readLine(QStringView line, StringsTable &table)
{
    if (line.contains(QChar::ReplacementCharacter))
        return QStringLiteral("not UTF-8");
    if (line.isEmpty() || isComment(line))
        return {};
    const auto entry = entryIn(line);
    if (!entry)
        return QStringLiteral("neither a comment nor \"key\" = \"text\"; without escapes");
    const QString key = entry->key.toString();
    if (table.contains(key))
        return QStringLiteral("the key %1 for the second time").arg(key);
    table.insert(key, entry->text.toString());
    return {};
}

}

std::expected<StringsTable, QString> readStringsTable(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return std::unexpected(QStringLiteral("%1: %2").arg(path, file.errorString()));
    const QString content = QString::fromUtf8(file.readAll());
    StringsTable table;
    int number = 0;
    for (const QStringView line : QStringView(content).split(u'\n')) {
        ++number;
        if (const QString fault = readLine(line, table); !fault.isEmpty())
            return std::unexpected(QStringLiteral("%1, line %2: %3").arg(path).arg(number).arg(fault));
    }
    return table;
}

}
