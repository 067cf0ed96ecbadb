#pragma once

#include "Localization/LocalizedStrings.h"

#include <QtCore/QUrl>
#include <QtCore/QVariantList>

namespace tomcatto {

/// The about page: version, what it is made with and under which licences. Main thread only.
class AboutPageViewModel final : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString version READ version NOTIFY changed FINAL)
    /// What the application is made with: title, license, name.
    Q_PROPERTY(QVariantList components READ components NOTIFY changed FINAL)
    /// The newest chapter of the list of changes, as Markdown.
    Q_PROPERTY(QString whatsNew READ whatsNew CONSTANT FINAL)
    /// Whether the details are on the clipboard since the page was opened.
    Q_PROPERTY(bool isCopied READ isCopied NOTIFY changed FINAL)

public:
    /// @param versionNumber such as "1.2.0".
    AboutPageViewModel(QString versionNumber, const LocalizedStrings &strings, QObject *parent = nullptr);

    [[nodiscard]] QString version() const;
    [[nodiscard]] QVariantList components() const;
    [[nodiscard]] QString whatsNew() const;
    [[nodiscard]] bool isCopied() const noexcept { return m_isCopied; }

    /// Version, Qt and desktop in a few lines, for a report; English whatever the language.
    [[nodiscard]] QString details() const;

    /// Asks for the details on the clipboard.
    Q_INVOKABLE void copyDetails();
    /// Asks for the text of a licence, by the component's place in the list.
    Q_INVOKABLE void openLicense(int index);
    /// The page came into view.
    Q_INVOKABLE void refresh();

Q_SIGNALS:
    void changed();
    /// The text is for the clipboard.
    void copyRequested(const QString &text);
    /// The address is for the user's browser.
    void linkRequested(const QUrl &address);

private:
    QString m_versionNumber;
    const LocalizedStrings &m_strings;
    bool m_isCopied = false;
};

}
