#include "CommandLine/Invocation.h"

#include "CommandLine/CommandDescription.h"
#include "CommandLine/StartWords.h"
#include "Composition/HistoryCommands.h"
#include "Manners/MannersCatalog.h"
#include "Timer/SettingsCatalog.h"

#include <CLI/CLI.hpp>

namespace tomcatto {

namespace {

using Action = Invocation::Action;

/// The sub-commands and what they read their words into.
class Grammar final
{
public:
    explicit Grammar(Invocation &invocation)
        : m_invocation(invocation)
    {
        m_app.set_version_flag("--version", "Tomcatto " TOMCATTO_VERSION);
        m_app.add_flag("--terminal", m_invocation.isTerminal, "Use the terminal even where there is a display");
        m_app.add_flag("--background", m_invocation.isBackground, "Start without opening anything");
        m_app.add_flag("--ui-test", m_invocation.isUiTest, "Mark a run under user-interface automation")->group("");
        addVerbose(m_app);
        m_app.require_subcommand(0, 1);
        addRemoteCommands();
        addStatus();
        addWidget();
        addStats();
        addExport();
        addHistory();
        addSettings();
        addManners();
        addShortcuts();
        addVideos();
        addDoctor();
        addPublish();
        // Commands take over a footer that is there when they are added.
        m_app.footer("Without a command the application starts. -KEY VALUE sets a settings key for this run only,\n"
                     "for example: tomcatto -workDurationSeconds 1200");
    }

    [[nodiscard]] const CLI::App &app() const noexcept { return m_app; }
    std::expected<void, QString> parse(const QStringList &words)
    {
        std::vector<std::string> reversed;
        for (auto word = words.crbegin(); word != words.crend(); ++word)
            reversed.push_back(word->toStdString());
        try {
            m_app.parse(reversed);
        } catch (const CLI::Success &) {
            m_invocation.action = Action::print;
            m_invocation.text = printed();
        } catch (const CLI::ParseError &error) {
            return std::unexpected(QString::fromStdString(error.what()));
        } catch (const UsageError &error) {
            return std::unexpected(error.message);
        }
        return {};
    }

private:
    struct UsageError
    {
        QString message;
    };

    void addVerbose(CLI::App &command)
    {
        command.add_flag("--verbose", m_invocation.isVerbose, "Send everything that is logged to standard error too");
    }

    /// Every command is added by this. @param action what it asks for, unless its own callback says so
    CLI::App *addCommand(CLI::App &parent, const char *name, const char *help, std::optional<Action> action = {})
    {
        CLI::App *const command = parent.add_subcommand(name, help);
        addVerbose(*command);
        if (action)
            command->callback([this, action = *action] { m_invocation.action = action; });
        return command;
    }

    /// A command among those that `parent` groups, which is sent as an action of the command by that name.
    CLI::App *addAction(CLI::App &parent, const char *name, const char *help, Action action = Action::change)
    {
        CLI::App *const command = addCommand(parent, name, help);
        command->callback([this, group = parent.get_name(), name, action] { chooseAction(group, name, action); });
        return command;
    }

    void addRemoteCommands()
    {
        static constexpr std::array commands{
            std::pair{"start", "Start focus, or the phase that waits"},
            std::pair{"pause", "Pause the phase"},
            std::pair{"resume", "Go on with the phase"},
            std::pair{"toggle", "Start, pause or resume"},
            std::pair{"skip", "End the phase and go on with the next"},
            std::pair{"take-break", "End overtime, or start the break that waits"},
            std::pair{"extend", "Add five minutes"},
            std::pair{"reset", "Back to the start of the set"},
            std::pair{"quit", "End Tomcatto; the running phase is recorded"},
            std::pair{"panel", "Open the panel"},
        };
        for (const auto &[name, help] : commands)
            addRemote(name, help);
        addWord(*addRemote("window", "Open the main window"), "page", "page",
                "timer, general, videos, statistics, permissions or about")
            ->check(CLI::IsMember({"timer", "general", "videos", "statistics", "permissions", "about"}));
        addWord(*addRemote("preset", "Set the three durations of a preset"), "name", "name", "classic, flow or deep")
            ->required()
            ->check(CLI::IsMember({"classic", "flow", "deep"}));
    }

    /// An argument that is sent under a key.
    CLI::Option *addWord(CLI::App &command, const char *name, const char *key, const char *help)
    {
        return command.add_option_function<std::string>(
            name, [this, key](const std::string &text) { m_invocation.arguments[key] = text; }, help);
    }

    CLI::App *addRemote(const char *name, const char *help)
    {
        CLI::App *const command = addCommand(m_app, name, help);
        command->callback([this, name] { choose(name, Action::remote); });
        return command;
    }

    void addWidget()
    {
        CLI::App *const command =
            addCommand(m_app, "widget", "Show the timer in a small window on the desktop", Action::widget);
        command
            ->add_option_function<std::string>(
                "--size",
                [this](const std::string &size) {
                    m_invocation.widgetArguments = {QStringLiteral("--size"), QString::fromStdString(size)};
                },
                "small, medium or large; without, the one it had last")
            ->check(CLI::IsMember({"small", "medium", "large"}));
    }

