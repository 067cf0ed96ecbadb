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
    /// @param afterWrite runs on the main thread once the record is on disk or its writing has failed: before a
    /// synchronous call returns, from the main loop after an asynchronous one. May be empty.
    virtual void insert(const PomodoroSessionInsertRequest &request, InsertMode mode,
                        std::function<void()> afterWrite = {}) = 0;
    /// Returns when everything handed over so far is on disk, or its writing has failed.
    virtual void waitForWrites() = 0;
    /// Writes, asynchronously, the record of a phase that an earlier run left behind, unless that run has still written
    /// one: a record of the same phase with the same start. Failures are those of `insert`.
    virtual void insertRecovered(const PomodoroSessionInsertRequest &request) = 0;
};

}
