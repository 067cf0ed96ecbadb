#include "Navigation/MainWindowRouter.h"

#include "Foundation/EnumTexts.h"

namespace tomcatto {

namespace {

constexpr std::array pageTexts{"timer", "general", "videos", "statistics", "permissions", "about"};

}

QString rawValue(MainWindowPage page)
{
    return textOf(pageTexts, page);
}

std::optional<MainWindowPage> mainWindowPageFromRawValue(QStringView text)
{
    return caseOf<MainWindowPage>(pageTexts, text);
}

void MainWindowRouter::open(MainWindowPage page)
{
    m_page = page;
    Q_EMIT pageRequested(page);
}

}
