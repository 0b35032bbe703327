#pragma once

#include <QString>

class QSettings;

/// A whole number of the tuning file. A key that is missing, or holds anything else, gives the
/// default; the latter is warned of, so that a slip of the pen is not taken for 0.
int tuningNumber(const QSettings& tuning, const QString& key, int defaultNumber);
