#pragma once

#include "Platform/Film/FilmFrame.h"
#include "Platform/Film/FilmMessages.h"
#include "Platform/Film/FrameMemory.h"

#include <cstdio>
#include <map>
#include <string>

namespace tomcatto {

class FilmPlayback;

/// What the player and the application say to each other, with the films that play and the frames that the application
/// has. Any thread, except for `obey`, which one calls.
class FilmDesk final
{
public:
    /// @param news where the application reads; outlives this
    FilmDesk(std::FILE *news, FrameMemory &memory)
        : m_news(news)
        , m_memory(memory)
    {
    }

    void obey(const FilmOrder &order, const std::string &text);

    /// @return false where there is no memory for it
    [[nodiscard]] bool sendFrame(int film, const FilmFrame &frame);
    void sendFailure(int film, const std::string &reason);
    void sendSoundMissing(int film);

private:
    struct Shown
    {
        std::weak_ptr<FilmPlayback> film;
        FilmFrame frame;
    };

    [[nodiscard]] bool isShared(const FilmFrame &frame) const;
    [[nodiscard]] FilmFrame shared(const FilmFrame &frame);
    void release(qint64 number);
    void send(FilmNews news, const std::string &text = {});

    std::FILE *m_news;
    FrameMemory &m_memory;
    std::mutex m_mutex;
    std::map<int, std::shared_ptr<FilmPlayback>> m_films;
    std::map<qint64, Shown> m_shown;
    qint64 m_lastFrame = 0;
};

}
