#pragma once

#include "Foundation/Cancellable.h"

#include <QtCore/QString>

namespace tomcatto {

/// The terminal that the process was started from. Main thread only.
class Terminal
{
public:
    virtual ~Terminal() = default;

    /// Whether both input and output are a terminal, held by this process or not.
    [[nodiscard]] virtual bool isTerminal() const = 0;
    /// Whether they are a terminal and this process is in its foreground.
    [[nodiscard]] virtual bool isInteractive() const = 0;
    /// Whether what the process writes to standard error appears on a terminal.
    [[nodiscard]] virtual bool showsErrors() const = 0;
    /// Columns of the terminal, 80 where unknown.
    [[nodiscard]] virtual int columns() const = 0;
    /// Takes single keys without echo from now until the result is destroyed, which restores the terminal's settings.
    [[nodiscard]] virtual Cancellable readKeys(std::function<void(QChar)> handler) = 0;
    /// Writes text to standard output and flushes it. Never waits for its reader: what is not taken now follows when
    /// it is, but for an unwritten rest of a line that text with a carriage return in front draws anew. A closed output
    /// is not an error.
    virtual void write(const QString &text) = 0;
};

}
