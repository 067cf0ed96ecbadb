#pragma once

#include "Foundation/FatalError.h"

#include <concepts>
#include <utility>

namespace tomcatto {

/// a + b; overflow is fatal.
template<std::integral T>
[[nodiscard]] T checkedAdd(T a, T b)
{
    T result{};
    if (__builtin_add_overflow(a, b, &result))
        fatalError(QStringLiteral("Arithmetic overflow in an addition"));
    return result;
}

/// a − b; overflow is fatal.
template<std::integral T>
[[nodiscard]] T checkedSubtract(T a, T b)
{
    T result{};
    if (__builtin_sub_overflow(a, b, &result))
        fatalError(QStringLiteral("Arithmetic overflow in a subtraction"));
    return result;
}

/// a × b; overflow is fatal.
template<std::integral T>
[[nodiscard]] T checkedMultiply(T a, T b)
{
    T result{};
    if (__builtin_mul_overflow(a, b, &result))
        fatalError(QStringLiteral("Arithmetic overflow in a multiplication"));
    return result;
}

/// The value in a narrower type; a value that does not fit is fatal.
template<std::integral To, std::integral From>
[[nodiscard]] To checkedNarrow(From value)
{
    if (!std::in_range<To>(value))
        fatalError(QStringLiteral("Value does not fit its width: ") + QString::number(value));
    return static_cast<To>(value);
}

}
