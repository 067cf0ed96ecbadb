#include "Localization/StringsTable.h"

#include <gtest/gtest.h>
#include <QtCore/QStringEncoder>

using namespace Qt::StringLiterals;
using namespace tomcatto;
using Kind = StringsTableErrorKind;

namespace {

/// A table on one line, as "key>value|key>value", or its error as "error LINE:COLUMN".
QString dump(const QByteArray &source)
{
    const auto table = StringsTable::parse(source);
    if (!table)
        return u"error %1:%2"_s.arg(table.error().line).arg(table.error().column);
    QStringList entries;
    for (const QString &key : table->keys())
        entries.append(key + u'>' + table->value(key).value_or(u"none"_s));
    return entries.join(u'|');
}

}

TEST(StringsTable, ReadsEveryFormOfAnEntry)
{
    const std::pair<const char *, QString> cases[] = {
        {" /* only * a / comment */ // and another", u""_s},
        {"\"a\"=\"1\";\r\n\"b\"\t=\n\"2\";", u"a>1|b>2"_s},
        {"/* x */ \"a\" /* \"y\" = */ = // z;\n \"1\" /**/ ; // \"b\" = \"2\";", u"a>1"_s},
        {R"(a.b_c = $x/y:z-1; 'q' = '"';)", u"a.b_c>$x/y:z-1|q>\""_s},
        {"a/*c*/=b//d\n;", u"a>b"_s},
        {R"("as it is"; k;)", u"as it is>as it is|k>k"_s},
        {R"("// no" = "/* comment */"; "" = "";)", u"// no>/* comment */|>"_s},
        {R"("menu %@" = "%1$@ left; = ok";)", u"menu %@>%1$@ left; = ok"_s},
        {R"(e = "\n\t\r\"\\\'\a\b\f\v";)", u"e>\n\t\r\"\\'\a\b\f\v"_s},
        {R"(o = "\101\62x\0y\3778";)", u"o>A2x"_s + QChar(0) + u"yÿ8"_s},
        {R"(u = "\U00e9\u011F\UD83D\uDC31";)", u"u>éğ🐱"_s},
        {"w = \"two\nlines\\\ntoo\";", u"w>two\nlines\ntoo"_s},
    };
    for (const auto &[source, expected] : cases)
        EXPECT_EQ(dump(source), expected) << source;
}

TEST(StringsTable, ErrorsNameLineAndColumn)
{
    const std::pair<QByteArray, StringsTableError> cases[] = {
        {"a = b", {Kind::expectedSemicolon, 1, 6}},
        {"\n\n  a = \"b\" \"c\";", {Kind::expectedSemicolon, 3, 11}},
        {"\"a\"", {Kind::expectedEqualSign, 1, 4}},
        {"a b;", {Kind::expectedEqualSign, 1, 3}},
        {"a = ;", {Kind::expectedValue, 1, 5}},
        {"a =", {Kind::expectedValue, 1, 4}},
        {"// x\r\n= b;", {Kind::expectedKey, 2, 1}},
        {"a;\rb;\r;", {Kind::expectedKey, 3, 1}},
        {"\"ş\" = 1;;", {Kind::expectedKey, 1, 9}},
        {"a = 1;\n /* b", {Kind::unterminatedComment, 2, 2}},
        {"a = \"b\\\";\n", {Kind::unterminatedString, 1, 5}},
        {"a = \"\\q\";", {Kind::invalidEscape, 1, 6}},
        {"a = \"x\\U12g4\";", {Kind::invalidEscape, 1, 7}},
        {"a = \"\\400\";", {Kind::invalidEscape, 1, 6}},
        {"a = \"\\", {Kind::invalidEscape, 1, 6}},
        {"a = 1;\nb = \"\xff\";", {Kind::invalidEncoding, 2, 6}},
        {"a = \"\xc3", {Kind::invalidEncoding, 1, 6}},
        {QByteArray("\xff\xfe\x61\0\x3b", 5), {Kind::invalidEncoding, 1, 2}},
    };
    for (const auto &[source, error] : cases) {
        const auto table = StringsTable::parse(source);
        ASSERT_FALSE(table) << source.constData();
        EXPECT_EQ(table.error(), error) << source.constData() << " gave " << qPrintable(describe(table.error()));
    }
    EXPECT_EQ(StringsTable::load(u":/nowhere"_s).error(), (StringsTableError{Kind::unreadableFile, 0, 0}));
}

TEST(StringsTable, ReadsEveryEncoding)
{
    for (const auto encoding : {QStringConverter::Utf8, QStringConverter::Utf16LE, QStringConverter::Utf16BE}) {
        QStringEncoder encoder(encoding, QStringConverter::Flag::WriteBom);
        const QByteArray marked = encoder.encode(u"\"şğ\" = \"Größe 🐱\";\n"_s);
        EXPECT_EQ(dump(marked), u"şğ>Größe 🐱"_s) << encoding;
        const qsizetype mark = encoding == QStringConverter::Utf8 ? 3 : 2;
        EXPECT_EQ(dump(marked.sliced(mark)), u"şğ>Größe 🐱"_s) << encoding << " without its mark";
    }
}

TEST(StringsTable, FirstOfTwoEqualKeysHolds)
{
    EXPECT_EQ(dump("a = 1;\n  a = 2; b; \"a\" = 3;"), u"a>1|b>b"_s);
    EXPECT_EQ(StringsTable::parse("a = 1;\n  a = 2; b; \"a\" = 3;")->duplicates(),
              (QList<DuplicateKey>{{u"a"_s, 2, 3}, {u"a"_s, 2, 13}}));
}
