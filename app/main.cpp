#include "app/help/manualwindow.h"
#include "app/shared/constants.h"
#include "app/startup.h"
#include "app/window/mainwindow.h"

#include <QApplication>
#include <QIcon>

#include <cstdio>
#include <cstdlib>
#include <iostream>

namespace {

constexpr const char* kVersionOption = "--version";

int printInstallationReport(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    for (const QString& line : installationReport()) {
        std::cout << qPrintable(line) << '\n';
    }
    return EXIT_SUCCESS;
}

} // namespace

int main(int argc, char* argv[])
{
    // First of all, so that what the application object itself has to say passes through it.
    qInstallMessageHandler(messageHandler);
    setbuf(stderr, nullptr);

    if (argc == 2 && qstrcmp(argv[1], kVersionOption) == 0) {
        return printInstallationReport(argc, argv);
    }

    setPlatformAttributes();
    setNames();
    // Both let the desktop show the window under its menu entry's name and icon.
    QApplication::setDesktopFileName(constants::kDesktopName);
    const QApplication application(argc, argv);
    QApplication::setWindowIcon(QIcon::fromTheme(constants::kDesktopName));
    const HelpKey helpKey;
    MainWindow window;
    const QString recording = recordingToOpen(application.arguments());
    if (!recording.isEmpty()) {
        window.openRecording(recording);
    }
    window.show();
    return QApplication::exec();
}
