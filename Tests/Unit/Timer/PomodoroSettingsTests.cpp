#include "Fakes/FakeUserDefaults.h"
#include "Timer/PomodoroSettings.h"
#include "Timer/SettingsCatalog.h"

#include <gtest/gtest.h>

using namespace tomcatto;

namespace {

QString text(const char *value)
{
    return QString::fromLatin1(value);
}

}

TEST(PomodoroSettings, FreshStoreGivesDefaultsAndClassic)
{
    FakeUserDefaults store;
    const PomodoroSettings settings(store);
    QStringList values;
    for (const SettingDescriptor &setting : settingDescriptors())
        values << setting.text(settings.value(setting.key));
    EXPECT_EQ(values.join(QLatin1Char(' ')).toStdString(),
              "1500 300 900 4 true true false 8 countdown true true false system bundled system false");
    EXPECT_EQ(settings.preset(), NamedPreset::classic);
    EXPECT_TRUE(store.stored.empty()) << "reading must not write";
}

TEST(PomodoroSettings, WrongTypesCountAsAbsent)
{
    FakeUserDefaults store;
    store.stored = {{text("workDurationSeconds"), text("1200")}, {text("shortBreakDurationSeconds"), true},
                    {text("longBreakDurationSeconds"), 600.0},   {text("cyclesBeforeLongBreak"), 1e300},
                    {text("overflowEnabled"), qint64{1}},        {text("soundEnabled"), text("false")},
                    {text("themePreference"), text("sepia")},    {text("menuBarStyle"), qint64{3}},
                    {text("selectedLanguage"), text("xx")},      {text("autoStartNextCycle"), text("no")}};
    const auto before = store.stored;
    const PomodoroSettings settings(store);
    EXPECT_EQ(settings.workDurationSeconds(), 1500);
    EXPECT_EQ(settings.shortBreakDurationSeconds(), 300);
    EXPECT_EQ(settings.longBreakDurationSeconds(), 600) << "a whole number written with a fraction is a number";
    EXPECT_EQ(settings.cyclesBeforeLongBreak(), 4);
    EXPECT_FALSE(settings.overflowEnabled());
    EXPECT_TRUE(settings.soundEnabled());
    EXPECT_EQ(settings.themePreference(), ThemePreference::system);
    EXPECT_EQ(settings.menuBarStyle(), MenuBarStyle::countdown);
    EXPECT_EQ(settings.selectedLanguage(), SelectedLanguage::system);
    EXPECT_TRUE(settings.autoStartBreaks());
    EXPECT_EQ(store.stored, before) << "nothing of it is migrated";
}

TEST(PomodoroSettings, MigratesTheSingleAutomaticStart)
{
    FakeUserDefaults store;
    store.stored = {{text("autoStartNextCycle"), false},
                    {text("menuBarPhaseColor"), text("red")},
                    {text("menuBarStyle"), text("ring")},
                    {text("autoStartFocus"), true}};
    store.argumentDomain = {{text("autoStartBreaks"), true}};
    const PomodoroSettings settings(store);
    EXPECT_TRUE(settings.autoStartBreaks()) << "given for this run";
    EXPECT_TRUE(settings.autoStartFocus()) << "its own key wins over the old one";
    EXPECT_EQ(settings.menuBarStyle(), MenuBarStyle::iconOnly);
    const std::map<QString, DefaultsValue> expected{
        {text("autoStartBreaks"), false}, {text("autoStartFocus"), true}, {text("menuBarStyle"), text("iconOnly")}};
    EXPECT_EQ(store.stored, expected);
}

TEST(PomodoroSettings, ChangesAreStoredAndAnnouncedAtOnce)
{
    FakeUserDefaults store;
    PomodoroSettings settings(store);
    settings.setThemePreference(ThemePreference::dark);
    EXPECT_EQ(store.stored.at(text("themePreference")), DefaultsValue(text("dark")));
    std::vector<std::pair<PomodoroSettings::Key, qint64>> seen;
    QObject::connect(&settings, &PomodoroSettings::changed, &settings, [&](PomodoroSettings::Key key) {
        seen.emplace_back(key, std::get<qint64>(store.stored.at(PomodoroSettings::keyText(key))));
    });
    settings.apply(NamedPreset::deep);
    using Key = PomodoroSettings::Key;
    const std::vector<std::pair<Key, qint64>> expected{
        {Key::workDurationSeconds, 3000}, {Key::shortBreakDurationSeconds, 600}, {Key::longBreakDurationSeconds, 1500}};
    EXPECT_EQ(seen, expected);
    EXPECT_EQ(settings.preset(), NamedPreset::deep);
    EXPECT_EQ(settings.cyclesBeforeLongBreak(), 4);
    settings.apply(NamedPreset::flow);
    settings.setLongBreakDurationSeconds(1500);
    EXPECT_EQ(settings.preset(), std::nullopt);
}

TEST(SettingsCatalog, TakesOnlyWhatTheControlsOffer)
{
    struct Case
    {
        const char *key;
        const char *value;
        bool isAllowed;
    };
    const Case cases[] = {
        {"workDurationSeconds", "1", true},    {"workDurationSeconds", "10800", true},
        {"workDurationSeconds", "0", false},   {"workDurationSeconds", "10801", false},
        {"workDurationSeconds", "5.5", false}, {"workDurationSeconds", "", false},
        {"cyclesBeforeLongBreak", "12", true}, {"cyclesBeforeLongBreak", "13", false},
        {"cyclesBeforeLongBreak", "0", false}, {"dailyGoalPomodoros", "24", true},
        {"dailyGoalPomodoros", "25", false},   {"soundEnabled", "true", true},
        {"soundEnabled", "1", false},          {"soundEnabled", "TRUE", false},
        {"menuBarStyle", "iconOnly", true},    {"menuBarStyle", "ring", false},
        {"selectedLanguage", "tr", true},      {"selectedLanguage", "it", false},
        {"themePreference", "dark", true},     {"workDurationSeconds", "99999999999999999999", false},
    };
    FakeUserDefaults store;
    PomodoroSettings settings(store);
    for (const Case &item : cases) {
        const SettingDescriptor *const setting = findSetting(text(item.key));
        ASSERT_NE(setting, nullptr) << item.key;
        const auto value = setting->parse(text(item.value));
        EXPECT_EQ(value.has_value(), item.isAllowed) << item.key << ' ' << item.value;
        if (value) {
            settings.setValue(setting->key, *value);
            EXPECT_EQ(setting->text(settings.value(setting->key)), text(item.value));
        }
    }
    EXPECT_EQ(findSetting(u"autoStartNextCycle"), nullptr);
}
