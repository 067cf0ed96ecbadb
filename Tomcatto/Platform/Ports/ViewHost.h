#pragma once

#include <memory>
#include <QtCore/QString>
#include <QtCore/QVariantMap>

class QWindow;

namespace tomcatto {

/// Which view to make and what it is given.
struct ViewDescription
{
    /// The module and the component in it; the component's root is a window, created hidden.
    QString module;
    QString component;
    /// Initial properties by name: view models, texts, plain values. Objects outlive the view.
    QVariantMap properties;
};

/// A window that shows a view. Destroying it ends the window at once, with every binding to what it was given. Not to
/// be done from within the window's own signals and handlers: there, hide it, and destroy this in a later turn.
class HostedView
{
public:
    virtual ~HostedView() = default;

    /// The window, which is the view's root object as well. Its property `isComposited` is true where translucent parts
    /// of it let what is behind them through; elsewhere they are black.
    [[nodiscard]] virtual QWindow &window() = 0;
};

/// Makes windows out of views. What views need is loaded with the first one and let go some time after the last.
/// Main thread only.
class ViewHost
{
public:
    virtual ~ViewHost() = default;

    /// Makes a view. Null where it cannot be made, which is logged.
    [[nodiscard]] virtual std::unique_ptr<HostedView> create(const ViewDescription &description) = 0;
    /// Why the last view could not be made; empty where it could.
    [[nodiscard]] virtual QString problem() const = 0;
};

}
