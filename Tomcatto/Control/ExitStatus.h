#pragma once

namespace tomcatto {

/// How a command ended; the process exits with it.
enum class ExitStatus {
    done = 0,
    /// The operation does not apply now.
    notApplicable = 1,
    /// The words of the command are wrong.
    usage = 2,
    notRunning = 3,
    /// A file or the store failed.
    failed = 4,
};

}
