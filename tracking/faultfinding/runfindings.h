#pragma once

#include "app/shared/text.h"
#include "tracking/counting/trackingresult.h"
#include "tracking/faultfinding/trackingtexts.h"

#include <QObject>
#include <QString>

class AlarmSound;
class MessageBox;
class QWidget;

/// What a run finds, told at once: a box for each fault and for each end of a side, that one with
/// the alarm; and kept for the report. GUI thread.
class RunFindings : public QObject
{
    Q_OBJECT
public:
    /// `window` is the boxes' parent and this object's. Once it is closed, no box opens.
    explicit RunFindings(QWidget* window);

    /// For a new run: empties the report. The boxes that are open stay.
    void clear();
    /// No alarm any more, until the next end of a side.
    void silence();

    void addSideEnd(int ldbPort, SideEnd end);
    void addFault(const FaultReport& report);
    /// The run has come to its end. `name`: the LDB's. The rest is taken from the run.
    void finish(const QString& hexId, const QString& name, const TrackingRun& run,
                const QString& summary);

    /// The last finished run; empty before there is one.
    QString reportText() const;

private:
    MessageBox* openBox(const Text& message);

    QWidget* m_window;
    AlarmSound* m_alarmSound; // owned as a child
    TrackingReport m_report;
};
