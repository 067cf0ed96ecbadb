#include "Appearance/AppearanceSettings.h"
#include "Appearance/Texts.h"
#include "Fakes/MainWindowFixture.h"
#include "Media/BundledVideoProvider.h"
#include "Persistence/Repositories/SessionImport.h"
#include "pictures/SampleHistory.h"

#include <algorithm>
#include <QtCore/QCommandLineParser>
#include <QtCore/QDir>
#include <QtCore/QTimer>
#include <QtGui/QGuiApplication>
#include <QtQml/QQmlComponent>
#include <QtQml/QQmlEngine>
#include <QtQuick/QQuickWindow>

// Writes pictures of every page of the main window and every step of onboarding, to be looked at.

namespace {

using namespace tomcatto;

struct Variant
{
    QString name = {};
    SelectedLanguage language = SelectedLanguage::en;
    bool dark = false;
    qreal textScale = 1;
    QSize size = {};
    bool highContrast = false;
    /// How far back the history goes in days; none where it is negative.
    int days = 110;
    /// What tells of the surroundings; while anything does, all good manners are turned on.
    std::optional<Fact> surroundings = {};
};

class Studio
{
public:
    explicit Studio(const Variant &variant)
        : m_variant(variant)
        , m_fixture(variant.language)
    {
        m_fixture.probe.current = {variant.language == SelectedLanguage::de ? NotificationPermission::denied
                                                                            : NotificationPermission::authorised,
                                   true};
        m_fixture.onboarding.setCapabilities({.showsPill = true});
        addVideos();
        addHistory();
        if (variant.surroundings)
            addManners(*variant.surroundings);
        m_appearance.setDark(variant.dark);
        m_appearance.setReducedMotion(true);
        m_appearance.setTextScale(variant.textScale);
        m_appearance.setHighContrast(variant.highContrast);
        m_appearance.install(m_engine);
        Texts::install(m_engine, m_fixture.strings);
    }

    bool grab(const QString &component, QObject &viewModel, const QString &name, const QDir &folder)
    {
        QQmlComponent maker(
            &m_engine, QUrl(QStringLiteral("qrc:/qt-project.org/imports/Tomcatto/MainWindow/%1.qml").arg(component)));
        const std::unique_ptr<QObject> object(maker.createWithInitialProperties(
            {{QStringLiteral("viewModel"), QVariant::fromValue<QObject *>(&viewModel)}}));
        auto *const window = qobject_cast<QQuickWindow *>(object.get());
        if (window == nullptr) {
            qCritical() << maker.errorString();
            return false;
        }
        if (m_variant.size.isValid())
            window->resize(m_variant.size);
        window->show();
        settle(250);
        if (name == QStringLiteral("window-videos"))
            disturbVideos();
        return window->grabWindow().save(
            folder.filePath(name + QLatin1Char('-') + m_variant.name + QStringLiteral(".png")));
    }

