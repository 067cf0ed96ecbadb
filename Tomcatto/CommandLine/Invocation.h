#pragma once

#include "Control/TimerStatus.h"
#include "Platform/Ports/UserDefaults.h"
#include "Statistics/StatsRange.h"

#include <map>

namespace tomcatto {

/// What the words of a command line ask for.
struct Invocation
{
    enum class Action {
        /// Start the application.
        application,
        /// Start the widget, a program of its own.
        widget,
        /// One of the commands that only the running application carries out.
        remote,
        status,
        stats,
        /// Write the phases of `range` to the file `text`, or to standard output where that is "-".
        exportSessions,
        historyList,
        /// Copy the history into the file `text`, or put that copy in its place.
        historyBackup,
        historyRestore,
        /// Print all values that the command knows, or the one of the arguments.
        show,
        shortcutsList,
        videosList,
        /// One of the commands that change something, whether the application runs or not.
        change,
        /// Tell what the application stands on.
        doctor,
        /// Make a library of the folder `text`.
        publish,
        videosDownload,
        /// Print `text` and be done: the help or the version.
        print,
    };

    Action action = Action::application;
    /// Whether everything that is logged goes to standard error as well.
    bool isVerbose = false;

    /// The application: whether the terminal is wanted, whether nothing may open by itself, whether a test drives it.
    bool isTerminal = false;
    bool isBackground = false;
    bool isUiTest = false;
    /// Values for this run only, by settings key.
    std::map<QString, DefaultsValue> argumentDomain;

    /// The command as it is sent and its arguments.
    QString command;
    nlohmann::ordered_json arguments = nlohmann::ordered_json::object();

    /// The widget's arguments.
    QStringList widgetArguments;

    /// Where a library will be on the net, and the folder that it is written into.
    QString baseUrl;
    QString output;

    StatusFormat format = StatusFormat::text;
    bool isFollowing = false;
    /// Whether each change of the time is a change too.
    bool wantsTicks = false;
    bool isJson = false;
    StatsRange range = StatsRange::today;

    QString text;
};

/// Reads the words after the program's name. The error is what to tell the user.
[[nodiscard]] std::expected<Invocation, QString> parseCommandLine(const QStringList &words);

}
