#include "tests/support/testcase.h"
#include "tests/support/virtualtime.h"
#include "tests/views/bracketingtranslator.h"
#include "tests/views/records.h"
#include "views/statusindicators.h"

#include <QApplication>
#include <QImage>
#include <QLabel>

#include <memory>

using records::Codes;
using records::withCodes;

namespace {

VirtualTime* virtualTime = nullptr;

constexpr QRgb kOff = 0xFFF0F0F0;
constexpr QRgb kAmber = 0xFFFBBF00;
constexpr QRgb kBlue = 0xFF42B5E1;
constexpr QRgb kOrangered = 0xFFFF4500;

QImage imageOf(const QLabel& lamp)
{
    return lamp.pixmap(Qt::ReturnByValue).toImage();
}

QRgb colourOf(const QLabel& lamp)
{
    const QImage image = imageOf(lamp);
    return image.pixel(image.width() * 8 / 18, image.height() * 8 / 18);
}

} // namespace

class TestStatusIndicators : public TestCase
{
    Q_OBJECT
private slots:
    void init() override;

    void lampsAreRoundAndDarkAtFirst();
    void patterns_data();
    void patterns();
    void bothSpeedsKeepTheirPhase();
    void offIsDarkAtOnceAndSlowerKeepsTheImage();
    void resetDarkensUntilTheNextRound();
    void statesInWords_data();
    void statesInWords();
    void languageChange();

private:
    struct Panel
    {
        QLabel a, b, c, d;
        StatusIndicators indicators{&a, &c, &b, &d};

        QLabel& lamp(const QString& name)
        {
            return name == QLatin1String("A")   ? a
                   : name == QLatin1String("B") ? b
                   : name == QLatin1String("C") ? c
                                                : d;
        }
        void show(const Codes& codes)
        {
            indicators.processData(QStringLiteral("01"), withCodes(QStringLiteral("01"), codes));
        }
    };
    std::unique_ptr<Panel> m_panel;
};

void TestStatusIndicators::init()
{
    TestCase::init();
    m_panel = std::make_unique<Panel>();
}

void TestStatusIndicators::lampsAreRoundAndDarkAtFirst()
{
    virtualTime->advance(2000);
    for (const char* name : {"A", "B", "C", "D"}) {
        const QLabel& lamp = m_panel->lamp(QString::fromLatin1(name));
        const QImage image = imageOf(lamp);
        QCOMPARE(image.size(), QSize(18, 18));
        QCOMPARE(colourOf(lamp), kOff);
        QCOMPARE(qAlpha(image.pixel(0, 0)), 0);
        QCOMPARE(qAlpha(image.pixel(17, 8)), 0);
        QCOMPARE(image.pixel(8, 1), kOff);
        QCOMPARE(image.pixel(14, 8), kOff);
    }
}

void TestStatusIndicators::patterns_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<int>("loop");
    QTest::addColumn<int>("earth");
    QTest::addColumn<QString>("lamp");
    QTest::addColumn<uint>("colour");
    QTest::addColumn<int>("period"); // ms lit, and as many dark; 0 never

    QTest::newRow("service mode") << 30 << 0 << 0 << "A" << kBlue << 125;
    QTest::newRow("earth fault") << 10 << 0 << 4 << "B" << kAmber << 125;
    QTest::newRow("earth fault remembered") << 10 << 0 << 2 << "B" << kAmber << 500;
    QTest::newRow("loop fault") << 10 << 4 << 0 << "C" << kAmber << 125;
    QTest::newRow("loop fault remembered") << 10 << 2 << 0 << "C" << kAmber << 500;
    QTest::newRow("check settings") << 253 << 0 << 0 << "D" << kOrangered << 125;
    QTest::newRow("fault mode lights none") << 254 << 0 << 0 << "D" << kOrangered << 0;
}

void TestStatusIndicators::patterns()
{
    QFETCH(int, mode);
    QFETCH(int, loop);
    QFETCH(int, earth);
    QFETCH(QString, lamp);
    QFETCH(uint, colour);
    QFETCH(int, period);

    m_panel->show({mode, loop, earth, 0});
    // Into the first dark phase, wherever the timers stand.
    QLabel& watched = m_panel->lamp(lamp);
    virtualTime->advance(1000);
    if (period == 0) {
        QCOMPARE(colourOf(watched), kOff);
        return;
    }
    for (int ms = 0; ms < 1000 && colourOf(watched) != kOff; ++ms) {
        virtualTime->advance(1);
    }
    for (int ms = 0; ms < 1000 && colourOf(watched) == kOff; ++ms) {
        virtualTime->advance(1);
    }
    for (int blink = 0; blink < 5; ++blink) {
        QCOMPARE(colourOf(watched), colour);
        virtualTime->advance(period - 1);
        QCOMPARE(colourOf(watched), colour);
        virtualTime->advance(1);
        QCOMPARE(colourOf(watched), kOff);
        virtualTime->advance(period - 1);
        QCOMPARE(colourOf(watched), kOff);
        virtualTime->advance(1);
    }
    for (const char* other : {"A", "B", "C", "D"}) {
        const QString name = QString::fromLatin1(other);
        QVERIFY(name == lamp || colourOf(m_panel->lamp(name)) == kOff);
    }
}

