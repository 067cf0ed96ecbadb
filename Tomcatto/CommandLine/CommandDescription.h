#pragma once

#include <QtCore/QStringList>
#include <vector>

namespace CLI {
class App;
}

namespace tomcatto {

/// An option, or an argument that its place tells.
struct ArgumentDescription
{
    /// With its dashes; without them where the place tells.
    QString name;
    QString help;
    /// What it can be; empty where it is free.
    QStringList choices;
    bool isRequired = false;
    /// Whether a word for its value follows an option.
    bool hasValue = false;

    [[nodiscard]] bool isOption() const { return name.startsWith(QLatin1Char('-')); }
};

/// A command with those below it. The first one is the program itself.
struct CommandDescription
{
    QString name;
    QString help;
    std::vector<ArgumentDescription> arguments;
    std::vector<CommandDescription> commands;
};

/// All that `parseCommandLine` reads but the settings for one run, for manuals and completions.
[[nodiscard]] CommandDescription describeCommandLine();
/// The same of a part of the grammar.
[[nodiscard]] CommandDescription described(const CLI::App &app);

}
