#pragma once

#include "Foundation/Logger.h"
#include "Localization/LanguageOverrideService.h"
#include "Localization/StringsTable.h"
#include "Localization/TextFormat.h"

#include <map>
#include <QtCore/QObject>
#include <QtCore/QSet>

namespace tomcatto {

/// All texts that people read, by key, in the language of a `LanguageOverrideService`. A table is read when it is first
/// needed and kept. Views may use it directly. Main thread only.
class LocalizedStrings final : public QObject
{
    Q_OBJECT
    Q_PROPERTY(int revision READ revision NOTIFY changed FINAL)
    /// That of the texts, as it is stored; never that of the system.
    Q_PROPERTY(QString language READ languageName NOTIFY changed FINAL)

public:
    /// @param service tells the language; must outlive the texts.
    /// @param root folder or resource prefix with the "<language>.lproj" folders.
    explicit LocalizedStrings(const LanguageOverrideService &service, QString root = QStringLiteral(":/tomcatto"),
                              QObject *parent = nullptr);

    /// The text under `key` in the current language, else in English, else the key itself. A missing text is logged at
    /// error level, once a key.
    [[nodiscard]] Q_INVOKABLE QString text(const QString &key) const;

    /// The text under `key` with its placeholders filled in, see `fillPlaceholders`.
    template<typename... Arguments>
    [[nodiscard]] QString format(const QString &key, const Arguments &...arguments) const
    {
        return formatList(key, {formatArgument(arguments)...});
    }
    [[nodiscard]] Q_INVOKABLE QString formatList(const QString &key, const QStringList &arguments) const;

    /// The text for a count, from `key` + ".one" or ".other". The count is the first argument, the others follow it.
    template<typename... Arguments>
    [[nodiscard]] QString plural(const QString &key, qint64 count, const Arguments &...arguments) const
    {
        return formatList(pluralKey(key, count), {formatArgument(count), formatArgument(arguments)...});
    }

    /// The language of the texts; never `system`.
    [[nodiscard]] SelectedLanguage language() const;
    [[nodiscard]] QString languageName() const { return rawValue(language()); }
    /// The locale for dates and numbers between the texts.
    [[nodiscard]] QLocale locale() const;

    /// Grows whenever texts change, so that a binding which reads it asks again.
    [[nodiscard]] int revision() const noexcept { return m_revision; }

Q_SIGNALS:
    /// Every text may be another one now.
    void changed();

private:
    void announce();
    [[nodiscard]] QString pluralKey(const QString &key, qint64 count) const;
    [[nodiscard]] const StringsTable &table(SelectedLanguage language) const;
    void reportMissing(const QString &key, SelectedLanguage language) const;

    const LanguageOverrideService &m_service;
    QString m_root;
    Logger m_logger{QStringLiteral("LocalizedStrings")};
    mutable std::map<SelectedLanguage, StringsTable> m_tables;
    mutable QSet<QString> m_reported;
    int m_revision = 0;
};

}
