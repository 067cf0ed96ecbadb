#include "Foundation/FatalError.h"

#include "Foundation/Logger.h"

#include <atomic>
#include <cstdio>
#include <cstdlib>

namespace tomcatto {

namespace {

std::atomic<FatalErrorHook> fatalErrorHook = nullptr;

void announce(const QString &message)
{
    // Taken out, so that a failure inside it cannot come back to it.
    if (const FatalErrorHook hook = fatalErrorHook.exchange(nullptr))
        hook();
    Logger(QStringLiteral("FatalError")).fault(message);
    const QByteArray line = "tomcatto: " + message.toUtf8() + '\n';
    std::fwrite(line.constData(), 1, static_cast<std::size_t>(line.size()), stderr);
    std::fflush(stderr);
}

}

void setFatalErrorHook(FatalErrorHook hook)
{
    fatalErrorHook = hook;
}

void fatalError(const QString &message)
{
    announce(message);
    std::abort();
}

void stopProcess(const QString &message, int exitStatus)
{
    announce(message);
    std::_Exit(exitStatus);
}

}
