#include "app/ldbactions.h"
#include "serial/seriallink.h"
#include "tests/support/sandbox.h"
#include "tests/support/scriptedbus.h"
#include "tests/support/testcase.h"

#include <QSignalSpy>

namespace {

const QByteArray kNak("\x15");
const QByteArray kAck("\x06");

} // namespace

class TestLdbActions : public TestCase
{
    Q_OBJECT
private slots:
    void tellsWhatBecameOfIt_data();
    void tellsWhatBecameOfIt();
    void withoutLdbNothingIsSent();
    void withoutRunNothingIsSent();
};

void TestLdbActions::tellsWhatBecameOfIt_data()
{
    QTest::addColumn<int>("control");
    QTest::addColumn<bool>("forAll");
    QTest::addColumn<QByteArray>("answer");
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<QString>("report");

    const auto control = [](LdbControl value) {
        return static_cast<int>(value);
    };
    QTest::newRow("FIM reset accepted")
        << control(LdbControl::FimReset) << false << kAck << QByteArray("FE0A73780000")
        << QStringLiteral("LDB 0A accepted: FIM reset.");
    QTest::newRow("LDB reset refused")
        << control(LdbControl::LdbReset) << false << kNak << QByteArray("FE0A73780001")
        << QStringLiteral("LDB 0A refused: LDB reset.");
    QTest::newRow("service mode unanswered")
        << control(LdbControl::ServiceMode) << false << QByteArray() << QByteArray("FE0A73780003")
        << QStringLiteral("LDB 0A did not answer: Service mode.");
    QTest::newRow("FIM reset to all")
        << control(LdbControl::FimReset) << true << QByteArray() << QByteArray("FEFF73780000")
        << QStringLiteral("Sent to all LDB's: FIM reset.");
    QTest::newRow("LDB reset to all")
        << control(LdbControl::LdbReset) << true << QByteArray() << QByteArray("FEFF73780001")
        << QStringLiteral("Sent to all LDB's: LDB reset.");
    QTest::newRow("service mode to all")
        << control(LdbControl::ServiceMode) << true << QByteArray() << QByteArray("FEFF73780003")
        << QStringLiteral("Sent to all LDB's: Service mode.");
}

void TestLdbActions::tellsWhatBecameOfIt()
{
    QFETCH(int, control);
    QFETCH(bool, forAll);
    QFETCH(QByteArray, answer);
    QFETCH(QByteArray, body);
    QFETCH(QString, report);

    const Sandbox sandbox;
    ScriptedBus bus({QStringLiteral("0A")});
    bus.setScript([&](const QByteArray& request) {
        return request == body ? std::optional<QByteArray>(answer) : std::nullopt;
    });
    SerialLink link;
    link.setPortName(bus.portName());
    LdbActions actions(&link, nullptr);
    QSignalSpy reported(&actions, &LdbActions::reported);
    QSignalSpy scan(&link, &SerialLink::ldbStateUpdated);
    link.start();
    QVERIFY(scan.wait());

    if (forAll) {
        actions.executeForAll(static_cast<LdbControl>(control));
    } else {
        actions.execute(static_cast<LdbControl>(control), QStringLiteral("0A"));
    }
    QVERIFY(reported.wait());
    QCOMPARE(reported.size(), 1);
    QCOMPARE(reported.at(0).at(0).toString(), report);
    QVERIFY(bus.requests().contains(body));
}

void TestLdbActions::withoutLdbNothingIsSent()
{
    const Sandbox sandbox;
    ScriptedBus bus({QStringLiteral("0A")});
    SerialLink link;
    link.setPortName(bus.portName());
    LdbActions actions(&link, nullptr);
    QSignalSpy queued(&link, &SerialLink::externalCommandsInQueueUpdated);
    QSignalSpy records(&link, &SerialLink::generalInformationUpdated);
    link.start();
    QVERIFY(records.wait());
    queued.clear();
    actions.execute(LdbControl::LdbReset, QString());
    QVERIFY(records.wait());
    QVERIFY(queued.isEmpty());
}

void TestLdbActions::withoutRunNothingIsSent()
{
    const Sandbox sandbox;
    ScriptedBus bus({QStringLiteral("0A")});
    SerialLink link;
    link.setPortName(bus.portName());
    LdbActions actions(&link, nullptr);
    actions.execute(LdbControl::LdbReset, QStringLiteral("0A"));
    QSignalSpy records(&link, &SerialLink::generalInformationUpdated);
    link.start();
    QVERIFY(records.wait());
    QVERIFY(!bus.requests().contains("FE0A73780001"));
}

QTEST_GUILESS_MAIN(TestLdbActions)

#include "tst_ldbactions.moc"
