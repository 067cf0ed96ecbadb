#pragma once

namespace tomcatto {

/// Whether the kernel drives a graphics processor that OpenGL of this system draws on and this user may use. Any
/// thread.
[[nodiscard]] bool hasRenderDevice();

}
