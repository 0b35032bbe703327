#pragma once

#include "importexport/report/visitreport.h"

#include <QObject>

#include <memory>

class RecordingAccess;
class VisitCollector;

/// Collects a visit from the recording, a piece at a time, so that neither the window nor another
/// reader waits. GUI thread.
class VisitReading : public QObject
{
    Q_OBJECT
public:
    /// `access` outlives this object.
    explicit VisitReading(RecordingAccess* access, QObject* parent = nullptr);
    ~VisitReading() override;

    /// Begins; what was begun before is dropped.
    void begin(const ReportRequest& request);
    bool isOn() const { return m_collector != nullptr; }

signals:
    void collected(const VisitReport& report);
    /// Another recording is in force, so the collecting has ended.
    void dropped();

private:
    void goOn();

    RecordingAccess* m_access;
    std::shared_ptr<VisitCollector> m_collector; ///< used by one thread at a time
};
