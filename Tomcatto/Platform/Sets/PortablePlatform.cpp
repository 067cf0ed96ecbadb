#include "Platform/Posix/CheckingDayTimer.h"
#include "Platform/Posix/SteadyClock.h"
#include "Platform/Sets/PosixPlatform.h"

#include <filesystem>
#include <QtCore/QFile>

namespace tomcatto {

namespace {

/// Nothing here starts what the user wants at login.
class AbsentLoginItem final : public LoginItem
{
public:
    [[nodiscard]] LoginItemStatus status() const override { return LoginItemStatus::unavailable; }
    [[nodiscard]] std::expected<void, QString> registerItem() override
    {
        return std::unexpected(QStringLiteral("this build of Tomcatto cannot ask the system to open it at login"));
    }
    [[nodiscard]] std::expected<void, QString> unregisterItem() override { return {}; }
};

/// Nothing here hears of the machine's sleep.
class UnnoticedSleep final : public WorkspacePower
{
public:
    [[nodiscard]] bool tellsOfSleep() const override { return false; }
    [[nodiscard]] Cancellable onWillSleep(std::function<void()> /*handler*/) override { return {}; }
    [[nodiscard]] Cancellable onDidWake(std::function<void()> /*handler*/) override { return {}; }
    void setSleepDelayed(bool /*isDelayed*/) override {}
};

/// A terminal says by itself what changes.
class AbsentNotificationCenter final : public UserNotificationCenter
{
public:
    void setDelegate(UserNotificationCenterDelegate * /*delegate*/) override {}
    void setNotificationCategories(std::vector<NotificationCategory> /*categories*/) override {}
    void add(const NotificationRequest & /*request*/) override {}
    void removePendingRequests(const QStringList & /*identifiers*/) override {}
};

/// Other programs have the control socket.
class AbsentMessageBus final : public MessageBus
{
public:
    void offer(BusObject & /*object*/) override {}
    void withdraw() override {}
    void announceChange(const QVariantMap & /*properties*/) override {}
    void announce(const QString & /*signal*/, const QVariantList & /*arguments*/) override {}
};

/// Widgets here watch their file.
class AbsentWidgetCenter final : public WidgetCenter
{
public:
    [[nodiscard]] std::error_code replaceFile(const QString &part, const QString &file) override
    {
        std::error_code error;
        std::filesystem::rename(QFile(part).filesystemFileName(), QFile(file).filesystemFileName(), error);
        return error;
    }
    void reloadTimelines(const QString & /*kind*/, TimelineNews /*news*/) override {}
};

}

std::unique_ptr<ApplicationPlatform> makeApplicationPlatform()
{
    return std::make_unique<PosixPlatform>(PosixDifferences{
        .journalSocket = {},
        .makeDayTimer = [] { return std::make_unique<CheckingDayTimer>(); },
        .makeLoginItem = [] { return std::make_unique<AbsentLoginItem>(); },
        .makeMonotonicClock = [] { return std::make_unique<SteadyClock>(); },
        .makeWorkspacePower = [] { return std::make_unique<UnnoticedSleep>(); },
        .makeWidgetCenter = [] { return std::make_unique<AbsentWidgetCenter>(); },
        .makeNotificationCenter = [](MainRunLoop &) { return std::make_unique<AbsentNotificationCenter>(); },
        .makeMessageBus = [](MainRunLoop &) { return std::make_unique<AbsentMessageBus>(); },
    });
}

}
