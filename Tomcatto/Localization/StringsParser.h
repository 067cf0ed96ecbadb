#pragma once

#include "Localization/StringsTable.h"

#include <QtCore/QStringView>

namespace tomcatto {

/// Reads the entries of one decoded ".strings" text. Used once; the text must outlive it.
class StringsParser final
{
public:
    explicit StringsParser(QStringView text)
        : m_text(text)
    {
    }

    /// All entries in order, duplicates included, or the first error.
    [[nodiscard]] std::expected<QList<StringsEntry>, StringsTableError> parse();
    /// An error of that kind with the line and column of a position in the text.
    [[nodiscard]] StringsTableError errorAt(StringsTableErrorKind kind, qsizetype position);

private:
    using Word = std::expected<QString, StringsTableError>;
    using Step = std::expected<void, StringsTableError>;

    [[nodiscard]] Step skipSpace();
    [[nodiscard]] std::expected<StringsEntry, StringsTableError> entry();
    [[nodiscard]] Word word(StringsTableErrorKind missing);
    [[nodiscard]] Word quoted();
    [[nodiscard]] QString unquoted();
    [[nodiscard]] Word escape();
    [[nodiscard]] std::optional<char16_t> number(int base, int leastDigits, int mostDigits);
    [[nodiscard]] char16_t peek(qsizetype ahead = 0) const;
    [[nodiscard]] bool isAtEnd() const { return m_position >= m_text.size(); }
    [[nodiscard]] bool isAtComment() const { return peek() == u'/' && (peek(1) == u'/' || peek(1) == u'*'); }

    QStringView m_text;
    qsizetype m_position = 0;
    /// Line and column are counted up to here, so that the places of all keys take one pass.
    qsizetype m_counted = 0;
    int m_line = 1;
    int m_column = 1;
};

}
