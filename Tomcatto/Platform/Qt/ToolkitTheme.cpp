#include "Platform/Qt/ToolkitTheme.h"

#include <QtCore/QEvent>
#include <QtGui/QPalette>
#include <QtWidgets/QApplication>

namespace tomcatto {

namespace {

struct Colours
{
    QRgb paper, card, raised, line, ink, faint, disabled, accent, onAccent, link;
};
constexpr Colours light{0xFFFBF7F2, 0xFFFFFFFF, 0xFFF4EDE5, 0xFFEADFD4, 0xFF1D1D1F,
                        0xFF6B5E55, 0xFFB5A89D, 0xFFB34E15, 0xFFFFFFFF, 0xFFA84A12};
constexpr Colours dark{0xFF221B18, 0xFF2C2420, 0xFF3A302B, 0xFF3D332D, 0xFFF5F5F7,
                       0xFFC0B3AA, 0xFF6E6159, 0xFFFFB780, 0xFF221B18, 0xFFFFB780};

QPalette palette(const Colours &colours)
{
    // The shades of frames are worked out from these two.
    QPalette palette(QColor::fromRgb(colours.raised), QColor::fromRgb(colours.paper));
    const std::pair<QPalette::ColorRole, QRgb> roles[] = {{QPalette::WindowText, colours.ink},
                                                          {QPalette::Text, colours.ink},
                                                          {QPalette::ButtonText, colours.ink},
                                                          {QPalette::ToolTipText, colours.ink},
                                                          {QPalette::Base, colours.card},
                                                          {QPalette::AlternateBase, colours.paper},
                                                          {QPalette::ToolTipBase, colours.card},
                                                          {QPalette::PlaceholderText, colours.faint},
                                                          {QPalette::Midlight, colours.line},
                                                          {QPalette::Highlight, colours.accent},
                                                          {QPalette::HighlightedText, colours.onAccent},
                                                          {QPalette::Link, colours.link},
                                                          {QPalette::LinkVisited, colours.link}};
    for (const auto &[role, colour] : roles)
        palette.setColor(role, QColor::fromRgb(colour));
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, QColor::fromRgb(colours.disabled));
    return palette;
}

}

ToolkitTheme::ToolkitTheme(const DesktopAppearance &appearance)
    : m_appearance(appearance)
{
    connect(&appearance, &DesktopAppearance::darkChanged, this, &ToolkitTheme::apply);
    qApp->installEventFilter(this);
    apply();
}

bool ToolkitTheme::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::ApplicationPaletteChange && watched == qApp)
        apply();
    return QObject::eventFilter(watched, event);
}

void ToolkitTheme::apply()
{
    const bool isDark = m_appearance.dark();
    const QPalette wanted = isDark == isPaletteDark() ? QGuiApplication::palette() : palette(isDark ? dark : light);
    // The toolkit tells of this palette as it does of the application's.
    if (std::exchange(m_applied, wanted) == wanted)
        return;
    // Of all widgets, but not of the application: that one tells what the desktop prefers.
    QApplication::setPalette(wanted, "QWidget");
}

}
