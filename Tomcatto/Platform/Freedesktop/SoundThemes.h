#pragma once

#include <QtCore/QStringList>

namespace tomcatto {

/// The themes of sounds that desktops of the freedesktop kind share. Looks at the disk with every call.
class SoundThemes final
{
public:
    /// @param folders hold themes, the first one with a file wins.
    /// @param chosen the theme that the user has chosen; empty where that is not known
    SoundThemes(QStringList folders, QString chosen);

    /// Those of the session: the user's folders and the system's, and the theme that the settings of the desktop name.
    [[nodiscard]] static SoundThemes ofSession();

    /// The file of a sound: of the chosen theme, of those that it inherits from, of the theme that every desktop has,
    /// or beside the themes. @return one that ends on ".disabled" where it is not to be heard; empty where there is
    /// none
    [[nodiscard]] QString file(const QString &name) const;

private:
    [[nodiscard]] QString fileIn(const QString &theme, const QString &name, QStringList &seen) const;
    [[nodiscard]] QString firstFile(const QString &path) const;

    QStringList m_folders;
    QString m_chosen;
};

}
