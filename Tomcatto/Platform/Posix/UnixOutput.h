#pragma once

#include <memory>
#include <QtCore/QByteArray>
#include <QtCore/QObject>

class QSocketNotifier;

namespace tomcatto {

/// Writes text to a descriptor without ever waiting for its reader. What a stopped terminal or a full pipe does not
/// take is kept, up to 1 MiB, and written from the main loop once it takes more, so neither holds the process up and no
/// line is lost. Main thread only.
class UnixOutput final : public QObject
{
    Q_OBJECT

public:
    /// @param descriptor stays the caller's, its flags as they are, since other processes may share them.
    explicit UnixOutput(int descriptor);
    /// Waits for up to a second to get rid of what is left.
    ~UnixOutput() override;

    /// Text with a carriage return in front draws the current line anew: what is left of that line is given up for it.
    /// An output that is closed takes everything and shows nothing.
    void write(const QByteArray &text);

private:
    [[nodiscard]] bool isReady(int longestWaitMilliseconds) const;
    void writeLeft();
    void watch(bool isWanted);

    int m_ownDescriptor;
    int m_descriptor;
    bool m_isClosed = false;
    QByteArray m_left;
    std::unique_ptr<QSocketNotifier> m_notifier;
};

}
