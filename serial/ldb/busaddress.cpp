#include "serial/ldb/busaddress.h"

#include "serial/wire/hextext.h"

namespace busaddress {

const QString kBroadcast = QStringLiteral("FF");
const QString kMaster = QStringLiteral("FE");

QString toHexId(int address)
{
    return QString::fromLatin1(hextext::fromNumber(static_cast<uint>(address)));
}

int fromHexId(const QString& hexId)
{
    return hexId.toInt(nullptr, 16);
}

} // namespace busaddress
