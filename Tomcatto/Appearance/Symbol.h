#pragma once

#include "Drawing.h"

namespace tomcatto {

/// One of the embedded symbols by its name, such as "pause.fill", in one colour. Decoration only: the control that
/// holds it carries the accessible name. An unknown name is logged once a process and draws nothing.
class Symbol : public tomcatto::Drawing
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QString name MEMBER m_name WRITE setName NOTIFY changed FINAL)

public:
    explicit Symbol(QQuickItem *parent = nullptr)
        : Drawing(16, parent)
    {
    }

    void setName(const QString &name);

protected:
    [[nodiscard]] QString resource() const override { return QStringLiteral("symbols/") + m_name; }

private:
    QString m_name;
};

}
