#pragma once

#include <QtCore/QString>

namespace tomcatto {

/// One short sound. Main thread only.
class SystemSound
{
public:
    virtual ~SystemSound() = default;

    [[nodiscard]] virtual bool isPlaying() const = 0;
    virtual void stop() = 0;
    /// The next `play` begins at the start.
    virtual void rewind() = 0;
    /// At the system's volume. Waits for nobody; without a device nothing is heard, which is logged.
    virtual void play() = 0;
};

/// The sounds that the system knows by name. Main thread only.
class SystemSounds
{
public:
    virtual ~SystemSounds() = default;

    /// @return the sound, the same one each time and owned here; null if there is none of that name
    [[nodiscard]] virtual SystemSound *named(const QString &name) = 0;
};

}
