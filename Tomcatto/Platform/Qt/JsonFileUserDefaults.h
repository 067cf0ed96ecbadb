#pragma once

#include "Foundation/Logger.h"
#include "Platform/Qt/DefaultsFile.h"

#include <condition_variable>
#include <mutex>
#include <QtCore/QThreadPool>

namespace tomcatto {

/// User defaults in one JSON file. Changes act in memory at once; a background thread, there only while something is to
/// be written, replaces the file with the newest state, so a burst of changes is one write.
///
/// A file that is corrupt is set aside under another name and the store starts empty. Where the file cannot be read or
/// written, values live in memory, with one log line for each run of failures; nothing unread is ever replaced.
class JsonFileUserDefaults final : public UserDefaults
{
public:
    enum class Access {
        readWrite,
        /// For commands that only look: nothing on disk is touched, changes stay in memory.
        readOnly,
    };

    /// Reads the file. @param path of the file; it need not exist and is not created before a value is set.
    explicit JsonFileUserDefaults(const QString &path, Access access = Access::readWrite);
    JsonFileUserDefaults(const JsonFileUserDefaults &) = delete;
    JsonFileUserDefaults &operator=(const JsonFileUserDefaults &) = delete;
    /// Synchronizes.
    ~JsonFileUserDefaults() override;

    [[nodiscard]] std::optional<DefaultsValue> value(const QString &key) const override;
    [[nodiscard]] std::optional<DefaultsValue> storedValue(const QString &key) const override;
    void setValue(const QString &key, const DefaultsValue &value) override;
    void remove(const QString &key) override;
    /// A write that failed before is tried once more.
    bool synchronize() override;

private:
    void load(Access access);
    void noteChange();
    void writeUntilCurrent();
    void report(const QString &problem);

    const DefaultsFile m_file;
    const Logger m_logger{QStringLiteral("JsonFileUserDefaults")};
    // The standard ones: the thread sanitizer does not see how Qt's let go of each other.
    mutable std::mutex m_mutex;
    std::condition_variable m_progress;
    // Everything below is guarded by the mutex. Generations count changes; a written one reached the disk or failed to.
    DefaultsDocument m_document;
    quint64 m_wantedGeneration = 0;
    quint64 m_writtenGeneration = 0;
    bool m_isWriting = false;
    bool m_hasFailed = false;
    bool m_mayWrite = true;
    // Last, so that its thread ends first.
    QThreadPool m_writer;
};

}
