#include "Platform/Freedesktop/SoundThemes.h"

#include <algorithm>
#include <QtCore/QFileInfo>
#include <QtCore/QSettings>
#include <QtCore/QStandardPaths>

namespace tomcatto {
namespace {

const QString themeOfAll = QStringLiteral("freedesktop");

/// A value of the desktop's settings, which lie below the user's configuration.
QString setting(const QString &file, const QString &key)
{
    const QString path = QStandardPaths::locate(QStandardPaths::GenericConfigLocation, file);
    return path.isEmpty() ? QString() : QSettings(path, QSettings::IniFormat).value(key).toString();
}

QString chosenTheme()
{
    if (qEnvironmentVariable("XDG_CURRENT_DESKTOP").split(u':').contains(QLatin1String("KDE")))
        return setting(QStringLiteral("kdeglobals"), QStringLiteral("Sounds/Theme"));
    for (const char *version : {"4", "3"}) {
        const QString file = QStringLiteral("gtk-%1.0/settings.ini").arg(QLatin1String(version));
        const QString theme = setting(file, QStringLiteral("Settings/gtk-sound-theme-name"));
        if (!theme.isEmpty())
            return theme;
    }
    return {};
}

/// The folders of a theme, those for two speakers before those for others.
QStringList soundFolders(const QSettings &index)
{
    QStringList folders = index.value(QStringLiteral("Sound Theme/Directories")).toStringList();
    std::ranges::stable_partition(folders, [&index](const QString &folder) {
        const QString stereo = QStringLiteral("stereo");
        return index.value(folder + QStringLiteral("/OutputProfile"), stereo).toString() == stereo;
    });
    return folders;
}

}

SoundThemes::SoundThemes(QStringList folders, QString chosen)
    : m_folders(std::move(folders))
    , m_chosen(std::move(chosen))
{
}

SoundThemes SoundThemes::ofSession()
{
    QStringList folders = QStandardPaths::standardLocations(QStandardPaths::GenericDataLocation);
    std::ranges::for_each(folders, [](QString &folder) { folder += QStringLiteral("/sounds"); });
    return {folders, chosenTheme()};
}

QString SoundThemes::file(const QString &name) const
{
    QStringList seen{QString()};
    for (const QString &theme : {m_chosen, themeOfAll}) {
        if (const QString found = fileIn(theme, name, seen); !found.isEmpty())
            return found;
    }
    return firstFile(name);
}

QString SoundThemes::fileIn(const QString &theme, const QString &name, QStringList &seen) const
{
    if (seen.contains(theme))
        return {};
    seen << theme;
    for (const QString &folder : m_folders) {
        const QString path = folder + u'/' + theme + QStringLiteral("/index.theme");
        if (!QFileInfo(path).isFile())
            continue;
        const QSettings index(path, QSettings::IniFormat);
        for (const QString &sounds : soundFolders(index)) {
            if (const QString found = firstFile(theme + u'/' + sounds + u'/' + name); !found.isEmpty())
                return found;
        }
        for (const QString &parent : index.value(QStringLiteral("Sound Theme/Inherits")).toStringList()) {
            if (const QString found = fileIn(parent, name, seen); !found.isEmpty())
                return found;
        }
        // A theme may lie in several folders; the first index is that of all of them.
        break;
    }
    return {};
}

QString SoundThemes::firstFile(const QString &path) const
{
    for (const QString &folder : m_folders) {
        for (const char *kind : {".disabled", ".oga", ".ogg", ".wav"}) {
            const QString file = folder + u'/' + path + QLatin1String(kind);
            if (QFileInfo(file).isFile())
                return file;
        }
    }
    return {};
}

}
