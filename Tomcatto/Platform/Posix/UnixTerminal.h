#pragma once

#include "Platform/Ports/ProcessSignals.h"
#include "Platform/Ports/Terminal.h"
#include "Platform/Posix/KeyDecoder.h"
#include "Platform/Posix/UnixOutput.h"

#include <memory>
#include <QtCore/QObject>

class QSocketNotifier;

namespace tomcatto {

/// Columns of the terminal behind a descriptor, 80 where unknown.
[[nodiscard]] int columnsOf(int output);
[[nodiscard]] bool isTerminal(int output);
/// Whether it is a terminal that colours are wanted on.
[[nodiscard]] bool takesColours(int output);

/// A Unix terminal. While keys are read it is in single-key mode without echo; Ctrl-C and Ctrl-Z keep their effect. The
/// settings are restored when the process stops or ends by a fatal error, and single-key mode comes back with it in the
/// foreground: at the signal that it goes on, or at the latest with the next text written. One object reads keys at a
/// time.
class UnixTerminal final : public QObject, public Terminal
{
    Q_OBJECT

public:
    /// @param signals tells when the process goes on after a stop; outlives this object.
    /// @param input, output descriptors, which stay the caller's; standard input and output unless told.
    explicit UnixTerminal(ProcessSignals &signals, int input = 0, int output = 1);
    ~UnixTerminal() override;

    [[nodiscard]] bool isTerminal() const override;
    [[nodiscard]] bool isInteractive() const override;
    [[nodiscard]] bool showsErrors() const override;
    [[nodiscard]] int columns() const override;
    /// Where the input is not a terminal, nothing is read and the result is inactive. Keys end with the input.
    [[nodiscard]] Cancellable readKeys(std::function<void(QChar)> handler) override;
    void write(const QString &text) override;

private:
    [[nodiscard]] bool isForeground() const;
    [[nodiscard]] bool hasInput() const;
    void enterKeyMode();
    void leaveKeyMode();
    void readInput();

    int m_input;
    int m_output;
    UnixOutput m_text;
    bool m_isInKeyMode = false;
    KeyDecoder m_decoder;
    std::shared_ptr<std::function<void(QChar)>> m_keyHandler;
    std::unique_ptr<QSocketNotifier> m_notifier;
    Cancellable m_resumption;
};

}
