// Writes what is generated from the grammar of the command line: command-line-documents man|bash|zsh|fish

#include "CommandLine/CommandDescription.h"
#include "Timer/SettingsCatalog.h"

#include <algorithm>
#include <cstdio>
#include <functional>
#include <QtCore/QCoreApplication>
#include <QtCore/QFile>

using namespace tomcatto;

namespace {

/// Calls `visit` with each command and the words that lead to it, without the program's own name.
void walk(const CommandDescription &command, const QStringList &path,
          const std::function<void(const CommandDescription &, const QStringList &)> &visit)
{
    visit(command, path);
    for (const CommandDescription &each : command.commands)
        walk(each, path + QStringList(each.name), visit);
}

QStringList settingKeys()
{
    QStringList keys;
    for (const SettingDescriptor &setting : settingDescriptors())
        keys << PomodoroSettings::keyText(setting.key);
    return keys;
}

QStringList choices(const ArgumentDescription &argument)
{
    return argument.name == QLatin1String("key") ? settingKeys() : argument.choices;
}

bool isFile(const ArgumentDescription &argument)
{
    return !argument.isOption() && (argument.name == QLatin1String("file") || argument.name == QLatin1String("path"));
}

struct Word
{
    QString text;
    QString help;
};

/// What can stand next at a command.
std::vector<Word> words(const CommandDescription &command)
{
    std::vector<Word> words;
    for (const CommandDescription &each : command.commands)
        words.push_back({each.name, each.help});
    for (const ArgumentDescription &argument : command.arguments) {
        if (argument.isOption())
            words.push_back({argument.name.section(QLatin1Char(','), -1), argument.help});
        else
            for (const QString &choice : choices(argument))
                words.push_back({choice, argument.help});
    }
    return words;
}

QString quoted(QString text)
{
    return QLatin1Char('\'') + text.replace(QLatin1Char('\''), QStringLiteral("'\\''")) + QLatin1Char('\'');
}

/// The patterns of a `case` that lead on to a command, such as " history" and "history list".
QStringList steps(const CommandDescription &program)
{
    QStringList steps;
    walk(program, {}, [&steps](const CommandDescription &, const QStringList &path) {
        if (!path.isEmpty())
            steps << QStringLiteral("%1 %2").arg(path.mid(0, path.size() - 1).join(QLatin1Char(' ')), path.last());
    });
    return steps;
}

/// Options with a value of a known kind: "stats:--range" and the values.
std::vector<std::pair<QString, QStringList>> optionValues(const CommandDescription &program)
{
    std::vector<std::pair<QString, QStringList>> values;
    walk(program, {}, [&values](const CommandDescription &command, const QStringList &path) {
        for (const ArgumentDescription &argument : command.arguments) {
            if (argument.isOption() && argument.hasValue)
                values.emplace_back(path.join(QLatin1Char(' ')) + QLatin1Char(':') + argument.name, argument.choices);
        }
    });
    return values;
}

bool takesFile(const CommandDescription &command)
{
    return std::ranges::any_of(command.arguments, isFile);
}

QString bash(const CommandDescription &program)
{
    QStringList patterns;
    for (const QString &step : steps(program))
        patterns << quoted(step);
    QString text =
        QStringLiteral("# Completion of tomcatto for bash; made from the program's own grammar.\n\n_tomcatto()\n{\n"
                       "    local current=${COMP_WORDS[COMP_CWORD]} word path= words=\n"
                       "    for word in \"${COMP_WORDS[@]:1:COMP_CWORD-1}\"; do\n"
                       "        case \"$path $word\" in\n            ") +
        patterns.join(QLatin1Char('|')) +
        QStringLiteral(") path=\"${path:+$path }$word\" ;;\n        esac\n    done\n"
                       "    case \"$path:${COMP_WORDS[COMP_CWORD-1]}\" in\n");
    for (const auto &[place, values] : optionValues(program))
        text += QStringLiteral("        %1) COMPREPLY=($(compgen -W %2 -- \"$current\")); return ;;\n")
                    .arg(quoted(place), quoted(values.join(QLatin1Char(' '))));
    text += QStringLiteral("    esac\n    case \"$path\" in\n");
    walk(program, {}, [&text](const CommandDescription &command, const QStringList &path) {
        QStringList all;
        for (const Word &word : words(command))
            all << word.text;
        text += QStringLiteral("        %1) words=%2%3 ;;\n")
                    .arg(quoted(path.join(QLatin1Char(' '))), quoted(all.join(QLatin1Char(' '))),
                         takesFile(command) ? QStringLiteral("; compopt -o default") : QString());
    });
    return text + QStringLiteral("    esac\n    COMPREPLY=($(compgen -W \"$words\" -- \"$current\"))\n}\n"
                                 "complete -F _tomcatto tomcatto\n");
}

QString zsh(const CommandDescription &program)
{
    QStringList patterns;
    for (const QString &step : steps(program))
        patterns << quoted(step);
    QString text =
        QStringLiteral("#compdef tomcatto\n# Completion of tomcatto for zsh; made from the program's own grammar.\n\n"
                       "_tomcatto()\n{\n    local word place\n    local -a choices\n"
                       "    for word in \"${(@)words[2,CURRENT-1]}\"; do\n"
                       "        case \"$place $word\" in\n            (") +
        patterns.join(QLatin1Char('|')) +
        QStringLiteral(") place=\"${place:+$place }$word\" ;;\n        esac\n    done\n"
                       "    case \"$place:$words[CURRENT-1]\" in\n");
    for (const auto &[place, values] : optionValues(program))
        text +=
            QStringLiteral("        (%1) compadd -- %2; return ;;\n").arg(quoted(place), values.join(QLatin1Char(' ')));
    text += QStringLiteral("    esac\n    case \"$place\" in\n");
    walk(program, {}, [&text](const CommandDescription &command, const QStringList &path) {
        QStringList all;
        for (const Word &word : words(command)) {
            QString help = word.help;
            all << quoted(word.text + QLatin1Char(':') + help.replace(QLatin1Char(':'), QStringLiteral("\\:")));
        }
        text += QStringLiteral("        (%1) choices=(%2)%3 ;;\n")
                    .arg(quoted(path.join(QLatin1Char(' '))), all.join(QLatin1Char(' ')),
                         takesFile(command) ? QStringLiteral("; _files") : QString());
    });
    return text + QStringLiteral("    esac\n    _describe 'tomcatto' choices\n}\n\n_tomcatto \"$@\"\n");
}

QString fish(const CommandDescription &program)
{
    QStringList patterns;
    for (const QString &step : steps(program))
        patterns << quoted(step);
    QString text =
        QStringLiteral("# Completion of tomcatto for fish; made from the program's own grammar.\n\n"
                       "function __tomcatto_place\n    set -l place\n"
                       "    for word in (commandline -opc)[2..]\n        switch \"$place $word\"\n"
                       "            case ") +
        patterns.join(QLatin1Char(' ')) +
        QStringLiteral("\n                set place (string trim -- \"$place $word\")\n        end\n    end\n"
                       "    echo \"$place\"\nend\n\ncomplete -c tomcatto -f\n");
    walk(program, {}, [&text](const CommandDescription &command, const QStringList &path) {
        const QString line = QStringLiteral("complete -c tomcatto -n 'test (__tomcatto_place) = \"%1\"'")
                                 .arg(path.join(QLatin1Char(' ')));
        for (const CommandDescription &each : command.commands)
            text += QStringLiteral("%1 -a %2 -d %3\n").arg(line, each.name, quoted(each.help));
        for (const ArgumentDescription &argument : command.arguments) {
            if (isFile(argument)) {
                text += line + QStringLiteral(" -F\n");
            } else if (!argument.isOption()) {
                if (const QStringList values = choices(argument); !values.isEmpty())
                    text += QStringLiteral("%1 -a %2 -d %3\n")
                                .arg(line, quoted(values.join(QLatin1Char(' '))), quoted(argument.help));
            } else {
                const QString name = argument.name.section(QLatin1Char(','), -1).mid(2);
                text += QStringLiteral("%1 -l %2 -d %3").arg(line, name, quoted(argument.help));
                text += argument.hasValue
                            ? QStringLiteral(" -x -a %1\n").arg(quoted(argument.choices.join(QLatin1Char(' '))))
                            : QStringLiteral("\n");
            }
        }
    });
    return text;
}

QString roff(QString text)
{
    text.replace(QLatin1Char('\\'), QStringLiteral("\\e")).replace(QLatin1Char('-'), QStringLiteral("\\-"));
    return text.startsWith(QLatin1Char('.')) || text.startsWith(QLatin1Char('\'')) ? QStringLiteral("\\&") + text
                                                                                   : text;
}

QString synopsis(const CommandDescription &command, const QStringList &path)
{
    // A line may end after it.
    const QString breakable = QStringLiteral("|\\:");
    QString text = QStringLiteral(".B ") +
                   roff((QStringList(QStringLiteral("tomcatto")) + path).join(QLatin1Char(' '))) + QLatin1Char('\n');
    for (const ArgumentDescription &argument : command.arguments) {
        if (argument.name.contains(QStringLiteral("--help")) || argument.name.contains(QStringLiteral("--verbose")))
            continue;
        QString word = roff(argument.name);
        if (!argument.isOption())
            word = argument.choices.isEmpty() ? argument.name.toUpper() : argument.choices.join(breakable);
        else if (argument.hasValue)
            word += QLatin1Char(' ') +
                    (argument.choices.isEmpty() ? QStringLiteral("VALUE") : argument.choices.join(breakable));
        text += (argument.isRequired ? QStringLiteral("%1\n") : QStringLiteral("[%1]\n")).arg(word);
    }
    return text;
}

QString settingsPart()
{
    QString text = QStringLiteral(".SH SETTINGS\n"
                                  "Durations are in seconds. With a dash in front a key sets its value for one run.\n");
    for (const SettingDescriptor &setting : settingDescriptors()) {
        text += QStringLiteral(".TP\n.B %1\n").arg(roff(PomodoroSettings::keyText(setting.key)));
        text += setting.kind == SettingDescriptor::Kind::integer
                    ? QStringLiteral("%1 to %2").arg(setting.minimum).arg(setting.maximum)
                    : roff(setting.texts.join(QStringLiteral(", ")));
        text += QStringLiteral("; %1 unless changed\n").arg(roff(setting.text(setting.fallback)));
    }
    return text;
}

QString manual(const CommandDescription &program)
{
    // Ragged and without hyphens: names of commands and keys stay as they are written.
    QString text =
        QStringLiteral(".TH TOMCATTO 1\n.ad l\n.nh\n.SH NAME\ntomcatto \\- a focus timer with a cat\n.SH SYNOPSIS\n"
                       ".B tomcatto\n[\\-\\-terminal] [\\-\\-background] [\\-KEY VALUE]...\n.br\n.B tomcatto\n"
                       "COMMAND\n.SH DESCRIPTION\nWithout a command the application starts: in the tray where a "
                       "display is reachable, else in the terminal, where space starts and pauses, s skips, b takes "
                       "a break, e adds five minutes, r resets and q quits. A command asks the application that "
                       "runs, or reads and changes its files.\n.SH OPTIONS\n");
    for (const ArgumentDescription &argument : program.arguments)
        text += QStringLiteral(".TP\n.B %1\n%2\n").arg(roff(argument.name), roff(argument.help));
    text += QStringLiteral(".SH COMMANDS\n");
    walk(program, {}, [&text](const CommandDescription &command, const QStringList &path) {
        if (!path.isEmpty() && command.commands.empty())
            text += QStringLiteral(".TP\n") +
                    synopsis(command, path).replace(QLatin1Char('\n'), QLatin1Char(' ')).trimmed() + QLatin1Char('\n') +
                    roff(command.help) + QStringLiteral(".\n");
    });
    text += settingsPart();
    return text +
           QStringLiteral(
               ".SH EXIT STATUS\n0 done, 1 it does not apply now, 2 wrong usage, 3 the application does not run, 4 a "
               "file "
               "or the store failed.\n.SH FILES\n.TP\n.I $XDG_DATA_HOME/Tomcatto/Tomcatto.sqlite\nThe history.\n.TP\n"
               ".I $XDG_CONFIG_HOME/studio.quillbay.Tomcatto/defaults.json\nThe settings.\n.TP\n"
               ".I $XDG_DATA_HOME/group.studio.quillbay.Tomcatto/widget\\-snapshot.json\nWhat widgets and bars "
               "show.\n");
}

}

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    const QString kind = QCoreApplication::arguments().value(1);
    const CommandDescription program = describeCommandLine();
    QString text;
    if (kind == QLatin1String("man"))
        text = manual(program);
    else if (kind == QLatin1String("bash"))
        text = bash(program);
    else if (kind == QLatin1String("zsh"))
        text = zsh(program);
    else if (kind == QLatin1String("fish"))
        text = fish(program);
    if (text.isEmpty()) {
        std::fputs("Usage: command-line-documents man|bash|zsh|fish\n", stderr);
        return 2;
    }
    QFile output;
    const QByteArray bytes = text.toUtf8();
    return output.open(stdout, QIODevice::WriteOnly) && output.write(bytes) == bytes.size() ? 0 : 4;
}
