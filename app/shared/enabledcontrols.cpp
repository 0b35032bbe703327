#include "app/shared/enabledcontrols.h"

#include <QCoreApplication>

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(Hindrance)
};

} // namespace

QString hindranceText(Hindrance hindrance)
{
    switch (hindrance) {
    case Hindrance::LookingBack:
        return Texts::tr("You are looking back: go back to live first (Esc).");
    case Hindrance::NotMonitored:
        return Texts::tr("Nothing is monitored: click Start first.");
    case Hindrance::Scanning:
        return Texts::tr("The bus is being scanned: wait until all LDB's are found.");
    case Hindrance::Unsettled:
        return Texts::tr("It is not certain yet which installation answers.");
    case Hindrance::NoLdb:
        return Texts::tr("No LDB is selected.");
    case Hindrance::LdbLost:
        return Texts::tr("The selected LDB is not connected.");
    case Hindrance::Saving:
        return Texts::tr("Settings are being saved: wait until the LDB has them.");
    case Hindrance::Transferring:
        return Texts::tr("Settings are being exported or imported: wait for the end.");
    case Hindrance::FaultFinding:
        return Texts::tr("Fault finding is under way: wait for its end, or stop it.");
    case Hindrance::ServiceMode:
        return Texts::tr("The selected LDB is in service mode: end it with LDB Reset first.");
    case Hindrance::PuttingBack:
        return Texts::tr(
            "What fault finding has changed is being put back: wait until it is done.");
    case Hindrance::None:
        break;
    }
    return {};
}
