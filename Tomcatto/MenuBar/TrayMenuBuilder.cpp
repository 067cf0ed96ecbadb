#include "MenuBar/TrayMenuBuilder.h"

#include "MenuBar/TransportControls.h"

#include <array>

namespace tomcatto {
namespace {

// In the order of `PrimaryTransport`.
constexpr std::array primaryEntries{
    std::pair{TrayMenuAction::start, "tray.menu.start"}, std::pair{TrayMenuAction::startBreak, "tray.menu.start_break"},
    std::pair{TrayMenuAction::pause, "tray.menu.pause"}, std::pair{TrayMenuAction::resume, "tray.menu.resume"}};

}

TrayMenu trayMenu(const PomodoroStateMachine &stateMachine, const LocalizedStrings &strings,
                  std::optional<bool> pillChoice)
{
    const TransportControls controls = transportControls(stateMachine);
    const auto entry = [&](TrayMenuAction action, const QString &key, bool isEnabled = true) {
        return TrayMenuEntry{TrayMenuCommand{action, {}}, strings.text(key), isEnabled, std::nullopt};
    };
    const auto phaseEntry = [&](TrayMenuAction action, const QString &key, bool isEnabled = true) {
        return TrayMenuEntry{TrayMenuCommand{action, stateMachine.phaseToken()}, strings.text(key), isEnabled,
                             std::nullopt};
    };
    const auto [primary, primaryKey] = primaryEntries.at(static_cast<std::size_t>(controls.primary));
    const TrayMenuEntry separator;
    TrayMenu menu{{
        entry(TrayMenuAction::openPanel, QStringLiteral("tray.menu.open_panel")),
        separator,
        phaseEntry(primary, QString::fromLatin1(primaryKey)),
        controls.showsTakeBreak ? phaseEntry(TrayMenuAction::takeBreak, QStringLiteral("tray.menu.take_break"))
                                : phaseEntry(TrayMenuAction::skip, QStringLiteral("tray.menu.skip"), controls.canSkip),
        phaseEntry(TrayMenuAction::extend, QStringLiteral("tray.menu.extend"), controls.showsExtend),
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
