#pragma once

#include <QtCore/QDate>

namespace tomcatto {

/// The focus time of one calendar unit, one bar of the chart.
struct FocusBucket
{
    /// First date of the unit.
    QDate start;
    /// Whole minutes; the remainder is dropped once for the bucket, not for each phase.
    qint64 minutes = 0;

    bool operator==(const FocusBucket &) const = default;
};

}