void TestStatusIndicators::bothSpeedsKeepTheirPhase()
{
    // Lamps of one speed blink together, whenever each began.
    m_panel->show({10, 0, 4, 0});
    virtualTime->advance(375);
    m_panel->show({30, 1, 4, 0});
    virtualTime->advance(125);
    for (int tick = 0; tick < 8; ++tick) {
        const bool isLit = colourOf(m_panel->a) != kOff;
        QCOMPARE(colourOf(m_panel->b) != kOff, isLit);
        QCOMPARE(colourOf(m_panel->c) != kOff, isLit);
        virtualTime->advance(125);
    }
}

void TestStatusIndicators::offIsDarkAtOnceAndSlowerKeepsTheImage()
{
    const auto untilLit = [this] {
        for (int tick = 0; tick < 8 && colourOf(m_panel->b) == kOff; ++tick) {
            virtualTime->advance(125);
        }
        return colourOf(m_panel->b) == kAmber;
    };
    m_panel->show({10, 0, 4, 0});
    virtualTime->advance(500);
    QVERIFY(untilLit());
    m_panel->show({10, 0, 2, 0});
    QCOMPARE(colourOf(m_panel->b), kAmber);
    virtualTime->advance(124);
    QCOMPARE(colourOf(m_panel->b), kAmber);

    m_panel->show({10, 0, 4, 0});
    QVERIFY(untilLit());
    m_panel->show({});
    QCOMPARE(colourOf(m_panel->b), kOff);
    virtualTime->advance(2000);
    QCOMPARE(colourOf(m_panel->b), kOff);
}

void TestStatusIndicators::resetDarkensUntilTheNextRound()
{
    const auto anyLitWithinASecond = [this] {
        bool lit = false;
        for (int tick = 0; tick < 10; ++tick) {
            virtualTime->advance(125);
            lit = lit || colourOf(m_panel->a) != kOff || colourOf(m_panel->b) != kOff ||
                  colourOf(m_panel->c) != kOff || colourOf(m_panel->d) != kOff;
        }
        return lit;
    };
    m_panel->show({30, 4, 4, 0});
    QVERIFY(anyLitWithinASecond());
    m_panel->indicators.resetIndicators();
    QVERIFY(!anyLitWithinASecond());
    // Another LDB's record ends no round.
    m_panel->indicators.processData(QStringLiteral("02"),
                                    withCodes(QStringLiteral("02"), {10, 4, 0, 0}));
    QVERIFY(!anyLitWithinASecond());
    m_panel->show({});
    QVERIFY(anyLitWithinASecond());
}

void TestStatusIndicators::statesInWords_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<int>("loop");
    QTest::addColumn<int>("earth");
    QTest::addColumn<QString>("words"); // of A, B, C and D

    QTest::newRow("healthy")
        << 10 << 0 << 0 << "SERVICE MODE: off|EARTH FAULT: off|OPEN/SHORT/LEAK: off|SETTINGS: off";
    QTest::newRow("remembered faults, service mode")
        << 30 << 2 << 2
        << "SERVICE MODE: blinking fast|EARTH FAULT: blinking slowly|"
           "OPEN/SHORT/LEAK: blinking slowly|SETTINGS: off";
    QTest::newRow("present faults, settings")
        << 253 << 1 << 1
        << "SERVICE MODE: off|EARTH FAULT: blinking fast|"
           "OPEN/SHORT/LEAK: blinking fast|SETTINGS: blinking fast";
}

void TestStatusIndicators::statesInWords()
{
    QFETCH(int, mode);
    QFETCH(int, loop);
    QFETCH(int, earth);
    QFETCH(QString, words);

    const QString before = m_panel->a.toolTip();
    m_panel->show({mode, loop, earth, 0});
    // An unlit lamp says something else before a round has been seen.
    QVERIFY(m_panel->a.toolTip() != before);

    QStringList found;
    for (const char* name : {"A", "B", "C", "D"}) {
        const QLabel& lamp = m_panel->lamp(QString::fromLatin1(name));
        found << lamp.accessibleName();
        QCOMPARE(lamp.toolTip(),
                 lamp.accessibleName() + QLatin1Char('\n') + lamp.accessibleDescription());
        QVERIFY(!lamp.accessibleDescription().isEmpty());
    }
    QCOMPARE(found.join(QLatin1Char('|')), words);

    m_panel->indicators.resetIndicators();
    QCOMPARE(m_panel->a.toolTip(), before);
}

void TestStatusIndicators::languageChange()
{
    m_panel->show({10, 0, 4, 0});
    const BracketingTranslator translator;
    m_panel->indicators.retranslate();

    // The state is kept, its words change, in every lamp.
    QCOMPARE(m_panel->b.accessibleName(), QStringLiteral("[[EARTH FAULT]: blinking fast]"));
    for (const QLabel* lamp : {&m_panel->a, &m_panel->b, &m_panel->c, &m_panel->d}) {
        QVERIFY(lamp->toolTip().startsWith(QLatin1String("[[")));
        QVERIFY(lamp->accessibleDescription().startsWith(QLatin1Char('[')));
    }
}

int main(int argc, char* argv[])
{
    virtualTime = VirtualTime::install();
    QApplication application(argc, argv);
    TestStatusIndicators test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_statusindicators.moc"
