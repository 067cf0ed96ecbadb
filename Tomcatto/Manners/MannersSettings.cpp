#include "Manners/MannersSettings.h"

#include "Manners/MannersCatalog.h"

#include <algorithm>
#include <QtCore/QMetaEnum>

namespace tomcatto {

namespace {

using Key = MannersSettings::Key;

/// Switches are stored as booleans, the rest as numbers.
DefaultsValue stored(Key key, qint64 value)
{
    return isSwitch(key) ? DefaultsValue(value != 0) : DefaultsValue(value);
}

}

QString MannersSettings::keyText(Key key)
{
    return QString::fromLatin1(QMetaEnum::fromType<Key>().valueToKey(static_cast<int>(key)));
}

const std::vector<qint64> &MannersSettings::choices(Key key)
{
    static const std::vector<qint64> switches{0, 1};
    static const std::vector<qint64> minutes{5, 3, 10, 0};
    static const std::vector<qint64> seconds{30, 60};
    if (isSwitch(key))
        return switches;
    return key == Key::awayAfterMinutes ? minutes : seconds;
}

MannersSettings::MannersSettings(UserDefaults &store, QObject *parent)
    : QObject(parent)
    , m_store(store)
{
    for (std::size_t each = 0; each < count; ++each) {
        const Key key = static_cast<Key>(each);
        const auto found = std::ranges::find_if(
            choices(key), [this, key](qint64 choice) { return m_store.value(keyText(key)) == stored(key, choice); });
        m_values.at(each) = found != choices(key).end() ? *found : choices(key).front();
    }
}

bool MannersSettings::setValue(Key key, qint64 value)
{
    if (std::ranges::find(choices(key), value) == choices(key).end())
        return false;
    m_store.setValue(keyText(key), stored(key, value));
    if (std::exchange(m_values.at(index(key)), value) != value)
        Q_EMIT changed(key);
    return true;
}

}
