#pragma once

#include <cstdint>
#include <functional>
#include <QtCore/QString>

namespace tomcatto {

/// The texts of a warning, already in the user's language.
struct AlertDescription
{
    /// What happened, in one line.
    QString message;
    /// What it means and what can be done.
    QString informativeText;
    /// The button that acts, and the one that only closes. Esc and closing the window count as the second one.
    QString firstButton;
    QString secondButton;

    bool operator==(const AlertDescription &) const = default;
};

enum class AlertButton : std::uint8_t { first, second };

/// Warnings in windows of their own, which leave the others to the user. Main thread only.
class Alert
{
public:
    virtual ~Alert() = default;

    /// Shows a warning over the application's windows and returns at once. `onClosed` is called later, once, with the
    /// button pressed; not at all when the alert is destroyed before. Alerts asked for meanwhile bring it to the front,
    /// and follow one by one.
    virtual void showWarning(const AlertDescription &description, std::function<void(AlertButton)> onClosed) = 0;
};

}
