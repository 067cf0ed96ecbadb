#include "Fakes/ManualRunLoop.h"
#include "Platform/Posix/CompanionFact.h"
#include "Platform/PulseAudio/ServerComing.h"

#include <gmock/gmock.h>
#include <pulse/mainloop.h>
#include <pulse/timeval.h>
#include <QtCore/QDir>
#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

using namespace tomcatto;
using enum Fact;

namespace {

/// What the companion tells of a sound server that the test starts, on devices that are none.
class Calls : public testing::Test
{
protected:
    Calls()
    {
        qunsetenv("PULSE_RUNTIME_PATH");
        qunsetenv("PULSE_SERVER");
        qputenv("XDG_RUNTIME_DIR", m_folder.path().toUtf8());
        m_watch = m_companion.watch([this](Fact fact) { m_told.push_back(fact); });
    }
    ~Calls() override
    {
        for (QProcess *process : {&m_recorder, &m_listener, &m_server})
            stop(*process);
    }

    void serve()
    {
        m_server.start(QStringLiteral("pulseaudio"),
                       {QStringLiteral("-n"), QStringLiteral("--daemonize=no"), QStringLiteral("--use-pid-file=no"),
                        QStringLiteral("--exit-idle-time=-1"), QStringLiteral("--disable-shm=yes"),
                        QStringLiteral("-Lmodule-null-sink sink_name=speaker"),
                        QStringLiteral("-Lmodule-null-source source_name=microphone"),
                        QStringLiteral("-Lmodule-loopback source=microphone sink=speaker"),
                        QStringLiteral("-Lmodule-native-protocol-unix")});
    }
    static void record(QProcess &process, const char *source)
    {
        process.start(QStringLiteral("parec"), {QStringLiteral("--device"), QLatin1String(source)});
        EXPECT_TRUE(process.waitForReadyRead());
    }
    static void stop(QProcess &process)
    {
        process.kill();
        process.waitForFinished();
    }
    [[nodiscard]] bool isTold(const std::vector<Fact> &facts)
    {
        return QTest::qWaitFor([&] { return m_told.size() >= facts.size(); }, 20'000) && m_told == facts;
    }

    QProcess m_server;
    QProcess m_listener;
    QProcess m_recorder;
    std::vector<Fact> m_told;

private:
    QTemporaryDir m_folder;
    ManualRunLoop m_runLoop;
    CompanionFact m_companion{QStringLiteral(TOMCATTO_CALLS), m_runLoop};
    Cancellable m_watch;
};

}

TEST_F(Calls, AreToldOfMicrophonesAloneAndOfEveryServerThatComes)
{
    EXPECT_TRUE(isTold({untold}));
    serve();
    EXPECT_TRUE(isTold({untold, no}));
    record(m_listener, "speaker.monitor");
    record(m_recorder, "microphone");
    EXPECT_TRUE(isTold({untold, no, yes}));
    stop(m_recorder);
    EXPECT_TRUE(isTold({untold, no, yes, no})) << "what is played is not a call";
    record(m_recorder, "microphone");
    EXPECT_TRUE(isTold({untold, no, yes, no, yes}));
    stop(m_server);
    EXPECT_TRUE(isTold({untold, no, yes, no, yes, untold}));
    serve();
    EXPECT_TRUE(isTold({untold, no, yes, no, yes, untold, no}));
}

TEST(ServerComing, IsToldOfTheFolderAndOfTheSocketAndOfNothingElse)
{
    const QTemporaryDir folder;
    qputenv("PULSE_RUNTIME_PATH", folder.filePath(QStringLiteral("pulse")).toUtf8());
    const std::unique_ptr<pa_mainloop, void (*)(pa_mainloop *)> loop(pa_mainloop_new(), pa_mainloop_free);
    int times = 0;
    const auto news = [&](const char *made) {
        EXPECT_TRUE(QDir(folder.path()).mkdir(QLatin1String(made)));
        pa_mainloop_prepare(loop.get(), 20 * static_cast<int>(PA_USEC_PER_SEC));
        EXPECT_GT(pa_mainloop_poll(loop.get()), 0);
        pa_mainloop_dispatch(loop.get());
        return std::exchange(times, 0);
    };
    const tomcatto::ServerComing coming(*pa_mainloop_get_api(loop.get()), [&times] { ++times; });
    EXPECT_EQ(news("other"), 0);
    EXPECT_EQ(news("pulse"), 1);
    EXPECT_EQ(news("pulse/pid"), 0);
    EXPECT_EQ(news("pulse/native"), 1);
}
