#pragma once

#include "Foundation/Cancellable.h"

namespace tomcatto {

class CoreDataStack;
class FileWatch;
class MainRunLoop;

/// Has the store announce what other processes write to it, within a fraction of a second. It asks the store only after
/// its files have changed, so it costs nothing while nobody writes. Main thread only.
class StoreFollower final
{
public:
    /// All outlive the follower.
    StoreFollower(CoreDataStack &stack, FileWatch &fileWatch, MainRunLoop &runLoop);

private:
    void filesChanged();

    CoreDataStack &m_stack;
    MainRunLoop &m_runLoop;
    Cancellable m_question;
    Cancellable m_watch;
};

}
