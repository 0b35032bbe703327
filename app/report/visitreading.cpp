#include "app/report/visitreading.h"

#include "importexport/report/visitcollector.h"
#include "recording/recordingaccess.h"

#include <utility>

VisitReading::VisitReading(RecordingAccess* access, QObject* parent)
    : QObject(parent)
    , m_access(access)
{
    connect(access, &RecordingAccess::pathChanged, this, [this] {
        m_collector.reset();
        emit dropped();
    });
}

VisitReading::~VisitReading() = default;

void VisitReading::begin(const ReportRequest& request)
{
    m_collector = std::make_shared<VisitCollector>(request);
    goOn();
}

void VisitReading::goOn()
{
    m_access->ask(
        this,
        [collector = m_collector](RecordingReader& reader) {
            collector->step(reader);
            return collector;
        },
        [this](const std::shared_ptr<VisitCollector>& collector) {
            if (collector != m_collector) {
                return; // it was begun anew
            }
            if (!collector->isDone()) {
                goOn();
                return;
            }
            m_collector.reset();
            emit collected(collector->report());
        });
}
