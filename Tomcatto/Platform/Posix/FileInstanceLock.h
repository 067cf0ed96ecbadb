#pragma once

#include "Platform/Ports/InstanceLock.h"

#include <QtCore/QStringList>

namespace tomcatto {

/// An advisory lock on an open file that is never deleted, so two processes always lock the same file. The file holds
/// what the holder announces.
class FileInstanceLock final : public InstanceLock
{
public:
    /// @param primaryPath the file to lock; it and its folder are made for this user alone.
    /// @param fallbackPath the file to lock where the first cannot be opened.
    FileInstanceLock(QString primaryPath, QString fallbackPath);
    FileInstanceLock(const FileInstanceLock &) = delete;
    FileInstanceLock &operator=(const FileInstanceLock &) = delete;
    ~FileInstanceLock() override;

    [[nodiscard]] InstanceLockResult tryTake() override;
    void release() override;
    void announce(const QString &address) override;
    [[nodiscard]] QString announced() const override;

private:
    [[nodiscard]] InstanceLockResult tryTakeAt(const QString &path);

    QString m_primaryPath;
    QString m_fallbackPath;
    QStringList m_reported;
    int m_descriptor = -1;
};

}
