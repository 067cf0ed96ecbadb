#include "WidgetWindow/WidgetAccessibility.h"

#include "WidgetWindow/DesktopWidget.h"

#include <QtWidgets/QAccessibleWidget>

namespace tomcatto {

namespace {

class WidgetInterface final : public QAccessibleWidget
{
public:
    explicit WidgetInterface(DesktopWidget &widget)
        : QAccessibleWidget(&widget, QAccessible::StaticText)
        , m_widget(widget)
    {
    }

    [[nodiscard]] QString text(QAccessible::Text kind) const override
    {
        return kind == QAccessible::Name ? m_widget.spokenText() : QAccessibleWidget::text(kind);
    }

private:
    DesktopWidget &m_widget;
};

QAccessibleInterface *makeInterface(const QString & /*className*/, QObject *object)
{
    auto *widget = qobject_cast<DesktopWidget *>(object);
    return widget == nullptr ? nullptr : new WidgetInterface(*widget);
}

}

void installWidgetAccessibility()
{
    [[maybe_unused]] static const bool isInstalled = (QAccessible::installFactory(makeInterface), true);
}

}
