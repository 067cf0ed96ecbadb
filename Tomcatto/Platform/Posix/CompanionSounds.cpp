#include "Platform/Posix/CompanionSounds.h"

#include "Platform/Posix/CompanionProgram.h"

#include <QtCore/QProcess>
#include <utility>

namespace tomcatto {
namespace {

using namespace std::chrono_literals;

/// Longer than any sound of a phase and than a player's first look at what is installed.
constexpr auto longestPlay = 20s;
/// Somebody may plug in what was missing.
constexpr auto restAfterFailure = 10min;

}

class CompanionSounds::Sound final : public QObject, public SystemSound
{
public:
    explicit Sound(CompanionSounds &sounds)
        : m_sounds(sounds)
    {
    }
    Sound(const Sound &) = delete;
    Sound &operator=(const Sound &) = delete;
    ~Sound() override { stop(); }

    void setFile(const QString &file) { m_file = file; }
    [[nodiscard]] bool isPlaying() const override { return m_process != nullptr; }
    void stop() override
    {
        if (!m_process)
            return;
        m_limit = {};
        m_process->disconnect(this);
        endCompanion(std::exchange(m_process, nullptr));
    }
    /// Every player begins at the start.
    void rewind() override {}
    void play() override;

private:
    void end(const QString &problem);

    CompanionSounds &m_sounds;
    QString m_file;
    QProcess *m_process = nullptr;
    Cancellable m_limit;
};

void CompanionSounds::Sound::play()
{
    if (isPlaying() || m_file.endsWith(QLatin1String(".disabled")) || !m_sounds.m_nextTry.hasExpired())
        return;
    m_process = new QProcess;
    connect(m_process, &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart)
            end(m_sounds.m_player + QStringLiteral(" does not start"));
    });
    connect(m_process, &QProcess::finished, this, [this](int code, QProcess::ExitStatus status) {
        const bool isDone = code == 0 && status == QProcess::NormalExit;
        const QString said = QString::fromUtf8(m_process->readAllStandardOutput()).trimmed();
        end(isDone || !said.isEmpty() ? said : QStringLiteral("what plays them has ended"));
    });
    m_limit = m_sounds.m_runLoop.after(longestPlay, [this] {
        stop();
        m_sounds.fail(QStringLiteral("one does not come to its end"));
    });
    m_process->setStandardInputFile(QProcess::nullDevice());
    m_process->setStandardErrorFile(QProcess::nullDevice());
    m_process->start(m_sounds.m_player, {m_file}, QIODevice::ReadOnly);
}

void CompanionSounds::Sound::end(const QString &problem)
{
    m_limit = {};
    std::exchange(m_process, nullptr)->deleteLater();
    if (!problem.isEmpty())
        m_sounds.fail(problem);
}

CompanionSounds::CompanionSounds(QString player, Finder find, MainRunLoop &runLoop)
    : m_player(std::move(player))
    , m_find(std::move(find))
    , m_runLoop(runLoop)
{
}

CompanionSounds::~CompanionSounds() = default;

SystemSound *CompanionSounds::named(const QString &name)
{
    const QString file = m_find(name);
    if (file.isEmpty())
        return nullptr;
    auto &sound = m_sounds[name];
    if (!sound)
        sound = std::make_unique<Sound>(*this);
    sound->setFile(file);
    return sound.get();
}

void CompanionSounds::fail(const QString &reason)
{
    m_nextTry.setRemainingTime(restAfterFailure);
    if (!std::exchange(m_hasFailed, true))
        m_logger.error(QStringLiteral("sounds cannot be played: ") + reason);
}

}
