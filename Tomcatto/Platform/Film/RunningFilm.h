#pragma once

#include "Platform/Film/FilmFrame.h"
#include "Platform/Film/FilmProcess.h"

#include <QtCore/QUrl>

namespace tomcatto {

/// One film that plays without an end in another process, so that nobody waits for a disk, a decoder or a sound server,
/// neither when it begins nor when it ends. Main thread only.
class RunningFilm final : public QObject
{
    Q_OBJECT

public:
    /// @param source nothing: only what any film needs is loaded
    RunningFilm(const QUrl &source, const FilmWish &wish);
    ~RunningFilm() override;

    void setWish(const FilmWish &wish);

Q_SIGNALS:
    void frameCame(const tomcatto::FilmFrame &frame);
    void failed(const QString &reason);
    /// There is nothing to hear the film with; only the picture plays.
    void soundMissing();

private:
    std::shared_ptr<FilmProcess> m_process;
    int m_number = 0;
};

}
