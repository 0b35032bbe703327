#include "app/actionenabling.h"

#include <tuple>

namespace {

auto fields(const EnabledControls& controls)
{
    return std::tie(controls.reload, controls.transfer, controls.selection, controls.allActions,
                    controls.singleActions, controls.outsideService);
}

} // namespace

bool EnabledControls::operator==(const EnabledControls& other) const
{
    return fields(*this) == fields(other);
}

EnabledControls enabledControls(const LinkSituation& situation)
{
    const bool polling = situation.running && !situation.initialising;
    const bool lost = situation.selected && situation.state == LdbState::Disconnected;
    const bool acting = polling && !lost && !situation.saving && !situation.transferring;

    EnabledControls controls;
    controls.reload = !situation.initialising;
    // A second transfer ends the first one, so it stays possible during one.
    controls.transfer = polling;
    // A lost LDB must not hold the selection.
    controls.selection = polling && !situation.saving;
    controls.allActions = acting;
    controls.singleActions = acting && situation.selected;
    controls.outsideService = controls.singleActions && situation.state != LdbState::ServiceMode;
    return controls;
}
