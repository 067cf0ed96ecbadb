#include "Recording/InFlightSessionStore.h"

namespace tomcatto {

namespace {

QString markerKey()
{
    return QStringLiteral("inFlightSession");
}

}

InFlightSessionStore::InFlightSessionStore(UserDefaults &store)
    : m_store(store)
    , m_logger(QStringLiteral("InFlightSessionStore"))
{
}

std::optional<InFlightSessionMarker> InFlightSessionStore::load() const
{
    const auto value = m_store.value(markerKey());
    if (!value)
        return std::nullopt;
    const auto *const data = std::get_if<QByteArray>(&*value);
    const auto marker = data ? decodedMarker(*data) : std::nullopt;
    if (!marker)
        m_logger.error(QStringLiteral("The marker of the running phase cannot be read and is dropped"));
    return marker;
}

void InFlightSessionStore::save(const InFlightSessionMarker &marker)
{
    m_store.setValue(markerKey(), encoded(marker));
}

void InFlightSessionStore::clear()
{
    m_store.remove(markerKey());
}

bool InFlightSessionStore::synchronize() const
{
    return m_store.synchronize();
}

}
