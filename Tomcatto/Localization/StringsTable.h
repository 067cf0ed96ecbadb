#pragma once

#include <expected>
#include <QtCore/QHash>
#include <QtCore/QString>

namespace tomcatto {

/// The texts of one language by key.
using StringsTable = QHash<QString, QString>;

/// Reads a table in UTF-8 from a file or resource. Each of its lines is empty, a comment between "/*" and "*/", or
/// `"key" = "text";` without escapes, and no key comes twice. The error is in English for the log and names the file,
/// the line (from 1) and what is wrong there. Any thread.
[[nodiscard]] std::expected<StringsTable, QString> readStringsTable(const QString &path);

}
