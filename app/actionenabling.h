#pragma once

#include "serial/ldbstatus.h"

/// All that decides which controls of the main window can be used.
struct LinkSituation
{
    bool running = false;
    bool initialising = false;               ///< the bus is being scanned
    bool selected = false;                   ///< an LDB is ticked
    LdbState state = LdbState::Disconnected; ///< of the ticked LDB
    bool saving = false;                     ///< the editor waits for the LDB to store its settings
    bool transferring = false;               ///< an export or import is on
};

/// Which controls can be used.
struct EnabledControls
{
    bool reload = false;
    bool transfer = false;       ///< export and import
    bool selection = false;      ///< ticking another LDB
    bool allActions = false;     ///< the three actions for all LDBs
    bool singleActions = false;  ///< FIM and LDB reset of the ticked LDB, and Undo
    bool outsideService = false; ///< service mode, FIM tracking, Save, Default: what an LDB in
                                 ///< service mode ignores

    bool operator==(const EnabledControls& other) const;
};

/// The one place that knows which situation enables what.
EnabledControls enabledControls(const LinkSituation& situation);
