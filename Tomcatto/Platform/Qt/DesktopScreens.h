#pragma once

#include "Platform/Ports/Screens.h"
#include "Platform/Qt/ScreenChanges.h"

#include <QtCore/QObject>

class QScreen;

namespace tomcatto {

/// The toolkit's screens. Main thread only.
class DesktopScreens final : public QObject, public Screens
{
    Q_OBJECT

public:
    /// @param runLoop outlives this.
    explicit DesktopScreens(MainRunLoop &runLoop, QObject *parent = nullptr);

    [[nodiscard]] std::vector<Screen> screens() const override;
    [[nodiscard]] Cancellable onChanged(std::function<void()> handler) override;

private:
    [[nodiscard]] QList<QScreen *> liveScreens() const;
    void watch(QScreen *screen);
    void noteChange();

    ScreenChanges m_changes;
    // Whether any screen was that of an output.
    bool m_hasOutputs = false;
};

}
