#pragma once

#include "StatisticsViews/FocusChart.h"
#include "StatisticsViews/HeatRows.h"

namespace tomcatto {

/// The statistics of one range as the views draw them: texts, bars and cells as plain rows. Follows the history, the
/// calendar, the goal and the language while it is shown, and holds no rows while it is not. Main thread only.
class StatisticsViewModel final : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QList<QString> rangeTexts READ rangeTexts NOTIFY rangeTextsChanged FINAL)
    Q_PROPERTY(int rangeIndex READ rangeIndex NOTIFY rangeChanged FINAL)
    Q_PROPERTY(bool canExport READ canExport NOTIFY changed FINAL)
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
    Q_PROPERTY(QVariantList heatMonthLabels READ heatMonthLabels NOTIFY changed FINAL)

public:
    explicit StatisticsViewModel(const StatisticsSources &sources, StatisticsForm form, QObject *parent = nullptr);

    /// Whether a view looks at it; at first none does.
    void setShown(bool isShown);
    [[nodiscard]] StatsRange range() const;

    /// Names of the ranges, shortest first, and which one is shown; at first the week.
    [[nodiscard]] const QStringList &rangeTexts() const noexcept { return m_rangeTexts; }
    [[nodiscard]] int rangeIndex() const noexcept { return m_rangeIndex; }
    /// Whether there is anything to export in any range.
    [[nodiscard]] bool canExport() const noexcept { return m_hasHistory; }
    /// Whether the chart has no bar to show, and what stands in its place then.
    [[nodiscard]] bool isEmpty() const noexcept { return m_chart.isEmpty; }
    [[nodiscard]] QString emptyTitle() const { return emptyText(QStringLiteral("title")); }
    [[nodiscard]] QString emptyHelp() const { return emptyText(QStringLiteral("help")); }
    /// See `figureRows`.
    [[nodiscard]] const QVariantList &figures() const noexcept { return m_figures; }
    /// See `FocusChart`.
    [[nodiscard]] const QString &chartTitle() const noexcept { return m_chart.title; }
    [[nodiscard]] const QVariantList &chartBars() const noexcept { return m_chart.bars; }
    [[nodiscard]] const QVariantList &chartTicks() const noexcept { return m_chart.ticks; }
    [[nodiscard]] qreal chartMaximum() const noexcept { return m_chart.maximum; }
    /// See `HeatRows`.
    [[nodiscard]] const QString &heatTitle() const noexcept { return m_heat.title; }
    [[nodiscard]] const QVariantList &heatCells() const noexcept { return m_heat.cells; }
    [[nodiscard]] const QStringList &heatDayLabels() const noexcept { return m_heat.dayLabels; }
    [[nodiscard]] const QVariantList &heatMonthLabels() const noexcept { return m_heat.monthLabels; }

public Q_SLOTS:
    /// Shows the range at this place of `rangeTexts`; nothing for any other number.
    void selectRange(int index);
    /// Asks where the phases of the range are to be saved, and saves them.
    void exportSessions();

Q_SIGNALS:
    void changed();
    void rangeTextsChanged();
    /// The user wants another range; its rows are there.
    void rangeChanged();

private:
    void retranslate();
    void rebuild();
    [[nodiscard]] QString emptyText(const QString &part) const;

    StatisticsSources m_sources;
    StatisticsForm m_form;
    std::vector<Cancellable> m_cancellables;
    bool m_isShown = false;
    bool m_hasHistory = false;
    int m_rangeIndex = 1;
    QStringList m_rangeTexts;
    QVariantList m_figures;
    FocusChart m_chart;
    HeatRows m_heat;
};

}
