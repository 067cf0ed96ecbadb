#include "CommandLine/StartWords.h"

#include "Timer/SettingsCatalog.h"

#include <algorithm>

namespace tomcatto {

namespace {

bool isSettingsWord(const QString &word)
{
    return word.size() > 2 && word.startsWith(QLatin1Char('-')) && !word.startsWith(QStringLiteral("--"));
}

}

std::expected<QStringList, QString> takeArgumentDomain(const QStringList &words, Invocation &invocation)
{
    QStringList rest;
    qsizetype index = 0;
    for (; index < words.size() && words[index].startsWith(QLatin1Char('-')); ++index) {
        // The command would be taken for an argument of the application, which has none.
        if (words[index] == QStringLiteral("--"))
            return std::unexpected(QStringLiteral("\"--\" goes behind a command, before its arguments"));
        if (!isSettingsWord(words[index])) {
            rest << words[index];
            continue;
        }
        const QString key = words[index].mid(1);
        const SettingDescriptor *const setting = findSetting(key);
        if (!setting)
            return std::unexpected(
                QStringLiteral("Unknown setting \"%1\"; `tomcatto settings list` shows them all").arg(words[index]));
        if (++index >= words.size())
            return std::unexpected(QStringLiteral("-%1 needs a value").arg(key));
        const auto value = setting->parse(words[index]);
        if (!value)
            return std::unexpected(value.error());
        invocation.argumentDomain.insert_or_assign(key, setting->stored(*value));
    }
    if (index < words.size() && !invocation.argumentDomain.empty())
        return std::unexpected(
            QStringLiteral("Values for one run go with the application, not with \"%1\"").arg(words[index]));
    return rest + words.mid(index);
}

bool isPlainStart(const QStringList &words, Invocation &invocation)
{
    const std::map<QString, bool *> flags{{QStringLiteral("--terminal"), &invocation.isTerminal},
                                          {QStringLiteral("--background"), &invocation.isBackground},
                                          {QStringLiteral("--ui-test"), &invocation.isUiTest},
                                          {QStringLiteral("--verbose"), &invocation.isVerbose}};
    return std::ranges::all_of(words, [&flags](const QString &word) {
        const auto flag = flags.find(word);
        return flag != flags.end() && (*flag->second = true);
    });
}

}
