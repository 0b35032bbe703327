#include "app/window/installationwiring.h"

#include "app/installation/installationdesk.h"
#include "app/window/ldbviews.h"
#include "app/window/ldbwork.h"
#include "app/window/runcontrol.h"
#include "history/formersettings.h"

namespace wireinstallation {

void wire(InstallationDesk* desk, RunControl* run, LdbViews* views, LdbWork* work)
{
    const InstallationControl* control = desk->control();
    PortWaiter* waiter = desk->waiter();
    QObject::connect(waiter, &PortWaiter::waitingChanged, views, &LdbViews::setWaiting);
    QObject::connect(views, &LdbViews::waitingEnded, waiter, &PortWaiter::end);
    QObject::connect(views, &LdbViews::dismissed, desk, &InstallationDesk::forget);
    QObject::connect(control, &InstallationControl::scanWanted, run, &RunControl::reload);
    QObject::connect(control, &InstallationControl::settledChanged, run, [=] {
        run->setUnsettled(!control->isSettled());
        work->holdPutBack(!control->isCertain());
    });
    QObject::connect(control, &InstallationControl::replaced, work, [=] {
        views->clearPlot();
        work->changeSite();
        const QString id = control->current().id;
        work->setKept(control->store().keptLdbsOf(id));
        work->setFormerSettings(FormerSettingsStore(control->store().folderOf(id)));
    });
}

} // namespace wireinstallation
