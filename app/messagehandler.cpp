#include "app/messagehandler.h"

#include <QByteArray>
#include <QTime>

#include <cstdlib>
#include <iostream>

namespace {

// The number of tabs differs so that the texts line up below each other.
QString bodyTemplate(QtMsgType type)
{
    switch (type) {
    case QtDebugMsg:
        return QStringLiteral("{Debug} \t\t %1");
    case QtInfoMsg:
        return QStringLiteral("{Info} \t\t %1");
    case QtWarningMsg:
        return QStringLiteral("{Warning} \t %1");
    case QtCriticalMsg:
        return QStringLiteral("{Critical} \t %1");
    case QtFatalMsg:
        return QStringLiteral("{Fatal} \t\t %1");
    }
    return QStringLiteral("%1");
}

} // namespace

QString messageLine(QtMsgType type, const QTime& time, const QString& message)
{
    return QStringLiteral("[%1] ").arg(time.toString(QStringLiteral("hh:mm:ss"))) +
           bodyTemplate(type).arg(message) + QLatin1Char('\n');
}

void messageHandler(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    Q_UNUSED(context)
    const QByteArray line = messageLine(type, QTime::currentTime(), message).toUtf8();
    if (type == QtFatalMsg) {
        std::abort();
    }
    // One write a line, so that lines of two threads never mix.
    std::cout.write(line.constData(), line.size());
    std::cout.flush();
}
