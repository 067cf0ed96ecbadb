#include "MainWindow/ShortcutsViewModel.h"

#include "Shortcuts/KeyComboFormatter.h"

namespace tomcatto {

ShortcutsViewModel::ShortcutsViewModel(ShortcutsService &shortcuts, HotKeys &hotKeys, KeyMonitor &keys,
                                       GlobalClickMonitor &clicks, const LocalizedStrings &strings, QObject *parent)
    : QObject(parent)
    , m_shortcuts(shortcuts)
    , m_hotKeys(hotKeys)
    , m_strings(strings)
    , m_recorder(keys, clicks, strings)
    , m_support(hotKeys.onSupportChanged([this] { Q_EMIT changed(); }))
{
    connect(&m_recorder, &ShortcutRecorderModel::changed, this, &ShortcutsViewModel::followRecorder);
    connect(&shortcuts, &ShortcutsService::changed, this, &ShortcutsViewModel::changed);
    connect(&strings, &LocalizedStrings::changed, this, &ShortcutsViewModel::changed);
}

QVariantList ShortcutsViewModel::rows() const
{
    QVariantList rows;
    for (const ShortcutAction action : allShortcutActions)
        rows.append(row(action));
    return rows;
}

QVariantMap ShortcutsViewModel::row(ShortcutAction action) const
{
    const auto combo = m_shortcuts.binding(action);
    const bool isRecording = m_recorder.isRecording() && action == m_recorded;
    const QString title = m_strings.text(labelKey(action));
    const QString keys = combo ? KeyComboFormatter::string(*combo, m_strings)
                               : m_strings.text(QStringLiteral("settings.shortcuts.none"));
    return {{QStringLiteral("id"), rawValue(action)},
            {QStringLiteral("title"), title},
            {QStringLiteral("keys"), combo ? KeyComboFormatter::parts(*combo, m_strings) : QStringList()},
            {QStringLiteral("name"), m_strings.format(QStringLiteral("settings.shortcuts.accessibility"), title, keys)},
            {QStringLiteral("isUnavailable"), m_shortcuts.isUnavailable(action)},
            {QStringLiteral("isRecording"), isRecording},
            {QStringLiteral("refusal"), isRecording ? m_recorder.refusal() : QString()}};
}

QStringList ShortcutsViewModel::commands() const
{
    return {QStringLiteral("tomcatto toggle"), QStringLiteral("tomcatto skip"), QStringLiteral("tomcatto extend")};
}

void ShortcutsViewModel::record(const QString &id)
{
    const auto action = shortcutActionFromRawValue(id);
    if (!action)
        return;
    m_recorded = *action;
    m_recorder.start([this](const KeyCombo &combo) { m_shortcuts.setBinding(m_recorded, combo); });
}

void ShortcutsViewModel::clear(const QString &id)
{
    if (const auto action = shortcutActionFromRawValue(id))
        m_shortcuts.clearBinding(*action);
}

void ShortcutsViewModel::followRecorder()
{
    if (m_recorder.isRecording())
        m_shortcuts.suspend();
    else
        m_shortcuts.resume();
    Q_EMIT changed();
}

}
