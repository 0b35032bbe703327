#pragma once

#include "importexport/report/visitreport.h"

#include <QObject>

#include <memory>

class RecordingAccess;
class VisitCollector;

/// Collects a visit from the recording, a piece at a time, so that neither the window waits nor
/// anybody else who reads. GUI thread.
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
    /// Another recording is in force: what was begun is of the former one.
    void dropped();

private:
    void goOn();

    RecordingAccess* m_access;
    std::shared_ptr<VisitCollector> m_collector; ///< used by one thread at a time
};
