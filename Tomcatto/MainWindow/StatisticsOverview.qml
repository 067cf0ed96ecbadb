import QtQuick
import Tomcatto.Appearance
import Tomcatto.MainWindow

/// What stands over the log: figures, chart and heat map of the chosen range.
Column {
    id: overview

    required property StatisticsViewModel statistics

    spacing: Theme.cardGap
}
