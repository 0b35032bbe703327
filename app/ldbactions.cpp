#include "app/ldbactions.h"

#include "serial/serialcommand.h"
#include "serial/seriallink.h"

#include <memory>

namespace {

QString controlName(LdbControl control)
{
    switch (control) {
    case LdbControl::FimReset:
        return LdbActions::tr("FIM reset");
    case LdbControl::LdbReset:
        return LdbActions::tr("LDB reset");
    case LdbControl::FactoryReset:
        return LdbActions::tr("Factory reset");
    case LdbControl::ServiceMode:
        return LdbActions::tr("Service mode");
    }
    return {};
}

} // namespace

LdbActions::LdbActions(SerialLink* link, QObject* parent)
    : QObject(parent)
    , m_link(link)
{
}

void LdbActions::execute(LdbControl control, const QString& hexId)
{
    if (hexId.isEmpty()) {
        return;
    }
    m_link->ask(
        std::make_unique<ExecuteCommand>(hexId, control), this,
        [this, control, hexId](const Reply& reply) { processReply(control, hexId, reply); });
}

void LdbActions::executeForAll(LdbControl control)
{
    execute(control, busaddress::kBroadcast);
}

void LdbActions::processReply(LdbControl control, const QString& hexId, const Reply& reply)
{
    const QString name = controlName(control);
    const bool isForAll = hexId == busaddress::kBroadcast;
    switch (reply.kind()) {
    case Reply::Kind::Unsent:
        emit reported(isForAll
                          ? tr("The connection ended. Not sent to all LDB's: %1.").arg(name)
                          : tr("The connection ended. Not sent to LDB %1: %2.").arg(hexId, name));
        break;
    case Reply::Kind::Silent:
        emit reported(isForAll ? tr("Sent to all LDB's: %1.").arg(name)
                               : tr("LDB %1 did not answer: %2.").arg(hexId, name));
        break;
    case Reply::Kind::Refused:
        emit reported(tr("LDB %1 refused: %2.").arg(hexId, name));
        break;
    case Reply::Kind::Accepted:
    case Reply::Kind::Answered:
        emit reported(tr("LDB %1 accepted: %2.").arg(hexId, name));
        break;
    }
}
