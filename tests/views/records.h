#pragma once

#include "serial/generalinformation.h"

/// Records as the serial side makes them.
namespace records {

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
