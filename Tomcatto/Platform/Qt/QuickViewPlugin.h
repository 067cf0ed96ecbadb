#pragma once

#include "Platform/Qt/ViewPlugin.h"

namespace tomcatto {

/// The plugin's entry: views in QML, with the modules that they are in.
class QuickViewPlugin final : public QObject, public ViewPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "studio.quillbay.Tomcatto.ViewPlugin/2")
    Q_INTERFACES(tomcatto::ViewPlugin)

public:
    [[nodiscard]] std::unique_ptr<ViewHost> makeViewHost(QObject &appearance, QObject &texts,
                                                         const ViewSurroundings &surroundings, LogSink log) override;
};

}
