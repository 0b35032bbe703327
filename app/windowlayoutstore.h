#pragma once

class QMainWindow;
class QRect;
class QSplitter;

/// Keeps the main window's layout in the per-user settings.
namespace windowlayoutstore {

/// What is kept. Nothing here is owned.
struct Layout
{
    QMainWindow* window = nullptr;
    QSplitter* leftAndRight = nullptr;
    QSplitter* overviewAndPlot = nullptr;
    QSplitter* plotAndDetail = nullptr;
};

/// The rectangle around all screens.
QRect desktopGeometry();

void save(const Layout& layout);

/// Gives back what was kept. The window's own place only when the screens stand as they did, so
/// that it never opens where no screen is (otherwise it is made to fit the screen); the splitters
/// always.
void load(const Layout& layout);

} // namespace windowlayoutstore
