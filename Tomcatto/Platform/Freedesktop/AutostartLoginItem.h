#pragma once

#include "Platform/Ports/LoginItem.h"

namespace tomcatto {

/// The login item as an autostart entry of the desktop, a small file in the user's configuration. The desktop's own
/// settings switch it off by a key in that file, which counts as waiting for approval. What it starts decides, too: a
/// program that is gone, or another one, is not this application.
class AutostartLoginItem final : public LoginItem
{
public:
    /// @param program absolute path of what is started at login, with the option that keeps it in the background.
    /// @param folder where the desktop reads autostart entries; empty where there is none.
    explicit AutostartLoginItem(QString program, QString folder = userFolder());

    /// The user's autostart folder; it need not exist. Empty where the user has no home and no other place for it is
    /// set.
    [[nodiscard]] static QString userFolder();
    /// What belongs into the entry, whichever of the programs writes it: the desktop program in the folder of the
    /// running one, else the running one.
    [[nodiscard]] static QString programAtLogin();

    [[nodiscard]] LoginItemStatus status() const override;
    /// Replaces the entry as a whole, with everything that was switched in it.
    [[nodiscard]] std::expected<void, QString> registerItem() override;
    [[nodiscard]] std::expected<void, QString> unregisterItem() override;

private:
    [[nodiscard]] QString file() const;
    [[nodiscard]] QByteArray entry() const;

    QString m_program;
    QString m_folder;
};

}
