#include "Appearance/AppearanceSettings.h"
#include "Appearance/Texts.h"
#include "Fakes/MainWindowFixture.h"

#include <QtQml/QQmlContext>
#include <QtQml/QQmlEngine>
#include <QtQuickTest/quicktest.h>

// Shows the real views on the real view models; the cases move the controls and look at the settings behind them.

namespace {

using namespace tomcatto;

/// What the cases see of the world behind the view models.
class World final : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QObject *window READ window CONSTANT FINAL)
    Q_PROPERTY(QObject *onboarding READ onboarding CONSTANT FINAL)

public:
    using QObject::QObject;

    [[nodiscard]] QObject &strings() { return m_fixture->strings; }
    [[nodiscard]] QObject *window() { return &m_fixture->window; }
    [[nodiscard]] QObject *onboarding() { return &m_fixture->onboarding; }

    /// The stored value of a setting, by its key.
    Q_INVOKABLE QVariant stored(const QString &key) const
    {
        const auto value = m_fixture->engine.defaults.storedValue(key);
        return value ? std::visit([](const auto &each) { return QVariant::fromValue(each); }, *value) : QVariant();
    }
    Q_INVOKABLE void setWorkSeconds(int seconds) { m_fixture->engine.settings.setWorkDurationSeconds(seconds); }
    Q_INVOKABLE void setRounds(int rounds) { m_fixture->engine.settings.setCyclesBeforeLongBreak(rounds); }
    Q_INVOKABLE void setSound(bool isOn) { m_fixture->engine.settings.setSoundEnabled(isOn); }
    Q_INVOKABLE void setTheme(int index) { m_fixture->general.chooseTheme(index); }
    Q_INVOKABLE void speakGerman() { m_fixture->languageService.setLanguage(SelectedLanguage::de); }
    Q_INVOKABLE void speakEnglish() { m_fixture->languageService.setLanguage(SelectedLanguage::en); }
    Q_INVOKABLE void failLaunchAtLogin() { m_fixture->loginItem.failure = QStringLiteral("refused"); }
    /// A focus phase that began so many days ago at this time.
    Q_INVOKABLE void addPhase(int daysAgo, int minutes)
    {
        const Date start = m_fixture->engine.wallClock.now() - Seconds(86400.0 * daysAgo + 60.0 * minutes);
        static_cast<void>(m_fixture->editor.add(start, minutes));
    }
    Q_INVOKABLE void moveTo(const QString &zone)
    {
        m_fixture->engine.wallClock.setCalendar({QTimeZone(zone.toUtf8()), Qt::Monday});
        m_fixture->engine.wallClock.announceDay();
    }
    Q_INVOKABLE int exports() const { return static_cast<int>(m_fixture->savePanel.requests.size()); }
    /// Focus phases of 25 minutes, one an hour, the last one an hour ago.
    Q_INVOKABLE void addPhases(int count)
    {
        for (int hour = 1; hour <= count; ++hour) {
            const Date start = m_fixture->engine.wallClock.now() - std::chrono::hours(hour);
            static_cast<void>(m_fixture->editor.add(start, 25));
        }
    }
    Q_INVOKABLE bool pressKey(int keyCode, int held) const
    {
        return m_fixture->keys.press(static_cast<quint16>(keyCode), KeyModifiers::fromInt(static_cast<quint32>(held)));
    }
    Q_INVOKABLE bool isSuspended() const { return m_fixture->shortcutsService.isSuspended(); }
    Q_INVOKABLE void offerHotKeys(bool isOn)
    {
        m_fixture->hotKeys.become(isOn ? HotKeySupport::works : HotKeySupport::none);
    }
    /// Whether anything tells of calls and of keys and pointer.
    Q_INVOKABLE void tell(bool isTold)
    {
        for (FakeFact *const fact : {&m_fixture->surroundings.call, &m_fixture->surroundings.idle})
            fact->become(isTold ? Fact::no : Fact::untold);
        m_fixture->engine.runLoop.drain();
    }
    Q_INVOKABLE bool isWatching() const { return m_fixture->surroundings.call.isWatched(); }
    Q_INVOKABLE int alerts() const { return static_cast<int>(m_fixture->alert.shown.size()); }

private:
    std::unique_ptr<MainWindowFixture> m_fixture = std::make_unique<MainWindowFixture>();
};

class Setup final : public QObject
{
    Q_OBJECT

public Q_SLOTS:
    void qmlEngineAvailable(QQmlEngine *engine)
    {
        // Both end with the engine; each file of cases has its own.
        auto *const world = new World(engine);
        auto *const appearance = new AppearanceSettings(engine);
        appearance->setReducedMotion(true);
        appearance->install(*engine);
        Texts::install(*engine, world->strings());
        engine->rootContext()->setContextProperty(QStringLiteral("world"), world);
    }
};

}

QUICK_TEST_MAIN_WITH_SETUP(mainwindow, Setup)
#include "MainWindowQmlTest.moc"
