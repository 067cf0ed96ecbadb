#pragma once

#include "Foundation/Logger.h"
#include "Platform/Ports/MainRunLoop.h"
#include "Platform/Ports/SystemSounds.h"

#include <map>
#include <memory>
#include <QtCore/QDeadlineTimer>

namespace tomcatto {

/// Sounds that a companion plays, in a process for each that ends with it: what playing loads goes again, and an audio
/// server that hangs holds nobody up. Main thread only.
class CompanionSounds final : public SystemSounds
{
public:
    /// The file of a sound, one that ends on ".disabled" for silence; empty where there is none.
    using Finder = std::function<QString(const QString &name)>;

    /// @param player plays the one file that it is given and ends with 0; else it has written the reason.
    CompanionSounds(QString player, Finder find, MainRunLoop &runLoop);
    CompanionSounds(const CompanionSounds &) = delete;
    CompanionSounds &operator=(const CompanionSounds &) = delete;
    ~CompanionSounds() override;

    [[nodiscard]] SystemSound *named(const QString &name) override;

private:
    class Sound;

    void fail(const QString &reason);

    const QString m_player;
    const Finder m_find;
    MainRunLoop &m_runLoop;
    Logger m_logger{QStringLiteral("CompanionSounds")};
    bool m_hasFailed = false;
    /// Until then a machine that cannot play is not asked again.
    QDeadlineTimer m_nextTry;
    std::map<QString, std::unique_ptr<Sound>> m_sounds;
};

}
