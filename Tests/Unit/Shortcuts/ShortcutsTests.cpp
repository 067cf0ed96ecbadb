#include "Composition/ShortcutCommands.h"
#include "Fakes/CapturedLog.h"
#include "Fakes/FakeHotKeys.h"
#include "Fakes/FakeStatusItem.h"
#include "Fakes/FakeUserDefaults.h"
#include "Shortcuts/KeyComboFormatter.h"
#include "Shortcuts/ShortcutRecorderModel.h"
#include "Shortcuts/ShortcutValidation.h"

#include <gtest/gtest.h>

namespace tomcatto {

namespace {

constexpr KeyModifiers command = KeyModifier::command;
constexpr KeyModifiers control = KeyModifier::control;
constexpr KeyModifiers option = KeyModifier::option;
constexpr KeyModifiers shift = KeyModifier::shift;

class Shortcuts : public testing::Test
{
protected:
    void store(const char *json) { defaults.setValue(QStringLiteral("globalShortcuts"), QByteArray(json)); }
    [[nodiscard]] QByteArray stored() const
    {
        const auto value = defaults.storedValue(QStringLiteral("globalShortcuts"));
        return value ? std::get<QByteArray>(*value) : QByteArray();
    }
    /// As the application's start does.
    void attach()
    {
        service.attach(std::make_unique<GlobalHotkeyController>(
            hotKeys, strings, [this](ShortcutAction action) { pressed << rawValue(action); }));
    }
    [[nodiscard]] std::pair<ExitStatus, QString> run(const char *action, const char *shortcut, const QString &keys = {})
    {
        CommandTable table;
        addShortcutCommands(table, {service, strings, defaults, &hotKeys, {}});
        std::pair<ExitStatus, QString> outcome;
        table.run(QStringLiteral("shortcuts"),
                  {{"action", action}, {"shortcut", shortcut}, {"combination", keys.toStdString()}},
                  [&](const ControlReply &reply) {
                      outcome = {reply.status, reply.message};
                  });
        return outcome;
    }

