#pragma once

#include "Platform/Ports/WallClock.h"
#include "Statistics/HistoryEditor.h"
#include "StatisticsViews/SessionTexts.h"
#include "Timer/PomodoroSettings.h"

#include <QtCore/QObject>
#include <QtCore/QStringList>

namespace tomcatto {

class StatsAggregator;

/// The form that adds a focus phase which was forgotten: its day, start and minutes, and what is wrong with them, which
/// is told from the first change on. Main thread only.
class AddPhaseViewModel final : public QObject
{
    Q_OBJECT
    Q_PROPERTY(bool isOpen READ isOpen NOTIFY changed FINAL)
    /// From today back.
    Q_PROPERTY(QList<QString> dayTexts READ dayTexts NOTIFY changed FINAL)
    Q_PROPERTY(int dayIndex READ dayIndex NOTIFY changed FINAL)
    Q_PROPERTY(QString startText READ startText NOTIFY changed FINAL)
    Q_PROPERTY(int minutes READ minutes NOTIFY changed FINAL)
    Q_PROPERTY(int leastMinutes READ leastMinutes CONSTANT FINAL)
    Q_PROPERTY(int mostMinutes READ mostMinutes CONSTANT FINAL)
    /// The times that the fields make, or why they make no phase.
    Q_PROPERTY(QString line READ line NOTIFY changed FINAL)
    Q_PROPERTY(bool isRefused READ isRefused NOTIFY changed FINAL)
    Q_PROPERTY(bool isStartRefused READ isStartRefused NOTIFY changed FINAL)

public:
    /// Everything outlives the view model.
    struct Sources
    {
        HistoryEditor &editor;
        const StatsAggregator &aggregator;
        const PomodoroSettings &settings;
        const LocalizedStrings &strings;
        WallClock &wallClock;
    };

    explicit AddPhaseViewModel(const Sources &sources, QObject *parent = nullptr);

    [[nodiscard]] bool isOpen() const noexcept { return m_isOpen; }
    [[nodiscard]] QStringList dayTexts() const { return m_dayTexts; }
    [[nodiscard]] int dayIndex() const noexcept { return m_dayIndex; }
    [[nodiscard]] QString startText() const { return m_startText; }
    [[nodiscard]] int minutes() const noexcept { return m_minutes; }
    [[nodiscard]] static int leastMinutes() { return HistoryEditor::shortestMinutes; }
    [[nodiscard]] static int mostMinutes() { return HistoryEditor::longestMinutes; }
    [[nodiscard]] QString line() const { return m_line; }
    [[nodiscard]] bool isRefused() const noexcept { return m_isTouched && m_problem != Problem::none; }
    [[nodiscard]] bool isStartRefused() const noexcept { return m_isTouched && m_problem == Problem::start; }

    /// Opens the form with the latest time that is free for a phase as long as the settings have it.
    /// @param daysBack how many days before today can be chosen at least
    void open(qint64 daysBack);
    Q_INVOKABLE void close();
    Q_INVOKABLE void chooseDay(int index);
    /// Takes what stands in the start's field: "9:30", "0930", "9.30", "9:30 pm".
    Q_INVOKABLE void writeStart(const QString &text);
    Q_INVOKABLE void setMinutes(int minutes);
    /// Adds the phase and closes the form, unless it is refused.
    Q_INVOKABLE void add();

Q_SIGNALS:
    void changed();
    void added(const tomcatto::EndedPhase &phase);

private:
    enum class Problem { none, start, other };

    void touch();
    void check();
    void suggestStart();
    void refuse(Problem problem, const QString &text);
    void refuse(const AddRefusal &refusal);
    void listDays();
    void followToday();
    [[nodiscard]] std::optional<Date> start();
    [[nodiscard]] QDate today() const;
    [[nodiscard]] SessionTexts texts() const { return {m_sources.strings, m_sources.wallClock.calendar()}; }
    [[nodiscard]] QString text(const char *refusal) const;

    Sources m_sources;
    std::vector<Cancellable> m_cancellables;
    bool m_isOpen = false;
    bool m_isTouched = false;
    QDate m_today;
    qint64 m_daysBack = 0;
    QStringList m_dayTexts;
    int m_dayIndex = 0;
    QString m_startText;
    int m_minutes = 25;
    QString m_line;
    Problem m_problem = Problem::none;
};

}
