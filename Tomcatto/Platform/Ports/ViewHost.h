#pragma once

#include <functional>
#include <memory>
#include <QtCore/QRect>
#include <QtCore/QString>
#include <QtCore/QVariantMap>

namespace tomcatto {

/// Which view to make and what it is given.
struct ViewDescription
{
    enum class Kind {
        /// An ordinary window, no larger than its screen.
        window,
        /// A small one without a frame in front of the others, which `place` puts where it belongs.
        panel,
        /// One that covers a screen.
        cover,
    };

    /// The module and the component in it; the component's root is a window, created hidden.
    QString module;
    QString component;
    /// Initial properties by name: view models, texts, plain values. Objects outlive the view.
    QVariantMap properties;
    Kind kind = Kind::window;
};

/// What a window tells.
enum class ViewEvent {
    /// The user or the desktop has closed it. In a later turn, unless it was shown again by then.
    closed,
    /// It got or lost the keyboard.
    activeChanged,
    frameChanged,
    /// It was to leave and is out of sight.
    left,
};

/// A window that shows a view, in this process or in another one: what is asked of it happens soon, and what it tells
/// may be a moment old. Destroying it ends the window at once, with every binding to what it was given. Not to be done
/// by what it tells: there, hide it, and destroy this in a later turn. Main thread only.
class HostedView
{
public:
    virtual ~HostedView() = default;

    /// Takes the place of the handler before it.
    void onEvent(std::function<void(ViewEvent)> handler) { m_handler = std::move(handler); }

    /// Shows the window, minimised ones too, and brings it to the front, with the keyboard.
    virtual void present() = 0;
    virtual void hide() = 0;
    /// Where a panel is, in logical pixels of the screens; a shown one glides there.
    virtual void place(const QRect &rectangle) = 0;
    /// Shows the window over the whole frame of a screen, in front of panels, docks and full-screen windows and on
    /// every workspace, as far as the desktop lets it. It comes softly where the desktop can do that. Does nothing once
    /// the screen has gone. @param frame of the screen, in logical pixels of the desktop
    virtual void cover(const QRect &frame) = 0;
    /// Gives a shown window the keyboard, whichever application has it now.
    virtual void makeKey() = 0;
    /// Uncovers the screen, softly where the desktop can do that: the window may stay in sight for a moment, but asks
    /// for neither place nor keyboard any more. It tells once it has left, in a later turn.
    virtual void leave() = 0;

    /// Whether the window has the keyboard.
    [[nodiscard]] virtual bool isActive() const = 0;
    /// The window with its frame, in logical pixels of the screens.
    [[nodiscard]] virtual QRect frame() const = 0;
    /// The window as the display server knows it; 0 where that says nothing yet.
    [[nodiscard]] virtual quint64 serverWindow() const = 0;

protected:
    void tell(ViewEvent event) const
    {
        // A copy: it may be replaced meanwhile.
        if (const auto handler = m_handler)
            handler(event);
    }

private:
    std::function<void(ViewEvent)> m_handler;
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
