#include "app/ldbactions.h"

#include "serial/serialcommand.h"
#include "serial/seriallink.h"

#include <memory>

namespace {

const QByteArray kNak("\x15");

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
    auto command = std::make_unique<ExecuteCommand>(hexId, control);
    command->addObserver(std::make_unique<ISerialCommand::ObserverCallable>(
        this, [this, control, hexId](const QByteArray& answer) {
            processAnswer(control, hexId, answer);
        }));
    m_link->post(std::move(command));
}

void LdbActions::executeForAll(LdbControl control)
{
    execute(control, busaddress::kBroadcast);
}

void LdbActions::processAnswer(LdbControl control, const QString& hexId, const QByteArray& answer)
{
    const QString name = controlName(control);
    if (hexId == busaddress::kBroadcast) {
        emit reported(tr("Sent to all LDB's: %1.").arg(name));
    } else if (answer.isEmpty()) {
        emit reported(tr("LDB %1 did not answer: %2.").arg(hexId, name));
    } else if (answer == kNak) {
        emit reported(tr("LDB %1 refused: %2.").arg(hexId, name));
    } else {
        emit reported(tr("LDB %1 accepted: %2.").arg(hexId, name));
    }
}
