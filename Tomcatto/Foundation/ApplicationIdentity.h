#pragma once

#include <QtCore/QString>

namespace tomcatto {

/// Reverse-domain identifier: the log's subsystem, the defaults folder and the prefix of notifications and queues.
inline const QString applicationIdentifier = QStringLiteral("studio.quillbay.Tomcatto");

/// The product's name, as people read it.
inline const QString productName = QStringLiteral("Tomcatto");

}
