#pragma once

#include "Platform/Ports/ActivationPolicyPort.h"
#include "Platform/Ports/Alert.h"
#include "Platform/Ports/LoginItem.h"
#include "Platform/Ports/NotificationProbe.h"
#include "Platform/Ports/SavePanel.h"
#include "Platform/Ports/SystemSettings.h"

#include <vector>

namespace tomcatto {

/// A login item that a test can let fail.
class FakeLoginItem final : public LoginItem
{
public:
    [[nodiscard]] LoginItemStatus status() const override { return current; }
    [[nodiscard]] std::expected<void, QString> registerItem() override { return become(afterRegister); }
    [[nodiscard]] std::expected<void, QString> unregisterItem() override
    {
        return become(LoginItemStatus::notRegistered);
    }

    LoginItemStatus current = LoginItemStatus::notRegistered;
    LoginItemStatus afterRegister = LoginItemStatus::enabled;
    QString failure;
    int calls = 0;

private:
    std::expected<void, QString> become(LoginItemStatus status)
    {
        ++calls;
        if (!failure.isEmpty())
            return std::unexpected(failure);
        current = status;
        return {};
    }
};

/// An alert that a test closes with a button of its choice.
class FakeAlert final : public Alert
{
public:
    void showWarning(const AlertDescription &description, std::function<void(AlertButton)> onClosed) override
    {
        shown.push_back(description);
        close = std::move(onClosed);
    }

    std::vector<AlertDescription> shown;
    std::function<void(AlertButton)> close;
};

/// A save panel that a test closes with a path of its choice.
class FakeSavePanel final : public SavePanel
{
public:
    void ask(const SavePanelRequest &request, std::function<void(const QString &)> onChosen) override
    {
        requests.push_back(request);
        choose = std::move(onChosen);
    }

    std::vector<SavePanelRequest> requests;
    std::function<void(const QString &)> choose;
};

class FakeSystemSettings final : public SystemSettings
{
public:
    bool openLoginItems() override { return ++loginItems > 0; }
    bool openNotifications() override { return ++notifications > 0; }

    int loginItems = 0;
    int notifications = 0;
};

class FakeActivationPolicyPort final : public ActivationPolicyPort
{
public:
    void setPolicy(ActivationPolicyKind kind) override { kinds.push_back(kind); }

    std::vector<ActivationPolicyKind> kinds;
};

/// Answers at once, a request with what the user "pressed".
class FakeNotificationProbe final : public NotificationProbe
{
public:
    void query(std::function<void(NotificationProbeResult)> onResult) override { onResult(current); }
    void request(std::function<void(NotificationProbeResult)> onResult) override
    {
        ++requests;
        current = afterRequest;
        onResult(current);
    }

    NotificationProbeResult current;
    NotificationProbeResult afterRequest{NotificationPermission::authorised, true};
    int requests = 0;
};

}
