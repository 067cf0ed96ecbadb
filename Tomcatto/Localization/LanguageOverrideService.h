#pragma once

#include "Foundation/ApplicationIdentity.h"
#include "Localization/SelectedLanguage.h"
#include "Platform/Ports/UserDefaults.h"

#include <QtCore/QLocale>
#include <QtCore/QObject>
#include <QtCore/QStringList>

namespace tomcatto {

/// The public name of `LanguageOverrideService::languageDidChange`.
inline const QString languageDidChangeNotification = applicationIdentifier + QStringLiteral(".LanguageDidChange");

/// Lets the application speak another language than the system. Main thread only.
class LanguageOverrideService final : public QObject
{
    Q_OBJECT

public:
    /// @param defaults where the choice is kept, under "selectedLanguage"; must outlive the service.
    /// @param systemLanguages language tags that the system prefers, best first ("de-AT", "tr_TR.UTF-8", …).
    explicit LanguageOverrideService(UserDefaults &defaults, const QStringList &systemLanguages = systemUiLanguages(),
                                     QObject *parent = nullptr);

    /// The choice as stored; an unknown or missing text is `system`.
    [[nodiscard]] SelectedLanguage currentLanguage() const;
    /// Stores the choice and announces it when it differs from what was announced last. Somebody else may have stored
    /// it before; it is still announced, once. A choice that was given for this run only stays in force.
    void setLanguage(SelectedLanguage language);

    /// The language that texts are in: the choice, or for `system` the first of the system's languages that there are
    /// texts for, else English. Never `system`.
    [[nodiscard]] SelectedLanguage resolvedLanguage() const;
    /// The locale for dates and numbers between texts: the resolved language as written in the system's territory.
    [[nodiscard]] QLocale locale() const;

    /// What the system prefers for interfaces, best first: its own list, then the environment's.
    [[nodiscard]] static QStringList systemUiLanguages();

Q_SIGNALS:
    /// Another language was chosen. Those who keep texts build them anew.
    void languageDidChange();

private:
    UserDefaults &m_defaults;
    SelectedLanguage m_systemLanguage;
    SelectedLanguage m_announced;
};

}
