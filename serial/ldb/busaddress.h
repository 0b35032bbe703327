#pragma once

#include <QString>

/// Bus addresses.
namespace busaddress {

extern const QString kBroadcast; ///< "FF": every LDB obeys, none answers
extern const QString kMaster;    ///< "FE": this program
constexpr int kFirst = 1;
constexpr int kLast = 253;

/// The two-digit `hexId` of a bus address.
QString toHexId(int address);
int fromHexId(const QString& hexId);

} // namespace busaddress
