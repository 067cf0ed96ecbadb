#pragma once

#include <QtDBus/QDBusArgument>
#include <tuple>

namespace tomcatto {

/// What travels over a bus as a structure: the members of `busMembers`, in that order.
template<typename T>
concept BusStructure = requires
{
    T::busMembers;
};

template<BusStructure T>
QDBusArgument &operator<<(QDBusArgument &argument, const T &value)
{
    argument.beginStructure();
    std::apply([&](auto... member) { (argument << ... << (value.*member)); }, T::busMembers);
    argument.endStructure();
    return argument;
}

template<BusStructure T>
const QDBusArgument &operator>>(const QDBusArgument &argument, T &value)
{
    argument.beginStructure();
    std::apply([&](auto... member) { (argument >> ... >> (value.*member)); }, T::busMembers);
    argument.endStructure();
    // The toolkit's own form of such an operator.
    return argument; // NOLINT(bugprone-return-const-ref-from-parameter)
}

}
