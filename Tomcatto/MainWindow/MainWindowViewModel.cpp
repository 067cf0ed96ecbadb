#include "MainWindow/MainWindowViewModel.h"

#include "Foundation/EnumTexts.h"

namespace tomcatto {

namespace {

constexpr std::array pageSymbols{"timer", "sliders", "play.rectangle", "chart.bar", "shield", "info"};

}

MainWindowViewModel::MainWindowViewModel(const Pages &pages, const AppMenuCommands &commands,
                                         const LocalizedStrings &strings, QObject *parent)
    : QObject(parent)
    , m_models(pages)
    , m_commands(commands)
    , m_strings(strings)
{
    connect(&strings, &LocalizedStrings::changed, this, &MainWindowViewModel::changed);
    connect(&pages.permissions, &PermissionsPageViewModel::generalRequested, this,
            [this] { show(MainWindowPage::general); });
}

QVariantList MainWindowViewModel::pages() const
{
    QVariantList list;
    for (const MainWindowPage page : mainWindowPages) {
        const QString id = rawValue(page);
        list.append(QVariantMap{{QStringLiteral("id"), id},
                                {QStringLiteral("title"), m_strings.text(QStringLiteral("window.page.") + id)},
                                {QStringLiteral("symbol"), textOf(pageSymbols, page)}});
    }
    return list;
}

void MainWindowViewModel::show(MainWindowPage page)
{
    const bool isNew = page != m_page;
    if (isNew)
        stopRecording();
    m_page = page;
    refreshPage();
    if (isNew)
        Q_EMIT pageChanged();
}

void MainWindowViewModel::stopRecording()
{
    m_models.general.shortcuts()->cancel();
}

void MainWindowViewModel::refreshPage()
{
    switch (m_page) {
    case MainWindowPage::general:
        m_models.general.refresh();
        break;
    case MainWindowPage::permissions:
        m_models.permissions.refresh();
        break;
    case MainWindowPage::about:
        m_models.about.refresh();
        break;
    case MainWindowPage::timer:
    case MainWindowPage::videos:
    case MainWindowPage::statistics:
        break;
    }
}

void MainWindowViewModel::showPage(const QString &id)
{
    if (const auto page = mainWindowPageFromRawValue(id))
        show(*page);
}

void MainWindowViewModel::perform(const QString &titleKey)
{
    m_commands.perform(titleKey);
}

}
