#pragma once

#include "Localization/LocalizedStrings.h"
#include "QuillbayKit/NotificationAuthorization.h"

namespace tomcatto {

/// Who shows notifications that are allowed, and whether they have buttons; the text of `usualKey` where there is
/// nothing to say about that.
[[nodiscard]] QString allowedNotificationsText(const quillbay::NotificationAuthorization &authorization,
                                               const LocalizedStrings &strings, const QString &usualKey);

}
