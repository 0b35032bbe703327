#pragma once

class QLabel;
class QMainWindow;
class QRect;
class QWidget;

/// How the main window looks: the fixed colours of some of its parts, whatever the palette of the
/// desktop, and its layout, which the per-user settings keep. GUI thread.
namespace windowlook {

/// The product's logo as the label's picture.
void setLogo(QLabel* label);
/// Dark texts on a grey ground, a tool box's own tabs included.
void makeGrey(QWidget* panel);

/// The rectangle around all screens.
QRect desktopGeometry();

/// Keeps the window's place and its splitters.
void save(const QMainWindow* window);

/// Gives back what was kept. The window's own place only when the screens stand as they did, so
/// that it never opens where no screen is (otherwise it is made to fit the screen); the splitters
/// always.
void load(QMainWindow* window);

} // namespace windowlook
