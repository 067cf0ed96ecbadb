#include "Platform/Dialogs/ProcessAlert.h"

#include "Foundation/ApplicationIdentity.h"
#include "Platform/Dialogs/DialogMessages.h"

#include <QtCore/QJsonArray>

namespace tomcatto {

void ProcessAlert::showWarning(const AlertDescription &description, std::function<void(AlertButton)> onClosed)
{
    m_waiting.push_back({description, std::move(onClosed)});
    if (m_dialog)
        m_dialog->raise();
    else
        showNext();
}

void ProcessAlert::showNext()
{
    const AlertDescription &description = m_waiting.front().description;
    const QJsonObject request{{dialogKey::kind, QStringLiteral("warning")},
                              {dialogKey::title, productName},
                              {dialogKey::text, description.message},
                              {dialogKey::detail, description.informativeText},
                              {dialogKey::choices, QJsonArray{description.firstButton, description.secondButton}}};
    m_dialog = std::make_unique<DialogProcess>(m_surroundings, request, [this](const QJsonObject &answer) {
        close(answer.value(dialogKey::chosen).toInt(1) == 0 ? AlertButton::first : AlertButton::second);
    });
}

void ProcessAlert::close(AlertButton button)
{
    m_dialog.reset();
    const auto onClosed = std::move(m_waiting.front().onClosed);
    m_waiting.pop_front();
    // The handler may ask for the next warning.
    if (!m_waiting.empty())
        showNext();
    onClosed(button);
}

}
