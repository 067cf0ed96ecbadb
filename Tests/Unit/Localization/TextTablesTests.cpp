#include "Localization/SelectedLanguage.h"
#include "Localization/StringsTable.h"
#include "Localization/TextFormat.h"

#include <gtest/gtest.h>
#include <set>

using namespace Qt::StringLiterals;
using namespace tomcatto;

namespace {

StringsTable shippedTable(SelectedLanguage language)
{
    const auto table = StringsTable::load(u":/tomcatto/%1.lproj/Localizable.strings"_s.arg(rawValue(language)));
    EXPECT_TRUE(table) << qPrintable(rawValue(language) + u": "_s + describe(table.error()));
    return table.value_or(StringsTable());
}

/// The arguments that a text takes, whatever their order.
std::multiset<qsizetype> argumentsOf(const QString &text)
{
    std::multiset<qsizetype> arguments;
    for (const Placeholder &placeholder : placeholders(text))
        arguments.insert(placeholder.argument);
    return arguments;
}

}

TEST(TextTables, AllLanguagesSayTheSame)
{
    const StringsTable english = shippedTable(SelectedLanguage::en);
    ASSERT_GT(english.keys().size(), 400);
    for (const SelectedLanguage language : allLanguages) {
        const bool isTable = language != SelectedLanguage::system;
        const StringsTable table = isTable ? shippedTable(language) : english;
        EXPECT_EQ(table.keys(), english.keys()) << qPrintable(rawValue(language));
        EXPECT_TRUE(table.duplicates().isEmpty()) << qPrintable(rawValue(language));
        for (const QString &key : table.keys()) {
            const QString text = table.value(key).value_or(QString());
            EXPECT_FALSE(text.trimmed().isEmpty()) << qPrintable(rawValue(language) + u' ' + key);
            EXPECT_EQ(argumentsOf(text), argumentsOf(english.value(key).value_or(QString())))
                << qPrintable(rawValue(language) + u' ' + key);
            EXPECT_TRUE(!key.endsWith(u".one"_s) || table.value(key.chopped(3) + u"other"_s)) << qPrintable(key);
        }
    }
}
