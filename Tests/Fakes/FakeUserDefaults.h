#pragma once

#include "Platform/Ports/UserDefaults.h"

#include <functional>
#include <map>

namespace tomcatto {

/// User defaults in memory, with values laid over for one run.
class FakeUserDefaults final : public UserDefaults
{
public:
    [[nodiscard]] std::optional<DefaultsValue> value(const QString &key) const override
    {
        const auto found = argumentDomain.find(key);
        return found != argumentDomain.end() ? found->second : storedValue(key);
    }
    [[nodiscard]] std::optional<DefaultsValue> storedValue(const QString &key) const override
    {
        const auto found = stored.find(key);
        return found != stored.end() ? std::optional(found->second) : std::nullopt;
    }
    void setValue(const QString &key, const DefaultsValue &value) override { stored.insert_or_assign(key, value); }
    void remove(const QString &key) override { stored.erase(key); }
    bool synchronize() override
    {
        ++synchronizations;
        if (onSynchronize)
            onSynchronize();
        return true;
    }

    std::map<QString, DefaultsValue> stored;
    std::map<QString, DefaultsValue> argumentDomain;
    int synchronizations = 0;
    std::function<void()> onSynchronize;
};

}
