#pragma once

#include "Control/ExitStatus.h"
#include "Foundation/Refusal.h"

#include <expected>
#include <nlohmann/json.hpp>
#include <QtCore/QByteArray>
#include <QtCore/QString>

namespace tomcatto {

/// The longest request line that is read, in bytes.
inline constexpr qint64 longestRequest = qint64{64} * 1024;

/// A command that travels over the control socket as one line of JSON: {"command": …, "arguments": {…}}.
struct ControlRequest
{
    QString command;
    nlohmann::ordered_json arguments = nlohmann::ordered_json::object();
    /// Whether the connection stays open and gets a line for each change.
    bool isFollowing = false;
    /// Whether a follower gets a line for each tick as well.
    bool wantsTicks = false;
};

/// The answer, one line of JSON: {"status": …, "message": …, "result": …}; what is empty is left out.
struct ControlReply
{
    ExitStatus status = ExitStatus::done;
    /// For people: on standard output when done, else on standard error.
    QString message;
    nlohmann::ordered_json result;
};

/// Makes a reply of a message alone.
[[nodiscard]] ControlReply controlReply(ExitStatus status, QString message);
[[nodiscard]] ControlReply controlReply(const Refusal &refusal);

/// The text among a request's arguments; empty where there is none.
[[nodiscard]] QString textArgument(const nlohmann::ordered_json &arguments, const char *name);

/// One line with its line feed.
[[nodiscard]] QByteArray encoded(const ControlRequest &request);
[[nodiscard]] QByteArray encoded(const ControlReply &reply);

/// Whether the bytes are a request already, although the line goes on: a JSON object that is closed.
[[nodiscard]] bool isWholeRequest(const QByteArray &bytes);

/// Reads one line. The error says what is wrong with it.
[[nodiscard]] std::expected<ControlRequest, QString> decodedRequest(const QByteArray &line);
[[nodiscard]] std::expected<ControlReply, QString> decodedReply(const QByteArray &line);

}