    void addStatus()
    {
        CLI::App *const command = addCommand(m_app, "status", "Show the timer");
        auto *const json = command->add_flag_callback(
            "--json", [this] { m_invocation.format = StatusFormat::json; }, "As one JSON object");
        auto *const follow =
            command->add_flag("--follow", m_invocation.isFollowing, "Go on with a line for each change");
        command
            ->add_flag("--ticks", m_invocation.wantsTicks,
                       "Take each second of the time for a change, as the form for waybar does anyway")
            ->needs(follow);
        command
            ->add_option_function<std::string>(
                "--format",
                [this](const std::string &format) {
                    m_invocation.format = format == "waybar" ? StatusFormat::waybar : StatusFormat::text;
                },
                "text or waybar")
            ->check(CLI::IsMember({"text", "waybar"}))
            ->excludes(json);
        command->callback([this] {
            m_invocation.action = Action::status;
            m_invocation.wantsTicks |= m_invocation.isFollowing && m_invocation.format == StatusFormat::waybar;
        });
    }

    void addStats()
    {
        CLI::App *const command = addCommand(m_app, "stats", "Show the figures of the history", Action::stats);
        command->add_flag("--json", m_invocation.isJson, "All figures as one JSON object");
        addRange(*command);
    }

    void addRange(CLI::App &command)
    {
        command
            .add_option_function<std::string>(
                "--range",
                [this](const std::string &range) {
                    m_invocation.range = *fromRawValue<StatsRange>(QString::fromStdString(range));
                },
                "today, week, month or allTime")
            ->check(CLI::IsMember({"today", "week", "month", "allTime"}));
    }

    void addExport()
    {
        CLI::App *const command =
            addCommand(m_app, "export", "Write the history to a file for spreadsheets", Action::exportSessions);
        addRange(*command);
        addText(*command, "file", "The file, which is replaced; - for standard output", m_invocation.text);
    }

    void addHistory()
    {
        CLI::App *const command = addCommand(m_app, "history", "The phases that ended, and setting them right");
        command->require_subcommand(1);
        CLI::App *const list =
            addCommand(*command, "list", "Every phase of a range, newest first", Action::historyList);
        list->add_flag("--json", m_invocation.isJson, "As a JSON array of objects");
        addRange(*list);

        CLI::App *const add = addCommand(*command, "add", "Add a focus phase that was forgotten; prints its id");
        addTextArgument(*add, "start", "Its start, a local date and time such as 2026-11-21T09:30");
        addTextArgument(*add, "minutes", "Its length");
        add->callback([this] {
            const auto phase = forgottenPhase(textArgument(m_invocation.arguments, "start"),
                                              textArgument(m_invocation.arguments, "minutes"));
            if (!phase)
                throw UsageError{phase.error()};
            chooseAction("history", "add", Action::change);
        });
        addTextArgument(*addAction(*command, "remove", "Remove a phase"), "id", "The phase's id, as the list has it");
        addTextArgument(*addAction(*command, "import", "Add what an exported file has and the history has not"), "path",
                        "The file, as export writes it");
        addText(*addCommand(*command, "backup", "Copy the history into a file; a copy that is there is replaced",
                            Action::historyBackup),
                "file", "The copy", m_invocation.text);
        addText(*addCommand(*command, "restore", "Put a copy in the place of the history, which is kept beside it",
                            Action::historyRestore),
                "file", "The copy", m_invocation.text);
    }

    void addTextArgument(CLI::App &command, const char *name, const char *help = "")
    {
        addWord(command, name, name, help)->required();
    }

    void addSettings()
    {
        CLI::App *const command = addCommand(m_app, "settings", "Show or change the settings");
        command->require_subcommand(1);
        addCommand(*command, "list", "Every setting and its value")->callback([this] {
            choose("settings", Action::show);
        });
        CLI::App *const get = addCommand(*command, "get", "One setting's value");
        addTextArgument(*get, "key", "The setting");
        get->callback([this] {
            choose("settings", Action::show);
            static_cast<void>(chosenSetting());
        });
        CLI::App *const set = addCommand(*command, "set", "Change a setting");
        addTextArgument(*set, "key", "The setting");
        addTextArgument(*set, "value", "Durations in seconds, switches as true or false");
        set->callback([this] {
            choose("settings", Action::change);
            if (const auto value = chosenSetting().parse(textArgument(m_invocation.arguments, "value")); !value)
                throw UsageError{value.error()};
        });
    }

    [[nodiscard]] const SettingDescriptor &chosenSetting() const
    {
        const QString key = textArgument(m_invocation.arguments, "key");
        if (const SettingDescriptor *const setting = findSetting(key))
            return *setting;
        throw UsageError{QStringLiteral("Unknown setting \"%1\"; `tomcatto settings list` shows them all").arg(key)};
    }

