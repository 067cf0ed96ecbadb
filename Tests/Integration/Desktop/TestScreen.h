#pragma once

#include <gtest/gtest.h>
#include <QtCore/QProcess>
#include <QtTest/QTest>

namespace tomcatto {

/// A program that runs beside the test and ends with it.
class SideProgram final
{
public:
    SideProgram(const QString &program, const QStringList &arguments,
                const QProcessEnvironment &environment = QProcessEnvironment::systemEnvironment())
    {
        m_process.setProcessEnvironment(environment);
        m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_process.start(program, arguments);
    }
    SideProgram(const SideProgram &) = delete;
    SideProgram &operator=(const SideProgram &) = delete;
    ~SideProgram() { stop(); }

    void stop()
    {
        m_process.kill();
        m_process.waitForFinished();
    }
    [[nodiscard]] qint64 id() const { return m_process.processId(); }
    /// Sends a line and gives the line that comes back; the event loop runs meanwhile.
    [[nodiscard]] QByteArray ask(const QByteArray &line)
    {
        m_process.write(line + '\n');
        return nextLine();
    }
    [[nodiscard]] QByteArray nextLine()
    {
        const bool hasLine = QTest::qWaitFor([this] { return m_process.canReadLine(); }, 20'000);
        return hasLine ? m_process.readLine().trimmed() : QByteArray("(no answer)");
    }

private:
    QProcess m_process;
};

/// Runs a program to its end while the event loop goes on. @return what it printed.
inline QString outputOf(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.start(program, arguments);
    if (!QTest::qWaitFor([&process] { return process.state() == QProcess::NotRunning; }, 20'000))
        return QStringLiteral("(did not end)");
    return QString::fromUtf8(process.readAllStandardOutput() + process.readAllStandardError());
}

/// Moves the pointer and works its buttons as a user would: words of xdotool.
inline void usePointer(const QString &words)
{
    EXPECT_EQ(outputOf(QStringLiteral("xdotool"), words.split(u' ')), QString());
}

/// The states that the window manager says a window is in.
inline QString windowStates(quintptr window)
{
    return outputOf(QStringLiteral("xprop"), {QStringLiteral("-id"), QString::number(window),
                                              QStringLiteral("_NET_WM_STATE"), QStringLiteral("_NET_WM_DESKTOP")});
}

}
