#include "tests/importexport/reportedvisit.h"

#include "serial/ldb/busaddress.h"

namespace {

const QDateTime kDayBefore(QDate(2026, 3, 3), QTime(15, 0));
const QDateTime kMorning(QDate(2026, 3, 4), QTime(8, 12));
constexpr int kRounds = 12;
constexpr int kNumberOfValues = 2000;

QByteArray lowFirst(int number)
{
    const auto hex = [](int byte) {
        return QByteArray::number(byte & 0xff, 16).toUpper().rightJustified(2, '0');
    };
    return hex(number) + hex(number >> 8);
}

/// A status whose values tell LDB and round.
QByteArray statusOf(int address, int round, const QByteArray& loopByte = "00")
{
    const int value = (address * 37 + round * 11) % kNumberOfValues;
    const QByteArray earth = address % 29 == 5 ? "01" : "00"; // leakage
    return "0000000000"
           "0A" +
           loopByte + "00" + earth +
           "00"
           "00"
           "00"
           "00" +
           lowFirst(23000 + value) + "0000" + lowFirst(24000 + value) + "0000" + lowFirst(value) +
           lowFirst(-value);
}

RecordedEvent mark(qint64 at, const QString& hexId, const QString& text)
{
    RecordedEvent event;
    event.at = at;
    event.kind = EventKind::Mark;
    event.hexId = hexId;
    event.text = text;
    return event;
}

} // namespace

const QString ReportedVisit::kInstallation = QString::fromUtf8(
    "Bahnhof Süd & Nord, alte Halle <2>, Zwischengeschoss mit einem sehr langen Namen");
const QString ReportedVisit::kMark = QString::fromUtf8("Stecker am FIM 3 gezogen – « là-bas »");

ReportedVisit::ReportedVisit(const QString& folder, int count)
{
    RecordWriter writer(optionsFor(folder));
    for (int address = 1; address <= count; ++address) {
        ldbs.append(busaddress::toHexId(address));
    }
    opened = ldbs.at(0);
    tracked = ldbs.at(1);
    changed = ldbs.at(1);
    lost = ldbs.at(2);
    silent = count > 3 ? ldbs.at(3) : QString();
    {
        RecordedBus before(kDayBefore);
        before.start(ldbs);
        before.beginRound();
        before.status(tracked);
        recordedwork::Finding finding;
        finding.isCommissioning = true;
        finding.primary = {true, true, recordedwork::Finding::End::Connected, 11};
        finding.secondary = {true, true, recordedwork::Finding::End::Connected, 9};
        RecordedEvent event =
            recordedwork::findingEvent(tracked, before.now - RecordedBus::kSecond, finding);
        event.at = before.now;
        before.inputs.push_back(event);
        before.stop();
        writer.take(before.take());
    }
    RecordedBus bus(kMorning);
    begin = bus.now;
    bus.start(ldbs);
    for (int round = 0; round < kRounds; ++round) {
        this->round(bus, round);
        if (round == 5) {
            runOn(bus);
            change(bus);
        }
    }
    bus.inputs.push_back(mark(bus.now, tracked, kMark));
    bus.inputs.push_back(mark(bus.now + 1, {}, "<b>no markup</b> & no loss"));
    bus.now += RecordedBus::kSecond;
    bus.stop();
    writer.take(bus.take());
    writer.finish();
    end = bus.now + 1;
}

void ReportedVisit::round(RecordedBus& bus, int number)
{
    bus.beginRound();
    for (const QString& hexId : qAsConst(ldbs)) {
        const int address = busaddress::fromHexId(hexId);
        if (hexId == silent || (hexId == lost && number > 7)) {
            bus.ask(hexId, ExchangeKind::Probe, {}, ExchangeOutcome::Silent);
            continue;
        }
        if (hexId == lost && number == 7) {
            bus.ask(hexId, ExchangeKind::Status, {}, ExchangeOutcome::Silent);
            bus.loss(hexId);
            lostAt = bus.now - 49999;
            continue;
        }
        if (number == 0) {
            bus.name(hexId, QString::fromUtf8("Gleis %1 été").arg(address));
        }
        const bool wasOpen = hexId == opened && number >= 3 && number < 6;
        if (hexId == opened && number == 3) {
            openedAt = bus.now;
        } else if (hexId == opened && number == 6) {
            closedAt = bus.now;
        }
        bus.status(hexId, statusOf(address, number, wasOpen ? "01" : "00"));
        if (address % 50 == 7 && number == 4) {
            bus.ask(hexId, ExchangeKind::Name, "12", ExchangeOutcome::Damaged);
        }
        if (number < 2 || number == 9) {
            const QByteArray firmware = QByteArray("LDB 1.") + QByteArray::number(10 + address % 7);
            bus.ask(hexId, ExchangeKind::Firmware, firmware.toHex().toUpper());
        }
    }
    bus.now += RecordedBus::kSecond;
}

void ReportedVisit::runOn(RecordedBus& bus)
{
    const qint64 since = bus.now;
    for (int sample = 0; sample < 60; ++sample) {
        bus.beginRound();
        QByteArray body = statusOf(2, 0);
        body.replace(42, 4, lowFirst(200 + 300 * (sample / 12)));
        body.replace(46, 4, lowFirst(sample < 30 ? 150 : 900));
        bus.status(tracked, body);
        bus.now += RecordedBus::kSecond;
    }
    recordedwork::Finding finding;
    finding.primary = {true, true, recordedwork::Finding::End::Open, 7};
    finding.secondary = {false, false, recordedwork::Finding::End::Connected, 0};
    finding.leakages.push_back({true, 5, std::nullopt});
    finding.configured = 20;
    RecordedEvent event = recordedwork::findingEvent(tracked, since, finding);
    event.at = bus.now;
    bus.inputs.push_back(event);
}

void ReportedVisit::change(RecordedBus& bus)
{
    SettingsOutcome outcome;
    outcome.hexId = changed;
    LdbSettings before;
    before.address = busaddress::fromHexId(changed);
    before.name = "old name";
    before.openDetectionDelay = 10;
    outcome.fresh = before;
    outcome.written = before;
    outcome.written.name = "new name";
    outcome.written.openDetectionDelay = 12;
    outcome.written.audioMute = true;
    outcome.fields = {LdbField::Name, LdbField::OpenDetectionDelay, LdbField::AudioMute};
    outcome.parameters = {LdbParameter::Name, LdbParameter::OpenDetectionDelay,
                          LdbParameter::AudioMute};
    outcome.failures = {{LdbParameter::AudioMute, Reply::Kind::Refused}};
    outcome.isHandedOver = true;
    outcome.isReadBack = true;
    outcome.record = outcome.written;
    outcome.record->audioMute = false;
    auto event = *recordedwork::settingsEvent(EventKind::SettingsSaved, outcome);
    event.at = bus.now;
    bus.inputs.push_back(event);
    // The last one says how it is.
    for (const QByteArray& delay : {QByteArray("0A00"), QByteArray("0C00")}) {
        QByteArray record = TestBus::record(changed);
        record.replace(14, 4, delay);
        bus.ask(changed, ExchangeKind::Read, record);
    }
}

ReportRequest ReportedVisit::request() const
{
    ReportRequest request;
    request.head = {kInstallation,
                    "Place 1",
                    "A. Engineer",
                    "PO 4711/8",
                    "First remark\nSecond remark, with <angles>",
                    "Sniffer 2.2"};
    request.span = {begin, end};
    request.hasAppendix = true;
    request.known = {{ldbs.at(0), "remembered"}, {"FD", ldbs.contains("FD") ? "" : "gone"}};
    return request;
}
