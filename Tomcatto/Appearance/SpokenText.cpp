#include "Appearance/SpokenText.h"

#include <QtGui/QAccessible>
#include <QtGui/QAccessibleObject>
#include <QtQuick/QQuickWindow>

namespace tomcatto {
namespace {

/// What the system's accessibility sees of one text: a leaf below the nearest item that it knows.
class SpokenTextInterface final : public QAccessibleObject, public QAccessibleTextInterface
{
public:
    explicit SpokenTextInterface(SpokenText &text)
        : QAccessibleObject(&text)
    {
    }

    [[nodiscard]] void *interface_cast(QAccessible::InterfaceType type) override
    {
        return type == QAccessible::TextInterface ? static_cast<QAccessibleTextInterface *>(this) : nullptr;
    }

    void selection(int /*index*/, int *start, int *end) const override { *start = *end = 0; }
    [[nodiscard]] int selectionCount() const override { return 0; }
    void addSelection(int /*start*/, int /*end*/) override {}
    void removeSelection(int /*index*/) override {}
    void setSelection(int /*index*/, int /*start*/, int /*end*/) override {}
    [[nodiscard]] int cursorPosition() const override { return 0; }
    void setCursorPosition(int /*position*/) override {}
    [[nodiscard]] QString text(int start, int end) const override { return item().name().mid(start, end - start); }
    [[nodiscard]] int characterCount() const override { return static_cast<int>(item().name().size()); }
    [[nodiscard]] QRect characterRect(int /*offset*/) const override { return rect(); }
    [[nodiscard]] int offsetAtPoint(const QPoint & /*point*/) const override { return -1; }
    void scrollToSubstring(int /*start*/, int /*end*/) override {}
    [[nodiscard]] QString attributes(int /*offset*/, int *start, int *end) const override
    {
        *start = 0;
        *end = characterCount();
        return {};
    }

    [[nodiscard]] QAccessibleInterface *parent() const override
    {
        for (QQuickItem *above = item().parentItem(); above != nullptr; above = above->parentItem()) {
            if (QAccessibleInterface *found = QAccessible::queryAccessibleInterface(above))
                return found;
        }
        return QAccessible::queryAccessibleInterface(window());
    }
    [[nodiscard]] QWindow *window() const override { return item().window(); }
    [[nodiscard]] QAccessibleInterface *child(int /*index*/) const override { return nullptr; }
    [[nodiscard]] int childCount() const override { return 0; }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface * /*child*/) const override { return -1; }
    [[nodiscard]] QString text(QAccessible::Text kind) const override
    {
        return kind == QAccessible::Name ? item().name() : QString();
    }
    [[nodiscard]] QRect rect() const override
    {
        const QPointF corner = item().mapToGlobal(QPointF(0, 0));
        return {corner.toPoint(), item().size().toSize()};
    }
    [[nodiscard]] QAccessible::Role role() const override
    {
        return item().isNotice() ? QAccessible::Notification : QAccessible::StaticText;
    }
    [[nodiscard]] QAccessible::State state() const override
    {
        QAccessible::State state;
        state.readOnly = true;
        state.invisible = !item().isVisible() || window() == nullptr || !window()->isVisible();
        return state;
    }

private:
    [[nodiscard]] SpokenText &item() const { return *static_cast<SpokenText *>(object()); }
};

QAccessibleInterface *makeInterface(const QString & /*className*/, QObject *object)
{
    auto *text = qobject_cast<SpokenText *>(object);
    return text == nullptr ? nullptr : new SpokenTextInterface(*text);
}

}

SpokenText::SpokenText(QQuickItem *parent)
    : QQuickItem(parent)
{
    [[maybe_unused]] static const bool isInstalled = (QAccessible::installFactory(makeInterface), true);
}

void SpokenText::setName(const QString &name)
{
    if (std::exchange(m_name, name) != name)
        Q_EMIT nameChanged();
}

void SpokenText::tell()
{
    QAccessibleEvent event(this, QAccessible::NameChanged);
    QAccessible::updateAccessibility(&event);
}

void SpokenText::announce(const QString &text)
{
    setName(text);
    if (text.isEmpty())
        return;
    tell();
    QAccessibleEvent event(this, QAccessible::ObjectShow);
    QAccessible::updateAccessibility(&event);
}

}
