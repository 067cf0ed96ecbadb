#include "MenuBar/TrayMenuBuilder.h"

namespace tomcatto {
namespace {

QString primaryKey(PrimaryTransport primary)
{
    switch (primary) {
    case PrimaryTransport::start:
        return QStringLiteral("tray.menu.start");
    case PrimaryTransport::startBreak:
        return QStringLiteral("tray.menu.start_break");
    case PrimaryTransport::pause:
        return QStringLiteral("tray.menu.pause");
    case PrimaryTransport::resume:
        return QStringLiteral("tray.menu.resume");
    }
    return {};
}

}

TrayMenu trayMenu(const TransportControls &controls, const LocalizedStrings &strings, std::optional<bool> pillChoice)
{
    const auto entry = [&](TrayMenuAction action, const QString &key, bool isEnabled = true) {
        return TrayMenuEntry{action, strings.text(key), isEnabled, std::nullopt};
    };
    const TrayMenuEntry separator;
    TrayMenu menu{{
        entry(TrayMenuAction::openPanel, QStringLiteral("tray.menu.open_panel")),
        separator,
        entry(TrayMenuAction::primary, primaryKey(controls.primary)),
        controls.showsTakeBreak ? entry(TrayMenuAction::takeBreak, QStringLiteral("tray.menu.take_break"))
                                : entry(TrayMenuAction::skip, QStringLiteral("tray.menu.skip"), controls.canSkip),
        entry(TrayMenuAction::extend, QStringLiteral("tray.menu.extend"), controls.showsExtend),
        entry(TrayMenuAction::reset, QStringLiteral("tray.menu.reset"), controls.canReset),
        separator,
        entry(TrayMenuAction::statistics, QStringLiteral("tray.menu.statistics")),
        entry(TrayMenuAction::settings, QStringLiteral("tray.menu.settings")),
    }};
    if (pillChoice) {
        menu.entries.push_back(entry(TrayMenuAction::togglePill, QStringLiteral("tray.menu.show_pill")));
        menu.entries.back().isChecked = pillChoice;
    }
    menu.entries.push_back(separator);
    menu.entries.push_back(entry(TrayMenuAction::quit, QStringLiteral("tray.menu.quit")));
    return menu;
}

}
