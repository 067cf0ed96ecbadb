#pragma once

#include "Persistence/Repositories/SessionRecordWriter.h"

#include <vector>

namespace tomcatto {

/// Keeps what the recorder hands to the store.
class RecordingWriter final : public SessionRecordWriter
{
public:
    void insert(const PomodoroSessionInsertRequest &request, InsertMode mode,
                std::function<void()> beforeWrite) override
    {
        if (beforeWrite)
            beforeWrite();
        requests.push_back(request);
        lastMode = mode;
    }

    std::vector<PomodoroSessionInsertRequest> requests;
    InsertMode lastMode = InsertMode::asynchronous;
};

}
