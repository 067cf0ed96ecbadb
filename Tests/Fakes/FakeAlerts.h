#pragma once

#include "Platform/Ports/SystemSounds.h"
#include "Platform/Ports/UserNotificationCenter.h"

#include <algorithm>

namespace tomcatto {

/// Keeps what it was given; nothing shows, and nothing pending comes due.
class FakeNotificationCenter final : public UserNotificationCenter
{
public:
    void setDelegate(UserNotificationCenterDelegate *given) override { delegate = given; }
    void setNotificationCategories(std::vector<NotificationCategory> given) override { categories = std::move(given); }
    void add(const NotificationRequest &request) override { requests.push_back(request); }
    void removePendingRequests(const QStringList &identifiers) override
    {
        std::erase_if(requests, [&](const auto &request) { return identifiers.contains(request.identifier); });
    }
    void respond(const QString &action, const QMap<QString, QString> &userInfo)
    {
        delegate->didReceive({action, userInfo});
    }

    UserNotificationCenterDelegate *delegate = nullptr;
    std::vector<NotificationCategory> categories;
    std::vector<NotificationRequest> requests;
};

/// Knows two sounds and writes down what was done with them.
class FakeSounds final : public SystemSounds
{
public:
    [[nodiscard]] SystemSound *named(const QString &name) override
    {
        const auto found = std::ranges::find(m_sounds, name, &Sound::name);
        return found == m_sounds.end() ? nullptr : &*found;
    }

    QStringList log;

private:
    struct Sound final : SystemSound
    {
        Sound(QString given, QStringList &log)
            : name(std::move(given))
            , m_log(log)
        {
        }
        [[nodiscard]] bool isPlaying() const override { return m_log.contains(QStringLiteral("play ") + name); }
        void stop() override { m_log << QStringLiteral("stop ") + name; }
        void rewind() override { m_log << QStringLiteral("rewind ") + name; }
        void play() override { m_log << QStringLiteral("play ") + name; }

        QString name;

    private:
        QStringList &m_log;
    };

    std::vector<Sound> m_sounds{{QStringLiteral("Glass"), log}, {QStringLiteral("Pop"), log}};
};

}
