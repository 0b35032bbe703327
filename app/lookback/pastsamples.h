#pragma once

#include "app/lookback/moment.h"
#include "tracking/plot/plothistorysource.h"

#include <QPointer>

#include <vector>

class RecordingAccess;
class Replay;

/// The samples of a past as a plot makes them that is told of each record: with a gap behind one
/// that was not live any more when the next one came.
std::vector<PlotSample> samplesOf(const Past& past);

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
