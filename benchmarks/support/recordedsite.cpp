#include "benchmarks/support/recordedsite.h"

#include "recording/recordcollector.h"
#include "serial/ldb/generalinformation.h"
#include "tests/support/linerig.h"

RecorderInputs recordedsite::makePiece()
{
    LineRig::Setup setup;
    setup.addresses.clear();
    for (int address = 1; address <= kLdbs; ++address) {
        setup.addresses.push_back(address);
    }
    // The most exchanges a second: name and firmware id in every round.
    setup.turns.identityEveryRounds = 1;
    LineRig rig(setup);
    rig.scan();
    RecordCollector collector([&rig] { return LineRig::kWallStart + rig.now() / 1000; });
    rig.listen([&collector](const Event& event) {
        if (const auto* record = std::get_if<event::Record>(&event)) {
            const QDateTime time = QDateTime::fromMSecsSinceEpoch(record->time);
            collector.record(record->hexId,
                             generalinformation::buildRows(
                                 record->hexId, record->name, record->status,
                                 time.toString(generalinformation::kSecondsFormat),
                                 time.toString(generalinformation::kMillisecondsFormat)));
        } else if (const auto* round = std::get_if<event::RoundBegun>(&event)) {
            collector.roundBegun(QDateTime::fromMSecsSinceEpoch(round->time));
        } else if (std::holds_alternative<event::RoundEnded>(event)) {
            collector.roundEnded();
        } else if (const auto* exchange = std::get_if<Exchange>(&event)) {
            collector.exchanged(*exchange);
        }
    });
    collector.runBegun(QStringLiteral("COM7"));
    collector.listChanged(rig.found());
    rig.run(kPiece);
    return collector.take();
}

RecorderInput recordedsite::later(RecorderInput input, qint64 by)
{
    std::visit(
        [by](auto& value) {
            using Value = std::decay_t<decltype(value)>;
            if constexpr (std::is_same_v<Value, input::Told>) {
                value.exchange.sentAt += by;
            } else {
                value.at += by;
            }
            if constexpr (std::is_same_v<Value, input::Round>) {
                value.wall += by / 1000;
            }
        },
        input);
    return input;
}
