#include "Platform/Qt/QuickViewPlugin.h"

#include "Platform/Qt/QuickViewHost.h"

#include <algorithm>
#include <QtQuick/QQuickWindow>

namespace tomcatto {

namespace {

bool isDrawingChosenByEnvironment()
{
    constexpr const char *variables[] = {"QT_QUICK_BACKEND", "QSG_RHI_BACKEND", "QMLSCENE_DEVICE"};
    return std::ranges::any_of(variables, [](const char *name) { return qEnvironmentVariableIsSet(name); });
}

}

std::unique_ptr<ViewHost> QuickViewPlugin::makeViewHost(QObject &appearance, QObject &texts,
                                                        const ViewSurroundings &surroundings, LogSink log)
{
    setLogSink(std::move(log));
    const bool isDrawnBySoftware = !isDrawingChosenByEnvironment() && !surroundings.hasGraphicsProcessor();
    if (isDrawnBySoftware)
        QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    Logger(QStringLiteral("QuickViewPlugin"))
        .debug(isDrawnBySoftware ? QStringLiteral("views are drawn by the processor")
                                 : QStringLiteral("views are drawn as the environment or the graphics processor does"));
    return std::make_unique<QuickViewHost>(appearance, texts, surroundings.released);
}

}
