#include "Localization/LocalizedStrings.h"

#include "Localization/PseudoText.h"

namespace tomcatto {

PluralCategory pluralCategory(SelectedLanguage language, qint64 count)
{
    switch (language) {
    case SelectedLanguage::fr:
        return count >= -1 && count <= 1 ? PluralCategory::one : PluralCategory::other;
    case SelectedLanguage::system:
    case SelectedLanguage::en:
    case SelectedLanguage::tr:
    case SelectedLanguage::de:
    case SelectedLanguage::es:
        return count == 1 || count == -1 ? PluralCategory::one : PluralCategory::other;
    }
    return PluralCategory::other;
}

LocalizedStrings::LocalizedStrings(const LanguageOverrideService &service, QString root, QObject *parent)
    : QObject(parent)
    , m_service(service)
    , m_root(std::move(root))
{
    connect(&service, &LanguageOverrideService::languageDidChange, this, &LocalizedStrings::announce);
}

QString LocalizedStrings::text(const QString &key) const
{
    const SelectedLanguage current = language();
    if (const auto found = table(current).value(key))
        return m_isPseudo ? pseudoText(*found) : *found;
    reportMissing(key, current);
    const auto english = table(SelectedLanguage::en).value(key);
    return english.value_or(key);
}

QString LocalizedStrings::formatList(const QString &key, const QStringList &arguments) const
{
    return fillPlaceholders(text(key), arguments);
}

SelectedLanguage LocalizedStrings::language() const
{
    return m_isPseudo ? SelectedLanguage::en : m_service.resolvedLanguage();
}

QLocale LocalizedStrings::locale() const
{
    return m_service.locale();
}

void LocalizedStrings::setPseudo(bool isPseudo)
{
    if (m_isPseudo == isPseudo)
        return;
    m_isPseudo = isPseudo;
    announce();
}

void LocalizedStrings::announce()
{
    ++m_revision;
    Q_EMIT changed();
}

QString LocalizedStrings::pluralKey(const QString &key, qint64 count) const
{
    switch (pluralCategory(language(), count)) {
    case PluralCategory::one:
        return key + QStringLiteral(".one");
    case PluralCategory::other:
        return key + QStringLiteral(".other");
    }
    return key;
}

const StringsTable &LocalizedStrings::table(SelectedLanguage language) const
{
    const auto known = m_tables.find(language);
    if (known != m_tables.end())
        return known->second;
    const QString path = QStringLiteral("%1/%2.lproj/Localizable.strings").arg(m_root, rawValue(language));
    auto loaded = StringsTable::load(path);
    if (!loaded)
        m_logger.error(QStringLiteral("Could not read %1: %2").arg(path, describe(loaded.error())));
    const StringsTable &table = m_tables.emplace(language, loaded ? *std::move(loaded) : StringsTable()).first->second;
    for (const DuplicateKey &duplicate : table.duplicates())
        m_logger.error(QStringLiteral("%1 has the key %2 again at line %3, column %4")
                           .arg(path, duplicate.key)
                           .arg(duplicate.line)
                           .arg(duplicate.column));
    return table;
}

void LocalizedStrings::reportMissing(const QString &key, SelectedLanguage language) const
{
    if (m_reported.contains(key))
        return;
    m_reported.insert(key);
    m_logger.error(QStringLiteral("There is no text for the key %1 in %2").arg(key, rawValue(language)));
}

}
