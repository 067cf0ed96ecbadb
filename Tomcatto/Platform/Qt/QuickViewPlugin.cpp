#include "Platform/Qt/QuickViewPlugin.h"

#include "Platform/Qt/GraphicsChoice.h"
#include "Platform/Qt/QuickViewHost.h"

namespace tomcatto {

std::unique_ptr<ViewHost> QuickViewPlugin::makeViewHost(QObject &appearance, QObject &texts, LogSink log)
{
    setLogSink(std::move(log));
    chooseGraphics();
    return std::make_unique<QuickViewHost>(appearance, texts);
}

}
