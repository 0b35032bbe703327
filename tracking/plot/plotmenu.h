#pragma once

class Plot;
class QPoint;

/// The menu of a plot: follow, marks, and what leaves the program. GUI thread.
namespace plotmenu {

/// Opens it at a place of the screen; marks are set at the moment `time` (ms since 1970 UTC). What
/// it saves is what the plot shows when the file has been chosen; the user is told why a file could
/// not be written.
void open(Plot& plot, const QPoint& place, double time);

} // namespace plotmenu
