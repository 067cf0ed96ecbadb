#pragma once

#include "Foundation/Date.h"

#include <nlohmann/json.hpp>
#include <optional>
#include <stdexcept>
#include <string_view>
#include <tuple>

// Structs as JSON objects. A struct names its fields once, in their order, by a function that is found beside it:
//
//     constexpr auto jsonFields(const Clip *) { return std::tuple(std::pair("id", &Clip::id), …); }
//
// A field is a text, a whole number, a number, a boolean, a date, which stands as a text in ISO 8601 to the second, a
// struct of this kind, or an optional one of these, which is left out where it is absent. Other types bring functions
// `jsonValue` and `readJson` of their own. Any thread.

namespace tomcatto {

/// What a document lacks.
struct JsonFieldError : std::runtime_error
{
    explicit JsonFieldError(const char *name)
        : std::runtime_error('"' + std::string(name) + "\" is missing or of another type")
    {
    }
};

template<typename T>
concept HasJsonFields = requires(const T *object)
{
    jsonFields(object);
};

/// Calls `visit` with the name and the member of each field.
template<HasJsonFields T, typename Visit>
constexpr void eachJsonField(Visit visit)
{
    std::apply([&visit](const auto &...field) { (visit(field.first, field.second), ...); },
               jsonFields(static_cast<const T *>(nullptr)));
}

template<HasJsonFields T>
[[nodiscard]] bool hasJsonField(std::string_view name)
{
    bool isFound = false;
    eachJsonField<T>([&](std::string_view each, auto) { isFound = isFound || each == name; });
    return isFound;
}

[[nodiscard]] inline nlohmann::ordered_json jsonValue(const QString &text)
{
    return text.toStdString();
}
[[nodiscard]] inline nlohmann::ordered_json jsonValue(Date date)
{
    return toIso8601(date).toStdString();
}
template<typename T>
requires std::is_arithmetic_v<T>
[[nodiscard]] nlohmann::ordered_json jsonValue(T value)
{
    return value;
}

/// Adds all fields to an object.
template<HasJsonFields T>
void addJsonFields(nlohmann::ordered_json &object, const T &from)
{
    const auto add = [&object]<typename Value>(const char *name, const Value &value) {
        if constexpr (requires { value.has_value(); }) {
            if (value)
                object[name] = jsonValue(*value);
        } else {
            object[name] = jsonValue(value);
        }
    };
    eachJsonField<T>([&](const char *name, auto member) { add(name, from.*member); });
}

template<HasJsonFields T>
[[nodiscard]] nlohmann::ordered_json jsonValue(const T &from)
{
    auto object = nlohmann::ordered_json::object();
    addJsonFields(object, from);
    return object;
}

// Each of these tells whether the value is of the type.

template<typename Json>
bool readJson(const Json &json, QString &into)
{
    if (json.is_string())
        into = QString::fromStdString(json.template get_ref<const std::string &>());
    return json.is_string();
}

template<typename Json>
bool readJson(const Json &json, bool &into)
{
    into = json.is_boolean() && json.template get<bool>();
    return json.is_boolean();
}

template<typename Json>
bool readJson(const Json &json, qint64 &into)
{
    // A greater one would come back negative.
    const bool fits = json.is_number_integer() &&
                      (!json.is_number_unsigned() || std::in_range<qint64>(json.template get<std::uint64_t>()));
    into = fits ? json.template get<qint64>() : 0;
    return fits;
}

template<typename Json>
bool readJson(const Json &json, double &into)
{
    into = json.is_number() ? json.template get<double>() : 0;
    return json.is_number();
}

template<typename Json>
bool readJson(const Json &json, Date &into)
{
    QString text;
    const QDateTime instant = readJson(json, text) ? QDateTime::fromString(text, Qt::ISODate) : QDateTime();
    into = toDate(instant);
    return instant.isValid();
}

/// Reads one field; throws a `JsonFieldError` where it is missing or of another type.
template<typename Json, typename T>
void readJsonField(const Json &object, const char *name, T &into)
{
    const auto found = object.find(name);
    if (found == object.end() || !readJson(*found, into))
        throw JsonFieldError(name);
}

/// Reads one field that may be absent or null; throws where it is of another type.
template<typename Json, typename T>
void readJsonField(const Json &object, const char *name, std::optional<T> &into)
{
    const auto found = object.find(name);
    if (found != object.end() && !found->is_null() && !readJson(*found, into.emplace()))
        throw JsonFieldError(name);
}

/// Reads all fields; throws like `readJsonField`. Other members are passed over.
template<typename Json, HasJsonFields T>
bool readJson(const Json &object, T &into)
{
    if (object.is_object())
        eachJsonField<T>([&](const char *name, auto member) { readJsonField(object, name, into.*member); });
    return object.is_object();
}

}
