#pragma once

#include "serial/ldbstatus.h"

#include <QList>
#include <QObject>
#include <QString>
#include <QStringList>

class SerialProcessor;

/// Stands between the worker and the link for one run. It lives in the GUI thread, so what the
/// worker says waits here as queued events; deleting it with its run deletes what came too late.
class RunSignals : public QObject
{
    Q_OBJECT
public:
    explicit RunSignals(const SerialProcessor& processor);

signals:
    void stopped();
    void ldbListInitializationStateChange(bool initializing);
    void ldbListInitializationProgress(int checked, int found);
    void ldbListChanged(QStringList hexIds);
    void ldbStateUpdated(QString hexId, LdbState state);
    void generalInformationUpdated(QString hexId, QList<QStringList> dataList);
    void externalCommandsInQueueUpdated(int commandsInQueue);
    void portFailed(QString portName, int error, QString description);
    void communicationFailed();
    void ldbDisconnected(QString hexId);
};
