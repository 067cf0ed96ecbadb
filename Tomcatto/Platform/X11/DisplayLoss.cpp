#include "Platform/X11/DisplayLoss.h"

#include "Platform/X11/X11Display.h"

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

/// The toolkit tells of the loss in a warning alone, right before it ends the process from the thread that noticed.
void watchMessage(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    nextMessageHandler(type, context, message);
    const bool isLoss = message.startsWith(QLatin1String("The X11 connection broke")) ||
                        message.startsWith(QLatin1String("The Wayland connection broke")) ||
                        message.startsWith(QLatin1String("The Wayland connection experienced a fatal error"));
    if (!isLoss)
        return;
    if (isMainThread())
        return endWithoutDisplay();
    // Another thread waits for the main one to end the process, unless that one hangs.
    constexpr unsigned long longestWaitSeconds = 5;
    QMetaObject::invokeMethod(qApp, endWithoutDisplay, Qt::QueuedConnection);
    QThread::sleep(longestWaitSeconds);
}

/// The X server's own library ends the process as well, and says nothing that could be heard.
void watchExit()
{
    if (handler == nullptr || !isMainThread())
        return;
    const X11Display display;
    if (display.isValid() && xcb_connection_has_error(display.connection()) != 0)
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
