#pragma once

/// Makes the compiled-in pictures and sounds available; called once before the first is used.
/// They live in a static library, whose registration a linker would otherwise leave out.
///
/// Every picture holds twice the pixels it is shown with, for displays of twice the density. Shown
/// through `QIcon(path).pixmap(logicalSize)` it is scaled smoothly on both kinds.
void initResources();
