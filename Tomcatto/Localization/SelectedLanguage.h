#pragma once

#include "Foundation/EnumTexts.h"

namespace tomcatto {

/// The language people choose for the application. `system` follows the system; the others are the languages that there
/// are texts for. Stored by the texts of `rawValue`.
enum class SelectedLanguage { system, en, tr, de, es, fr };
template<>
inline constexpr std::array rawValues<SelectedLanguage>{"system", "en", "tr", "de", "es", "fr"};

/// Every choice, in the order of the language picker.
inline constexpr std::array allLanguages{SelectedLanguage::system, SelectedLanguage::en, SelectedLanguage::tr,
                                         SelectedLanguage::de,     SelectedLanguage::es, SelectedLanguage::fr};

/// The key of the text that names the choice in the language picker.
[[nodiscard]] inline QString pickerLabelKey(SelectedLanguage language)
{
    return QStringLiteral("settings.general.language_") + rawValue(language);
}

}
