#pragma once

#include "Fakes/ManualWallClock.h"
#include "Fakes/SequentialIdentifiers.h"
#include "Integration/Persistence/StoreFolder.h"
#include "Persistence/CoreDataStack.h"
#include "Persistence/Repositories/UserVideoRepository.h"
#include "Platform/Posix/FileBookmarks.h"
#include "Platform/Qt/QtMainRunLoop.h"

#include <atomic>
#include <map>
#include <QtTest/QTest>
#include <thread>

namespace tomcatto {

/// Bookmarks of real files that count accesses, and refuse those to chosen files.
class CountingBookmarks final : public Bookmarks
{
public:
    explicit CountingBookmarks(const QString &homeFolder)
        : m_files(homeFolder)
    {
    }

    [[nodiscard]] std::optional<QByteArray> bookmarkData(const QUrl &fileUrl) const override
    {
        return m_files.bookmarkData(fileUrl);
    }
    [[nodiscard]] std::optional<ResolvedBookmark> resolve(const QByteArray &data,
                                                          QDeadlineTimer searchUntil) const override
    {
        if (data.contains("silent")) {
            ++m_questions;
            m_isAwake.wait(false);
        }
        auto found = m_files.resolve(data, m_isSearchOff ? QDeadlineTimer(0) : searchUntil);
        m_longestSearch = std::max<qint64>(m_longestSearch, searchUntil.remainingTime());
        return found;
    }
    [[nodiscard]] QByteArray disk(const QByteArray &data) const override
    {
        return data.contains("silent") ? QByteArray("silent") : m_files.disk(data);
    }
    [[nodiscard]] bool startAccess(const QUrl &fileUrl) const override
    {
        if (fileUrl == m_refused || !m_files.startAccess(fileUrl))
            return false;
        ++m_accesses[fileUrl];
        return true;
    }
    void stopAccess(const QUrl &fileUrl) const override { --m_accesses[fileUrl]; }

    QUrl m_refused;
    /// Whether the disk with the file "silent" answers, and how often it was asked.
    std::atomic<bool> m_isAwake = true;
    mutable std::atomic<int> m_questions = 0;
    std::atomic<bool> m_isSearchOff = false;
    /// The most time that a file was looked for, in milliseconds.
    mutable std::atomic<qint64> m_longestSearch = 0;
    mutable std::map<QUrl, int> m_accesses;

private:
    FileBookmarks m_files;
};

/// Gives the same answers for every file.
class FixedStillFrame final : public StillFrame
{
public:
    [[nodiscard]] std::expected<VideoLook, StillFrameFailure> look(const QString &, StillFrameRequest request,
                                                                   std::stop_token stop) const override
    {
        while (m_takesUntilStopped && !stop.stop_requested())
            std::this_thread::yield();
        m_request = request;
        ++m_looks;
        return m_look;
    }

    std::expected<VideoLook, StillFrameFailure> m_look = VideoLook{12.5, QByteArray("picture")};
    mutable std::atomic<int> m_looks = 0;
    mutable StillFrameRequest m_request;
    std::atomic<bool> m_takesUntilStopped = false;
};

/// A store of user videos on disk, and a home folder with real files.
class VideoLibrary : public StoreFolder
{
protected:
    using Write = std::expected<UserVideoSave, UserVideoRepositoryError>;

    [[nodiscard]] QString path(const char *name) const { return m_home.filePath(QString::fromUtf8(name)); }
    QUrl makeFile(const char *name, const char *content = "video") const
    {
        QDir().mkpath(QFileInfo(path(name)).path());
        QFile file(path(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
        return QUrl::fromLocalFile(path(name));
    }
    [[nodiscard]] UserVideoRepository::Completion keep()
    {
        m_result.reset();
        return [this](const Write &result) { m_result = result; };
    }
    /// Waits for the completion that `keep` made.
    [[nodiscard]] std::optional<Write> result()
    {
        static_cast<void>(QTest::qWaitFor([this] { return m_result.has_value(); }));
        return m_result;
    }
    QUuid addFile(const char *name)
    {
        const QUuid id = m_repository.addVideo(makeFile(name), keep());
        EXPECT_EQ(result(), Write(UserVideoSave::saved));
        return id;
    }

    QtMainRunLoop m_runLoop;
    QTemporaryDir m_home;
    CoreDataStack m_stack{directory()};
    ManualWallClock m_clock;
    SequentialIdentifiers m_identifiers;
    std::shared_ptr<CountingBookmarks> m_sharedBookmarks = std::make_shared<CountingBookmarks>(m_home.path());
    CountingBookmarks &m_bookmarks = *m_sharedBookmarks;
    FixedStillFrame m_stillFrame;
    UserVideoRepository m_repository{m_stack, m_clock, m_identifiers, m_bookmarks, m_stillFrame};

private:
    std::optional<Write> m_result;
};

}
