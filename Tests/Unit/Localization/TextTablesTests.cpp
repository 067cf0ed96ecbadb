#include "Localization/SelectedLanguage.h"
#include "Localization/StringsTable.h"
#include "Localization/TextFormat.h"

#include <algorithm>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace tomcatto;

namespace {

StringsTable shippedTable(SelectedLanguage language)
{
    const auto table = readStringsTable(u":/tomcatto/%1.lproj/Localizable.strings"_s.arg(rawValue(language)));
    EXPECT_TRUE(table) << qPrintable(table.error());
    return table.value_or(StringsTable());
}

/// The arguments that a text takes, whatever their order.
QString argumentsOf(const QString &text)
{
    QString filled = fillPlaceholders(text, {u"\1"_s, u"\2"_s, u"\3"_s, u"\4"_s, u"\5"_s, u"\6"_s});
    filled.removeIf([](QChar letter) { return letter > u'\6'; });
    std::ranges::sort(filled);
    return filled;
}

}

TEST(TextTables, AllLanguagesSayTheSame)
{
    const StringsTable english = shippedTable(SelectedLanguage::en);
    const QStringList keys = english.keys();
    ASSERT_GT(keys.size(), 400);
    for (const SelectedLanguage language : allLanguages) {
        const StringsTable table = language == SelectedLanguage::system ? english : shippedTable(language);
        EXPECT_EQ(table.keys().size(), keys.size()) << qPrintable(rawValue(language));
        for (const QString &key : keys) {
            const QString text = english.text(key).value_or(QString());
            const QString other = table.text(key).value_or(QString());
            EXPECT_FALSE(other.trimmed().isEmpty()) << qPrintable(rawValue(language) + u' ' + key);
            EXPECT_EQ(argumentsOf(other), argumentsOf(text)) << qPrintable(rawValue(language) + u' ' + key);
            EXPECT_TRUE(!key.endsWith(u".one"_s) || table.text(key.chopped(3) + u"other"_s)) << qPrintable(key);
        }
    }
}
