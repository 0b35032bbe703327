#pragma once

#include "recording/recordedvalues.h"
#include "tracking/plot/plothistorysource.h"

#include <QPointer>

#include <vector>

class RecordingAccess;
class Replay;

/// The same samples that a plot makes of records told one by one: with a gap after a record that
/// was no longer live when the next one came.
std::vector<PlotSample> samplesOf(const std::vector<RecordedRecord>& records, qint64 lifetimeMs);

/// The past of a plot that looks back: at once what came with the moment, anything else from the
/// recording. GUI thread.
class PastSamples : public PlotHistorySource
{
public:
    /// Both outlive this object.
    PastSamples(const Replay* replay, RecordingAccess* access);

    void ask(const QString& hexId, qint64 from, qint64 to, const Answer& answer) override;

private:
    const Replay* m_replay;
    RecordingAccess* m_access;
};
