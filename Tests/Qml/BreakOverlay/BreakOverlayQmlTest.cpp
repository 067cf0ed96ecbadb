#include "Qml/ShippedTexts.h"

#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>
#include <QtCore/QUrl>
#include <QtQuickTest/quicktest.h>

namespace tomcatto {

/// The texts, and the film that the views play: red, lime and blue, two thirds of a second each.
class Film : public ShippedTexts
{
    Q_OBJECT
    Q_PROPERTY(QUrl file READ file CONSTANT)

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
    }
    [[nodiscard]] QUrl file() const { return QUrl::fromLocalFile(m_folder.filePath(QStringLiteral("film.mp4"))); }

public Q_SLOTS:
    void applicationAvailable() { qmlRegisterSingletonInstance("Tomcatto.Tests", 1, 0, "Film", this); }

private:
    QTemporaryDir m_folder;
};

}

QUICK_TEST_MAIN_WITH_SETUP(breakoverlay, tomcatto::Film)

#include "BreakOverlayQmlTest.moc"
