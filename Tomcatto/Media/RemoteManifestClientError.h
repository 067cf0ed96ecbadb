#pragma once

#include "Foundation/EnumTexts.h"

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
    return textOf(std::array{"There is no video library.", "The video library's address cannot be used.",
                             "The video library's server cannot be reached.",
                             "The video library's server does not have the list of videos.",
                             "The video library's list of videos cannot be read."},
                  error);
}

}
