#pragma once

#include <QtCore/QObject>
#include <QtQml/QQmlEngine>

namespace tomcatto {

/// What this installation can play. Ask before making a player: one that misses its parts ends the process. Main
/// thread only.
class VideoSupport : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    using QObject::QObject;

    /// Whether any kind of video file can be opened; a single one may still lack its codec.
    Q_INVOKABLE [[nodiscard]] static bool canPlay();
};

}
