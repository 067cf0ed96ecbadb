#include "Platform/Qt/DisplayLoss.h"

#include <cstdio>
#include <cstdlib>
#include <QtCore/QCoreApplication>
#include <QtCore/QThread>
#include <utility>

namespace tomcatto {

namespace {

// Handlers of messages and of the process's end get no context of their own.
std::function<void()> *handler = nullptr;
QtMessageHandler nextMessageHandler = nullptr;

void endWithoutDisplay()
{
    if (auto *onLost = std::exchange(handler, nullptr)) {
        (*onLost)();
        std::fflush(nullptr);
        std::_Exit(EXIT_SUCCESS);
    }
}

bool isMainThread()
{
    return QThread::currentThread() == qApp->thread();
}

/// On Wayland the toolkit ends the process from the thread that noticed, in a way that nothing else hears of; right
/// before it says so in these words.
void watchMessage(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    nextMessageHandler(type, context, message);
    if (!message.startsWith(QLatin1String("The Wayland connection ")))
        return;
    if (isMainThread())
        return endWithoutDisplay();
    // Another thread waits for the main one to end the process, unless that one hangs.
    constexpr unsigned long longestWaitSeconds = 5;
    QMetaObject::invokeMethod(qApp, endWithoutDisplay, Qt::QueuedConnection);
    QThread::sleep(longestWaitSeconds);
}

/// On an X server the toolkit, or the server's own library, ends the process as a program does that is done.
void watchExit()
{
    if (handler != nullptr && isMainThread())
        endWithoutDisplay();
}

}

DisplayLoss::DisplayLoss(std::function<void()> onLost)
    : m_onLost(std::move(onLost))
{
    handler = &m_onLost;
    [[maybe_unused]] static const int isWatched = std::atexit(watchExit);
    nextMessageHandler = qInstallMessageHandler(watchMessage);
}

DisplayLoss::~DisplayLoss()
{
    handler = nullptr;
    qInstallMessageHandler(nextMessageHandler);
}

}
