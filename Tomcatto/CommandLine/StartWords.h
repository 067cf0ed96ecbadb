#pragma once

#include "CommandLine/Invocation.h"

namespace tomcatto {

/// Takes the "-KEY VALUE" pairs out of the words before the sub-command. @return the other words; the error is what to
/// tell the user
[[nodiscard]] std::expected<QStringList, QString> takeArgumentDomain(const QStringList &words, Invocation &invocation);

/// Whether the words start the application, which is read without the grammar: a hidden application would keep what
/// that leaves behind.
[[nodiscard]] bool isPlainStart(const QStringList &words, Invocation &invocation);

}
