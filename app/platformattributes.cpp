#include "app/platformattributes.h"

#include <QCoreApplication>

void setPlatformAttributes()
{
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    // Every window is painted by the processor alone. Without this Qt loads the graphics driver
    // for the first of them, which takes longer than all else up to its first sight.
    QCoreApplication::setAttribute(Qt::AA_ForceRasterWidgets);
}
