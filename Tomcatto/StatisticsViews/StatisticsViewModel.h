#pragma once

#include "Localization/LocalizedStrings.h"
#include "Statistics/StatsAggregator.h"
#include "Timer/PomodoroSettings.h"

#include <QtCore/QStringList>
#include <QtCore/QVariantList>

namespace tomcatto {

/// The statistics of one range as the views draw them: texts, bars and cells as plain rows. Follows the history, the
/// calendar, the goal and the language while it is shown, and holds no rows while it is not. Main thread only.
class StatisticsViewModel final : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QList<QString> rangeTexts READ rangeTexts NOTIFY changed FINAL)
    Q_PROPERTY(int rangeIndex READ rangeIndex NOTIFY changed FINAL)
    Q_PROPERTY(bool isEmpty READ isEmpty NOTIFY changed FINAL)
    Q_PROPERTY(QString emptyTitle READ emptyTitle NOTIFY changed FINAL)
    Q_PROPERTY(QString emptyHelp READ emptyHelp NOTIFY changed FINAL)
    Q_PROPERTY(QVariantList figures READ figures NOTIFY changed FINAL)
    Q_PROPERTY(QString chartTitle READ chartTitle NOTIFY changed FINAL)
    Q_PROPERTY(QVariantList chartBars READ chartBars NOTIFY changed FINAL)
    Q_PROPERTY(QVariantList chartTicks READ chartTicks NOTIFY changed FINAL)
    Q_PROPERTY(qreal chartMaximum READ chartMaximum NOTIFY changed FINAL)
    Q_PROPERTY(QString heatTitle READ heatTitle NOTIFY changed FINAL)
    Q_PROPERTY(QVariantList heatCells READ heatCells NOTIFY changed FINAL)
    Q_PROPERTY(QList<QString> heatDayLabels READ heatDayLabels NOTIFY changed FINAL)

public:
    /// What the figures come from; everything outlives the model.
    struct Sources
    {
        const StatsAggregator &aggregator;
        const PomodoroSettings &settings;
        const LocalizedStrings &strings;
        WallClock &wallClock;
    };

    /// Weeks of the heat map.
    static constexpr int heatWeeks = 16;

    explicit StatisticsViewModel(const Sources &sources, QObject *parent = nullptr);

    /// Whether a view looks at it; at first none does.
    void setShown(bool isShown);
    [[nodiscard]] StatsRange range() const;

    /// Names of the ranges, shortest first, and which one is shown; at first the week.
    [[nodiscard]] const QStringList &rangeTexts() const noexcept { return m_rangeTexts; }
    [[nodiscard]] int rangeIndex() const noexcept { return m_rangeIndex; }
    /// Whether the chart has no bar to show, and what stands in its place then.
    [[nodiscard]] bool isEmpty() const noexcept { return m_isEmpty; }
    [[nodiscard]] const QString &emptyTitle() const noexcept { return m_emptyTitle; }
    [[nodiscard]] const QString &emptyHelp() const noexcept { return m_emptyHelp; }
    /// Focus time, sessions, streak and daily average, each {label, parts, name}; a part is {text, isUnit}.
    [[nodiscard]] const QVariantList &figures() const noexcept { return m_figures; }
    [[nodiscard]] const QString &chartTitle() const noexcept { return m_chartTitle; }
    /// {value, label, tip, name, today}, values in minutes.
    [[nodiscard]] const QVariantList &chartBars() const noexcept { return m_chartBars; }
    /// {value, label}, the base line first.
    [[nodiscard]] const QVariantList &chartTicks() const noexcept { return m_chartTicks; }
    [[nodiscard]] qreal chartMaximum() const noexcept { return m_chartMaximum; }
    [[nodiscard]] const QString &heatTitle() const noexcept { return m_heatTitle; }
    /// By column, then by row: {level, name, tip, today}; level -1 for days to come.
    [[nodiscard]] const QVariantList &heatCells() const noexcept { return m_heatCells; }
    [[nodiscard]] const QStringList &heatDayLabels() const noexcept { return m_heatDayLabels; }

public Q_SLOTS:
    /// Shows the range at this place of `rangeTexts`; nothing for any other number.
    void selectRange(int index);

Q_SIGNALS:
    void changed();
    /// The user wants another range; its rows are there.
    void rangeChanged();

private:
    void rebuild();
    void rebuildFigures(StatsRange range);
    void rebuildChart(StatsRange range);
    void rebuildHeatMap();
    void rebuildTicks(qint64 peak);
    [[nodiscard]] QVariantMap bar(const FocusBucket &bucket, const StatsChartLayout &layout) const;
    [[nodiscard]] QString barLabel(QDate day, const StatsChartLayout &layout) const;
    [[nodiscard]] QString dayText(QDate day) const;
    [[nodiscard]] QDate today() const;

    Sources m_sources;
    std::vector<Cancellable> m_cancellables;
    bool m_isShown = false;
    int m_rangeIndex = 1;
    bool m_isEmpty = true;
    QString m_emptyTitle;
    QString m_emptyHelp;
    QStringList m_rangeTexts;
    QVariantList m_figures;
    QString m_chartTitle;
    QVariantList m_chartBars;
    QVariantList m_chartTicks;
    qreal m_chartMaximum = 1;
    QString m_heatTitle;
    QVariantList m_heatCells;
    QStringList m_heatDayLabels;
};

}
