#include "Localization/SelectedLanguage.h"

namespace tomcatto {

QString rawValue(SelectedLanguage language)
{
    switch (language) {
    case SelectedLanguage::system:
        return QStringLiteral("system");
    case SelectedLanguage::en:
        return QStringLiteral("en");
    case SelectedLanguage::tr:
        return QStringLiteral("tr");
    case SelectedLanguage::de:
        return QStringLiteral("de");
    case SelectedLanguage::es:
        return QStringLiteral("es");
    case SelectedLanguage::fr:
        return QStringLiteral("fr");
    }
    return {};
}

std::optional<SelectedLanguage> languageFromRawValue(QStringView text)
{
    for (const SelectedLanguage language : allLanguages) {
        if (text == rawValue(language))
            return language;
    }
    return std::nullopt;
}

QString pickerLabelKey(SelectedLanguage language)
{
    return QStringLiteral("settings.general.language_") + rawValue(language);
}

}
