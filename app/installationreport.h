#pragma once

#include <QStringList>

/// What the program is and which files it finds around it, a line each: for a person or a script
/// that has to know which installation and which tuning file are in force. Not translated. Needs
/// the application object, and no display.
QStringList installationReport();
