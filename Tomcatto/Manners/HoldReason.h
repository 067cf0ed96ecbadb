#pragma once

#include "Foundation/EnumTexts.h"

namespace tomcatto {

/// Why a break that is due does not begin by itself.
enum class HoldReason {
    /// Another program records or films.
    call,
    /// A window of another program covers a screen.
    fullScreen,
    /// Keys and pointer do not rest yet.
    typing,
};

template<>
inline constexpr std::array rawValues<HoldReason>{"call", "fullScreen", "typing"};

}
