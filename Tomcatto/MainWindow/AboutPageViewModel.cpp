#include "MainWindow/AboutPageViewModel.h"

#include "Foundation/ApplicationIdentity.h"

#include <array>
#include <QtCore/QFile>
#include <QtCore/QSysInfo>
#include <QtGui/QGuiApplication>

namespace tomcatto {

namespace {

/// A library or typeface. Names are the makers' own; those with a key are worded by the tables.
struct Component
{
    const char *titleKey;
    const char *title;
    const char *license;
    const char *address;
};

constexpr std::array madeWith{
    Component{"window.about.component.qt", "", "LGPL 3", "https://www.gnu.org/licenses/lgpl-3.0.html"},
    Component{"window.about.component.sqlite", "", "", "https://www.sqlite.org/copyright.html"},
    Component{"window.about.component.ffmpeg", "", "LGPL 2.1",
              "https://www.gnu.org/licenses/old-licenses/lgpl-2.1.html"},
    Component{"", "GStreamer", "LGPL 2.1", "https://www.gnu.org/licenses/old-licenses/lgpl-2.1.html"},
    Component{"", "SQLiteCpp", "MIT", "https://opensource.org/license/mit"},
    Component{"", "JSON for Modern C++", "MIT", "https://opensource.org/license/mit"},
    Component{"", "CLI11", "BSD 3-Clause", "https://opensource.org/license/bsd-3-clause"},
    Component{"", "libxcb", "MIT", "https://opensource.org/license/mit"},
    Component{"window.about.component.inter", "", "OFL 1.1", "https://openfontlicense.org"},
};

}

AboutPageViewModel::AboutPageViewModel(QString versionNumber, const LocalizedStrings &strings, QObject *parent)
    : QObject(parent)
    , m_versionNumber(std::move(versionNumber))
    , m_strings(strings)
{
    connect(&strings, &LocalizedStrings::changed, this, &AboutPageViewModel::changed);
}

QString AboutPageViewModel::version() const
{
    return m_strings.format(QStringLiteral("window.about.version"), m_versionNumber);
}

QVariantList AboutPageViewModel::components() const
{
    QVariantList list;
    for (const Component &component : madeWith) {
        const QString key = QString::fromLatin1(component.titleKey);
        const QString title = key.isEmpty() ? QString::fromLatin1(component.title) : m_strings.text(key);
        const QString named = QString::fromLatin1(component.license);
        const QString license =
            named.isEmpty() ? m_strings.text(QStringLiteral("window.about.license.public_domain")) : named;
        list.append(
            QVariantMap{{QStringLiteral("title"), title},
                        {QStringLiteral("license"), license},
                        {QStringLiteral("name"),
                         m_strings.format(QStringLiteral("window.about.license.accessibility"), title, license)}});
    }
    return list;
}

QString AboutPageViewModel::whatsNew() const
{
    QFile file(QStringLiteral(":/tomcatto/CHANGELOG.md"));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    // The chapters begin with "## "; before the first one stands the introduction.
    const QStringList chapters = QString::fromUtf8(file.readAll()).split(QStringLiteral("\n## "));
    if (chapters.size() < 2)
        return {};
    const qsizetype headingEnd = chapters.at(1).indexOf(QLatin1Char('\n'));
    return headingEnd < 0 ? QString() : chapters.at(1).mid(headingEnd).trimmed();
}

QString AboutPageViewModel::details() const
{
    return QStringLiteral("%1 %2\nQt %3\n%4, %5\n%6, %7\n")
        .arg(productName, m_versionNumber, QString::fromLatin1(qVersion()), QSysInfo::prettyProductName(),
             QSysInfo::currentCpuArchitecture(), QGuiApplication::platformName(), m_strings.locale().name());
}

void AboutPageViewModel::copyDetails()
{
    Q_EMIT copyRequested(details());
    m_isCopied = true;
    Q_EMIT changed();
}

void AboutPageViewModel::openLicense(int index)
{
    if (index >= 0 && index < static_cast<int>(madeWith.size()))
        Q_EMIT linkRequested(QUrl(QString::fromLatin1(madeWith[static_cast<std::size_t>(index)].address)));
}

void AboutPageViewModel::refresh()
{
    m_isCopied = false;
    Q_EMIT changed();
}

}
