#include "Appearance/AppearanceSettings.h"
#include "Qml/ShippedTexts.h"

#include <QtCore/QCommandLineParser>
#include <QtCore/QDir>
#include <QtCore/QTimer>
#include <QtGui/QGuiApplication>
#include <QtQml/QQmlContext>
#include <QtQml/QQmlEngine>
#include <QtQuick/QQuickView>

namespace {

constexpr const char *pages[] = {"GalleryControls", "GalleryPanel", "GalleryWindow"};

struct Wishes
{
    qreal textScale = 1;
    bool highContrast = false;
};

/// Shows one page until it has settled, then writes its picture.
bool grab(const QString &page, bool dark, const Wishes &wishes, const QDir &folder)
{
    QQmlEngine engine;
    tomcatto::AppearanceSettings settings(nullptr);
    settings.setDark(dark);
    settings.setReducedMotion(true);
    settings.setTextScale(wishes.textScale);
    settings.setHighContrast(wishes.highContrast);
    settings.install(engine);
    tomcatto::ShippedTexts texts;
    texts.qmlEngineAvailable(&engine);
    QQuickView view(&engine, nullptr);
    view.setSource(QUrl(QStringLiteral("qrc:/qt-project.org/imports/Tomcatto/Gallery/%1.qml").arg(page)));
    if (view.status() != QQuickView::Ready) {
        return false;
    }
    view.show();
    QEventLoop settling;
    QTimer::singleShot(400, &settling, &QEventLoop::quit);
    settling.exec();
    const QString name = QStringLiteral("%1-%2.png").arg(page, dark ? QStringLiteral("dark") : QStringLiteral("light"));
    return view.grabWindow().save(folder.filePath(name));
}

}

int main(int argc, char **argv)
{
    QGuiApplication application(argc, argv);
    QCommandLineParser parser;
    const QCommandLineOption grabOption(QStringLiteral("grab"), QStringLiteral("Write pictures and end."),
                                        QStringLiteral("folder"));
    const QCommandLineOption darkOption(QStringLiteral("dark"), QStringLiteral("Show the dark theme."));
    const QCommandLineOption scaleOption(QStringLiteral("text-scale"), QStringLiteral("Text size, 1 to 2."),
                                         QStringLiteral("factor"), QStringLiteral("1"));
    const QCommandLineOption contrastOption(QStringLiteral("high-contrast"), QStringLiteral("High contrast."));
    parser.addOptions({grabOption, darkOption, scaleOption, contrastOption});
    parser.addHelpOption();
    parser.process(application);
    const Wishes wishes{parser.value(scaleOption).toDouble(), parser.isSet(contrastOption)};

    if (parser.isSet(grabOption)) {
        const QDir folder(parser.value(grabOption));
        bool written = folder.mkpath(QStringLiteral("."));
        for (const char *page : pages) {
            for (const bool dark : {false, true}) {
                written = grab(QString::fromLatin1(page), dark, wishes, folder) && written;
            }
        }
        return written ? 0 : 1;
    }

    QQmlEngine engine;
    tomcatto::AppearanceSettings settings(nullptr);
    settings.setDark(parser.isSet(darkOption));
    settings.setTextScale(wishes.textScale);
    settings.setHighContrast(wishes.highContrast);
    settings.install(engine);
    tomcatto::ShippedTexts texts;
    texts.qmlEngineAvailable(&engine);
    QQuickView view(&engine, nullptr);
    const QString page = parser.positionalArguments().value(0, QString::fromLatin1(pages[0]));
    view.setSource(QUrl(QStringLiteral("qrc:/qt-project.org/imports/Tomcatto/Gallery/%1.qml").arg(page)));
    view.show();
    return application.exec();
}
