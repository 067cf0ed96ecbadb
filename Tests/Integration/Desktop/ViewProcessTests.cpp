#include "Fakes/CapturedLog.h"
#include "Platform/Qt/QtMainRunLoop.h"
#include "Platform/Views/ProcessViewHost.h"
#include "Platform/Views/ViewProcessInput.h"
#include "TestScreen.h"
#include "ViewWindows/ViewWindows.h"

#include <csignal>
#include <gmock/gmock.h>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QSizeF>
#include <QtCore/QStringListModel>

namespace tomcatto {
namespace {

using namespace Qt::StringLiterals;

/// Looks, texts and a model of a view in one, which keeps what the view notes.
class Model final : public QObject
{
    Q_OBJECT
    Q_PROPERTY(bool dark MEMBER isDark NOTIFY darkChanged)
    Q_PROPERTY(QString language MEMBER name NOTIFY nameChanged)
    Q_PROPERTY(QString name MEMBER name NOTIFY nameChanged)
    Q_PROPERTY(QVariantMap size MEMBER size CONSTANT)
    Q_PROPERTY(QObject *child MEMBER child CONSTANT)
    Q_PROPERTY(QAbstractItemModel *rows READ rows CONSTANT)

public:
    Q_INVOKABLE void appear() { ++shown; }
    Q_INVOKABLE void disappear() { --shown; }
    Q_INVOKABLE void note(const QString &text) { notes.append(text); }
    [[nodiscard]] QAbstractItemModel *rows() { return &list; }

    struct Rows final : QStringListModel
    {
        [[nodiscard]] QHash<int, QByteArray> roleNames() const override { return {{Qt::DisplayRole, "text"}}; }
    };

    bool isDark = true;
    QString name = u"first"_s;
    QVariantMap size{{u"width"_s, 7}};
    QObject *child = nullptr;
    Rows list;
    QStringList notes;
    int shown = 0;

Q_SIGNALS:
    void darkChanged();
    void nameChanged();
    void asked(const QString &question, int number);
};

class ViewProcessTest : public testing::Test
{
protected:
    ViewProcessTest() { model.child = &child; }

    [[nodiscard]] std::unique_ptr<ViewWindow> make(const QString &component = u"Echo"_s)
    {
        return windows.make({u"TestViews"_s, component, {{u"model"_s, QVariant::fromValue<QObject *>(&model)}}});
    }
    bool hears(const QString &note)
    {
        return QTest::qWaitFor([&] { return model.notes.contains(note); });
    }
    /// The processes of this test that run.
    static QList<int> processes()
    {
        QList<int> found;
        for (const QString &entry : QDir(u"/proc"_s).entryList(QDir::Dirs)) {
            QFile line(u"/proc/%1/cmdline"_s.arg(entry));
            QFile status(u"/proc/%1/stat"_s.arg(entry));
            if (!line.open(QIODevice::ReadOnly) || !line.readAll().startsWith(VIEWS_PROGRAM) ||
                !status.open(QIODevice::ReadOnly))
                continue;
            // After the name in brackets: the state and the parent.
            const QList<QByteArray> words = status.readAll().split(')').last().simplified().split(' ');
            if (words.value(1).toLongLong() == QCoreApplication::applicationPid())
                found.append(entry.toInt());
        }
        return found;
    }

