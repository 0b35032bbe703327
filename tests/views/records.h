#pragma once

#include "serial/generalinformation.h"

#include <QList>
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

/// A healthy LDB's record at 24 V, 12.34 mA primary and -1 mA secondary, with `codes` and their
/// texts put in.
inline QList<QStringList> withCodes(const QString& hexId, const Codes& codes,
                                    const QString& name = QStringLiteral("Hall"))
{
    using namespace generalinformation;

    LdbStatus status;
    status.primaryVoltage = 24000;
    status.secondaryVoltage = 23950;
    status.primaryCurrent = 1234;
    status.secondaryCurrent = static_cast<quint16>(-100);
    QList<QStringList> rows = buildRows(hexId, name, status, QStringLiteral("2026-03-04: 10:00:00"),
                                        QStringLiteral("2026-03-04: 10:00:00:250"));
    const auto put = [&rows](Row row, const QString& text, int code) {
        rows[row] = QStringList{text, QString::number(code)};
    };
    put(ModeRow, ldbStateText(static_cast<LdbState>(codes.mode)), codes.mode);
    put(LoopRow, ldbLoopStateText(static_cast<LdbLoopState>(codes.loop)), codes.loop);
    put(EarthRow, ldbEarthStateText(static_cast<LdbEarthState>(codes.earth)), codes.earth);
    put(AmplifierRow, ldbAmplifierText(codes.amplifier), codes.amplifier);
    return rows;
}

/// A healthy LDB at rest: 24.1 V and 12.3 mA at either port.
inline LdbStatus healthy(LdbState state = LdbState::Quiescent)
{
    LdbStatus status;
    status.state = state;
    status.primaryVoltage = 24100;
    status.secondaryVoltage = 24100;
    status.primaryCurrent = 1230;
    status.secondaryCurrent = 1230;
    return status;
}

inline QList<QStringList> record(const QString& hexId, const LdbStatus& status = healthy(),
                                 const QString& name = QStringLiteral("Hall"))
{
    return generalinformation::buildRows(hexId, name, status,
                                         QStringLiteral("2024-05-06: 07:08:09"),
                                         QStringLiteral("2024-05-06: 07:08:09:010"));
}

} // namespace records
