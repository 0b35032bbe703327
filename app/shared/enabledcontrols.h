#pragma once

/// Which controls can be used. Each panel takes it with `apply()`.
struct EnabledControls
{
    bool reload = false;
    bool transfer = false;       ///< export and import
    bool selection = false;      ///< selecting another LDB
    bool allActions = false;     ///< the three actions for all LDBs
    bool singleActions = false;  ///< FIM and LDB reset of the selected LDB, and Undo
    bool outsideService = false; ///< service mode, FIM tracking, Save, Default: what an LDB in
                                 ///< service mode ignores
};
