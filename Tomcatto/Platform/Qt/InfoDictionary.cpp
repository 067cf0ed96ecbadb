#include "Platform/Qt/InfoDictionary.h"

#include "Foundation/ApplicationIdentity.h"
#include "Foundation/Logger.h"

#include <nlohmann/json.hpp>
#include <QtCore/QFile>
#include <QtCore/QStandardPaths>

namespace tomcatto {

namespace {

using Json = nlohmann::ordered_json;

QString builtIn(const QString &key)
{
    return key == QLatin1String("RemoteManifestURL") ? QStringLiteral(TOMCATTO_REMOTE_MANIFEST_URL) : QString();
}

/// The first file that there is, but for those that are the user's own.
QString overridingFile()
{
    const QString own = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    for (const QString &folder : QStandardPaths::standardLocations(QStandardPaths::GenericConfigLocation)) {
        QString file = folder + QLatin1Char('/') + applicationIdentifier + QStringLiteral("/Info.json");
        if (folder != own && QFile::exists(file))
            return file;
    }
    return {};
}

std::optional<QString> overriding(const QString &key)
{
    constexpr qint64 longest = qint64{1024} * 1024;
    const QString path = overridingFile();
    if (path.isEmpty())
        return std::nullopt;
    QFile file(path);
    const QByteArray text = file.open(QIODevice::ReadOnly) ? file.read(longest) : QByteArray();
    const Json object = Json::parse(text.begin(), text.end(), nullptr, false);
    const auto value = object.is_object() ? object.find(key.toStdString()) : object.end();
    if (object.is_object() && value == object.end())
        return std::nullopt;
    if (object.is_object() && value->is_string())
        return QString::fromStdString(value->get<std::string>());
    Logger(QStringLiteral("InfoDictionary")).error(path + QStringLiteral(" does not hold an object of texts"));
    return std::nullopt;
}

}

std::optional<QString> InfoDictionary::text(const QString &key)
{
    const QString text = overriding(key).value_or(builtIn(key));
    return text.isEmpty() ? std::nullopt : std::optional(text);
}

}