    bool grabAll(const QDir &folder)
    {
        bool isComplete = true;
        for (const MainWindowPage page : mainWindowPages) {
            m_fixture.window.show(page);
            isComplete = grab(QStringLiteral("MainWindow"), m_fixture.window,
                              QStringLiteral("window-") + rawValue(page), folder) &&
                         isComplete;
        }
        m_fixture.onboarding.restart();
        m_fixture.probe.current.permission = NotificationPermission::notDetermined;
        m_fixture.authorization.refresh();
        for (int step = 0; step < m_fixture.onboarding.stepCount(); ++step) {
            isComplete = grab(QStringLiteral("OnboardingWindow"), m_fixture.onboarding,
                              QStringLiteral("onboarding-%1").arg(step + 1), folder) &&
                         isComplete;
            m_fixture.onboarding.next();
        }
        return isComplete;
    }

private:
    /// Over all time where it is a long one.
    void addHistory()
    {
        // Tuesday 18 November 2025, 14:30.
        m_fixture.engine.wallClock.setNow(dateFromSeconds(1'763'476'200));
        if (m_variant.days >= 0)
            addPhases();
        if (m_variant.days > 365)
            m_fixture.statistics.statistics()->selectRange(3);
        m_fixture.engine.settings.setDailyGoalPomodoros(8);
    }

    void addPhases()
    {
        std::vector<ImportedSession> sessions;
        for (const CompletedWorkStamp &stamp : samplePhases(m_fixture.engine.wallClock.now(), m_variant.days))
            sessions.push_back({static_cast<qint64>(secondsSince1970(stamp.startedAt)),
                                static_cast<qint32>(stamp.actualSeconds), PomodoroPhase::working,
                                SessionEnding::completed});
        std::ranges::reverse(sessions);
        if (!importSessions(m_fixture.library.stack, std::move(sessions), m_fixture.engine.identifiers.next()))
            qCritical("The history of the pictures cannot be written.");
    }

    /// Disks and views take time of their own; the page's passes with it.
    void settle(int milliseconds)
    {
        constexpr int step = 10;
        for (int passed = 0; passed < milliseconds; passed += step) {
            QEventLoop loop;
            QTimer::singleShot(step, &loop, &QEventLoop::quit);
            loop.exec();
            m_fixture.engine.runLoop.drain();
            m_fixture.library.runLoop.advance(std::chrono::milliseconds(step), [](auto) {});
        }
    }

    void addManners(Fact fact)
    {
        using Key = MannersSettings::Key;
        for (FakeFact *const each : {&m_fixture.surroundings.call, &m_fixture.surroundings.fullScreen,
                                     &m_fixture.surroundings.lock, &m_fixture.surroundings.idle})
            each->become(fact);
        if (fact == Fact::untold)
            return;
        for (const Key key : {Key::waitsDuringCalls, Key::waitsInFullScreen, Key::pausesWhenAway, Key::finishesSentence,
                              Key::saysWordBefore})
            m_fixture.mannersSettings.setValue(key, 1);
    }

    // A removal that can be undone, and a refusal.
    void disturbVideos()
    {
        m_fixture.videos.remove(m_fixture.videos.own()->rows().back().id);
        settle(150);
        m_fixture.videos.addFiles({QUrl::fromLocalFile(m_fixture.library.folder.path())});
        settle(250);
    }

    // Three, the first one ticked, the file of the last one gone.
    void addVideos()
    {
        VideosFixture &library = m_fixture.library;
        const QString included = QStringLiteral(TOMCATTO_INCLUDED_VIDEOS);
        library.bundled.videos = BundledVideoProvider(included).candidates();
        int number = 0;
        for (const char *const name :
             {"Mio at the window.mp4", "Moving day.mp4", "A day at the lake with the cats.mov"}) {
            const QString path = library.folder.filePath(QString::fromLatin1(name));
            const LocalVideoCandidate &model = library.bundled.videos.at(static_cast<std::size_t>(++number));
            QFile::copy(included + QStringLiteral("/posters/%1.jpg").arg(model.identifier), path);
            const QUuid id = library.repository.addVideo(QUrl::fromLocalFile(path));
            settle(150);
            if (number == 1)
                library.repository.setSelected(id, true);
            if (number == 3)
                QFile::remove(path);
        }
    }

    Variant m_variant;
    MainWindowFixture m_fixture;
    AppearanceSettings m_appearance{nullptr};
    QQmlEngine m_engine;
};

}

int main(int argc, char **argv)
{
    QGuiApplication application(argc, argv);
    QCommandLineParser parser;
    parser.addHelpOption();
    parser.addPositionalArgument(QStringLiteral("folder"), QStringLiteral("Where the pictures go."));
    parser.addPositionalArgument(QStringLiteral("variants"), QStringLiteral("Their names; none for all."));
    parser.process(application);
    QStringList wanted = parser.positionalArguments();
    if (wanted.isEmpty())
        parser.showHelp(2);
    const QDir folder(wanted.takeFirst());

    const std::vector<Variant> variants{
        {QStringLiteral("light")},
        {.name = QStringLiteral("dark"), .dark = true},
        {.name = QStringLiteral("german"), .language = SelectedLanguage::de},
        {.name = QStringLiteral("french"), .language = SelectedLanguage::fr},
        {.name = QStringLiteral("large"), .language = SelectedLanguage::fr, .textScale = 2},
        {.name = QStringLiteral("small"), .language = SelectedLanguage::fr, .textScale = 2, .size = QSize(720, 520)},
        {.name = QStringLiteral("contrast"), .highContrast = true},
        {.name = QStringLiteral("turkish"), .language = SelectedLanguage::tr, .size = QSize(720, 520)},
        {.name = QStringLiteral("empty"), .days = -1},
        {.name = QStringLiteral("alltime"), .days = 3400},
        {.name = QStringLiteral("manners"), .surroundings = Fact::no},
        {.name = QStringLiteral("manners-large"),
         .language = SelectedLanguage::de,
         .textScale = 2,
         .size = QSize(720, 1600),
         .surroundings = Fact::no},
        {.name = QStringLiteral("untold"), .dark = true, .surroundings = Fact::untold},
    };
    bool isComplete = true;
    for (const Variant &variant : variants) {
        if (wanted.isEmpty() || wanted.contains(variant.name))
            isComplete = Studio(variant).grabAll(folder) && isComplete;
    }
    return isComplete ? 0 : 1;
}
