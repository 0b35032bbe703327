#include "app/help/helpkey.h"
#include "app/mainwindow.h"
#include "app/messagehandler.h"

#include <QApplication>

#include <cstdio>

int main(int argc, char* argv[])
{
    // First of all, so that what the application object itself has to say passes through it.
    qInstallMessageHandler(messageHandler);
    setbuf(stderr, nullptr);

    QApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    const QApplication application(argc, argv);
    const HelpKey helpKey;
    MainWindow window;
    window.show();
    return QApplication::exec();
}
