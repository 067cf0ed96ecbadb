#pragma once

#include <QtCore/QList>
#include <QtCore/QMetaProperty>
#include <QtCore/QObject>

namespace tomcatto {

/// Keeps the properties of one object equal to those of the same names in another, whose type need not be known here: a
/// plugin shares no types with the program. Main thread only.
class AppearanceMirror final : public QObject
{
    Q_OBJECT

public:
    /// @param source the object that is followed; properties that it lacks are left alone.
    /// @param target gets the values at once and after each change. Both outlive this.
    AppearanceMirror(QObject &source, QObject &target, const QList<QByteArray> &names);

private Q_SLOTS:
    void copy();

private:
    QObject &m_source;
    QObject &m_target;
    QList<QByteArray> m_names;
};

}
