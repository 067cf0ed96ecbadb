#pragma once

#include <optional>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>

namespace tomcatto {

/// The program and the process of a dialog say JSON objects to each other, one a line. The first is the request, the
/// last the answer, which is empty where the user closes the dialog.
namespace dialogKey {

// Of the request.
/// "warning", "save" or "open".
constexpr QLatin1String kind{"kind"};
constexpr QLatin1String title{"title"};
constexpr QLatin1String text{"text"};
constexpr QLatin1String detail{"detail"};
/// Of buttons, or of types of files with their patterns.
constexpr QLatin1String choices{"choices"};
/// It opens in the first of these that is there, else in the home folder.
constexpr QLatin1String folders{"folders"};
constexpr QLatin1String fileName{"fileName"};
/// Without a dot.
constexpr QLatin1String suffix{"suffix"};
/// As text, since JSON has no whole numbers of that size; "0" for none.
constexpr QLatin1String windowBehind{"windowBehind"};
// Of the request, and whenever it changes.
constexpr QLatin1String isDark{"isDark"};
constexpr QLatin1String raise{"raise"};

// Of the process.
/// At first, and as the answer to `raise`.
constexpr QLatin1String isShown{"isShown"};
/// The number of the choice that was pressed.
constexpr QLatin1String chosen{"chosen"};
/// Chosen files, and the folder that they were chosen in.
constexpr QLatin1String paths{"paths"};
constexpr QLatin1String folder{"folder"};

}

[[nodiscard]] inline QByteArray lineOf(const QJsonObject &message)
{
    return QJsonDocument(message).toJson(QJsonDocument::Compact) + '\n';
}

/// Takes a whole line off the front; `nullopt` if there is none. What is not JSON counts as an empty object.
[[nodiscard]] inline std::optional<QJsonObject> takeLine(QByteArray &bytes)
{
    const qsizetype end = bytes.indexOf('\n');
    if (end < 0)
        return std::nullopt;
    QJsonObject message = QJsonDocument::fromJson(bytes.left(end)).object();
    bytes.remove(0, end + 1);
    return message;
}

}