    void addManners()
    {
        CLI::App *const command = addCommand(m_app, "manners", "When not to come: show it, or change it");
        auto *const json = command->add_flag("--json", m_invocation.isJson, "All as one JSON object");
        std::vector<std::string> names;
        names.reserve(allManners().size());
        for (const MannersSettings::Key key : allManners())
            names.push_back(MannersSettings::keyText(key).toStdString());
        addWord(*command, "name", "name", "One of them")->check(CLI::IsMember(names))->excludes(json);
        addWord(*command, "value", "value", "true or false; minutes 0, 3, 5 or 10, seconds 30 or 60");
        command->callback([this] { chooseManner(); });
    }

    void chooseManner()
    {
        const bool isChange = m_invocation.arguments.contains("value");
        choose("manners", isChange ? Action::change : Action::show);
        if (!isChange)
            return;
        const auto key = findManner(textArgument(m_invocation.arguments, "name"));
        const auto value = key ? parsedManner(*key, textArgument(m_invocation.arguments, "value"))
                               : std::unexpected(QStringLiteral("A value needs a name"));
        if (!value)
            throw UsageError{value.error()};
    }

    void addShortcuts()
    {
        CLI::App *const command = addCommand(m_app, "shortcuts", "The keys that drive the timer from any program");
        command->require_subcommand(1);
        addAction(*command, "list", "Every action, its keys in words and in symbols", Action::shortcutsList);
        addTextArgument(*addShortcut(*command, "set", "Give an action other keys"), "combination",
                        "Such as control+alt+space, or with symbols");
        addShortcut(*command, "clear", "Take an action's keys away");
    }

    CLI::App *addShortcut(CLI::App &shortcuts, const char *name, const char *help)
    {
        CLI::App *const command = addAction(shortcuts, name, help);
        addWord(*command, "action", "shortcut", "toggleTimer, skip or extend")
            ->required()
            ->check(CLI::IsMember({"toggleTimer", "skip", "extend"}));
        return command;
    }

    void addVideos()
    {
        CLI::App *const command = addCommand(m_app, "videos", "The videos of the breaks: your own, and the library's");
        command->require_subcommand(1);
        addCommand(*command, "list", "Every video: id, selected, seconds, name, file", Action::videosList);
        addTextArgument(*addAction(*command, "add", "Add a video file"), "path");
        addTextArgument(*addAction(*command, "remove",
                                   "Take a video of yours out of the list; its file stays. Or remove a downloaded one"),
                        "id");
        addTextArgument(*addAction(*command, "select", "Play a video on breaks"), "id");
        addTextArgument(*addAction(*command, "deselect", "Play a video no longer"), "id");
        addAction(*command, "refresh", "Fetch the list of the video library");
        addTextArgument(
            *addAction(*command, "download", "Download a video of the library for the breaks", Action::videosDownload),
            "id");
        CLI::App *const preview = addCommand(*command, "preview", "Show a break with a video");
        addWord(*preview, "id", "id", "The video's id");
        preview->callback([this] { choose("preview", Action::remote); });
    }

    void addDoctor()
    {
        addCommand(m_app, "doctor", "Look what Tomcatto finds here, and what it lacks", Action::doctor)
            ->add_flag("--json", m_invocation.isJson, "As a JSON array of objects");
    }

    void addPublish()
    {
        CLI::App *const command =
            addCommand(m_app, "publish", "Make a video library for a web server out of a folder", Action::publish);
        addText(*command, "folder", "The folder with the videos", m_invocation.text);
        addText(*command, "--base-url", "The address that the library will have", m_invocation.baseUrl);
        addText(*command, "--output", "The folder to write it into", m_invocation.output);
    }

    void addText(CLI::App &command, const char *name, const char *help, QString &into)
    {
        command
            .add_option_function<std::string>(
                name, [&into](const std::string &text) { into = QString::fromStdString(text); }, help)
            ->required();
    }

    void chooseAction(const std::string &command, const char *name, Action action)
    {
        m_invocation.arguments["action"] = name;
        choose(command, action);
    }

    void choose(const std::string &command, Action action)
    {
        m_invocation.action = action;
        m_invocation.command = QString::fromStdString(command);
    }

    QString printed() const
    {
        const bool isVersion = m_app.get_option("--version")->count() > 0;
        return QString::fromStdString(isVersion ? m_app.version() : m_app.help()).trimmed();
    }

    Invocation &m_invocation;
    CLI::App m_app{"Tomcatto, a focus timer", "tomcatto"};
};

}

CommandDescription describeCommandLine()
{
    Invocation invocation;
    return described(Grammar(invocation).app());
}

std::expected<Invocation, QString> parseCommandLine(const QStringList &words)
{
    Invocation invocation;
    const auto rest = takeArgumentDomain(words, invocation);
    if (!rest)
        return std::unexpected(rest.error());
    if (isPlainStart(*rest, invocation))
        return invocation;
    Grammar grammar(invocation);
    if (const auto parsed = grammar.parse(*rest); !parsed)
        return std::unexpected(parsed.error());
    return invocation;
}

}
