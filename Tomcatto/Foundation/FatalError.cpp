#include "Foundation/FatalError.h"

#include "Foundation/Logger.h"

#include <cstdio>
#include <cstdlib>

namespace tomcatto {

namespace {

void announce(const QString &message)
{
    Logger(QStringLiteral("FatalError")).fault(message);
    const QByteArray line = "tomcatto: " + message.toUtf8() + '\n';
    std::fwrite(line.constData(), 1, static_cast<std::size_t>(line.size()), stderr);
    std::fflush(stderr);
}

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
