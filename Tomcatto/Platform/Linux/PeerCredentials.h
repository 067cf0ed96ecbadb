#pragma once

namespace tomcatto {

/// Whether the other end of a connected local socket belongs to this user or the administrator.
[[nodiscard]] bool isPeerTrusted(int descriptor);

}
