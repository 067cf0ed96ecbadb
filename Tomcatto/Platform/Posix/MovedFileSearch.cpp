#include "Platform/Posix/MovedFileSearch.h"

#include <cstring>
#include <dirent.h>
#include <memory>

namespace tomcatto {

namespace {

struct DirectoryCloser
{
    void operator()(DIR *directory) const { closedir(directory); }
};

QByteArray parentOf(const QByteArray &path)
{
    return path.left(path.lastIndexOf('/'));
}

}

MovedFileSearch::MovedFileSearch(FileIdentity identity, QByteArray homeFolder, QDeadlineTimer deadline,
                                 FileStatusReader fileStatus)
    : m_identity(identity)
    , m_homeFolder(std::move(homeFolder))
    , m_deadline(deadline)
    , m_fileStatus(fileStatus)
{
}

std::optional<QByteArray> MovedFileSearch::find(const QByteArray &lastPath)
{
    for (const QByteArray &folder : startFolders(lastPath)) {
        if (auto found = searchBelow(folder))
            return found;
    }
    return std::nullopt;
}

// The root folder is the empty path here and is never one of them.
std::deque<QByteArray> MovedFileSearch::startFolders(const QByteArray &lastPath) const
{
    std::deque<QByteArray> folders;
    for (QByteArray folder = parentOf(lastPath); !folder.isEmpty(); folder = parentOf(folder)) {
        folders.push_back(folder);
        if (folder == m_homeFolder)
            return folders;
    }
    folders.push_back(m_homeFolder);
    return folders;
}

// Breadth first: what was moved is most often near.
std::optional<QByteArray> MovedFileSearch::searchBelow(const QByteArray &folder)
{
    std::deque<QByteArray> pending{folder};
    while (!pending.empty() && !isExhausted()) {
        const QByteArray next = std::move(pending.front());
        pending.pop_front();
        if (!enter(next))
            continue;
        if (auto found = searchFolder(next, pending))
            return found;
    }
    return std::nullopt;
}

std::optional<QByteArray> MovedFileSearch::searchFolder(const QByteArray &folder, std::deque<QByteArray> &pending)
{
    const std::unique_ptr<DIR, DirectoryCloser> directory(opendir(folder.constData()));
    if (!directory)
        return std::nullopt;
    while (const dirent *const entry = readdir(directory.get())) { // NOLINT(concurrency-mt-unsafe): a stream of its own
        --m_entriesLeft;
        if (m_entriesLeft <= 0 || (m_entriesLeft % 64 == 0 && m_deadline.hasExpired()))
            return std::nullopt;
        const char *const name = &entry->d_name[0];
        const bool isFolder = entry->d_type == DT_DIR || entry->d_type == DT_UNKNOWN;
        if (isFolder && name[0] != '.')
            pending.push_back(folder + '/' + name);
        if (entry->d_ino != m_identity.inode || std::strcmp(name, ".") == 0 || std::strcmp(name, "..") == 0)
            continue;
        QByteArray path = folder + '/' + name;
        const auto status = m_fileStatus(path, SymbolicLinks::keep);
        if (status && status->isRegularFile && status->identity == m_identity)
            return path;
    }
    return std::nullopt;
}

bool MovedFileSearch::enter(const QByteArray &folder)
{
    const auto status = m_fileStatus(folder, SymbolicLinks::keep);
    return status && status->isDirectory && status->identity.device == m_identity.device &&
           m_visitedFolders.insert(status->identity.inode).second;
}

}
