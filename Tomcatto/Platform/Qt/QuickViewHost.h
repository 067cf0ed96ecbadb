#pragma once

#include "Appearance/AppearanceSettings.h"
#include "Foundation/Logger.h"
#include "Platform/Qt/AppearanceMirror.h"
#include "Platform/Qt/WindowView.h"

#include <QtQml/QQmlEngine>

namespace tomcatto {

/// Makes windows out of QML components with one engine for all of them, whose look follows the application's. Main
/// thread only.
class QuickViewHost final : public QObject, public ViewHost
{
    Q_OBJECT

public:
    /// @param appearance has the properties that views follow: `dark`, `reducedMotion`, `highContrast`, `textScale`.
    /// @param texts the `LocalizedStrings`.
    /// @param places outlives this, as the two above do, and this outlives its views.
    QuickViewHost(QObject &appearance, QObject &texts, WindowPlaces &places);

    /// The component is the file of that name in the module's folder; its root is a `Window`.
    [[nodiscard]] std::unique_ptr<HostedView> create(const ViewDescription &description) override;
    [[nodiscard]] QString problem() const override { return m_problem; }

private:
    [[nodiscard]] std::unique_ptr<QWindow> makeWindow(const ViewDescription &description);

    const Logger m_logger{QStringLiteral("QuickViewHost")};
    WindowPlaces &m_places;
    QString m_problem;
    AppearanceSettings m_settings;
    AppearanceMirror m_mirror;
    // Ends before what its components read.
    QQmlEngine m_engine;
};

}
