#pragma once

#include "serial/ldb/generalinformation.h"

#include <Qt>

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

/// Data roles of the source model's cells, beside Qt's own.
enum Role : int
{
    NumberRole = Qt::UserRole, ///< what the cell is sorted by; none for those sorted by their text
    HexIdRole,                 ///< tick cell: the LDB of the row
    LiveRole,                  ///< tick cell: whether the row shows what the LDB says now
    AgeRole,                   ///< mode cell of a row that is not live: its age, as text
    RuleColourRole,            ///< the colour that the rules of the tuning file give
    OwnNameRole,               ///< tick cell: the name that the LDB told last
    FaultRole,                 ///< tick cell: whether the LDB is lost or faulty (`isFaulty`)
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
