#include "Media/DefaultCats.h"

#include "Platform/Ports/UserDefaults.h"

#include <nlohmann/json.hpp>

namespace tomcatto {

namespace {

using Json = nlohmann::ordered_json;

const QString areChosenKey = QStringLiteral("didSeedDefaultCats");
const QString missingKey = QStringLiteral("defaultCatsToDownload");

}

bool DefaultCats::areChosen() const
{
    return m_defaults.storedValue(areChosenKey) == DefaultsValue(true);
}

void DefaultCats::choose(const QStringList &missing)
{
    setMissing(missing);
    m_defaults.setValue(areChosenKey, true);
}

QStringList DefaultCats::missing() const
{
    const auto stored = m_defaults.storedValue(missingKey);
    const auto *const data = stored ? std::get_if<QByteArray>(&*stored) : nullptr;
    const Json ids = data ? Json::parse(data->begin(), data->end(), nullptr, false) : Json::array();
    QStringList texts;
    for (const Json &id : ids) {
        if (id.is_string())
            texts << QString::fromStdString(id.get<std::string>());
    }
    return texts;
}

void DefaultCats::take(const QString &id)
{
    if (QStringList ids = missing(); ids.removeAll(id) > 0)
        setMissing(ids);
}

void DefaultCats::setMissing(const QStringList &ids)
{
    if (ids.isEmpty())
        return m_defaults.remove(missingKey);
    Json texts = Json::array();
    for (const QString &id : ids)
        texts.push_back(id.toStdString());
    m_defaults.setValue(missingKey, QByteArray::fromStdString(texts.dump()));
}

}
