#include "Shortcuts/KeyCombo.h"

#include <nlohmann/json.hpp>
#include <utility>

namespace tomcatto {

namespace {

constexpr KeyModifiers allModifiers =
    KeyModifier::command | KeyModifier::control | KeyModifier::option | KeyModifier::shift;

std::optional<std::uint64_t> wholeNumber(const nlohmann::ordered_json &object, const char *key)
{
    const auto found = object.find(key);
    if (found == object.end() || !found->is_number_unsigned())
        return std::nullopt;
    return found->get<std::uint64_t>();
}

}

KeyCombo::KeyCombo(quint16 code, KeyModifiers flags)
    : keyCode(code)
    , modifierFlags(flags & allModifiers)
{
}

nlohmann::ordered_json encoded(const KeyCombo &combo)
{
    return {{"keyCode", combo.keyCode}, {"modifierFlags", combo.modifierFlags.toInt()}};
}

std::optional<KeyCombo> decodedKeyCombo(const nlohmann::ordered_json &object)
{
    if (!object.is_object())
        return std::nullopt;
    const auto code = wholeNumber(object, "keyCode");
    const auto flags = wholeNumber(object, "modifierFlags");
    if (!code || !std::in_range<quint16>(*code) || !flags)
        return std::nullopt;
    // Of the greater flags none is a modifier.
    return KeyCombo(static_cast<quint16>(*code), KeyModifiers::fromInt(static_cast<quint32>(*flags)));
}

}
