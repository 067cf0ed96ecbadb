#pragma once

#include <QtCore/QString>

namespace tomcatto {

/// The version as the build was configured with, for example 0.1.0.
[[nodiscard]] inline QString applicationVersion()
{
    return QStringLiteral(TOMCATTO_VERSION);
}

}
