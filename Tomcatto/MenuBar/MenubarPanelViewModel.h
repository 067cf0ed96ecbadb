#pragma once

#include "MenuBar/PanelContentSource.h"
#include "Navigation/MainWindowRouter.h"
#include "Navigation/PopoverNavigationStore.h"

namespace tomcatto {

/// What the panel shows and does. Lives while the panel is shown and follows the timer, the settings, the history and
/// the language, at most once for each turn of the main loop. Main thread only.
class MenubarPanelViewModel final : public QObject
{
    Q_OBJECT
    Q_PROPERTY(tomcatto::PanelClock clock READ clock NOTIFY clockChanged FINAL)
    Q_PROPERTY(tomcatto::PanelPhase phase READ phase NOTIFY phaseChanged FINAL)
    Q_PROPERTY(tomcatto::PanelStrip strip READ strip NOTIFY stripChanged FINAL)
    Q_PROPERTY(bool showsStatistics READ showsStatistics NOTIFY routeChanged FINAL)
    Q_PROPERTY(QString announcement READ announcement NOTIFY announcementChanged FINAL)

public:
    /// Everything outlives the model.
    MenubarPanelViewModel(const MenuBarServices &services, PopoverNavigationStore &navigationStore,
                          MainWindowRouter &router, QObject *parent = nullptr);

    [[nodiscard]] const PanelClock &clock() const noexcept { return m_clock; }
    [[nodiscard]] const PanelPhase &phase() const noexcept { return m_phase; }
    [[nodiscard]] const PanelStrip &strip() const noexcept { return m_strip; }
    /// Whether the statistics route is shown in place of the timer.
    [[nodiscard]] bool showsStatistics() const { return m_navigationStore.showsStatistics(); }
    /// What a screen reader says by itself: each new phase, one minute left, and since when the user was away.
    [[nodiscard]] const QString &announcement() const noexcept { return m_announcement; }

public Q_SLOTS:
    /// What the filled button says.
    void primary();
    void reset();
    void skip();
    void takeBreak();
    /// Adds five minutes.
    void extend();
    void openStatistics();
    void openSettings();
    /// Back to the timer; from there closes the panel.
    void back();
    void quit();

Q_SIGNALS:
    void clockChanged();
    void phaseChanged();
    void stripChanged();
    void routeChanged();
    void announcementChanged();
    /// Asks for the panel to be closed.
    void dismissRequested();
    void quitRequested();

private:
    void update();
    void announce(bool isNewPhase);
    void say(const QString &words);

    MenuBarServices m_services;
    PopoverNavigationStore &m_navigationStore;
    MainWindowRouter &m_router;
    PanelContentSource m_source;
    PanelClock m_clock;
    PanelPhase m_phase;
    PanelStrip m_strip;
    QString m_announcement;
    std::vector<Cancellable> m_cancellables;
};

}
