#include "Fakes/FakeUserDefaults.h"
#include "Localization/LocalizedStrings.h"

#include <gtest/gtest.h>
#include <QtCore/QDir>
#include <QtCore/QTemporaryDir>
#include <QtTest/QSignalSpy>

using namespace Qt::StringLiterals;
using namespace tomcatto;
using Language = SelectedLanguage;

namespace {

/// Texts over small tables of their own in a folder.
class LocalizedStringsTest : public testing::Test
{
protected:
    LocalizedStringsTest()
    {
        write(u"en"_s, "\"hello\" = \"Hello\";\n\"only\" = \"Only English\";\n\"left\" = \"%@ left, %@ %%\";\n"
                       "\"n.one\" = \"%@ cat\";\n\"n.other\" = \"%@ cats of %@\";\n");
        write(u"de"_s, "\"hello\" = \"Hallo\";\n\"left\" = \"%2$@ %%, noch %1$@\";");
        write(u"fr"_s, "\"n.one\" = \"%@ chat\";\n\"n.other\" = \"%@ chats\";");
        write(u"es"_s, "\n\"hello\" = ;");
        setLogSink([this](LogLevel, const QString &, const QString &message) { m_log.append(message); });
    }
    ~LocalizedStringsTest() override { setLogSink({}); }

    void write(const QString &language, const QByteArray &table) const
    {
        const QDir folder(m_root.filePath(language + u".lproj"_s));
        QFile file(folder.filePath(u"Localizable.strings"_s));
        ASSERT_TRUE(folder.mkpath(u"."_s) && file.open(QIODevice::WriteOnly));
        file.write(table);
    }

    QTemporaryDir m_root;
    FakeUserDefaults m_defaults;
    QStringList m_log;
    LanguageOverrideService m_service{m_defaults, {}};
    LocalizedStrings m_strings{m_service, m_root.path()};
};

}

TEST_F(LocalizedStringsTest, FollowsTheLanguageAndFallsBack)
{
    const QSignalSpy spy(&m_strings, &LocalizedStrings::changed);
    EXPECT_EQ(m_strings.text(u"hello"_s), u"Hello"_s);
    m_service.setLanguage(Language::de);
    EXPECT_EQ(spy.count(), 1);
    EXPECT_EQ(m_strings.text(u"hello"_s), u"Hallo"_s);
    m_log.clear();
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(m_strings.text(u"only"_s), u"Only English"_s);
        EXPECT_EQ(m_strings.text(u"nowhere"_s), u"nowhere"_s);
    }
    EXPECT_EQ(m_log, (QStringList{u"There is no text for the key only in de"_s,
                                  u"There is no text for the key nowhere in de"_s}));
    m_service.setLanguage(Language::es);
    EXPECT_EQ(m_strings.text(u"hello"_s), u"Hello"_s);
    EXPECT_EQ(m_log.filter(u"es.lproj/Localizable.strings, line 2: neither"_s).size(), 1);
}

TEST_F(LocalizedStringsTest, FillsPlaceholders)
{
    EXPECT_EQ(m_strings.format(u"left"_s, u"16:12"_s, 40), u"16:12 left, 40 %"_s);
    m_service.setLanguage(Language::de);
    EXPECT_EQ(m_strings.format(u"left"_s, u"16:12"_s, 40), u"40 %, noch 16:12"_s);
    EXPECT_EQ(fillPlaceholders(u"%@ of %@"_s, {u"1"_s}), u"1 of %@"_s);
    EXPECT_EQ(fillPlaceholders(u"%@"_s, {u"%@ %%"_s, u"more"_s}), u"%@ %%"_s);
    EXPECT_EQ(fillPlaceholders(u"%@%%%2$@ %1$@%"_s, {u"7"_s, u"8"_s}), u"7%8 7%"_s);
    EXPECT_EQ(fillPlaceholders(u"100 % @ %0$@ %5 %x"_s, {u"7"_s}), u"100 % @ %0$@ %5 %x"_s);
}

TEST_F(LocalizedStringsTest, CountsByTheLanguagesRule)
{
    EXPECT_EQ(m_strings.plural(u"n"_s, 1, u"9"_s), u"1 cat"_s);
    EXPECT_EQ(m_strings.plural(u"n"_s, 0, u"9"_s), u"0 cats of 9"_s);
    m_service.setLanguage(Language::fr);
    EXPECT_EQ(m_strings.plural(u"n"_s, 0), u"0 chat"_s);
    EXPECT_EQ(m_strings.plural(u"n"_s, 2), u"2 chats"_s);
}
