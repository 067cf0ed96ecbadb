#pragma once

#include "Platform/Film/FilmMessages.h"

#include <memory>
#include <QtCore/QHash>
#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtCore/QString>

class QFile;
class QProcess;
class QUrl;

namespace tomcatto {

struct FilmFrame;
class RunningFilm;

/// The program that plays films, started with the first of them. What playing loads, libraries of a hundred files that
/// nothing unloads, goes with it. Its frames lie in memory that it shares with this process. Main thread only.
class FilmProcess final : public QObject, public std::enable_shared_from_this<FilmProcess>
{
    Q_OBJECT

public:
    /// The one of all films that there are now.
    static std::shared_ptr<FilmProcess> shared();

    FilmProcess();
    FilmProcess(const FilmProcess &) = delete;
    FilmProcess &operator=(const FilmProcess &) = delete;
    ~FilmProcess() override;

    /// @param film is told how it goes. @return its number, above 0
    [[nodiscard]] int begin(RunningFilm &film, const QUrl &source, const FilmWish &wish);
    void send(const FilmOrder &order, const QByteArray &text = {});

private:
    void start();
    void read();
    void tell(const FilmNews &news, const QString &reason);
    [[nodiscard]] FilmFrame frameOf(const FilmNews &news);
    void fail(const QString &reason);

    std::shared_ptr<QFile> m_memory;
    const uchar *m_frames = nullptr;
    // Ends itself, which may take longer than this lives.
    QProcess *m_process;
    QHash<int, QPointer<RunningFilm>> m_films;
    int m_lastNumber = 0;
    QString m_problem;
};

}
