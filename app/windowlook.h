#pragma once

class QLabel;
class QToolBox;
class QWidget;

/// The fixed colours of some of the main window's parts, whatever the palette of the desktop. GUI
/// thread.
namespace windowlook {

/// The product's logo as the label's picture.
void setLogo(QLabel* label);
/// Dark texts on a grey ground.
void makeGrey(QWidget* panel);
/// The same, with the tool box's own tabs.
void makeGrey(QToolBox* toolBox);

} // namespace windowlook
