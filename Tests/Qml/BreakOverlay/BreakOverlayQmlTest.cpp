#include "Qml/ShippedTexts.h"

#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>
#include <QtCore/QUrl>
#include <QtQuickTest/quicktest.h>

namespace tomcatto {

/// The texts, and the films that the views play: red, lime and blue, two thirds of a second each; and one of which
/// small parts move.
class Film : public ShippedTexts
{
    Q_OBJECT
    Q_PROPERTY(QUrl file READ file CONSTANT)
    Q_PROPERTY(QUrl moving READ moving CONSTANT)

public:
    Film()
    {
        QStringList arguments{QStringLiteral("-v"), QStringLiteral("error")};
        for (const char *colour : {"red", "lime", "blue"})
            arguments << QStringLiteral("-f") << QStringLiteral("lavfi") << QStringLiteral("-i")
                      << QStringLiteral("color=%1:size=64x36:rate=30:duration=0.667").arg(QLatin1String(colour));
        arguments << QStringLiteral("-filter_complex") << QStringLiteral("concat=n=3") << QStringLiteral("-pix_fmt")
                  << QStringLiteral("yuv420p") << file().toLocalFile();
        QProcess::execute(QStringLiteral("ffmpeg"), arguments);
        QProcess::execute(QStringLiteral("ffmpeg"),
                          {QStringLiteral("-v"), QStringLiteral("error"), QStringLiteral("-f"), QStringLiteral("lavfi"),
                           QStringLiteral("-i"), QStringLiteral("life=size=40x22:rate=30:ratio=0.1:seed=1"),
                           QStringLiteral("-t"), QStringLiteral("3"), QStringLiteral("-vf"),
                           QStringLiteral("scale=320:180:flags=neighbor"), QStringLiteral("-pix_fmt"),
                           QStringLiteral("yuv420p"), moving().toLocalFile()});
    }
    [[nodiscard]] QUrl file() const { return QUrl::fromLocalFile(m_folder.filePath(QStringLiteral("film.mp4"))); }
    [[nodiscard]] QUrl moving() const { return QUrl::fromLocalFile(m_folder.filePath(QStringLiteral("moving.mp4"))); }

public Q_SLOTS:
    void applicationAvailable() { qmlRegisterSingletonInstance("Tomcatto.Tests", 1, 0, "Film", this); }

private:
    QTemporaryDir m_folder;
};

}

QUICK_TEST_MAIN_WITH_SETUP(breakoverlay, tomcatto::Film)

#include "BreakOverlayQmlTest.moc"
