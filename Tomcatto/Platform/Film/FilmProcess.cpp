#include "Platform/Film/FilmProcess.h"

#include "Platform/Film/RunningFilm.h"
#include "Platform/Posix/CompanionProgram.h"
#include "Platform/Posix/SharedMemory.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QFile>
#include <QtCore/QProcess>
#include <QtCore/QTimer>
#include <utility>

namespace tomcatto {
namespace {

/// For the frames of many large films at once; it is only an address until there are some.
constexpr qint64 memorySize = 1LL << 30;

/// For as long as somebody has a frame in it.
struct HeldFrame
{
    std::shared_ptr<QFile> memory;
    std::weak_ptr<FilmProcess> process;
    qint64 frame;

    // On the thread that draws, where there is one.
    void operator()(const uchar *) const
    {
        QMetaObject::invokeMethod(qApp, [process = process, frame = frame] {
            if (const auto there = process.lock())
                there->send({.kind = FilmOrder::Kind::release, .frame = frame});
        });
    }
};

}

std::shared_ptr<FilmProcess> FilmProcess::shared()
{
    static std::weak_ptr<FilmProcess> current;
    auto process = current.lock();
    if (!process)
        current = process = std::make_shared<FilmProcess>();
    return process;
}

FilmProcess::FilmProcess()
    : m_memory(std::make_shared<QFile>())
    , m_process(new QProcess)
{
    start();
}

FilmProcess::~FilmProcess()
{
    m_process->disconnect(this);
    endCompanion(m_process);
}

void FilmProcess::start()
{
    const int memory = openSharedMemory(memorySize);
    if (memory >= 0 && m_memory->open(memory, QIODevice::ReadWrite, QFileDevice::AutoCloseHandle))
        m_frames = m_memory->map(0, memorySize);
    if (!m_frames)
        return fail(QStringLiteral("there is no memory for films"));
    connect(m_process, &QProcess::readyReadStandardOutput, this, &FilmProcess::read);
    connect(m_process, &QProcess::finished, this, [this] { fail(QStringLiteral("what plays videos has ended")); });
    connect(m_process, &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart)
            fail(QStringLiteral("what plays videos does not start: ") + m_process->errorString());
    });
    m_process->setChildProcessModifier([memory] { handOn(memory); });
    m_process->setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_process->start(companionProgram(QStringLiteral("tomcatto-film")),
                     {QString::number(memory), QString::number(memorySize)}, QIODevice::ReadWrite);
}

int FilmProcess::begin(RunningFilm &film, const QUrl &source, const FilmWish &wish)
{
    m_films.insert(++m_lastNumber, &film);
    send({.kind = FilmOrder::Kind::begin, .film = m_lastNumber, .wish = wish}, source.toEncoded());
    if (!m_problem.isEmpty())
        QTimer::singleShot(0, &film, [&film, problem = m_problem] { Q_EMIT film.failed(problem); });
    return m_lastNumber;
}

void FilmProcess::send(const FilmOrder &order, const QByteArray &text)
{
    FilmOrder sent = order;
    sent.textSize = text.size();
    if (order.kind == FilmOrder::Kind::end)
        m_films.remove(order.film);
    if (!m_problem.isEmpty())
        return;
    m_process->write(reinterpret_cast<const char *>(&sent), sizeof(sent));
    m_process->write(text);
}

void FilmProcess::read()
{
    FilmNews news;
    constexpr qint64 size = sizeof(news);
    while (m_process->peek(reinterpret_cast<char *>(&news), size) == size &&
           m_process->bytesAvailable() >= size + news.textSize) {
        m_process->skip(size);
        tell(news, QString::fromUtf8(m_process->read(news.textSize)));
    }
}

void FilmProcess::tell(const FilmNews &news, const QString &reason)
{
    // Also where nobody wants it any more, so that its memory is given back.
    const FilmFrame frame = news.kind == FilmNews::Kind::frame ? frameOf(news) : FilmFrame();
    RunningFilm *film = m_films.value(news.film);
    if (!film)
        return;
    switch (news.kind) {
    case FilmNews::Kind::frame:
        return film->frameCame(frame);
    case FilmNews::Kind::failed:
        return film->failed(reason);
    case FilmNews::Kind::soundMissing:
        return film->soundMissing();
    }
}

FilmFrame FilmProcess::frameOf(const FilmNews &news)
{
    FilmFrame frame;
    frame.size = QSize(news.width, news.height);
    frame.format = static_cast<AVPixelFormat>(news.format);
    for (size_t plane = 0; plane < frame.planes.size(); ++plane) {
        if (news.planes.at(plane) >= 0)
            frame.planes.at(plane) = m_frames + news.planes.at(plane);
    }
    frame.strides = news.strides;
    frame.isStandard = news.isStandard;
    frame.isFullRange = news.isFullRange;
    frame.angle = news.angle;
    frame.isMirrored = news.isMirrored;
    frame.memory = std::shared_ptr<const void>(m_frames, HeldFrame{m_memory, weak_from_this(), news.frame});
    return frame;
}

void FilmProcess::fail(const QString &reason)
{
    m_problem = reason;
    const auto films = m_films;
    for (const QPointer<RunningFilm> &film : films) {
        if (film)
            Q_EMIT film->failed(reason);
    }
}

}
