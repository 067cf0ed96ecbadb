#include "Platform/Qt/DefaultsDocument.h"

#include <cmath>

namespace tomcatto {

namespace {

using Json = nlohmann::ordered_json;

// Writing a document recurses once a level, so a document from outside may not choose the depth.
constexpr int deepestNesting = 128;

std::optional<Json> parsed(const QByteArray &text)
{
    bool isTooDeep = false;
    const auto limitDepth = [&isTooDeep](int depth, Json::parse_event_t, const Json &) {
        isTooDeep = isTooDeep || depth > deepestNesting;
        return !isTooDeep;
    };
    Json json = Json::parse(text.cbegin(), text.cend(), limitDepth, false);
    if (json.is_discarded() || isTooDeep)
        return std::nullopt;
    return json;
}

QByteArray written(const Json &json, int indent = -1)
{
    return QByteArray::fromStdString(json.dump(indent, ' ', false, Json::error_handler_t::replace));
}

Json jsonText(const QString &text)
{
    return text.toStdString();
}

struct ToJson
{
    Json operator()(bool value) const { return value; }
    Json operator()(qint64 value) const { return value; }
    Json operator()(double value) const { return std::isfinite(value) ? Json(value) : Json(nullptr); }
    Json operator()(const QString &value) const { return jsonText(value); }
    Json operator()(const QByteArray &value) const
    {
        auto json = parsed(value);
        if (json && json->is_structured())
            return *std::move(json);
        return jsonText(QString::fromUtf8(value));
    }
};

}

std::optional<DefaultsDocument> DefaultsDocument::parse(const QByteArray &text)
{
    auto json = parsed(text);
    if (!json || !json->is_object())
        return std::nullopt;
    DefaultsDocument document;
    document.m_object = *std::move(json);
    return document;
}

std::optional<DefaultsValue> DefaultsDocument::value(const QString &key) const
{
    const auto member = m_object.find(key.toStdString());
    if (member == m_object.end())
        return std::nullopt;
    switch (member->type()) {
    case Json::value_t::boolean:
        return member->get<bool>();
    case Json::value_t::number_integer:
        return qint64{member->get<std::int64_t>()};
    case Json::value_t::number_unsigned:
        if (std::in_range<qint64>(member->get<std::uint64_t>()))
            return qint64{member->get<std::int64_t>()};
        return member->get<double>();
    case Json::value_t::number_float:
        return member->get<double>();
    case Json::value_t::string:
        return QString::fromStdString(member->get<std::string>());
    case Json::value_t::object:
    case Json::value_t::array:
        return written(*member);
    case Json::value_t::null:
    case Json::value_t::binary:
    case Json::value_t::discarded:
        return std::nullopt;
    }
    return std::nullopt;
}

bool DefaultsDocument::setValue(const QString &key, const DefaultsValue &value)
{
    Json json = std::visit(ToJson{}, value);
    if (json.is_null())
        return remove(key);
    const auto member = m_object.find(key.toStdString());
    if (member == m_object.end()) {
        m_object.emplace(key.toStdString(), std::move(json));
        return true;
    }
    // The texts are compared since 1 and 1.0 are equal as numbers.
    if (written(*member) == written(json))
        return false;
    *member = std::move(json);
    return true;
}

bool DefaultsDocument::remove(const QString &key)
{
    return m_object.erase(key.toStdString()) > 0;
}

QByteArray DefaultsDocument::text() const
{
    return written(m_object, 2) + '\n';
}

}
