#pragma once

#include <functional>
#include <memory>
#include <QtCore/QJsonObject>

class QDialog;

namespace tomcatto {

/// A dialog, hidden, and what is told of it once it has ended.
struct ToolkitDialog
{
    std::unique_ptr<QDialog> dialog;
    /// Empty where it was only closed.
    std::function<QJsonObject()> answer;
};

/// Makes what a request asks for. Needs the toolkit's application object; main thread only.
[[nodiscard]] ToolkitDialog makeToolkitDialog(const QJsonObject &request);

}
