#include "MenuBar/TrayMenuBuilder.h"

#include "MenuBar/TransportControls.h"

namespace tomcatto {
namespace {

std::pair<TrayMenuAction, QString> primaryEntry(PrimaryTransport primary)
{
    switch (primary) {
    case PrimaryTransport::start:
        return {TrayMenuAction::start, QStringLiteral("tray.menu.start")};
    case PrimaryTransport::startBreak:
        return {TrayMenuAction::startBreak, QStringLiteral("tray.menu.start_break")};
    case PrimaryTransport::pause:
        return {TrayMenuAction::pause, QStringLiteral("tray.menu.pause")};
    case PrimaryTransport::resume:
        return {TrayMenuAction::resume, QStringLiteral("tray.menu.resume")};
    }
    return {};
}

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
    const auto [primary, primaryKey] = primaryEntry(controls.primary);
    const TrayMenuEntry separator;
    TrayMenu menu{{
        entry(TrayMenuAction::openPanel, QStringLiteral("tray.menu.open_panel")),
        separator,
        phaseEntry(primary, primaryKey),
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