    FakeUserDefaults defaults;
    FakeHotKeys hotKeys;
    LanguageOverrideService languages{defaults, {QStringLiteral("en")}};
    LocalizedStrings strings{languages};
    QStringList pressed;
    ShortcutsService service{defaults};
};

}

TEST_F(Shortcuts, CombinationsAreValidatedInOrder)
{
    using Kind = ShortcutValidation::Result::Kind;
    struct Case
    {
        quint16 keyCode;
        KeyModifiers modifiers;
        Kind kind;
        const char *name = "";
    };
    const Case cases[] = {
        {49, command, Kind::reserved, "spotlight"},
        {49, command | option, Kind::reserved, "finder_search"},
        {49, command | option | shift, Kind::ok},
        {49, command | shift, Kind::standard},
        {49, control, Kind::ok},
        {48, command, Kind::reserved, "app_switcher"},
        {12, command | control, Kind::reserved, "lock_screen"},
        {12, control, Kind::ok},
        {20, command | shift, Kind::reserved, "screenshot"},
        {124, control, Kind::reserved, "space_right"},
        {124, control | option, Kind::ok},
        {40, command, Kind::standard},
        {40, command | option, Kind::ok},
        {96, command, Kind::ok},
        {90, command | shift, Kind::ok},
        {96, shift, Kind::invalid},
        {40, option | shift, Kind::invalid},
        {40, {}, Kind::invalid},
    };
    for (const Case &item : cases) {
        const auto result = ShortcutValidation::validate(KeyCombo(item.keyCode, item.modifiers));
        EXPECT_EQ(result.kind, item.kind) << item.keyCode << ' ' << item.modifiers.toInt();
        EXPECT_EQ(result.reservedName, QString::fromLatin1(item.name));
    }
    constexpr quint32 capsLockAndMore = 0x10000 | 0x800000 | 0x100 | 0x40000;
    EXPECT_EQ(KeyCombo(49, KeyModifiers::fromInt(capsLockAndMore)), KeyCombo(49, control));
}

TEST_F(Shortcuts, CombinationsAreShownAndRead)
{
    EXPECT_EQ(KeyComboFormatter::string(KeyCombo(49, command | shift | option | control), strings),
              QStringLiteral("⌃⌥⇧⌘Space"));
    languages.setLanguage(SelectedLanguage::de);
    for (const auto &[keyCode, text] :
         {std::pair(49, "⌃Leertaste"), std::pair(96, "⌃F5"), std::pair(6, "⌃Z"), std::pair(200, "⌃Taste 200")})
        EXPECT_EQ(KeyComboFormatter::string(KeyCombo(static_cast<quint16>(keyCode), control), strings),
                  QString::fromUtf8(text));
    for (const auto &[text, combo] : {
             std::pair("control+alt+space", KeyCombo(49, control | option)),
             std::pair(" Ctrl + OPTION + Page Up ", KeyCombo(116, control | option)),
             std::pair("⌃⌥Space", KeyCombo(49, control | option)),
             std::pair("⌘ + ⇧ + p", KeyCombo(35, command | shift)),
             std::pair("super+-", KeyCombo(27, command)),
             std::pair("⌃←", KeyCombo(123, control)),
             std::pair("cmd+key200", KeyCombo(200, command)),
             std::pair("f5", KeyCombo(96, {})),
         })
        EXPECT_EQ(KeyComboFormatter::parsed(QString::fromUtf8(text)), combo) << text;
    for (const char *const text : {"", "+", "control", "control+", "control+nothing", "control++space", "hyper+space",
                                   "control+space+alt", "⌃", "key70000", "control+a b"})
        EXPECT_FALSE(KeyComboFormatter::parsed(QString::fromUtf8(text))) << text;
    for (int keyCode = 0; keyCode < 256; ++keyCode) {
        const KeyCombo combo(static_cast<quint16>(keyCode), control | command);
        EXPECT_EQ(KeyComboFormatter::parsed(KeyComboFormatter::words(combo)), combo) << keyCode;
        EXPECT_FALSE(KeyComboFormatter::string(combo, strings).contains(QStringLiteral("shortcut."))) << keyCode;
    }
}

TEST_F(Shortcuts, StoredBindingsAreReadAsFarAsTheyCanBe)
{
    struct Case
    {
        const char *json;
        std::optional<KeyCombo> skip;
    };
    const Case cases[] = {
        {R"({"skip": {"keyCode": 35, "modifierFlags": 786432}})", KeyCombo(35, control | option)},
        {R"({"other": 5, "skip": {"keyCode": 35, "modifierFlags": 851968, "more": 1}})",
         KeyCombo(35, control | option)},
        {R"({"skip": {"keyCode": 35, "modifierFlags": 262144}, "extend": {"keyCode": 65536, "modifierFlags": 0}})", {}},
        {R"({"skip": {"keyCode": -1, "modifierFlags": 262144}})", {}},
        {R"({"skip": {"keyCode": "35", "modifierFlags": 262144}})", {}},
        {R"({"skip": {"keyCode": 35}})", {}},
        {R"([1])", {}},
        {R"({"skip": )", {}},
    };
    for (const Case &item : cases) {
        store(item.json);
        const ShortcutsService loaded(defaults);
        EXPECT_EQ(loaded.binding(ShortcutAction::skip), item.skip) << item.json;
        EXPECT_FALSE(loaded.binding(ShortcutAction::extend)) << item.json;
    }
    service.setBinding(ShortcutAction::extend, KeyCombo(14, control | option));
    EXPECT_EQ(stored(), R"({"extend":{"keyCode":14,"modifierFlags":786432}})") << "the whole object is written";
    service.clearBinding(ShortcutAction::extend);
    EXPECT_EQ(stored(), "{}");
}

TEST_F(Shortcuts, WhatIsBoundIsRegisteredAndActs)
{
    const CapturedLog log;
    attach();
    EXPECT_TRUE(hotKeys.held.empty()) << "nothing is bound at first";
    const KeyCombo combo(49, control | option);
    service.setBinding(ShortcutAction::toggleTimer, combo);
    hotKeys.press(49, control | option);
    EXPECT_EQ(pressed, QStringList(QStringLiteral("toggleTimer")));

    service.setBinding(ShortcutAction::skip, combo);
    EXPECT_TRUE(service.isUnavailable(ShortcutAction::skip)) << "one combination has one action";
    EXPECT_FALSE(service.isUnavailable(ShortcutAction::toggleTimer));
    EXPECT_EQ(log.lastMessage(),
              QStringLiteral("Could not register the skip shortcut (status 10) - most likely another "
                             "app holds it"));
    service.clearBinding(ShortcutAction::toggleTimer);
    EXPECT_FALSE(service.isUnavailable(ShortcutAction::skip)) << "any change tries again";
    hotKeys.press(49, control | option);
    EXPECT_EQ(pressed.last(), QStringLiteral("skip"));
    service.setBinding(ShortcutAction::toggleTimer, combo);
    service.setBinding(ShortcutAction::skip, KeyCombo(35, control));
    EXPECT_FALSE(service.isUnavailable(ShortcutAction::toggleTimer)) << "it can have what another one gives up";
    service.clearBinding(ShortcutAction::toggleTimer);

    service.suspend();
    EXPECT_TRUE(hotKeys.held.empty());
    service.setBinding(ShortcutAction::extend, KeyCombo(14, control));
    EXPECT_TRUE(hotKeys.held.empty()) << "not before the recording is over";
    service.resume();
    EXPECT_EQ(hotKeys.held.size(), 2U);

    hotKeys.delegate->hotKeyAvailabilityChanged(hotKeys.held.at({14, control.toInt()}), false);
    EXPECT_TRUE(service.isUnavailable(ShortcutAction::extend)) << "a desktop may refuse later";
    hotKeys.delegate->hotKeyAvailabilityChanged(hotKeys.held.at({14, control.toInt()}), true);
    EXPECT_FALSE(service.isUnavailable(ShortcutAction::extend));
    hotKeys.delegate->hotKeyPressed({0x12345678, 1});
    EXPECT_EQ(pressed.size(), 2) << "another one's identifier";
}

TEST_F(Shortcuts, RecordingTakesTheFirstCombinationThatServes)
{
    FakeKeyMonitor keys;
    ManualClickMonitor clicks;
    ShortcutRecorderModel recorder(keys, clicks, strings);
    std::vector<KeyCombo> captured;
    const auto record = [&] { recorder.start([&](const KeyCombo &combo) { captured.push_back(combo); }); };
    record();
    for (const auto &[keyCode, held, refusal] :
         {std::tuple(40, shift, "Hold ⌃ or ⌘ with the key."),
          std::tuple(49, command, "Taken by Spotlight. Try another combination."),
          std::tuple(8, command, "Applications use these keys themselves. Try another combination.")}) {
        EXPECT_TRUE(keys.press(static_cast<quint16>(keyCode), held)) << "no window gets it";
        EXPECT_EQ(recorder.refusal(), QString::fromUtf8(refusal));
    }
    EXPECT_TRUE(keys.press(Qt::Key_Control));
    EXPECT_TRUE(keys.press({Qt::Key_Space, Qt::NoModifier, 49, control, true})) << "held since before";
    EXPECT_TRUE(recorder.isRecording());
    keys.press(53, control);
    EXPECT_FALSE(recorder.isRecording()) << "Esc ends it, whatever is held";
    EXPECT_FALSE(keys.handler || clicks.press);
    record();
    EXPECT_EQ(recorder.refusal(), QString());
    clicks.press({});
    EXPECT_FALSE(recorder.isRecording());
    EXPECT_TRUE(captured.empty());
    record();
    keys.press(49, control | option);
    EXPECT_EQ(captured, std::vector{KeyCombo(49, control | option)});
    EXPECT_FALSE(recorder.isRecording());
}

TEST_F(Shortcuts, CommandsRefuseWhatThePageRefuses)
{
    attach();
    struct Case
    {
        const char *shortcut;
        const char *keys;
        ExitStatus status;
        const char *message;
    };
    hotKeys.taken = {2, control.toInt()};
    const Case cases[] = {
        {"skip", "control+alt+space", ExitStatus::done, ""},
        {"skip", "⌘Space", ExitStatus::usage, "⌘Space is taken by Spotlight. Try another combination."},
        {"skip", "super+c", ExitStatus::usage, "Applications use these keys themselves. Try another combination."},
        {"skip", "alt+c", ExitStatus::usage, "Hold ⌃ or ⌘ with the key."},
        {"skip", "nothing", ExitStatus::usage, "\"nothing\" is not a combination of keys such as control+alt+space"},
        {"reset", "control+c", ExitStatus::usage, "Unknown action \"reset\"; use toggleTimer, skip or extend"},
        {"extend", "control+d", ExitStatus::notApplicable,
         "The shortcut is stored, but does not work now. Another application holds these keys."},
    };
    for (const Case &item : cases)
        EXPECT_EQ(run("set", item.shortcut, QString::fromUtf8(item.keys)),
                  std::pair(item.status, QString::fromUtf8(item.message)));
    EXPECT_EQ(service.binding(ShortcutAction::skip), KeyCombo(49, control | option));
    EXPECT_EQ(service.binding(ShortcutAction::extend), KeyCombo(2, control));
    hotKeys.become(HotKeySupport::none);
    EXPECT_EQ(run("set", "skip", QStringLiteral("control+p")).first, ExitStatus::notApplicable);
    EXPECT_EQ(run("clear", "skip").first, ExitStatus::done);
    EXPECT_FALSE(service.binding(ShortcutAction::skip));
}

}
