#pragma once

#include "Foundation/Calendar.h"

namespace tomcatto {

/// A made-up store of ended phases, the same each time, as `Tools/make-history` writes it. It is made once for a size
/// and kept below a folder; making a million phases takes about ten seconds.
class PhaseHistory final
{
public:
    /// The moment at which all histories end; what the benchmarks take for now.
    [[nodiscard]] static Date now();
    /// A calendar with summer time, as most people have one.
    [[nodiscard]] static Calendar calendar();

    /// Makes the history of `phases` rows below `folder`, or takes the one that is there. Ends the process where that
    /// fails.
    PhaseHistory(const QString &folder, qint64 phases);

    [[nodiscard]] qint64 phases() const noexcept { return m_phases; }
    /// The folder that holds the application's own folder with the store.
    [[nodiscard]] const QString &applicationSupportDirectory() const noexcept { return m_directory; }
    [[nodiscard]] QString storePath() const;
    /// Removes what benchmarks have added. No connection may be writing.
    void restore() const;

private:
    void make() const;

    QString m_directory;
    qint64 m_phases;
};

}
