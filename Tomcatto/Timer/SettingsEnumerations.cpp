#include "Timer/SettingsEnumerations.h"

namespace tomcatto {

namespace {

template<typename Case>
std::optional<Case> parse(QStringView text, std::initializer_list<Case> cases)
{
    for (const Case candidate : cases) {
        if (text == rawValue(candidate))
            return candidate;
    }
    return std::nullopt;
}

}

QString rawValue(ThemePreference preference)
{
    switch (preference) {
    case ThemePreference::system:
        return QStringLiteral("system");
    case ThemePreference::light:
        return QStringLiteral("light");
    case ThemePreference::dark:
        return QStringLiteral("dark");
    }
    return {};
}

QString rawValue(MenuBarStyle style)
{
    switch (style) {
    case MenuBarStyle::iconOnly:
        return QStringLiteral("iconOnly");
    case MenuBarStyle::countdown:
        return QStringLiteral("countdown");
    }
    return {};
}

QString rawValue(VideoSource source)
{
    switch (source) {
    case VideoSource::bundled:
        return QStringLiteral("bundled");
    }
    return {};
}

std::optional<ThemePreference> themePreferenceFromRawValue(QStringView text)
{
    return parse(text, {ThemePreference::system, ThemePreference::light, ThemePreference::dark});
}

std::optional<MenuBarStyle> menuBarStyleFromRawValue(QStringView text)
{
    return parse(text, {MenuBarStyle::iconOnly, MenuBarStyle::countdown});
}

std::optional<VideoSource> videoSourceFromRawValue(QStringView text)
{
    return parse(text, {VideoSource::bundled});
}

}
