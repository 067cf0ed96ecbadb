#pragma once

#include <array>
#include <optional>
#include <QtCore/QString>
#include <QtCore/QStringView>

namespace tomcatto {

/// The language people choose for the application. `system` follows the system; the others are the languages that there
/// are texts for. Stored by the texts of `rawValue`.
enum class SelectedLanguage { system, en, tr, de, es, fr };

/// Every choice, in the order of the language picker.
inline constexpr std::array allLanguages{SelectedLanguage::system, SelectedLanguage::en, SelectedLanguage::tr,
                                         SelectedLanguage::de,     SelectedLanguage::es, SelectedLanguage::fr};

/// The stored text of a choice: "system" or the language's two-letter code.
[[nodiscard]] QString rawValue(SelectedLanguage language);

/// The choice with that stored text; nothing for any other text.
[[nodiscard]] std::optional<SelectedLanguage> languageFromRawValue(QStringView text);

/// The key of the text that names the choice in the language picker.
[[nodiscard]] QString pickerLabelKey(SelectedLanguage language);

}
