#pragma once

#include <QtCore/QStringList>

namespace tomcatto {

class UserDefaults;

/// The first videos of a library, which are chosen for the breaks once, and which of them are still to be downloaded:
/// only what is there has an entry in the cache. Main thread only.
class DefaultCats final
{
public:
    /// How many there are at most.
    static constexpr std::size_t count = 6;

    /// @param defaults outlives this object
    explicit DefaultCats(UserDefaults &defaults)
        : m_defaults(defaults)
    {
    }

    /// Whether they were chosen, now or in an earlier run.
    [[nodiscard]] bool areChosen() const;
    /// Notes that they are chosen. @param missing those that are not downloaded
    void choose(const QStringList &missing);
    /// The identifiers of those that are still to be downloaded, in the order of the library.
    [[nodiscard]] QStringList missing() const;
    /// Notes that one is there.
    void take(const QString &id);

private:
    void setMissing(const QStringList &ids);

    UserDefaults &m_defaults;
};

}
