#include "Localization/LocalizedStrings.h"

namespace tomcatto {

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
    if (const auto text = table(current).text(key))
        return *text;
    reportMissing(key, current);
    return table(SelectedLanguage::en).text(key).value_or(key);
}

QString LocalizedStrings::formatList(const QString &key, const QStringList &arguments) const
{
    return fillPlaceholders(text(key), arguments);
}

SelectedLanguage LocalizedStrings::language() const
{
    return m_service.resolvedLanguage();
}

QLocale LocalizedStrings::locale() const
{
    return m_service.locale();
}

void LocalizedStrings::announce()
{
    ++m_revision;
    Q_EMIT changed();
}

QString LocalizedStrings::pluralKey(const QString &key, qint64 count) const
{
    // In French nothing counts like one thing.
    const bool isOne = count == 1 || count == -1 || (count == 0 && language() == SelectedLanguage::fr);
    return key + (isOne ? QStringLiteral(".one") : QStringLiteral(".other"));
}

const StringsTable &LocalizedStrings::table(SelectedLanguage language) const
{
    const auto known = m_tables.find(language);
    if (known != m_tables.end())
        return known->second;
    const QString path = QStringLiteral("%1/%2.lproj/Localizable.strings").arg(m_root, rawValue(language));
    const auto loaded = readStringsTable(path);
    if (!loaded)
        m_logger.error(QStringLiteral("Could not read ") + loaded.error());
    return m_tables.emplace(language, loaded.value_or(StringsTable())).first->second;
}

void LocalizedStrings::reportMissing(const QString &key, SelectedLanguage language) const
{
    if (m_reported.contains(key))
        return;
    m_reported.insert(key);
    m_logger.error(QStringLiteral("There is no text for the key %1 in %2").arg(key, rawValue(language)));
}

}
