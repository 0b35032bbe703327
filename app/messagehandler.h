#pragma once

#include <QString>
#include <QtGlobal>

class QMessageLogContext;
class QTime;

/// Writes every diagnostic of the program to standard output, one line each, flushed; a fatal one
/// aborts at once, unwritten. Installed with `qInstallMessageHandler`; callable from any thread.
void messageHandler(QtMsgType type, const QMessageLogContext& context, const QString& message);

/// The line for one diagnostic: "[hh:mm:ss] ", the level tag, the text and a line feed.
QString messageLine(QtMsgType type, const QTime& time, const QString& message);
