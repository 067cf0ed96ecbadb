#include "Platform/Qt/PillAccessibility.h"

#include "Platform/Qt/FloatingPillWindow.h"

#include <QtWidgets/QAccessibleWidget>

namespace tomcatto {

namespace {

class PillInterface final : public QAccessibleWidget
{
public:
    explicit PillInterface(FloatingPillWindow &pill)
        : QAccessibleWidget(&pill, QAccessible::Button)
        , m_pill(pill)
    {
    }

    [[nodiscard]] QString text(QAccessible::Text kind) const override
    {
        return kind == QAccessible::Name ? m_pill.accessibleText() : QAccessibleWidget::text(kind);
    }
    [[nodiscard]] QStringList actionNames() const override
    {
        return QAccessibleWidget::actionNames() << QAccessibleActionInterface::pressAction();
    }
    void doAction(const QString &name) override
    {
        if (name == QAccessibleActionInterface::pressAction())
            m_pill.click();
        else
            QAccessibleWidget::doAction(name);
    }

private:
    FloatingPillWindow &m_pill;
};

QAccessibleInterface *makeInterface(const QString & /*className*/, QObject *object)
{
    auto *pill = qobject_cast<FloatingPillWindow *>(object);
    return pill == nullptr ? nullptr : new PillInterface(*pill);
}

}

void installPillAccessibility()
{
    [[maybe_unused]] static const bool isInstalled = (QAccessible::installFactory(makeInterface), true);
}

}
