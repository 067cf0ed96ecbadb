#pragma once

#include <functional>
#include <QtCore/QList>
#include <QtCore/QStringList>
#include <QtCore/QUrl>

namespace tomcatto {

/// The texts of an open panel, already in the user's language.
struct OpenPanelRequest
{
    QString title;
    /// Types of files, each with its patterns in brackets: "Films (*.mp4 *.mov)".
    QStringList nameFilters;

    bool operator==(const OpenPanelRequest &) const = default;
};

/// Asks for files. Main thread only.
class OpenPanel
{
public:
    virtual ~OpenPanel() = default;

    /// Shows the panel beside the application's windows, which go on, and returns at once. `onChosen` is called later,
    /// once, with one file or more; not at all when the user cancels or the panel is destroyed. While one is open it
    /// only comes to the front, and the new request is dropped.
    virtual void ask(const OpenPanelRequest &request, std::function<void(const QList<QUrl> &files)> onChosen) = 0;
};

}
