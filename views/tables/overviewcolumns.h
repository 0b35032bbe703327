#pragma once

#include "serial/ldb/generalinformation.h"

/// Columns of the overview table's source model. Column 0 carries the tick; every further column
/// shows one row of the LDB's record.
namespace overview {

enum Column : int
{
    TickColumn = 0,
    IdColumn,
    NameColumn,
    ModeColumn,
    LoopColumn,
    PrimaryVoltageColumn,
    PrimaryCurrentColumn,
    SecondaryVoltageColumn,
    SecondaryCurrentColumn,
    EarthColumn,
    AmplifierColumn,
    TimestampColumn,
    ColumnCount
};

/// The column that shows a row of the record.
constexpr Column columnOf(int recordRow)
{
    return static_cast<Column>(recordRow + IdColumn);
}

static_assert(columnOf(generalinformation::DeviceIdRow) == IdColumn);
static_assert(columnOf(generalinformation::ModeRow) == ModeColumn);
static_assert(columnOf(generalinformation::PrimaryVoltageRow) == PrimaryVoltageColumn);
static_assert(columnOf(generalinformation::SecondaryVoltageRow) == SecondaryVoltageColumn);
static_assert(columnOf(generalinformation::RowCount) == ColumnCount);

} // namespace overview
