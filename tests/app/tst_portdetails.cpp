#include "app/settings/portdetails.h"
#include "tests/support/testcase.h"

class TestPortDetails : public TestCase
{
    Q_OBJECT
private slots:
    void ordersByNumber_data();
    void ordersByNumber();
    void givesSixTexts();
};

void TestPortDetails::ordersByNumber_data()
{
    QTest::addColumn<QStringList>("names");
    QTest::addColumn<QStringList>("ordered");
    const auto row = [](const char* situation, const char* names, const char* ordered) {
        const auto list = [](const char* text) {
            return QString::fromLatin1(text).split(QLatin1Char(' '), Qt::SkipEmptyParts);
        };
        QTest::newRow(situation) << list(names) << list(ordered);
    };
    row("none", "", "");
    row("COM ports", "COM12 COM1 COM3", "COM1 COM3 COM12");
    row("two digits beside one", "COM10 COM2", "COM2 COM10");
    row("device names", "ttyUSB10 ttyUSB9 ttyS0 ttyUSB0", "ttyS0 ttyUSB0 ttyUSB9 ttyUSB10");
    row("COM ports among others", "ttyS0 COM2 COM1", "COM1 COM2 ttyS0");
    row("no number at all", "modem COM4 COM", "COM COM4 modem");
    row("number larger than any", "COM99999999999999999999 COM1", "COM99999999999999999999 COM1");
    row("same number", "COM01 COM1", "COM01 COM1");
}

void TestPortDetails::ordersByNumber()
{
    QFETCH(QStringList, names);
    QList<PortDetails> ports;
    for (const QString& name : qAsConst(names)) {
        PortDetails port;
        port.name = name;
        ports.append(port);
    }
    QStringList ordered;
    const QList<PortDetails> result = orderedByNumber(ports);
    for (const PortDetails& port : result) {
        ordered.append(port.name);
    }
    QTEST(ordered, "ordered");
}

void TestPortDetails::givesSixTexts()
{
    PortDetails port;
    port.name = QStringLiteral("COM3");
    port.description = QStringLiteral("USB Serial Port");
    port.manufacturer = QStringLiteral("Maker");
    port.serialNumber = QStringLiteral("A1B2");
    port.systemLocation = QStringLiteral("\\\\.\\COM3");
    const QStringList onBoard{QStringLiteral("USB Serial Port"),
                              QStringLiteral("Maker"),
                              QStringLiteral("A1B2"),
                              QStringLiteral("\\\\.\\COM3"),
                              QString(),
                              QString()};
    QCOMPARE(portInfoTexts(port), onBoard);

    // An identifier of 0 is one, unlike none.
    port.vendorIdentifier = quint16{1027};
    port.productIdentifier = quint16{0};
    QCOMPARE(portInfoTexts(port).mid(4), (QStringList{QStringLiteral("403"), QStringLiteral("0")}));
    port.vendorIdentifier = quint16{0xABCD};
    QCOMPARE(portInfoTexts(port).at(4), QStringLiteral("abcd"));
}

QTEST_GUILESS_MAIN(TestPortDetails)
#include "tst_portdetails.moc"
