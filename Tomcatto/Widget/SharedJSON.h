#pragma once

#include "Widget/WidgetSnapshot.h"

#include <expected>
#include <QtCore/QByteArray>

namespace tomcatto {

/// How the snapshot is written in its file, for the application and for widgets alike: one JSON object with the fields
/// by name and in order, instants as ISO 8601 texts in UTC to the second, what is absent left out. Any thread.
namespace SharedJSON {

[[nodiscard]] QByteArray encode(const WidgetSnapshot &snapshot);
/// Members that are not known are passed over. The error names what is missing or wrong.
[[nodiscard]] std::expected<WidgetSnapshot, QString> decode(const QByteArray &text);

}

}
