#include "Alerts/NotificationCenterService.h"

#include "Alerts/NotificationIdentifiers.h"
#include "Timer/PhaseSequence.h"

namespace tomcatto {

namespace {

constexpr std::chrono::milliseconds postDelay{100};
constexpr qint64 secondsPerMinute = 60;

}

NotificationCenterService::NotificationCenterService(const PomodoroSettings &settings,
                                                     PomodoroStateMachine &stateMachine,
                                                     const Surroundings &surroundings, QObject *parent)
    : QObject(parent)
    , m_settings(settings)
    , m_stateMachine(&stateMachine)
    , m_surroundings(surroundings)
{
}

NotificationCenterService::~NotificationCenterService()
{
    m_surroundings.center.setDelegate(nullptr);
}

void NotificationCenterService::becomeDelegate()
{
    m_surroundings.center.setDelegate(this);
    registerCategories();
    // The buttons of those to come speak the language that was chosen since.
    connect(&m_surroundings.strings, &LocalizedStrings::changed, this, &NotificationCenterService::registerCategories);
}

void NotificationCenterService::start()
{
    connect(m_stateMachine, &PomodoroStateMachine::transitioned, this, &NotificationCenterService::follow);
    connect(m_stateMachine, &PomodoroStateMachine::overflowBegan, this,
            [this] { post(NotificationPayload::workEnded()); });
    connect(m_stateMachine, &PomodoroStateMachine::ceilingReached, this,
            [this] { post(NotificationPayload::overflowCeiling()); });
    followManners();
    connect(&m_settings, &PomodoroSettings::changed, this, [this] {
        if (!m_settings.notificationsEnabled())
            m_surroundings.center.removePendingRequests({snoozeRequestIdentifier});
    });
}

void NotificationCenterService::followManners()
{
    MannersService &manners = m_surroundings.manners;
    connect(&manners, &MannersService::heldBreakBegan, this, [this] { post(NotificationPayload::breakStarted()); });
    connect(&manners, &MannersService::awaySinceChanged, this, [this, &manners] {
        if (manners.awaySince())
            post(NotificationPayload::away());
    });
    connect(&manners, &MannersService::isBreakNearChanged, this, [this, &manners] {
        if (manners.isBreakNear())
            post(NotificationPayload::breakNear());
    });
}

void NotificationCenterService::postTest()
{
    NotificationRequest test = request({{}, NotificationStringKey::testTitle, NotificationStringKey::testBody});
    test.identifier = QStringLiteral("test");
    m_surroundings.center.add(test);
}

NotificationPresentation NotificationCenterService::willPresent() const
{
    return {.isBanner = true, .isInList = true};
}

void NotificationCenterService::didReceive(const NotificationResponse &response)
{
    std::optional<QString> token;
    if (const auto found = response.userInfo.find(NotificationUserInfoKey::phaseToken);
        found != response.userInfo.end())
        token = *found;
    m_surroundings.runLoop.async(*this, [this, action = response.actionIdentifier, token] { route(action, token); });
}

void NotificationCenterService::registerCategories()
{
    namespace Action = NotificationActionIdentifier;
    namespace Category = NotificationCategoryIdentifier;
    namespace Key = NotificationStringKey;
    const auto action = [this](QLatin1String identifier, QLatin1String titleKey) {
        return NotificationAction{identifier, m_surroundings.strings.text(titleKey)};
    };
    m_surroundings.center.setNotificationCategories(
        {{Category::breakStarted, {}},
         {Category::breakEnded, {action(Action::startWork, Key::startWork), action(Action::snooze, Key::snooze)}},
         {Category::workEnded, {action(Action::takeBreak, Key::takeBreak), action(Action::extend, Key::extend)}},
         {Category::breakReady, {action(Action::startBreak, Key::startBreak)}},
         {Category::overflowCeiling, {}},
         {Category::breakNear, {action(Action::extend, Key::extend)}},
         {Category::away,
          {action(Action::resumeAfterAway, Key::resume), action(Action::takeBreakAfterAway, Key::takeBreak)}}});
}

void NotificationCenterService::follow(const PhaseTransition &transition)
{
    // A reminder of a phase never outlives it.
    m_surroundings.center.removePendingRequests({snoozeRequestIdentifier});
    const bool isPending = m_stateMachine && m_stateMachine->isPhasePending();
    if (const auto heldBy = m_surroundings.manners.heldBy())
        post(NotificationPayload::breakHeld(*heldBy));
    else if (const auto payload = notificationPayload(transition.previous, transition.current, isPending))
        post(*payload);
}

void NotificationCenterService::post(const NotificationPayload &payload)
{
    if (!m_settings.notificationsEnabled())
        return;
    NotificationRequest posted = request(payload);
    posted.identifier =
        payload.categoryIdentifier + QLatin1Char('.') + identifierText(m_surroundings.identifiers.next());
    posted.delay = postDelay;
    m_surroundings.center.add(posted);
}

void NotificationCenterService::scheduleSnoozeReminder()
{
    if (!m_settings.notificationsEnabled())
        return;
    m_surroundings.center.removePendingRequests({snoozeRequestIdentifier});
    NotificationRequest reminder = request(NotificationPayload::breakEnded());
    reminder.identifier = snoozeRequestIdentifier;
    reminder.delay = snoozeTime;
    m_surroundings.center.add(reminder);
}

NotificationRequest NotificationCenterService::request(const NotificationPayload &payload) const
{
    NotificationRequest request;
    request.title = m_surroundings.strings.text(payload.titleKey);
    request.body = body(payload);
    request.categoryIdentifier = payload.categoryIdentifier;
    request.userInfo = {
        {NotificationUserInfoKey::phaseToken, m_stateMachine ? m_stateMachine->phaseToken() : QString()}};
    return request;
}

QString NotificationCenterService::body(const NotificationPayload &payload) const
{
    // How long the focus was says more, where it fits into whole minutes.
    const qint64 seconds = m_stateMachine ? m_stateMachine->currentPlannedSeconds() : 0;
    if (payload == NotificationPayload::workEnded() && seconds > 0 && seconds % secondsPerMinute == 0)
        return m_surroundings.strings.plural(payload.bodyKey + QStringLiteral("_minutes"), seconds / secondsPerMinute);
    if (const auto since = m_surroundings.manners.awaySince(); since && payload == NotificationPayload::away())
        return m_surroundings.strings.format(payload.bodyKey, timeText(*since));
    return m_surroundings.strings.text(payload.bodyKey);
}

QString NotificationCenterService::timeText(Date date) const
{
    const Calendar calendar = m_surroundings.wallClock.calendar();
    const QTime time = toDateTime(date).toTimeZone(calendar.timeZone).time();
    return m_surroundings.strings.locale().toString(time, calendar.timeFormat);
}

void NotificationCenterService::route(const QString &actionIdentifier, const std::optional<QString> &token)
{
    if (!m_stateMachine)
        return;
    carryOut(NotificationActionRouter::decision(actionIdentifier, token,
                                                {m_stateMachine->phaseToken(), m_stateMachine->currentPhase(),
                                                 m_settings.hasCompletedOnboarding(), m_stateMachine->isOverflowing(),
                                                 m_stateMachine->isPhasePending(),
                                                 m_surroundings.manners.awaySince().has_value()}));
}

void NotificationCenterService::carryOut(NotificationRouteDecision decision)
{
    switch (decision) {
    case NotificationRouteDecision::ignore:
        return;
    case NotificationRouteDecision::startWork:
        m_stateMachine->resume();
        return;
    case NotificationRouteDecision::snooze:
        m_stateMachine->pause();
        return scheduleSnoozeReminder();
    case NotificationRouteDecision::takeBreak:
        m_stateMachine->takeBreak();
        return;
    case NotificationRouteDecision::extend:
        m_stateMachine->extend(extensionSeconds);
        m_stateMachine->resume();
        return;
    case NotificationRouteDecision::openApp:
        Q_EMIT activationRequested();
        return;
    case NotificationRouteDecision::resumeAfterAway:
        return m_surroundings.manners.resumeAfterAway();
    case NotificationRouteDecision::takeBreakAfterAway:
        return m_surroundings.manners.takeBreakAfterAway();
    }
}

}
