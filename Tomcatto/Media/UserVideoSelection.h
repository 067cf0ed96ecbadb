#pragma once

#include "Platform/Ports/Bookmarks.h"

#include <memory>

namespace tomcatto {

/// Holds the access to one file of the user's for as long as it lives. Any thread; its making may take as long as the
/// file's disk does.
class UserVideoSelection final
{
public:
    /// Starts access.
    UserVideoSelection(QUrl url, std::shared_ptr<const Bookmarks> bookmarks)
        : m_bookmarks(std::move(bookmarks))
        , m_url(std::move(url))
        , m_hasAccess(m_bookmarks->startAccess(m_url))
    {
    }
    ~UserVideoSelection()
    {
        if (m_hasAccess)
            m_bookmarks->stopAccess(m_url);
    }
    UserVideoSelection(const UserVideoSelection &) = delete;
    UserVideoSelection &operator=(const UserVideoSelection &) = delete;

    [[nodiscard]] const QUrl &url() const noexcept { return m_url; }
    /// Whether the file can be read.
    [[nodiscard]] bool hasAccess() const noexcept { return m_hasAccess; }

private:
    std::shared_ptr<const Bookmarks> m_bookmarks;
    QUrl m_url;
    bool m_hasAccess;
};

}
