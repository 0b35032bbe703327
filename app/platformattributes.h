#pragma once

/// How Qt is to use the desktop. Called before the application object is made, by everything that
/// shows the main window.
void setPlatformAttributes();
