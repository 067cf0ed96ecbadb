#pragma once

#include <functional>
#include <QtCore/QString>

namespace tomcatto {

/// The texts of a save panel, already in the user's language.
struct SavePanelRequest
{
    QString title;
    /// The name that the file gets unless the user takes another.
    QString fileName;
    /// The one type of file that is offered, and its suffix without a dot.
    QString typeName;
    QString suffix;

    bool operator==(const SavePanelRequest &) const = default;
};

/// Asks where a file is to be saved. Main thread only.
class SavePanel
{
public:
    virtual ~SavePanel() = default;

    /// Shows the panel beside the application's windows, which go on, and returns at once. `onChosen` is called later,
    /// once, with a path that may be written; not at all when the user cancels or the panel is destroyed. While one is
    /// open it only comes to the front, and the new request is dropped.
    virtual void ask(const SavePanelRequest &request, std::function<void(const QString &path)> onChosen) = 0;
};

}
