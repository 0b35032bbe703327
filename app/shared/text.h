#pragma once

#include <QString>

#include <functional>

/// A text that is composed each time it is shown, and so in the language in force then. What it
/// needs it holds by value.
using Text = std::function<QString()>;
