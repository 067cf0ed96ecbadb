#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtCore/QStringList>

namespace tomcatto {

/// What stands in an autostart entry, its own or another's. A plain value.
struct AutostartEntry
{
    bool isApplication = false;
    /// The desktop's own settings have switched it off.
    bool isSwitchedOff = false;
    /// The words of the command, the program first; empty where there is none.
    QStringList command;
    /// Without this program the desktop starts nothing; empty where the entry names none.
    QString neededProgram;

    /// Reads an entry's text; what it does not know stays out.
    [[nodiscard]] static AutostartEntry read(const QByteArray &text);
    /// `path` as one word of a command, in the form that an entry takes.
    [[nodiscard]] static QByteArray commandWord(const QString &path);

    bool operator==(const AutostartEntry &) const = default;
};

}
