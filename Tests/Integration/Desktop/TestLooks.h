#pragma once

#include <QtCore/QObject>

namespace tomcatto {

/// An appearance that a plugin knows only by its properties.
class TestLooks final : public QObject
{
    Q_OBJECT
    Q_PROPERTY(bool dark MEMBER m_isDark NOTIFY darkChanged)

public:
    bool m_isDark = false;

Q_SIGNALS:
    void darkChanged();
};

}
