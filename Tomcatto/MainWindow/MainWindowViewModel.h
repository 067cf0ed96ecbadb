#pragma once

#include "Localization/LocalizedStrings.h"
#include "MainWindow/AboutPageViewModel.h"
#include "MainWindow/AppMenuCommands.h"
#include "MainWindow/GeneralPageViewModel.h"
#include "MainWindow/PermissionsPageViewModel.h"
#include "MainWindow/StatisticsPageViewModel.h"
#include "MainWindow/TimerPageViewModel.h"
#include "MainWindow/VideosPageViewModel.h"
#include "Navigation/MainWindowPage.h"

#include <QtCore/QVariantList>

namespace tomcatto {

/// The main window: its pages and which of them is shown. Main thread only; the page models outlive it.
class MainWindowViewModel final : public QObject
{
    Q_OBJECT
    /// The sidebar: id, title, symbol.
    Q_PROPERTY(QVariantList pages READ pages NOTIFY changed FINAL)
    /// The id of the page shown.
    Q_PROPERTY(QString page READ page NOTIFY pageChanged FINAL)
    Q_PROPERTY(tomcatto::TimerPageViewModel *timer READ timer CONSTANT FINAL)
    Q_PROPERTY(tomcatto::GeneralPageViewModel *general READ general CONSTANT FINAL)
    Q_PROPERTY(tomcatto::VideosPageViewModel *videos READ videos CONSTANT FINAL)
    Q_PROPERTY(tomcatto::StatisticsPageViewModel *statistics READ statistics CONSTANT FINAL)
    Q_PROPERTY(tomcatto::PermissionsPageViewModel *permissions READ permissions CONSTANT FINAL)
    Q_PROPERTY(tomcatto::AboutPageViewModel *about READ about CONSTANT FINAL)

public:
    struct Pages
    {
        TimerPageViewModel &timer;
        GeneralPageViewModel &general;
        VideosPageViewModel &videos;
        StatisticsPageViewModel &statistics;
        PermissionsPageViewModel &permissions;
        AboutPageViewModel &about;
    };

    /// @param commands what the window's keys call; outlives it.
    MainWindowViewModel(const Pages &pages, const AppMenuCommands &commands, const LocalizedStrings &strings,
                        QObject *parent = nullptr);

    [[nodiscard]] QVariantList pages() const;
    [[nodiscard]] QString page() const { return rawValue(m_page); }
    [[nodiscard]] MainWindowPage currentPage() const noexcept { return m_page; }
    [[nodiscard]] TimerPageViewModel *timer() const { return &m_models.timer; }
    [[nodiscard]] GeneralPageViewModel *general() const { return &m_models.general; }
    [[nodiscard]] VideosPageViewModel *videos() const { return &m_models.videos; }
    [[nodiscard]] StatisticsPageViewModel *statistics() const { return &m_models.statistics; }
    [[nodiscard]] PermissionsPageViewModel *permissions() const { return &m_models.permissions; }
    [[nodiscard]] AboutPageViewModel *about() const { return &m_models.about; }

    /// Shows a page; it reads anew what others may have changed.
    void show(MainWindowPage page);

    /// Shows the page with that id; other texts do nothing.
    Q_INVOKABLE void showPage(const QString &id);
    /// Carries out a menu command by the key of its text.
    Q_INVOKABLE void perform(const QString &titleKey);
    /// Reads anew what others may have changed behind the page shown.
    void refreshPage();
    /// Ends the recording of keys, which is for a page that is seen in a window that has the keyboard.
    void stopRecording();

Q_SIGNALS:
    void changed();
    void pageChanged();

private:
    Pages m_models;
    const AppMenuCommands &m_commands;
    const LocalizedStrings &m_strings;
    MainWindowPage m_page = MainWindowPage::timer;
};

}
