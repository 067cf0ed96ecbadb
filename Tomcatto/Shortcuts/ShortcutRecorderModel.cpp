#include "Shortcuts/ShortcutRecorderModel.h"

#include "Shortcuts/ShortcutValidation.h"

namespace tomcatto {

namespace {

constexpr quint16 escapeKey = 53;

}

ShortcutRecorderModel::ShortcutRecorderModel(KeyMonitor &keys, GlobalClickMonitor &clicks,
                                             const LocalizedStrings &strings, QObject *parent)
    : QObject(parent)
    , m_keys(keys)
    , m_clicks(clicks)
    , m_strings(strings)
{
}

void ShortcutRecorderModel::start(std::function<void(const KeyCombo &)> onCapture)
{
    m_onCapture = std::move(onCapture);
    m_isRecording = true;
    m_refusal.clear();
    m_monitor = m_keys.onKeyDown({}, [this](const KeyPress &press) { keyDown(press); });
    m_clickMonitor = m_clicks.onPressed([this](QPoint) { stop(); });
    Q_EMIT changed();
}

void ShortcutRecorderModel::stop()
{
    m_monitor.cancel();
    m_clickMonitor.cancel();
    if (std::exchange(m_isRecording, false))
        Q_EMIT changed();
}

void ShortcutRecorderModel::keyDown(const KeyPress &press)
{
    // The key that started the recording may still be held.
    if (!press.keyCode || press.isRepeat)
        return;
    if (*press.keyCode == escapeKey)
        return stop();
    const KeyCombo combo(*press.keyCode, press.heldModifiers);
    const auto result = ShortcutValidation::validate(combo);
    switch (result.kind) {
    case ShortcutValidation::Result::Kind::reserved:
        return setRefusal(m_strings.format(QStringLiteral("settings.shortcuts.reserved %@"),
                                           m_strings.text(ShortcutValidation::displayNameKey(result.reservedName))));
    case ShortcutValidation::Result::Kind::standard:
        return setRefusal(m_strings.text(QStringLiteral("settings.shortcuts.standard")));
    case ShortcutValidation::Result::Kind::invalid:
        return setRefusal(m_strings.text(QStringLiteral("settings.shortcuts.invalid")));
    case ShortcutValidation::Result::Kind::ok:
        break;
    }
    const auto onCapture = m_onCapture;
    onCapture(combo);
    stop();
}

void ShortcutRecorderModel::setRefusal(const QString &refusal)
{
    m_refusal = refusal;
    Q_EMIT changed();
}

}
