#include "Platform/Qt/PillAccessibility.h"

#include "Platform/Qt/FloatingPillWindow.h"

#include <QtGui/QAccessibleObject>
#include <QtGui/QGuiApplication>

namespace tomcatto {

namespace {

class PillInterface final : public QAccessibleObject, private QAccessibleActionInterface
{
public:
    explicit PillInterface(FloatingPillWindow &pill)
        : QAccessibleObject(&pill)
        , m_pill(pill)
    {
    }

    [[nodiscard]] QAccessible::Role role() const override { return QAccessible::Button; }
    [[nodiscard]] QString text(QAccessible::Text kind) const override
    {
        return kind == QAccessible::Name ? m_pill.accessibleText() : QString();
    }
    [[nodiscard]] QAccessible::State state() const override
    {
        QAccessible::State state;
        state.focusable = true;
        state.focused = m_pill.isActive();
        state.active = m_pill.isActive();
        state.invisible = !m_pill.isVisible();
        return state;
    }
    [[nodiscard]] QRect rect() const override { return m_pill.geometry(); }
    [[nodiscard]] QWindow *window() const override { return &m_pill; }
    [[nodiscard]] QAccessibleInterface *parent() const override
    {
        return QAccessible::queryAccessibleInterface(qGuiApp);
    }
    [[nodiscard]] QAccessibleInterface *child(int /*index*/) const override { return nullptr; }
    [[nodiscard]] int childCount() const override { return 0; }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface * /*child*/) const override { return -1; }
    void *interface_cast(QAccessible::InterfaceType type) override
    {
        return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface *>(this) : nullptr;
    }

    [[nodiscard]] QStringList actionNames() const override { return {pressAction(), setFocusAction()}; }
    void doAction(const QString &name) override
    {
        if (name == pressAction())
            Q_EMIT m_pill.activated();
        else if (name == setFocusAction())
            m_pill.requestActivate();
    }
    [[nodiscard]] QStringList keyBindingsForAction(const QString & /*name*/) const override { return {}; }

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
    static bool isInstalled = false;
    if (std::exchange(isInstalled, true))
        return;
    QAccessible::installFactory(makeInterface);
    // Tells readers that the application is there. The main loop that runs here does not, and without the pill there
    // would be nothing to read in this process.
    QAccessible::setRootObject(qGuiApp);
}

}
