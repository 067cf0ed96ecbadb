#pragma once

#include <optional>
#include <QtCore/QString>

namespace tomcatto {

/// What the application knows of itself since it was built, as those who look after a machine may set it: by a JSON
/// object in the file "Info.json" in the application's folder under one of the system's configuration folders, the
/// first that has one. Any thread.
class InfoDictionary final
{
public:
    /// The text under a key; `nullopt` if it is absent or empty.
    [[nodiscard]] static std::optional<QString> text(const QString &key);
};

}
