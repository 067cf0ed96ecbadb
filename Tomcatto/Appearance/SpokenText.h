#pragma once

#include <QtQuick/QQuickItem>

namespace tomcatto {

/// Words for a screen reader about something that is only drawn. Another name is not an event by itself, so that nobody
/// hears a clock tick. Readers keep the name that they were told last; what they read as the item's text is that of
/// now. What is to be said by itself is announced, by an item that is a notice. Views give the item a role as well,
/// since only then it is one of those that readers find.
class SpokenText : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QString name READ name WRITE setName NOTIFY nameChanged FINAL)
    /// Whether it is there for announcements; chosen once.
    Q_PROPERTY(bool isNotice MEMBER m_isNotice FINAL)

public:
    explicit SpokenText(QQuickItem *parent = nullptr);

    [[nodiscard]] const QString &name() const noexcept { return m_name; }
    void setName(const QString &name);
    /// Tells readers the name: it says another thing than before, not only other figures.
    Q_INVOKABLE void tell();
    /// Takes `text` as the name and lets readers say it now, as a notice that appears; an empty one is not said.
    Q_INVOKABLE void announce(const QString &text);
    [[nodiscard]] bool isNotice() const noexcept { return m_isNotice; }

Q_SIGNALS:
    void nameChanged();

private:
    QString m_name;
    bool m_isNotice = false;
};

}
