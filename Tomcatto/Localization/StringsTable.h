#pragma once

#include <expected>
#include <optional>
#include <QtCore/QByteArray>
#include <QtCore/QHash>
#include <QtCore/QList>
#include <QtCore/QString>
#include <QtCore/QStringList>

namespace tomcatto {

/// Why a table of texts cannot be read.
enum class StringsTableErrorKind {
    unreadableFile,
    invalidEncoding,
    unterminatedComment,
    unterminatedString,
    invalidEscape,
    expectedKey,
    expectedEqualSign,
    expectedValue,
    expectedSemicolon
};

/// What is wrong and where. Lines and columns count from 1, columns in UTF-16 units; both are 0 for an unreadable file.
struct StringsTableError
{
    StringsTableErrorKind kind = StringsTableErrorKind::unreadableFile;
    int line = 0;
    int column = 0;

    bool operator==(const StringsTableError &) const = default;
};

/// The error in English for the log, for example "line 3, column 7: expected a semicolon".
[[nodiscard]] QString describe(const StringsTableError &error);

/// A key that stands in the table once more, and where it stands again.
struct DuplicateKey
{
    QString key;
    int line = 0;
    int column = 0;

    bool operator==(const DuplicateKey &) const = default;
};

/// One entry of a table as it was read, with the place of its key.
struct StringsEntry
{
    QString key;
    QString value;
    int line = 0;
    int column = 0;
};

/// The texts of one language by key, in the ".strings" format: `"key" = "value";` or `"key";` with comments. A value;
/// any thread.
class StringsTable final
{
public:
    StringsTable() = default;
    /// A table of those entries; where a key comes twice the first entry holds.
    explicit StringsTable(const QList<StringsEntry> &entries);

    /// Reads a table from UTF-8, with or without a byte order mark, or from UTF-16 with one.
    [[nodiscard]] static std::expected<StringsTable, StringsTableError> parse(const QByteArray &data);
    /// Reads a table from a file or resource.
    [[nodiscard]] static std::expected<StringsTable, StringsTableError> load(const QString &path);

    /// The text under `key`; nothing where the table lacks it.
    [[nodiscard]] std::optional<QString> value(const QString &key) const;
    /// All keys, in the table's order.
    [[nodiscard]] const QStringList &keys() const noexcept { return m_keys; }
    /// Keys that came again, in the table's order. Their later values are dropped.
    [[nodiscard]] const QList<DuplicateKey> &duplicates() const noexcept { return m_duplicates; }

private:
    QHash<QString, QString> m_values;
    QStringList m_keys;
    QList<DuplicateKey> m_duplicates;
};

}
