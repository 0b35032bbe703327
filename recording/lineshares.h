#pragma once

#include <QString>

/// Shares of exchanges, wherever the quality of the line is told. Pure.
namespace lineshares {

/// Whether hardly any exchange was damaged, silent or not believed.
bool isGood(qint64 bad, qint64 all);
/// As "99.98 %". What is not all is never shown as all, and what is not nothing never as nothing. A
/// dash where there are no exchanges.
QString text(qint64 part, qint64 all);

} // namespace lineshares
