#include "Localization/StringsTable.h"

#include <gtest/gtest.h>
#include <QtCore/QTemporaryFile>

using namespace Qt::StringLiterals;
using namespace tomcatto;

namespace {

std::expected<StringsTable, QString> read(const QByteArray &source)
{
    QTemporaryFile file;
    EXPECT_TRUE(file.open() && file.write(source) == source.size() && file.flush());
    return readStringsTable(file.fileName());
}

}

TEST(StringsTable, ReadsTextsBetweenCommentsAndEmptyLines)
{
    const auto table =
        read("/* Größe = */\n\n\"a %@\" = \"%1$@ left; = ş 🐱\";\n/**/\n\"b\" = \"\";\n\"c\" = \"/* d */\";");
    ASSERT_TRUE(table) << qPrintable(table.error());
    EXPECT_EQ(table->keys().size(), 3);
    EXPECT_EQ(table->text(u"a %@"_s), u"%1$@ left; = ş 🐱"_s);
    EXPECT_EQ(table->text(u"b"_s), u""_s);
    EXPECT_EQ(table->text(u"c"_s), u"/* d */"_s);
    EXPECT_EQ(table->text(u"d"_s), std::nullopt);
    EXPECT_TRUE(read("") && read("")->keys().isEmpty());
}

TEST(StringsTable, SaysWhereItIsNotOne)
{
    const QString form = u"neither a comment nor \"key\" = \"text\"; without escapes"_s;
    const std::pair<QByteArray, QString> cases[] = {
        {R"(a = "b";)", form},
        {R"("a" = b;)", form},
        {R"("a" = "b")", form},
        {R"("a" "b";)", form},
        {R"("a";)", form},
        {R"("" = "b";)", form},
        {R"("a" = ";)", form},
        {R"("a"="b";)", form},
        {R"( "a" = "b";)", form},
        {R"("a" = "\n";)", form},
        {R"("a" = "b"";)", form},
        {R"("a" = "b" = "c";)", form},
        {R"("a" = "b"; "c" = "d";)", form},
        {"\"a\" = \"b\";\r", form},
        {"// a", form},
        {"/* a", form},
        {"/*/", form},
        {R"(/* a */ "b" = "c";)", form},
        {"\"a\" = \"\xff\";", u"not UTF-8"_s},
        {"\"first\" = \"2\";", u"the key first for the second time"_s},
    };
    for (const auto &[line, what] : cases) {
        const auto table = read("\"first\" = \"1\";\n\n" + line + "\n");
        ASSERT_FALSE(table) << line.constData();
        EXPECT_TRUE(table.error().endsWith(u", line 3: "_s + what)) << qPrintable(table.error());
    }
    EXPECT_EQ(readStringsTable(u":/nowhere"_s).error(), u":/nowhere: No such file or directory"_s);
}
