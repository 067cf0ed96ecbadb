#pragma once

#include <expected>
#include <optional>
#include <QtCore/QByteArray>
#include <QtCore/QHash>
#include <QtCore/QStringList>

namespace tomcatto {

/// The texts of one language by key. They stay where they were read from, in a resource the program's own pages, and
/// become strings when they are asked for: there are hundreds, and a hidden application shows a dozen. A value.
class StringsTable final
{
public:
    using Texts = QHash<QByteArrayView, QByteArrayView>;

    StringsTable() = default;
    /// @param source what the keys and texts are parts of; both are UTF-8.
    StringsTable(QByteArray source, Texts texts)
        : m_source(std::move(source))
        , m_texts(std::move(texts))
    {
    }

    [[nodiscard]] std::optional<QString> text(const QString &key) const;
    [[nodiscard]] QStringList keys() const;

private:
    QByteArray m_source;
    Texts m_texts;
};

/// Reads a table in UTF-8 from a file or resource. Each of its lines is empty, a comment between "/*" and "*/", or
/// `"key" = "text";` without escapes, and no key comes twice. The error is in English for the log and names the file,
/// the line (from 1) and what is wrong there. Any thread.
[[nodiscard]] std::expected<StringsTable, QString> readStringsTable(const QString &path);

}
