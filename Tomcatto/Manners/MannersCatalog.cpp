#include "Manners/MannersCatalog.h"

#include <algorithm>
#include <QtCore/QMetaEnum>
#include <QtCore/QStringList>

namespace tomcatto {

namespace {

using Key = MannersSettings::Key;

QStringList allowedTexts(Key key)
{
    if (isSwitch(key))
        return {QStringLiteral("true"), QStringLiteral("false")};
    auto choices = MannersSettings::choices(key);
    std::ranges::sort(choices);
    QStringList texts;
    for (const qint64 choice : choices)
        texts << QString::number(choice);
    return texts;
}

}

const std::vector<Key> &allManners()
{
    static const std::vector<Key> all = [] {
        std::vector<Key> keys;
        const QMetaEnum names = QMetaEnum::fromType<Key>();
        keys.reserve(static_cast<std::size_t>(names.keyCount()));
        for (int place = 0; place < names.keyCount(); ++place)
            keys.push_back(static_cast<Key>(names.value(place)));
        return keys;
    }();
    return all;
}

std::optional<Key> findManner(const QString &keyText)
{
    const auto found = std::ranges::find(allManners(), keyText, &MannersSettings::keyText);
    return found != allManners().end() ? std::optional(*found) : std::nullopt;
}

bool isSwitch(Key key)
{
    return key != Key::awayAfterMinutes && key != Key::wordBeforeSeconds;
}

std::expected<qint64, QString> parsedManner(Key key, const QString &text)
{
    const QStringList allowed = allowedTexts(key);
    if (allowed.contains(text))
        return isSwitch(key) ? qint64{text == allowed.front()} : text.toLongLong();
    const QString choices = isSwitch(key) ? allowed.join(QStringLiteral(" or "))
                                          : QStringLiteral("one of: ") + allowed.join(QStringLiteral(", "));
    return std::unexpected(
        QStringLiteral("%1: \"%2\" is not allowed; use %3").arg(MannersSettings::keyText(key), text, choices));
}

}
