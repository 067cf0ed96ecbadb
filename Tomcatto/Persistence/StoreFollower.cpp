#include "Persistence/StoreFollower.h"

#include "Persistence/CoreDataStack.h"
#include "Platform/Ports/FileWatch.h"
#include "Platform/Ports/MainRunLoop.h"

#include <QtCore/QFileInfo>

namespace tomcatto {

namespace {

// One commit writes several times.
constexpr std::chrono::milliseconds quietTime{200};

}

StoreFollower::StoreFollower(CoreDataStack &stack, FileWatch &fileWatch, MainRunLoop &runLoop)
    : m_stack(stack)
    , m_runLoop(runLoop)
{
    // The log lies beside the file that a link leads to.
    const QString file = QFileInfo(stack.storePath()).canonicalFilePath();
    m_watch = fileWatch.watch({file, file + QStringLiteral("-wal")}, [this] { filesChanged(); });
}

void StoreFollower::filesChanged()
{
    // Not put off by further writes, so that a busy writer is followed as well.
    if (m_question.isActive())
        return;
    m_question = m_runLoop.after(quietTime, [this] {
        m_question.cancel();
        m_stack.announceForeignWrites();
    });
}

}
