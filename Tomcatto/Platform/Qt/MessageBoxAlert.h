#pragma once

#include "Platform/Ports/Alert.h"
#include "Platform/Qt/DialogPlace.h"

#include <deque>
#include <memory>
#include <QtCore/QObject>

class QMessageBox;

namespace tomcatto {

/// Warnings in message boxes, one after the other. Main thread only.
class MessageBoxAlert final : public QObject, public Alert
{
    Q_OBJECT

public:
    /// @param dialogs outlives this
    explicit MessageBoxAlert(const DialogPlace &dialogs);
    ~MessageBoxAlert() override;

    void showWarning(const AlertDescription &description, std::function<void(AlertButton)> onClosed) override;

private:
    struct Waiting
    {
        AlertDescription description;
        std::function<void(AlertButton)> onClosed;
    };

    void showNext();
    void close(AlertButton button);

    const DialogPlace &m_dialogs;
    /// The first one is showing.
    std::deque<Waiting> m_waiting;
    std::unique_ptr<QMessageBox> m_box;
};

}
