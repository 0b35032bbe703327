#pragma once

#include "serial/ldb/generalinformation.h"
#include "serial/ldb/monitoring.h"

#include <QList>
#include <QMetaType>
#include <QString>
#include <QStringList>

/// Records for the tests of the views.
namespace records {

/// Codes of a record's four conditions; all healthy by default.
struct Codes
{
    int mode = 10;
    int loop = 0;
    int earth = 0;
    int amplifier = 0;
};

/// A healthy LDB at rest: 24 V and 12.34 mA primary, 23.95 V and -1 mA secondary.
inline LdbStatus healthy(LdbState state = LdbState::Quiescent)
{
    LdbStatus status;
    status.state = state;
    status.primaryVoltage = 24000;
    status.secondaryVoltage = 23950;
    status.primaryCurrent = 1234;
    status.secondaryCurrent = static_cast<quint16>(-100);
    return status;
}

inline QList<QStringList> record(const QString& hexId, const LdbStatus& status = healthy(),
                                 const QString& name = QStringLiteral("Hall"))
{
    return generalinformation::buildRows(hexId, name, status,
                                         QStringLiteral("2026-03-04: 10:00:00"),
                                         QStringLiteral("2026-03-04: 10:00:00:250"));
}

/// The whole bus is polled, so many seconds after the records' time.
inline Monitoring monitored(int seconds = 0)
{
    Monitoring monitoring;
    monitoring.state = Monitoring::State::Polling;
    monitoring.now =
        *generalinformation::clockTime(record(QStringLiteral("01"))) + seconds * 1000LL;
    monitoring.lifetime = 15000;
    return monitoring;
}
/// The same, after Stop.
inline Monitoring stopped(int seconds = 0)
{
    Monitoring monitoring = monitored(seconds);
    monitoring.state = Monitoring::State::Stopped;
    monitoring.since = monitoring.now;
    return monitoring;
}

/// A healthy LDB's record with `codes` and their texts put in.
inline QList<QStringList> withCodes(const QString& hexId, const Codes& codes,
                                    const QString& name = QStringLiteral("Hall"))
{
    using namespace generalinformation;

    QList<QStringList> rows = record(hexId, healthy(), name);
    const auto put = [&rows](Row row, const QString& text, int code) {
        rows[row] = QStringList{text, QString::number(code)};
    };
    put(ModeRow, ldbStateText(static_cast<LdbState>(codes.mode)), codes.mode);
    put(LoopRow, ldbLoopStateText(static_cast<LdbLoopState>(codes.loop)), codes.loop);
    put(EarthRow, ldbEarthStateText(static_cast<LdbEarthState>(codes.earth)), codes.earth);
    put(AmplifierRow, ldbAmplifierText(codes.amplifier), codes.amplifier);
    return rows;
}

} // namespace records

Q_DECLARE_METATYPE(records::Codes)
