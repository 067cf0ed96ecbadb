#pragma once

#include "Control/CommandTable.h"
#include "Control/StatusSource.h"
#include "Platform/Ports/MessageBus.h"

namespace tomcatto {

/// The application as other programs see it over a message bus: the commands of the table as methods, the status as
/// properties, and a signal for each transition. Offered from the construction to the destruction. Main thread only.
class BusInterface final : public QObject, public BusObject
{
    Q_OBJECT

public:
    /// Everything outlives the interface. @param isEnding tells whether commands are to be refused by now
    BusInterface(MessageBus &bus, const CommandTable &commands, const StatusSource &status,
                 const PomodoroStateMachine &machine, std::function<bool()> isEnding);
    ~BusInterface() override;

    void call(const QString &method, const QVariantList &arguments, const Answer &answer) override;
    [[nodiscard]] QVariantMap properties() const override;

private:
    void announceChange(const TimerStatus &status);
    void announceTransition(const PhaseTransition &transition);

    MessageBus &m_bus;
    const CommandTable &m_commands;
    const StatusSource &m_status;
    const PomodoroStateMachine &m_machine;
    std::function<bool()> m_isEnding;
    /// What was announced last.
    QVariantMap m_announced;
};

}
