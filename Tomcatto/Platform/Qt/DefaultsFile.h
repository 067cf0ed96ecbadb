#pragma once

#include "Platform/Qt/DefaultsDocument.h"

namespace tomcatto {

/// The file that a defaults document lives in. A link in its place is followed. Not thread-safe; may be used on any
/// thread.
class DefaultsFile final
{
public:
    /// How the file was found.
    enum class State {
        /// Read, or not there yet.
        sound,
        /// There, but it could not be read; it must not be replaced.
        unreadable,
        /// It holds no JSON object, or something that is not a file stands in its place.
        corrupt,
    };
    struct Content
    {
        State state = State::sound;
        DefaultsDocument document;
        /// Why it is unreadable or corrupt, for the log.
        QString problem;
    };

    /// @param path empty where there is no place for it: then it is never there and cannot be written.
    explicit DefaultsFile(QString path);

    [[nodiscard]] Content read() const;
    /// Moves what stands in the file's place to a free name beside it, made of the file's name and the time in UTC.
    /// @return the new path; nothing if it cannot be moved.
    [[nodiscard]] std::optional<QString> setAside() const;
    /// Replaces the file's content in one step: either the old or the new content is there, whenever the process or the
    /// machine stops. Returns once the new one is on disk. A missing folder is made for this user alone.
    /// @return the reason of the failure; empty when it is written.
    [[nodiscard]] QString write(const QByteArray &text) const;
    [[nodiscard]] const QString &path() const noexcept { return m_path; }

private:
    [[nodiscard]] QString target() const;

    QString m_path;
};

}
