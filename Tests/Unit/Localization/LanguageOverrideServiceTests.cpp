#include "Fakes/FakeUserDefaults.h"
#include "Localization/LanguageOverrideService.h"

#include <gtest/gtest.h>
#include <QtTest/QSignalSpy>

using namespace Qt::StringLiterals;
using namespace tomcatto;
using Language = SelectedLanguage;

TEST(LanguageOverrideService, ReadsStoredChoice)
{
    const std::pair<DefaultsValue, Language> cases[] = {
        {u"tr"_s, Language::tr},     {u"system"_s, Language::system}, {u"TR"_s, Language::system},
        {u"it"_s, Language::system}, {qint64{2}, Language::system},
    };
    FakeUserDefaults defaults;
    const LanguageOverrideService service(defaults, {});
    EXPECT_EQ(service.currentLanguage(), Language::system);
    for (const auto &[stored, expected] : cases) {
        defaults.setValue(u"selectedLanguage"_s, stored);
        EXPECT_EQ(service.currentLanguage(), expected);
    }
}

TEST(LanguageOverrideService, AnnouncesEachNewChoiceOnce)
{
    FakeUserDefaults defaults;
    LanguageOverrideService service(defaults, {u"fr"_s});
    const QSignalSpy spy(&service, &LanguageOverrideService::languageDidChange);
    for (int i = 0; i < 2; ++i) {
        service.setLanguage(Language::de);
        EXPECT_EQ(spy.count(), 1);
        EXPECT_EQ(service.resolvedLanguage(), Language::de);
    }
    // Somebody else stores the choice before the service hears of it.
    defaults.setValue(u"selectedLanguage"_s, u"es"_s);
    service.setLanguage(Language::es);
    EXPECT_EQ(spy.count(), 2);
    service.setLanguage(Language::system);
    EXPECT_EQ(spy.count(), 3);
    EXPECT_EQ(defaults.stored.at(u"selectedLanguage"_s), DefaultsValue(u"system"_s));
    EXPECT_EQ(service.resolvedLanguage(), Language::fr);
}

TEST(LanguageOverrideService, ChoiceForThisRunStaysInForce)
{
    FakeUserDefaults defaults;
    defaults.argumentDomain.insert_or_assign(u"selectedLanguage"_s, u"tr"_s);
    LanguageOverrideService service(defaults, {});
    const QSignalSpy spy(&service, &LanguageOverrideService::languageDidChange);
    service.setLanguage(Language::de);
    EXPECT_EQ(spy.count(), 0);
    EXPECT_EQ(service.resolvedLanguage(), Language::tr);
    EXPECT_EQ(defaults.stored.at(u"selectedLanguage"_s), DefaultsValue(u"de"_s));
}

TEST(LanguageOverrideService, SystemMeansItsFirstLanguageThatThereIs)
{
    const std::pair<const char *, QString> cases[] = {
        {"", u"en"_s},
        {"C POSIX", u"en"_s},
        {"de", u"de"_s},
        {"it-IT fr-CA de", u"fr"_s},
        {"den es@x", u"es"_s},
        {"system tr", u"tr"_s},
        {"TR_tr.UTF-8@e", u"tr"_s},
    };
    FakeUserDefaults defaults;
    for (const auto &[tags, expected] : cases) {
        const LanguageOverrideService service(defaults, QString::fromLatin1(tags).split(u' '));
        EXPECT_EQ(rawValue(service.resolvedLanguage()), expected) << tags;
        EXPECT_EQ(service.locale().name().left(2), expected) << tags;
    }
    const QByteArray all = qgetenv("LC_ALL");
    const QByteArray lang = qgetenv("LANG");
    qputenv("LC_ALL", "C");
    qputenv("LANG", "es_MX.UTF-8");
    EXPECT_EQ(LanguageOverrideService(defaults).resolvedLanguage(), Language::en);
    qputenv("LC_ALL", all);
    qputenv("LANG", lang);
    const QByteArray before = qgetenv("LANGUAGE");
    qputenv("LANGUAGE", "it:fr_CH:tr");
    EXPECT_EQ(LanguageOverrideService(defaults).resolvedLanguage(), Language::fr);
    qputenv("LANGUAGE", before);
}
