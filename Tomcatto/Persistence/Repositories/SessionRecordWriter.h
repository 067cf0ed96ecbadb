#pragma once

#include "Persistence/Repositories/PomodoroSessionRecord.h"

#include <functional>

namespace tomcatto {

/// When the record of an ended phase is written.
enum class InsertMode {
    /// Shortly after, on the store's background queue, in the order of the calls.
    asynchronous,
    /// Before the call returns, after everything handed over before.
    synchronous,
};

/// Takes the record of every ended phase. Main thread only.
class SessionRecordWriter
{
public:
    virtual ~SessionRecordWriter() = default;

    /// Writes one record. A value that does not fit its column is fatal; a failed write is logged and not passed on.
    /// @param beforeWrite runs on the writing thread just before the record is written; the recorder waits there until
    /// the next phase's marker is on disk, so that a crash in between never records one phase twice. May be empty.
    virtual void insert(const PomodoroSessionInsertRequest &request, InsertMode mode,
                        std::function<void()> beforeWrite = {}) = 0;
};

}
