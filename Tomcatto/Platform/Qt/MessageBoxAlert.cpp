#include "Platform/Qt/MessageBoxAlert.h"

#include "Foundation/ApplicationIdentity.h"

#include <QtWidgets/QMessageBox>
#include <QtWidgets/QPushButton>

namespace tomcatto {

MessageBoxAlert::MessageBoxAlert(const DialogPlace &dialogs)
    : m_dialogs(dialogs)
{
}

MessageBoxAlert::~MessageBoxAlert() = default;

void MessageBoxAlert::showWarning(const AlertDescription &description, std::function<void(AlertButton)> onClosed)
{
    m_waiting.push_back({description, std::move(onClosed)});
    if (!m_box)
        showNext();
}

void MessageBoxAlert::showNext()
{
    const AlertDescription &description = m_waiting.front().description;
    m_box = std::make_unique<QMessageBox>();
    m_box->setIcon(QMessageBox::Warning);
    m_box->setWindowTitle(productName);
    // File names and messages of the system come in here: nothing is markup.
    m_box->setTextFormat(Qt::PlainText);
    m_box->setText(description.message);
    m_box->setInformativeText(description.informativeText);
    const QPushButton *first = m_box->addButton(description.firstButton, QMessageBox::AcceptRole);
    QPushButton *second = m_box->addButton(description.secondButton, QMessageBox::RejectRole);
    m_box->setEscapeButton(second);
    // A break that begins meanwhile is the user's to skip.
    m_box->setWindowModality(Qt::NonModal);
    m_box->setAttribute(Qt::WA_QuitOnClose, false);
    connect(m_box.get(), &QMessageBox::finished, this,
            [this, first] { close(m_box->clickedButton() == first ? AlertButton::first : AlertButton::second); });
    m_dialogs.show(*m_box);
}

void MessageBoxAlert::close(AlertButton button)
{
    // The box is still sending its signal, and the handler may ask for the next warning.
    m_box.release()->deleteLater();
    const auto onClosed = std::move(m_waiting.front().onClosed);
    m_waiting.pop_front();
    if (!m_waiting.empty())
        showNext();
    onClosed(button);
}

}
