#pragma once

#include "recording/recordingreader.h"
#include "tracking/plot/plothistorysource.h"

#include <QHash>
#include <QObject>

class RecordingAccess;

/// The samples of an LDB in a recording, from `from` up to but without `to` (ms since 1970 UTC),
/// with a gap where a run ended, where something is not recorded, and where the LDB was lost. Used
/// in the reader's thread.
std::vector<PlotSample> recordedSamples(RecordingReader& reader, const QString& hexId, qint64 from,
                                        qint64 to);

/// Gives the plot its past from the recording. Reads long spans an hour at a time, so that others
/// get their turn in between. GUI thread.
class RecordedPlot : public QObject, public PlotHistorySource
{
    Q_OBJECT
public:
    /// `access` outlives this object.
    explicit RecordedPlot(RecordingAccess* access, QObject* parent = nullptr);

    void ask(const QString& hexId, qint64 from, qint64 to, const Answer& answer) override;

private:
    struct Question
    {
        QString hexId;
        qint64 next = 0; ///< everything before it has been read
        qint64 to = 0;
        Answer answer;
        std::vector<PlotSample> samples;
    };

    void readOn(int number);
    void take(int number, std::vector<PlotSample>&& samples);
    void answerAll();

    RecordingAccess* m_access;
    QHash<int, Question> m_questions; ///< not answered yet
    int m_last = 0;
};
