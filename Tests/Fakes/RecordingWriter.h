#pragma once

#include "Persistence/Repositories/SessionRecordWriter.h"

#include <vector>

namespace tomcatto {

/// Keeps what the recorder hands to the store.
class RecordingWriter final : public SessionRecordWriter
{
public:
    void insert(const PomodoroSessionInsertRequest &request, InsertMode mode, std::function<void()> afterWrite) override
    {
        requests.push_back(request);
        lastMode = mode;
        waiting.push_back(std::move(afterWrite));
        if (!isSlow || mode == InsertMode::synchronous)
            std::exchange(waiting, {}).back()();
    }
    void waitForWrites() override { waiting.clear(); }
    void insertRecovered(const PomodoroSessionInsertRequest &request) override { requests.push_back(request); }

    std::vector<PomodoroSessionInsertRequest> requests;
    InsertMode lastMode = InsertMode::asynchronous;
    /// Whether an asynchronous write takes until the test calls what waits for it.
    bool isSlow = false;
    std::vector<std::function<void()>> waiting;
};

}
