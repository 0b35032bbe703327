#include "resources/generator/appicon.h"
#include "resources/generator/bleep.h"
#include "resources/generator/flags.h"
#include "resources/generator/frontpanel.h"
#include "resources/generator/gifwriter.h"
#include "resources/generator/icons.h"
#include "resources/generator/logo.h"
#include "resources/generator/spinner.h"

#include <QDebug>
#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QImage>

#include <algorithm>
#include <cstdlib>

namespace {

// Drawn this much larger than kept, then scaled down: smoother than drawing at the final size.
constexpr int kOversampling = 4;

bool savePicture(const QString& path, const QImage& drawn)
{
    const QImage kept =
        drawn.scaled(drawn.size() / kOversampling, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    return kept.convertToFormat(QImage::Format_ARGB32).save(path, "PNG");
}

bool saveBytes(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

/// The desktop's icons, each in a file named after its side.
bool saveAppIcons(const QDir& folder)
{
    const QVector<int> sides = appicon::sides();
    return folder.mkpath(QStringLiteral(".")) &&
           std::all_of(sides.begin(), sides.end(), [&folder](int side) {
               return savePicture(folder.filePath(QStringLiteral("%1.png").arg(side)),
                                  appicon::draw(side, kOversampling));
           });
}

} // namespace

/// Makes every picture and sound of the program, in the folder given (default: the current one).
int main(int argc, char** argv)
{
    const QGuiApplication application(argc, argv);
    const QStringList arguments = QGuiApplication::arguments();
    const QDir folder(arguments.size() > 1 ? arguments.at(1) : QStringLiteral("."));
    const auto path = [&folder](const char* name) {
        return folder.filePath(QString::fromLatin1(name));
    };

    const bool allSaved = savePicture(path("Nederlands.png"), flags::dutch(kOversampling)) &&
                          savePicture(path("Francais.png"), flags::french(kOversampling)) &&
                          savePicture(path("English.png"), flags::british(kOversampling)) &&
                          savePicture(path("default.png"), icons::globe(kOversampling)) &&
                          savePicture(path("settings.png"), icons::gear(kOversampling)) &&
                          savePicture(path("TavroLogoCompleteShadowSmall.png"),
                                      logo::draw(QStringLiteral("TAVRO"), kOversampling)) &&
                          savePicture(path("OrvanLogoCompleteShadowSmall.png"),
                                      logo::draw(QStringLiteral("ORVAN"), kOversampling)) &&
                          savePicture(path("frontpanel.png"), frontpanel::draw(kOversampling)) &&
                          saveBytes(path("loadingIcon.gif"),
                                    gifAnimation(spinner::frames(), spinner::kFrameMilliseconds)) &&
                          saveBytes(path("bleep.wav"), bleep::wave()) &&
                          saveAppIcons(QDir(path("appicon")));
    if (!allSaved) {
        qCritical("A file cannot be written to %s", qPrintable(folder.absolutePath()));
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
