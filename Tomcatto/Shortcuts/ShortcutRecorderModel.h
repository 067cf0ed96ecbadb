#pragma once

#include "Localization/LocalizedStrings.h"
#include "Platform/Ports/GlobalClickMonitor.h"
#include "Platform/Ports/KeyMonitor.h"
#include "Shortcuts/KeyCombo.h"

#include <QtCore/QObject>

namespace tomcatto {

/// Records a combination from the keys that come while it does. They reach no window then; Esc and a press of the mouse
/// end it without one. Main thread only.
class ShortcutRecorderModel final : public QObject
{
    Q_OBJECT

public:
    /// All outlive the model.
    ShortcutRecorderModel(KeyMonitor &keys, GlobalClickMonitor &clicks, const LocalizedStrings &strings,
                          QObject *parent = nullptr);

    /// @param onCapture takes the combination, after which nothing is recorded any more.
    void start(std::function<void(const KeyCombo &)> onCapture);
    void stop();
    [[nodiscard]] bool isRecording() const noexcept { return m_isRecording; }
    /// Why the last combination was refused, for people; empty where none was.
    [[nodiscard]] const QString &refusal() const noexcept { return m_refusal; }

Q_SIGNALS:
    void changed();

private:
    void keyDown(const KeyPress &press);
    void setRefusal(const QString &refusal);

    KeyMonitor &m_keys;
    GlobalClickMonitor &m_clicks;
    const LocalizedStrings &m_strings;
    bool m_isRecording = false;
    QString m_refusal;
    Cancellable m_monitor;
    Cancellable m_clickMonitor;
    std::function<void(const KeyCombo &)> m_onCapture;
};

}
