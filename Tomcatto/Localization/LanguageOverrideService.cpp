#include "Localization/LanguageOverrideService.h"

#include "Foundation/Logger.h"

namespace tomcatto {

namespace {

const QString selectedLanguageKey = QStringLiteral("selectedLanguage");

/// The language part of a tag: "de" of "de-AT", "DE_at.UTF-8" and "de@euro".
QString languageCode(const QString &tag)
{
    qsizetype length = 0;
    while (length < tag.size() && tag.at(length).isLetter())
        ++length;
    return tag.left(length).toLower();
}

SelectedLanguage firstKnown(const QStringList &tags)
{
    for (const QString &tag : tags) {
        const auto language = fromRawValue<SelectedLanguage>(languageCode(tag));
        if (language && *language != SelectedLanguage::system)
            return *language;
    }
    return SelectedLanguage::en;
}

}

LanguageOverrideService::LanguageOverrideService(UserDefaults &defaults, const QStringList &systemLanguages,
                                                 QObject *parent)
    : QObject(parent)
    , m_defaults(defaults)
    , m_systemLanguage(firstKnown(systemLanguages))
    , m_announced(currentLanguage())
{
}

SelectedLanguage LanguageOverrideService::currentLanguage() const
{
    const auto value = m_defaults.value(selectedLanguageKey);
    const QString *text = value ? std::get_if<QString>(&*value) : nullptr;
    return text ? fromRawValue<SelectedLanguage>(*text).value_or(SelectedLanguage::system) : SelectedLanguage::system;
}

void LanguageOverrideService::setLanguage(SelectedLanguage language)
{
    const DefaultsValue raw = rawValue(language);
    if (m_defaults.storedValue(selectedLanguageKey) != raw)
        m_defaults.setValue(selectedLanguageKey, raw);
    const SelectedLanguage effective = currentLanguage();
    if (effective == m_announced)
        return;
    m_announced = effective;
    Logger(QStringLiteral("LanguageOverrideService"))
        .debug(QStringLiteral("%1: %2").arg(languageDidChangeNotification, rawValue(effective)));
    Q_EMIT languageDidChange();
}

SelectedLanguage LanguageOverrideService::resolvedLanguage() const
{
    const SelectedLanguage chosen = currentLanguage();
    return chosen == SelectedLanguage::system ? m_systemLanguage : chosen;
}

QLocale LanguageOverrideService::locale() const
{
    const QLocale language(rawValue(resolvedLanguage()));
    return QLocale(language.language(), QLocale::system().territory());
}

QStringList LanguageOverrideService::systemUiLanguages()
{
    QStringList tags = QLocale::system().uiLanguages();
    tags += qEnvironmentVariable("LANGUAGE").split(u':', Qt::SkipEmptyParts);
    // Each of these stands in for all that follow it.
    for (const char *name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        if (!qEnvironmentVariableIsEmpty(name))
            return tags << qEnvironmentVariable(name);
    }
    return tags;
}

}
