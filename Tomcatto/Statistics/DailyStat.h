#pragma once

#include <QtCore/QDate>

namespace tomcatto {

/// How many work phases that began on one calendar date were completed.
struct DailyStat
{
    QDate day;
    qint64 count = 0;

    bool operator==(const DailyStat &) const = default;
};

}
