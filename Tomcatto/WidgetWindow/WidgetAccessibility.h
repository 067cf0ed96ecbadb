#pragma once

namespace tomcatto {

/// Lets readers ask a `DesktopWidget` for its words, which change with every second without telling anybody. More than
/// once does no harm.
void installWidgetAccessibility();

}
