#include "tests/recording/captured.h"
#include "tests/support/testprogram.h"

/// The capture file by its bytes, as the format describes them.
class TestCapture : public TestCase
{
    Q_OBJECT
private slots:
    void writesTheFormat()
    {
        const auto probe = [](RecordedBus& bus) {
            bus.ask("0A", ExchangeKind::Probe, {}, ExchangeOutcome::Silent);
        };
        const QByteArray capture = captureOf(probe);
        // Section header, interface (link type 250), and one packet, by the format's description.
        QCOMPARE(capture.left(28).toHex(), QByteArray("0a0d0d0a1c0000004d3c2b1a01000000"
                                                      "ffffffffffffffff1c000000"));
        QCOMPARE(capture.mid(28, 20).toHex(), QByteArray("0100000014000000fa000000"
                                                         "0000000014000000"));
        const QByteArray packet = capture.mid(48);
        QCOMPARE(packet.left(8).toHex(), QByteArray("0600000038000000"));
        const auto seconds = static_cast<quint32>(kNoon.toSecsSinceEpoch());
        const auto data = packet.mid(28);
        QCOMPARE(data.left(12).toHex(), QByteArray::number(seconds, 16) + "00000000" + "01000000");
        QCOMPARE(data.mid(12, 10), TestBus::framed("FE0A70"));
        QCOMPARE(packet.size(), 56);
        QCOMPARE(packet.right(4), packet.mid(4, 4));
    }
};

REGISTER_TEST(TestCapture, QCoreApplication)
#include "tst_capture.moc"
