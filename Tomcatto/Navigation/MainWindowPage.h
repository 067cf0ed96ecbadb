#pragma once

#include <QtCore/QString>
#include <QtCore/QStringView>

#include <array>
#include <optional>

namespace tomcatto {

/// The pages of the main window.
enum class MainWindowPage { timer, general, videos, statistics, permissions, about };

/// All pages, in the order of the sidebar.
inline constexpr std::array mainWindowPages{MainWindowPage::timer,       MainWindowPage::general,
                                            MainWindowPage::videos,      MainWindowPage::statistics,
                                            MainWindowPage::permissions, MainWindowPage::about};

/// The page's name on the command line and in texts' keys.
[[nodiscard]] QString rawValue(MainWindowPage page);

/// The page with that name; nothing for any other text.
[[nodiscard]] std::optional<MainWindowPage> mainWindowPageFromRawValue(QStringView text);

}
