#pragma once

class InstallationDesk;
class LdbViews;
class LdbWork;
class RunControl;

namespace wireinstallation {

/// Lets the window's parts follow the installation in force and the port that is waited for. All
/// of them live as long as the window.
void wire(InstallationDesk* desk, RunControl* run, LdbViews* views, LdbWork* work);

} // namespace wireinstallation
