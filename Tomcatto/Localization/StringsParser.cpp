#include "Localization/StringsParser.h"

namespace tomcatto {

namespace {

bool isUnquoted(char16_t c)
{
    return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z') || (c >= u'0' && c <= u'9') ||
           QStringView(u"_.$/:-").contains(QChar(c));
}

int digitOf(char16_t c)
{
    if (c >= u'0' && c <= u'9')
        return c - u'0';
    if (c >= u'a' && c <= u'f')
        return c - u'a' + 10;
    if (c >= u'A' && c <= u'F')
        return c - u'A' + 10;
    return 16;
}

/// What a backslash and one letter stand for; nothing for escapes with digits and for unknown ones.
std::optional<char16_t> simpleEscape(char16_t letter)
{
    constexpr QStringView letters = u"ntrabfv\"'\\\n";
    constexpr QStringView meanings = u"\n\t\r\a\b\f\v\"'\\\n";
    const qsizetype index = letters.indexOf(QChar(letter));
    return index < 0 ? std::nullopt : std::optional(meanings.at(index).unicode());
}

}

std::expected<QList<StringsEntry>, StringsTableError> StringsParser::parse()
{
    QList<StringsEntry> entries;
    for (;;) {
        if (const Step skipped = skipSpace(); !skipped)
            return std::unexpected(skipped.error());
        if (isAtEnd())
            return entries;
        auto next = entry();
        if (!next)
            return std::unexpected(next.error());
        entries.append(*std::move(next));
    }
}

StringsTableError StringsParser::errorAt(StringsTableErrorKind kind, qsizetype position)
{
    if (position < m_counted) {
        m_counted = 0;
        m_line = m_column = 1;
    }
    for (; m_counted < position && m_counted < m_text.size(); ++m_counted) {
        const char16_t c = m_text.at(m_counted).unicode();
        const bool isFirstOfPair = c == u'\r' && m_counted + 1 < m_text.size() && m_text.at(m_counted + 1) == u'\n';
        if (c == u'\n' || (c == u'\r' && !isFirstOfPair)) {
            ++m_line;
            m_column = 1;
        } else {
            ++m_column;
        }
    }
    return {kind, m_line, m_column};
}

StringsParser::Step StringsParser::skipSpace()
{
    while (!isAtEnd()) {
        if (m_text.at(m_position).isSpace()) {
            ++m_position;
        } else if (!isAtComment()) {
            break;
        } else if (peek(1) == u'/') {
            while (!isAtEnd() && peek() != u'\n' && peek() != u'\r')
                ++m_position;
        } else {
            const qsizetype end = m_text.indexOf(u"*/", m_position + 2);
            if (end < 0)
                return std::unexpected(errorAt(StringsTableErrorKind::unterminatedComment, m_position));
            m_position = end + 2;
        }
    }
    return {};
}

std::expected<StringsEntry, StringsTableError> StringsParser::entry()
{
    const StringsTableError place = errorAt(StringsTableErrorKind::expectedKey, m_position);
    const Word key = word(StringsTableErrorKind::expectedKey);
    if (!key)
        return std::unexpected(key.error());
    StringsEntry entry{*key, *key, place.line, place.column};
    if (const Step skipped = skipSpace(); !skipped)
        return std::unexpected(skipped.error());
    if (peek() == u'=') {
        ++m_position;
        if (const Step skipped = skipSpace(); !skipped)
            return std::unexpected(skipped.error());
        Word value = word(StringsTableErrorKind::expectedValue);
        if (!value)
            return std::unexpected(value.error());
        entry.value = *std::move(value);
        if (const Step skipped = skipSpace(); !skipped)
            return std::unexpected(skipped.error());
        if (peek() != u';')
            return std::unexpected(errorAt(StringsTableErrorKind::expectedSemicolon, m_position));
    } else if (peek() != u';') {
        return std::unexpected(errorAt(StringsTableErrorKind::expectedEqualSign, m_position));
    }
    ++m_position;
    return entry;
}

StringsParser::Word StringsParser::word(StringsTableErrorKind missing)
{
    if (peek() == u'"' || peek() == u'\'')
        return quoted();
    if (isAtEnd() || !isUnquoted(peek()))
        return std::unexpected(errorAt(missing, m_position));
    return unquoted();
}

StringsParser::Word StringsParser::quoted()
{
    const qsizetype start = m_position;
    const char16_t quote = peek();
    QString text;
    for (++m_position; !isAtEnd();) {
        const char16_t c = peek();
        if (c == u'\\') {
            const Word escaped = escape();
            if (!escaped)
                return escaped;
            text += *escaped;
            continue;
        }
        ++m_position;
        if (c == quote)
            return text;
        text += QChar(c);
    }
    return std::unexpected(errorAt(StringsTableErrorKind::unterminatedString, start));
}

QString StringsParser::unquoted()
{
    const qsizetype start = m_position;
    while (!isAtEnd() && isUnquoted(peek()) && !isAtComment())
        ++m_position;
    return m_text.mid(start, m_position - start).toString();
}

StringsParser::Word StringsParser::escape()
{
    const qsizetype start = m_position++;
    const char16_t letter = peek();
    if (const auto meaning = isAtEnd() ? std::nullopt : simpleEscape(letter)) {
        ++m_position;
        return QString(QChar(*meaning));
    }
    std::optional<char16_t> code;
    if (letter == u'U' || letter == u'u') {
        ++m_position;
        code = number(16, 4, 4);
    } else {
        code = number(8, 1, 3);
    }
    if (!code)
        return std::unexpected(errorAt(StringsTableErrorKind::invalidEscape, start));
    return QString(QChar(*code));
}

std::optional<char16_t> StringsParser::number(int base, int leastDigits, int mostDigits)
{
    int value = 0;
    int digits = 0;
    for (; digits < mostDigits && !isAtEnd() && digitOf(peek()) < base; ++digits, ++m_position)
        value = value * base + digitOf(peek());
    // Octal escapes name one byte.
    if (digits < leastDigits || (base == 8 && value > 0xff))
        return std::nullopt;
    return static_cast<char16_t>(value);
}

char16_t StringsParser::peek(qsizetype ahead) const
{
    const qsizetype position = m_position + ahead;
    return position < m_text.size() ? m_text.at(position).unicode() : u'\0';
}

}
