#pragma once

#include <QStringList>
#include <QtGlobal>

class QMessageLogContext;
class QTime;

/// Writes every diagnostic of the program to standard output, one line each, flushed; a fatal one
/// aborts at once, unwritten. Installed with `qInstallMessageHandler`; callable from any thread.
void messageHandler(QtMsgType type, const QMessageLogContext& context, const QString& message);

/// The line for one diagnostic: "[hh:mm:ss] ", the level tag, the text and a line feed.
QString messageLine(QtMsgType type, const QTime& time, const QString& message);

/// How Qt is to use the desktop. Called before the application object is made, by everything that
/// shows the main window.
void setPlatformAttributes();
/// Gives the program its names, on which the folder for the user's data depends. The same whatever
/// the program's file is called: what an LDB is to get back must be found again.
void setNames();

/// The recording that the program was called with ("--recording PATH"); empty for none. Ends the
/// program where the arguments make no sense, or ask for help.
QString recordingToOpen(const QStringList& arguments);

/// What the program is and which files it finds around it, a line each: for a person or a script
/// that has to know which installation and which tuning file are in force. Not translated. Needs
/// the application object, and no display.
QStringList installationReport();
