#pragma once

#include "Platform/Ports/UserDefaults.h"

#include <array>
#include <QtCore/QObject>
#include <vector>

namespace tomcatto {

/// What the application is asked to heed before it comes with a break; everything is off until a person turns it on.
/// Kept under keys of its own in the user defaults. Main thread only.
class MannersSettings final : public QObject
{
    Q_OBJECT

public:
    /// The keys in user defaults.
    enum class Key {
        /// Switches, 0 or 1.
        waitsDuringCalls,
        waitsInFullScreen,
        pausesWhenAway,
        /// Minutes without a touch: 3, 5 or 10; 0 where only the lock of the screen counts.
        awayAfterMinutes,
        finishesSentence,
        saysWordBefore,
        /// Seconds before the end of a focus phase: 30 or 60.
        wordBeforeSeconds,
    };
    Q_ENUM(Key)

    /// The text of a key in user defaults.
    [[nodiscard]] static QString keyText(Key key);
    /// What a key may be, the first one being what it is at first.
    [[nodiscard]] static const std::vector<qint64> &choices(Key key);

    /// Reads all values; what is missing or is not one of the choices is as at first. @param store outlives this
    explicit MannersSettings(UserDefaults &store, QObject *parent = nullptr);

    [[nodiscard]] qint64 value(Key key) const noexcept { return m_values[index(key)]; }
    [[nodiscard]] bool isOn(Key key) const noexcept { return value(key) != 0; }
    /// Stores one of the choices and announces it; anything else changes nothing. @return whether it is one
    bool setValue(Key key, qint64 value);

Q_SIGNALS:
    /// A value was set to something else.
    void changed(tomcatto::MannersSettings::Key key);

private:
    static constexpr std::size_t count = 7;
    static constexpr std::size_t index(Key key) { return static_cast<std::size_t>(key); }

    UserDefaults &m_store;
    std::array<qint64, count> m_values{};
};

}
