#pragma once

#include "Platform/Ports/MainRunLoop.h"
#include "Platform/Ports/SharedFactSource.h"

#include <filesystem>

class QSocketNotifier;

namespace tomcatto {

/// Whether another program holds a camera open. The kernel tells when one is opened, closed, plugged in or out; then it
/// is looked who holds it, of the processes that this user may look into. Untold where there is no camera. Main thread
/// only.
class CameraInUse final : public SharedFactSource
{
public:
    /// @param devices the folder where cameras have their files, "video" and a number
    explicit CameraInUse(MainRunLoop &runLoop, std::filesystem::path devices = "/dev");
    CameraInUse(const CameraInUse &) = delete;
    CameraInUse &operator=(const CameraInUse &) = delete;
    ~CameraInUse() override;

private:
    void begin() override;
    void end() override;
    void follow();
    void read();
    void look();

    MainRunLoop &m_runLoop;
    const std::filesystem::path m_devices;
    int m_descriptor = -1;
    int m_folder = -1;
    std::unique_ptr<QSocketNotifier> m_notifier;
    std::vector<std::filesystem::path> m_cameras;
    Cancellable m_settling;
};

}
