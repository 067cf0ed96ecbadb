#pragma once

#include "Platform/Ports/UserDefaults.h"

#include <map>

namespace tomcatto {

/// Lays values given for one run over other user defaults. They are never stored. Setting or removing a key drops what
/// was laid over it, since the newer wish wins for the rest of the run.
class ArgumentDomain final : public UserDefaults
{
public:
    /// @param under what is stored; outlives this object.
    /// @param values the values for this run by key.
    ArgumentDomain(UserDefaults &under, std::map<QString, DefaultsValue> values);

    [[nodiscard]] std::optional<DefaultsValue> value(const QString &key) const override;
    [[nodiscard]] std::optional<DefaultsValue> storedValue(const QString &key) const override;
    void setValue(const QString &key, const DefaultsValue &value) override;
    void remove(const QString &key) override;
    bool synchronize() override;

private:
    UserDefaults &m_under;
    std::map<QString, DefaultsValue> m_values;
};

}
