#include "CommandLine/ArgumentDomain.h"

namespace tomcatto {

ArgumentDomain::ArgumentDomain(UserDefaults &under, std::map<QString, DefaultsValue> values)
    : m_under(under)
    , m_values(std::move(values))
{
}

std::optional<DefaultsValue> ArgumentDomain::value(const QString &key) const
{
    const auto found = m_values.find(key);
    return found != m_values.end() ? std::optional(found->second) : m_under.value(key);
}

std::optional<DefaultsValue> ArgumentDomain::storedValue(const QString &key) const
{
    return m_under.storedValue(key);
}

void ArgumentDomain::setValue(const QString &key, const DefaultsValue &value)
{
    // The value may be the one laid over the key.
    m_under.setValue(key, value);
    m_values.erase(key);
}

void ArgumentDomain::remove(const QString &key)
{
    m_under.remove(key);
    m_values.erase(key);
}

bool ArgumentDomain::synchronize()
{
    return m_under.synchronize();
}

}
