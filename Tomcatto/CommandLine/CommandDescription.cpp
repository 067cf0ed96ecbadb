#include "CommandLine/CommandDescription.h"

#include <CLI/CLI.hpp>

namespace tomcatto {

namespace {

ArgumentDescription described(const CLI::Option &option)
{
    ArgumentDescription argument;
    argument.name = QString::fromStdString(option.get_name());
    argument.help = QString::fromStdString(option.get_description());
    argument.isRequired = option.get_required();
    argument.hasValue = !option.get_positional() && option.get_items_expected_max() > 0;
    // The check says it as "TEXT:{one,other}".
    const QString kind = QString::fromStdString(option.get_type_name());
    if (const auto begin = kind.indexOf(QLatin1Char('{')); begin >= 0)
        argument.choices = kind.mid(begin + 1, kind.indexOf(QLatin1Char('}')) - begin - 1).split(QLatin1Char(','));
    return argument;
}

}

CommandDescription described(const CLI::App &app)
{
    CommandDescription command;
    command.name = QString::fromStdString(app.get_name());
    command.help = QString::fromStdString(app.get_description());
    // Those without a group are hidden.
    for (const CLI::Option *option :
         app.get_options([](const CLI::Option *each) { return !each->get_group().empty(); }))
        command.arguments.push_back(described(*option));
    for (const CLI::App *each : app.get_subcommands([](const CLI::App *) { return true; }))
        command.commands.push_back(described(*each));
    return command;
}

}
