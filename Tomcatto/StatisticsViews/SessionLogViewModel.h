#pragma once

#include "StatisticsViews/AddPhaseViewModel.h"
#include "StatisticsViews/SessionLogModel.h"

namespace tomcatto {

class StatisticsViewModel;

/// The log of the statistics page: the ended phases of the range that the figures show, of one kind or of all. A phase
/// can be removed, which can be undone until another one is removed, and a forgotten one added. Main thread only.
class SessionLogViewModel final : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QAbstractItemModel *rows READ rows CONSTANT FINAL)
    /// What kinds can be shown, all of them first.
    Q_PROPERTY(QList<QString> filterTexts READ filterTexts NOTIFY changed FINAL)
    Q_PROPERTY(int filterIndex READ filterIndex NOTIFY changed FINAL)
    Q_PROPERTY(bool isEmpty READ isEmpty NOTIFY isEmptyChanged FINAL)
    /// What stands in the place of the rows while there are none; empty while there are some.
    Q_PROPERTY(QString emptyTitle READ emptyTitle NOTIFY changed FINAL)
    Q_PROPERTY(QString emptyHelp READ emptyHelp NOTIFY changed FINAL)
    /// Whether there may be rows with another filter or range.
    Q_PROPERTY(bool hasHistory READ hasHistory NOTIFY changed FINAL)
    /// What the last action did that the rows do not show, or why it was not done; empty after a while.
    Q_PROPERTY(QString told READ told NOTIFY toldChanged FINAL)
    Q_PROPERTY(bool isToldError READ isToldError NOTIFY toldChanged FINAL)
    /// Whether the phase that was removed last can come back.
    Q_PROPERTY(bool canUndo READ canUndo NOTIFY toldChanged FINAL)
    /// What only a screen reader says: the rows show it.
    Q_PROPERTY(QString spoken READ spoken NOTIFY spokenChanged FINAL)
    Q_PROPERTY(tomcatto::AddPhaseViewModel *form READ form CONSTANT FINAL)

public:
    /// @param statistics whose range is shown; outlives the view model, as everything else does
    SessionLogViewModel(const StatisticsViewModel &statistics, HistoryEditor &editor, const PomodoroSettings &settings,
                        const SessionLogModel::Sources &sources, QObject *parent = nullptr);

    [[nodiscard]] SessionLogModel *rows() { return &m_rows; }
    [[nodiscard]] QStringList filterTexts() const;
    [[nodiscard]] int filterIndex() const noexcept { return m_filterIndex; }
    [[nodiscard]] bool isEmpty() const noexcept { return m_isEmpty; }
    [[nodiscard]] QString emptyTitle() const { return emptyText("title"); }
    [[nodiscard]] QString emptyHelp() const { return emptyText("help"); }
    [[nodiscard]] bool hasHistory() const { return m_sources.aggregator.earliestSessionDate().has_value(); }
    [[nodiscard]] QString told() const { return m_told; }
    [[nodiscard]] bool isToldError() const noexcept { return m_isToldError; }
    [[nodiscard]] bool canUndo() const noexcept { return m_removed.has_value(); }
    [[nodiscard]] QString spoken() const { return m_spoken; }
    [[nodiscard]] AddPhaseViewModel *form() { return &m_form; }

    /// The page is seen from now on.
    Q_INVOKABLE void appear();
    /// The page is gone: what was removed stays removed.
    Q_INVOKABLE void disappear();
    Q_INVOKABLE void selectFilter(int index);
    /// The end of the rows is near: loads the next ones where there are any.
    Q_INVOKABLE void loadMore() { m_rows.fetchMore({}); }
    Q_INVOKABLE void openForm();
    /// Removes a phase of the rows from the history.
    Q_INVOKABLE void remove(const QString &id);
    /// Puts the phase back that was removed last.
    Q_INVOKABLE void undoRemoval();
    /// Enough was told; the phase that was removed last stays removed.
    Q_INVOKABLE void forget();

Q_SIGNALS:
    void changed();
    void isEmptyChanged();
    void toldChanged();
    void spokenChanged();
    /// The phase in this row came by the user's own hand and is to be seen.
    void revealed(int row);

private:
    void show();
    void tellAdded(const EndedPhase &phase);
    void reveal(const EndedPhase &phase);
    void tell(const QString &text, bool isError = false);
    void say(const QString &text);
    void report(const StoreError &error);
    [[nodiscard]] QString emptyText(const char *part) const;

    const StatisticsViewModel &m_statistics;
    HistoryEditor &m_editor;
    SessionLogModel::Sources m_sources;
    SessionLogModel m_rows;
    AddPhaseViewModel m_form;
    bool m_isShown = false;
    bool m_isEmpty = true;
    int m_filterIndex = 0;
    std::optional<PomodoroSessionRecord> m_removed;
    QString m_told;
    bool m_isToldError = false;
    QString m_spoken;
};

}
