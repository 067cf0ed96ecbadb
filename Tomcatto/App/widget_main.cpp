#include "Foundation/ApplicationIdentity.h"
#include "WidgetWindow/DesktopWidget.h"
#include "WidgetWindow/OneWidget.h"

#include <cstdio>
#include <QtCore/QCommandLineParser>
#include <QtGui/QIcon>
#include <QtWidgets/QApplication>

using namespace tomcatto;

namespace {

constexpr int usage = 2;
constexpr int failed = 4;

int complain(int status, const QString &reason)
{
    std::fprintf(stderr, "tomcatto-widget: %s\n", qUtf8Printable(reason));
    return status;
}

int runWidget(WidgetPlatform &platform, std::optional<WidgetSize> size)
{
    const WidgetPorts ports = platform.ports();
    setLogSink(ports.log);
    OneWidget only(ports);
    if (only.handOver(size))
        return 0;
    // The choice of a language belongs to the application: its own settings have none, so the system's is taken.
    const LanguageOverrideService language(ports.settings);
    const LocalizedStrings strings(language);
    DesktopWidget widget(ports, strings, size);
    QObject::connect(&widget, &DesktopWidget::quitRequested, qApp, &QCoreApplication::quit, Qt::QueuedConnection);
    only.listen([&widget](std::optional<WidgetSize> wanted) { widget.present(wanted); });
    const Cancellable ending = ports.processSignals.onTerminationRequest([] { QCoreApplication::quit(); });
    widget.show();
    return QApplication::exec();
}

}

int main(int argc, char **argv)
{
    const auto platform = makeWidgetPlatform();
    if (!platform->opensDisplay())
        return complain(failed, QStringLiteral("no display can be used, so there is nowhere to show a widget"));
    const QApplication application(argc, argv);
    QCoreApplication::setApplicationName(productName);
    QGuiApplication::setDesktopFileName(applicationIdentifier + QStringLiteral(".widget"));
    QGuiApplication::setQuitOnLastWindowClosed(false);
    QCommandLineParser parser;
    const QCommandLineOption sizeOption(QStringLiteral("size"), QStringLiteral("small, medium or large"),
                                        QStringLiteral("size"));
    parser.addOption(sizeOption);
    parser.addHelpOption();
    parser.process(application);
    const auto size = widgetSizeFromRawValue(parser.value(sizeOption));
    if (parser.isSet(sizeOption) && !size)
        return complain(usage, QStringLiteral("--size is small, medium or large"));
    return runWidget(*platform, size);
}
