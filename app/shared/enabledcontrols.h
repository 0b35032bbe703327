#pragma once

#include <QString>

/// What keeps a control from being used.
enum class Hindrance
{
    None,
    LookingBack,  ///< the window shows what is recorded
    NotMonitored, ///< no run is on
    Scanning,
    Unsettled, ///< which installation answers is not known
    NoLdb,     ///< none is selected
    LdbLost,   ///< the selected one
    Saving,
    Transferring,
    FaultFinding, ///< a run of it is on
    ServiceMode,  ///< the selected LDB is in it
    PuttingBack   ///< what fault finding changed in the selected LDB
};

/// The hindrance as a sentence, in the language in force; empty for none.
QString hindranceText(Hindrance hindrance);

/// Whether a control can be used and, if not, why.
struct Permission
{
    Hindrance hindrance = Hindrance::NotMonitored;

    // It stands wherever whether is asked, and why only in tooltips.
    // NOLINTNEXTLINE(google-explicit-constructor)
    operator bool() const { return hindrance == Hindrance::None; }
};

/// Which controls can be used. Each panel takes it with `apply()`.
struct EnabledControls
{
    Permission start; ///< a run, or its end
    Permission reload;
    Permission transfer;       ///< export and import
    Permission selection;      ///< selecting another LDB
    Permission allActions;     ///< the three actions for all LDBs
    Permission singleActions;  ///< FIM and LDB reset of the selected LDB
    Permission settings;       ///< Save, Undo and Default
    Permission editing;        ///< the fields of the settings: the selected LDB is connected
    Permission outsideService; ///< service mode and FIM tracking: what an LDB in service mode
                               ///< ignores
};
