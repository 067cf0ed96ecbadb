#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>

namespace tomcatto {

/// Puts another program in the place of this process: the same process number, terminal and working folder. Used before
/// anything is built, from the only thread.
class ProcessReplacement final
{
public:
    /// @param program absolute path of the program that takes over.
    explicit ProcessReplacement(QString program);

    /// The program of this name in the folder of the running one.
    [[nodiscard]] static ProcessReplacement beside(const QString &name);

    /// Whether the program is there and may be run.
    [[nodiscard]] bool isPossible() const;
    /// Replaces this process; `arguments` are those after the program's name. Nothing is unwound and no destructor
    /// runs.
    /// @return only on failure: the system's message.
    [[nodiscard]] QString run(const QStringList &arguments) const;

private:
    QString m_program;
};

}
