#include "Navigation/MainWindowRouter.h"

#include <algorithm>

namespace tomcatto {

QString rawValue(MainWindowPage page)
{
    switch (page) {
    case MainWindowPage::timer:
        return QStringLiteral("timer");
    case MainWindowPage::general:
        return QStringLiteral("general");
    case MainWindowPage::videos:
        return QStringLiteral("videos");
    case MainWindowPage::statistics:
        return QStringLiteral("statistics");
    case MainWindowPage::permissions:
        return QStringLiteral("permissions");
    case MainWindowPage::about:
        return QStringLiteral("about");
    }
    return {};
}

std::optional<MainWindowPage> mainWindowPageFromRawValue(QStringView text)
{
    const auto *const found =
        std::ranges::find_if(mainWindowPages, [text](MainWindowPage page) { return rawValue(page) == text; });
    return found != mainWindowPages.end() ? std::optional(*found) : std::nullopt;
}

void MainWindowRouter::open(MainWindowPage page)
{
    m_page = page;
    Q_EMIT pageRequested(page);
}

}
