#pragma once

#include "Appearance/AppearanceSettings.h"
#include "Appearance/Texts.h"
#include "Foundation/Logger.h"
#include "Platform/Ports/ViewHost.h"
#include "Platform/Qt/AppearanceMirror.h"

#include <chrono>
#include <memory>
#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtCore/QTimer>

class QQmlEngine;
class QQuickWindow;

namespace tomcatto {

/// Makes windows out of QML components with one engine for all of them, whose look follows the application's. Some time
/// after the last window is gone the engine goes too and its memory goes back to the system. Main thread only.
class QuickViewHost final : public QObject, public ViewHost
{
    Q_OBJECT

public:
    /// @param appearance has the properties that views follow.
    /// @param texts the `LocalizedStrings`; both outlive this.
    /// @param released called when the engine has been let go.
    /// @param patience how long an engine without views is kept.
    QuickViewHost(QObject &appearance, QObject &texts, std::function<void()> released,
                  std::chrono::milliseconds patience = std::chrono::seconds(10));
    /// Views that are still there lose their windows.
    ~QuickViewHost() override;

    /// The component is the file of that name in the module's folder; its root is a `Window`.
    [[nodiscard]] std::unique_ptr<HostedView> create(const ViewDescription &description) override;
    [[nodiscard]] QString problem() const override { return m_problem; }

    /// Whether an engine is kept now.
    [[nodiscard]] bool hasEngine() const noexcept { return m_engine != nullptr; }

private:
    void makeEngine();
    static void dropPictures();
    void releaseEngine();
    [[nodiscard]] std::unique_ptr<QQuickWindow> makeWindow(const ViewDescription &description);

    const Logger m_logger{QStringLiteral("QuickViewHost")};
    std::function<void()> m_released;
    QString m_problem;
    AppearanceSettings m_settings;
    QObject &m_texts;
    AppearanceMirror m_mirror;
    std::unique_ptr<QQmlEngine> m_engine;
    QList<QQuickWindow *> m_windows;
    QTimer m_release;
};

}
