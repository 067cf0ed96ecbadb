#include "Localization/SelectedLanguage.h"

#include "Foundation/EnumTexts.h"

namespace tomcatto {

namespace {

constexpr std::array languageTexts{"system", "en", "tr", "de", "es", "fr"};

}

QString rawValue(SelectedLanguage language)
{
    return textOf(languageTexts, language);
}

std::optional<SelectedLanguage> languageFromRawValue(QStringView text)
{
    return caseOf<SelectedLanguage>(languageTexts, text);
}

QString pickerLabelKey(SelectedLanguage language)
{
    return QStringLiteral("settings.general.language_") + rawValue(language);
}

}
