#pragma once

namespace tomcatto {

/// Whether what the process writes to standard error appears on a terminal.
[[nodiscard]] bool standardErrorIsTerminal();

}
