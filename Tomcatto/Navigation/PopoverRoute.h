#pragma once

namespace tomcatto {

/// Where the popover can go from the timer panel.
enum class PopoverRoute { stats };

}
