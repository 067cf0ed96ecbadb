#include "Platform/Quick/QuickViewPlugin.h"

#include "Platform/Quick/GraphicsChoice.h"
#include "Platform/Quick/QuickViewHost.h"

namespace tomcatto {

std::unique_ptr<ViewHost> QuickViewPlugin::makeViewHost(QObject &appearance, LogSink log)
{
    setLogSink(std::move(log));
    chooseGraphics();
    return std::make_unique<QuickViewHost>(appearance);
}

}
