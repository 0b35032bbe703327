#pragma once

#include "importexport/report/visitreport.h"
#include "tests/recording/recordedbus.h"

#include <QStringList>

/// The recording of a visit to a site with so many LDBs, on which about everything happens that a
/// report tells.
class ReportedVisit
{
public:
    /// Writes it into a folder that is not there yet.
    ReportedVisit(const QString& folder, int ldbs);

    ReportRequest request() const;

    QStringList ldbs;
    QString lost;    ///< and not back
    QString silent;  ///< listed, and never heard
    QString opened;  ///< its loop was open for `kOpenFor`, and is whole again
    QString tracked; ///< commissioned the day before, and searched for a fault
    QString changed; ///< its settings were written
    qint64 begin = 0;
    qint64 end = 0;
    qint64 openedAt = 0;
    qint64 closedAt = 0;
    qint64 lostAt = 0;

    static const QString kInstallation;
    static const QString kMark;

private:
    void round(RecordedBus& bus, int number);
    void runOn(RecordedBus& bus);
    void change(RecordedBus& bus);
};
