#pragma once

#include <QtCore/QString>

namespace tomcatto {

/// Why there is no manifest.
enum class RemoteManifestClientError {
    missingURL,
    invalidURL,
    networkFailure,
    invalidResponse,
    decodingFailed,
};

/// One sentence for people.
[[nodiscard]] inline QString description(RemoteManifestClientError error)
{
    switch (error) {
    case RemoteManifestClientError::missingURL:
        return QStringLiteral("There is no video library.");
    case RemoteManifestClientError::invalidURL:
        return QStringLiteral("The video library's address cannot be used.");
    case RemoteManifestClientError::networkFailure:
        return QStringLiteral("The video library's server cannot be reached.");
    case RemoteManifestClientError::invalidResponse:
        return QStringLiteral("The video library's server does not have the list of videos.");
    case RemoteManifestClientError::decodingFailed:
        return QStringLiteral("The video library's list of videos cannot be read.");
    }
    return {};
}

}
