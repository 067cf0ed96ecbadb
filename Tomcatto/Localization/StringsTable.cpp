#include "Localization/StringsTable.h"

#include "Localization/StringsParser.h"

#include <QtCore/QFile>
#include <QtCore/QStringConverter>

namespace tomcatto {

namespace {

/// The encoding that the data's byte order mark tells. Without one a first character with a zero byte is UTF-16, since
/// tables begin with ASCII; everything else is UTF-8.
QStringConverter::Encoding encodingOf(const QByteArray &data)
{
    if (data.startsWith("\xff\xfe"))
        return QStringConverter::Utf16LE;
    if (data.startsWith("\xfe\xff"))
        return QStringConverter::Utf16BE;
    if (data.size() >= 2 && data.at(0) != 0 && data.at(1) == 0)
        return QStringConverter::Utf16LE;
    if (data.size() >= 2 && data.at(0) == 0 && data.at(1) != 0)
        return QStringConverter::Utf16BE;
    return QStringConverter::Utf8;
}

QString explanation(StringsTableErrorKind kind)
{
    switch (kind) {
    case StringsTableErrorKind::unreadableFile:
        return QStringLiteral("the file cannot be read");
    case StringsTableErrorKind::invalidEncoding:
        return QStringLiteral("neither UTF-8 nor UTF-16");
    case StringsTableErrorKind::unterminatedComment:
        return QStringLiteral("a comment without an end");
    case StringsTableErrorKind::unterminatedString:
        return QStringLiteral("a quoted text without an end");
    case StringsTableErrorKind::invalidEscape:
        return QStringLiteral("an unknown escape");
    case StringsTableErrorKind::expectedKey:
        return QStringLiteral("expected a key");
    case StringsTableErrorKind::expectedEqualSign:
        return QStringLiteral("expected an equal sign or a semicolon");
    case StringsTableErrorKind::expectedValue:
        return QStringLiteral("expected a value");
    case StringsTableErrorKind::expectedSemicolon:
        return QStringLiteral("expected a semicolon");
    }
    return {};
}

}

QString describe(const StringsTableError &error)
{
    if (error.line == 0)
        return explanation(error.kind);
    return QStringLiteral("line %1, column %2: %3").arg(error.line).arg(error.column).arg(explanation(error.kind));
}

StringsTable::StringsTable(const QList<StringsEntry> &entries)
{
    m_values.reserve(entries.size());
    m_keys.reserve(entries.size());
    for (const StringsEntry &entry : entries) {
        if (m_values.contains(entry.key)) {
            m_duplicates.append({entry.key, entry.line, entry.column});
            continue;
        }
        m_values.insert(entry.key, entry.value);
        m_keys.append(entry.key);
    }
}

std::expected<StringsTable, StringsTableError> StringsTable::parse(const QByteArray &data)
{
    const auto encoding = encodingOf(data);
    QStringDecoder decoder(encoding, QStringConverter::Flag::Stateless);
    const QString text = decoder.decode(data);
    StringsParser parser(text);
    const bool isHalfUnit = encoding != QStringConverter::Utf8 && data.size() % 2 != 0;
    if (decoder.hasError() || isHalfUnit) {
        const qsizetype damaged = text.indexOf(QChar::ReplacementCharacter);
        return std::unexpected(
            parser.errorAt(StringsTableErrorKind::invalidEncoding, damaged < 0 ? text.size() : damaged));
    }
    auto entries = parser.parse();
    if (!entries)
        return std::unexpected(entries.error());
    return StringsTable(*entries);
}

std::expected<StringsTable, StringsTableError> StringsTable::load(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return std::unexpected(StringsTableError{});
    const QByteArray data = file.readAll();
    if (file.error() != QFileDevice::NoError)
        return std::unexpected(StringsTableError{});
    return parse(data);
}

std::optional<QString> StringsTable::value(const QString &key) const
{
    const auto found = m_values.constFind(key);
    return found != m_values.cend() ? std::optional(*found) : std::nullopt;
}

}
