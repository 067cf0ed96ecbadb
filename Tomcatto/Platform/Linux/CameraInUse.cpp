#include "Platform/Linux/CameraInUse.h"

#include "Foundation/Logger.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <fstream>
#include <QtCore/QSocketNotifier>
#include <string_view>
#include <sys/inotify.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tomcatto {

namespace fs = std::filesystem;

namespace {

/// Browsers open every camera for a moment to name it.
constexpr auto settlingTime = std::chrono::seconds(1);
constexpr std::string_view cameraName = "video";

std::vector<fs::path> entries(const fs::path &folder)
{
    std::vector<fs::path> paths;
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error))
        paths.push_back(entry->path());
    return paths;
}

/// The parent of a process, 0 where it is gone.
int parentOf(const fs::path &process)
{
    std::ifstream status(process / "status");
    for (std::string line; std::getline(status, line);) {
        if (line.starts_with("PPid:"))
            return std::atoi(line.c_str() + std::strlen("PPid:"));
    }
    return 0;
}

bool isSameFile(const fs::path &one, const fs::path &other)
{
    struct stat first
    {
    };
    struct stat second
    {
    };
    return ::stat(one.c_str(), &first) == 0 && ::stat(other.c_str(), &second) == 0 && first.st_ino == second.st_ino &&
           first.st_dev == second.st_dev;
}

/// Names first: only what is called as a camera is looked at, since a file on a disk that hangs would keep us. The path
/// alone does not do, because programs in a sandbox may have another one.
bool isCamera(const fs::path &descriptor, const std::vector<fs::path> &cameras)
{
    std::error_code error;
    const fs::path file = fs::read_symlink(descriptor, error);
    return !error && std::ranges::any_of(cameras, [&](const fs::path &camera) {
        return camera.filename() == file.filename() && isSameFile(camera, descriptor);
    });
}

bool isHolder(const fs::path &process, const std::vector<fs::path> &cameras)
{
    const std::string id = process.filename();
    if (!std::ranges::all_of(id, [](char each) { return each >= '0' && each <= '9'; }) || std::stol(id) == ::getpid())
        return false;
    return std::ranges::any_of(entries(process / "fd"),
                               [&](const fs::path &descriptor) { return isCamera(descriptor, cameras); }) &&
           parentOf(process) != ::getpid();
}

}

CameraInUse::CameraInUse(MainRunLoop &runLoop, fs::path devices)
    : m_runLoop(runLoop)
    , m_devices(std::move(devices))
{
}

CameraInUse::~CameraInUse()
{
    CameraInUse::end();
}

void CameraInUse::begin()
{
    m_descriptor = ::inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
    if (m_descriptor < 0) {
        Logger(QStringLiteral("CameraInUse"))
            .error(QStringLiteral("cameras go unnoticed: ") + QString::fromLocal8Bit(std::strerror(errno)));
        return tell(Fact::untold);
    }
    m_notifier = std::make_unique<QSocketNotifier>(m_descriptor, QSocketNotifier::Read);
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(), [this] { read(); });
    // A new camera becomes this user's some time after it came.
    m_folder = ::inotify_add_watch(m_descriptor, m_devices.c_str(), IN_CREATE | IN_DELETE | IN_ATTRIB);
    follow();
    look();
}

void CameraInUse::end()
{
    m_settling = {};
    m_notifier.reset();
    if (m_descriptor >= 0)
        ::close(std::exchange(m_descriptor, -1));
}

void CameraInUse::follow()
{
    m_cameras = entries(m_devices);
    // One that this user may not open is not followed.
    std::erase_if(m_cameras, [this](const fs::path &path) {
        return !path.filename().native().starts_with(cameraName) ||
               ::inotify_add_watch(m_descriptor, path.c_str(), IN_OPEN | IN_CLOSE) < 0;
    });
}

void CameraInUse::read()
{
    bool isNews = false;
    alignas(inotify_event) std::array<char, 4096> bytes{};
    for (ssize_t size = 0; (size = ::read(m_descriptor, bytes.data(), bytes.size())) > 0;) {
        for (ssize_t at = 0; at < size;) {
            const auto *event = reinterpret_cast<const inotify_event *>(bytes.data() + at);
            const std::string_view name = event->len > 0 ? event->name : "";
            isNews = isNews || event->wd != m_folder || name.starts_with(cameraName);
            at += static_cast<ssize_t>(sizeof(inotify_event) + event->len);
        }
    }
    if (isNews && !m_settling.isActive())
        m_settling = m_runLoop.after(settlingTime, [this] {
            m_settling = {};
            follow();
            look();
        });
}

void CameraInUse::look()
{
    if (m_cameras.empty())
        return tell(Fact::untold);
    const std::vector<fs::path> processes = entries("/proc");
    const bool isHeld =
        std::ranges::any_of(processes, [this](const fs::path &process) { return isHolder(process, m_cameras); });
    tell(isHeld ? Fact::yes : Fact::no);
}

}
