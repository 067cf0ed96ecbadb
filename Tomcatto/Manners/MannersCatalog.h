#pragma once

#include "Manners/MannersSettings.h"

#include <expected>

namespace tomcatto {

/// All keys, in their order.
[[nodiscard]] const std::vector<MannersSettings::Key> &allManners();
/// The manner with that key text; nothing for any other text.
[[nodiscard]] std::optional<MannersSettings::Key> findManner(const QString &keyText);
/// Whether it is turned on and off; the others are numbers.
[[nodiscard]] bool isSwitch(MannersSettings::Key key);
/// The value that a text stands for. The error names the key, the text and what is allowed.
[[nodiscard]] std::expected<qint64, QString> parsedManner(MannersSettings::Key key, const QString &text);

}
