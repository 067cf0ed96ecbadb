#include "Platform/Freedesktop/AutostartLoginItem.h"
#include "Platform/Freedesktop/BusFindings.h"
#include "Platform/Freedesktop/FreedesktopNotificationCenter.h"
#include "Platform/Freedesktop/LogindWorkspacePower.h"
#include "Platform/Freedesktop/SessionMessageBus.h"
#include "Platform/Freedesktop/SilentBuses.h"
#include "Platform/Freedesktop/SoundThemes.h"
#include "Platform/Freedesktop/TimeZoneSignal.h"
#include "Platform/Freedesktop/WidgetSignal.h"
#include "Platform/Linux/BirthTime.h"
#include "Platform/Linux/BootTimeClock.h"
#include "Platform/Linux/FileExchange.h"
#include "Platform/Linux/PeerCredentials.h"
#include "Platform/Linux/ProcessMemory.h"
#include "Platform/Linux/TimerfdDayTimer.h"
#include "Platform/Sets/PosixPlatform.h"

namespace tomcatto {

namespace {

std::unique_ptr<DayTimer> makeDayTimer()
{
    auto timer = std::make_unique<TimerfdDayTimer>();
    new TimeZoneSignal(
        QDBusConnection::systemBus(), [timer = timer.get()] { Q_EMIT timer->fired(); }, timer.get());
    return timer;
}

}

std::unique_ptr<ApplicationPlatform> makeApplicationPlatform()
{
    useOneAllocatorArena();
    return std::make_unique<PosixPlatform>(PosixDifferences{
        .journalSocket = QByteArrayLiteral("/run/systemd/journal/socket"),
        .fileStatus = fileStatusWithBirth,
        .isPeerTrusted = isPeerTrusted,
        .makeDayTimer = makeDayTimer,
        .makeLoginItem = [] { return std::make_unique<AutostartLoginItem>(AutostartLoginItem::programAtLogin()); },
        .makeMonotonicClock = [] { return std::make_unique<BootTimeClock>(); },
        .makeWorkspacePower =
            [] {
                // The first of all that asks a bus.
                avoidSilentBuses();
                return std::make_unique<LogindWorkspacePower>(QDBusConnection::systemBus());
            },
        .makeWidgetCenter = [] { return std::make_unique<WidgetSignal>(QDBusConnection::sessionBus(), exchangeFile); },
        .makeNotificationCenter =
            [](MainRunLoop &runLoop) {
                return std::make_unique<FreedesktopNotificationCenter>(QDBusConnection::sessionBus(), runLoop);
            },
        .makeMessageBus =
            [](MainRunLoop &runLoop) {
                return std::make_unique<SessionMessageBus>(QDBusConnection::sessionBus(), runLoop,
                                                           giveBackUnusedMemory);
            },
        .findOwn = findOnBuses,
        .companions = {{QStringLiteral("tomcatto-calls"), QStringLiteral("calls"),
                        QStringLiteral("a break waits for no call without a camera")}},
        .findSystemSound = [](const QString &name) { return SoundThemes::ofSession().file(name); },
    });
}

}
