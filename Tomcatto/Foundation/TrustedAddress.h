#pragma once

#include <QtCore/QUrl>

namespace tomcatto {

/// Whether the address is one of this machine itself, by its name or its number.
[[nodiscard]] bool isLoopback(const QUrl &address);

/// Whether something may be fetched from there: over https from anywhere, over http from this machine alone.
[[nodiscard]] bool isTrustedAddress(const QUrl &address);

/// The same for an address that one of the above leads on to: what came over the net does not get to this machine's own
/// servers.
[[nodiscard]] bool isTrustedRedirect(const QUrl &from, const QUrl &to);

}