    CapturedLog log;
    QtMainRunLoop runLoop;
    Model model;
    Model child;
    ViewProcess process{QStringLiteral(VIEWS_PROGRAM), runLoop};
    ProcessViewHost host{process, runLoop, model, model};
    ViewProcessKeys keys{process};
    ViewWindows windows{host, runLoop};
};

}

TEST_F(ViewProcessTest, ShowsWhatTheModelsSayAndCallsThem)
{
    const auto view = make();
    ASSERT_NE(view, nullptr) << host.problem().toStdString();
    EXPECT_TRUE(hears(u"made true first 7"_s));
    model.name = u"second"_s;
    Q_EMIT model.nameChanged();
    Q_EMIT model.asked(u"how many "_s, 3);
    EXPECT_TRUE(hears(u"how many 3"_s));
    EXPECT_TRUE(model.notes.contains(u"name second"_s)) << "in the order in which they happened";
    model.list.setStringList({u"a"_s, u"b"_s});
    EXPECT_TRUE(hears(u"row 1 b"_s));
    model.list.setData(model.list.index(0), u"c"_s);
    EXPECT_TRUE(hears(u"row 0 c"_s));
    model.list.insertRows(1, 1);
    model.list.removeRows(2, 1);
    EXPECT_TRUE(hears(u"gone b"_s));
    model.isDark = false;
    Q_EMIT model.darkChanged();
    EXPECT_TRUE(hears(u"dark false"_s));
    EXPECT_EQ(log.count(LogLevel::error), 0);
}

TEST_F(ViewProcessTest, TellsOfItsWindowsAndTheirKeys)
{
    QList<Qt::Key> pressed;
    const Cancellable watching =
        keys.onKeyDown(Qt::Key_Escape, [&](const KeyPress &press) { pressed.append(press.key); });
    const auto view = make();
    ASSERT_NE(view, nullptr);
    view->view().present();
    EXPECT_TRUE(QTest::qWaitFor([&] { return view->view().isActive(); }));
    view->view().place({40, 60, 120, 110});
    EXPECT_TRUE(QTest::qWaitFor([&] { return view->view().frame().size().width() >= 120; }));
    usePointer(QStringLiteral("key Escape"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return pressed.size() == 1; }));
    QPoint place;
    ApplicationClickMonitor clicks;
    followPresses(process, clicks);
    const Cancellable clicking = clicks.onPressed([&place](QPoint where) { place = where; });
    const QPoint middle = view->view().frame().center();
    usePointer(QStringLiteral("mousemove %1 %2 click 1").arg(middle.x()).arg(middle.y()));
    EXPECT_TRUE(QTest::qWaitFor([&] { return place == middle; }));
    int closed = 0;
    QObject::connect(view.get(), &ViewWindow::closed, [&closed] { ++closed; });
    usePointer(QStringLiteral("key alt+F4"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return closed == 1; }));
}

TEST_F(ViewProcessTest, LosesItsWindowsWithAProcessThatEndsAndMakesAnother)
{
    const auto first = make();
    ASSERT_NE(first, nullptr);
    int closed = 0;
    QObject::connect(first.get(), &ViewWindow::closed, [&closed] { ++closed; });
    ASSERT_EQ(processes().size(), 1);
    ::kill(processes().constFirst(), SIGKILL);
    EXPECT_TRUE(QTest::qWaitFor([&] { return closed == 1; }));
    EXPECT_EQ(model.shown, 0) << "what has appeared disappears with it";
    first->view().present();
    EXPECT_EQ(log.count(LogLevel::error), 1);
    model.notes.clear();
    const auto second = make();
    ASSERT_NE(second, nullptr);
    EXPECT_TRUE(hears(u"made true first 7"_s));

    // One that hangs is given up with the next view, which another one makes.
    ::kill(processes().constFirst(), SIGSTOP);
    EXPECT_NE(make(), nullptr);
    EXPECT_EQ(process.problem(), u""_s);
    EXPECT_EQ(log.count(LogLevel::error), 2);
    EXPECT_EQ(processes().size(), 1);
    EXPECT_EQ(make(u"Missing"_s), nullptr);
    EXPECT_FALSE(host.problem().isEmpty());
    EXPECT_EQ(closed, 1);
}

TEST_F(ViewProcessTest, SaysThatItIsNotThere)
{
    ViewProcess missing(u"/nonexistent"_s, runLoop);
    ProcessViewHost none(missing, runLoop, model, model);
    EXPECT_EQ(none.create({}), nullptr);
    EXPECT_THAT(none.problem().toStdString(), testing::HasSubstr("/nonexistent does not start"));
    EXPECT_EQ(ProcessViewHost::find({QStringLiteral(VIEWS_PROGRAM), u"/nonexistent"_s}).mark, Finding::Mark::failing);
    EXPECT_EQ(ProcessViewHost::find({QStringLiteral(VIEWS_PROGRAM)}).mark, Finding::Mark::there);
}

}

#include "ViewProcessTests.moc"
