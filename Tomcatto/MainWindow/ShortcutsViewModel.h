#pragma once

#include "Platform/Ports/HotKeys.h"
#include "Shortcuts/ShortcutRecorderModel.h"
#include "Shortcuts/ShortcutsService.h"

#include <QtCore/QVariantList>

namespace tomcatto {

/// The rows of the shortcuts: what is bound, and recording it anew. While one is recorded no shortcut acts. Main thread
/// only.
class ShortcutsViewModel final : public QObject
{
    Q_OBJECT
    /// Rows: id, title, keys (a text to each; none when not set), name (for a screen reader), isUnavailable (another
    /// application holds the keys), isRecording, refusal.
    Q_PROPERTY(QVariantList rows READ rows NOTIFY changed FINAL)
    /// Whether the desktop gives keys from anywhere; without them there are the commands.
    Q_PROPERTY(bool isOffered READ isOffered NOTIFY changed FINAL)
    /// Command lines to give keys to in the desktop's own settings.
    Q_PROPERTY(QList<QString> commands READ commands CONSTANT FINAL)

public:
    /// All outlive the model.
    ShortcutsViewModel(ShortcutsService &shortcuts, HotKeys &hotKeys, KeyMonitor &keys, GlobalClickMonitor &clicks,
                       const LocalizedStrings &strings, QObject *parent = nullptr);

    [[nodiscard]] QVariantList rows() const;
    [[nodiscard]] bool isOffered() const { return m_hotKeys.support() != HotKeySupport::none; }
    [[nodiscard]] QStringList commands() const;

    /// Records new keys for a row.
    Q_INVOKABLE void record(const QString &id);
    Q_INVOKABLE void clear(const QString &id);
    /// Ends a recording without keys.
    Q_INVOKABLE void cancel() { m_recorder.stop(); }

Q_SIGNALS:
    void changed();

private:
    [[nodiscard]] QVariantMap row(ShortcutAction action) const;
    void followRecorder();

    ShortcutsService &m_shortcuts;
    const HotKeys &m_hotKeys;
    const LocalizedStrings &m_strings;
    ShortcutRecorderModel m_recorder;
    ShortcutAction m_recorded = ShortcutAction::toggleTimer;
    Cancellable m_support;
};

}
