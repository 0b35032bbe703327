#include "tests/support/bracketingtranslator.h"
#include "tests/support/testprogram.h"
#include "tests/views/records.h"
#include "views/lamps/statusindicators.h"

#include <QtWidgets>

#include <algorithm>
#include <array>
#include <memory>

using records::Codes;
using records::withCodes;

namespace {

constexpr QRgb kOff = 0xFFF0F0F0;
constexpr QRgb kAmber = 0xFFFBBF00;
constexpr QRgb kBlue = 0xFF42B5E1;
constexpr QRgb kOrangered = 0xFFFF4500;

enum LampIndex : int
{
    A,
    B,
    C,
    D
};

} // namespace

class TestStatusIndicators : public TestCase
{
    Q_OBJECT
private slots:
    void init() override
    {
        TestCase::init();
        m_panel = std::make_unique<Panel>();
    }

    void patterns_data()
    {
        // "period": ms lit, and as many dark
        const Table<Codes, int, uint, int> row("codes", "lamp", "colour", "period");
        row("service mode", {30}, int(A), kBlue, 125);
        row("earth fault", {10, 0, 4}, int(B), kAmber, 125);
        row("earth fault remembered", {10, 0, 2}, int(B), kAmber, 500);
        row("loop fault", {10, 4}, int(C), kAmber, 125);
        row("loop fault remembered", {10, 2}, int(C), kAmber, 500);
        row("check settings", {253}, int(D), kOrangered, 125);
        row("fault mode lights none", {254}, int(D), kOff, 1000);
    }

    void patterns()
    {
        QFETCH(Codes, codes);
        QFETCH(int, lamp);
        QFETCH(uint, colour);
        QFETCH(int, period);

        QVERIFY(!anyIsLit());
        m_panel->show(codes);
        // Past the first phase, wherever the timers stand, and to the end of a dark one.
        do {
            untilChange(lamp);
        } while (isLit(lamp) != (colour != kOff));
        for (int blink = 0; blink < 5; ++blink) {
            QCOMPARE(colourOf(lamp), colour);
            QCOMPARE(untilChange(lamp), period);
            QCOMPARE(colourOf(lamp), kOff);
            QCOMPARE(untilChange(lamp), period);
        }
        for (int other = A; other <= D; ++other) {
            QVERIFY(other == lamp || !isLit(other));
        }
    }

    void hatchedWhileNotKnown()
    {
        VirtualTime& time = *VirtualTime::current();
        StatusIndicators& indicators = m_panel->indicators;
        const auto process = [&indicators](const QString& hexId, const Codes& codes) {
            indicators.processData(hexId, withCodes(hexId, codes));
        };
        QVERIFY(m_panel->areHatched()); // nothing is known yet
        // What is wrong is known at once; that all else is well, when everybody has been asked in a
        // round that was seen from its begin.
        process("01", {30});
        QVERIFY(isLit(A));
        indicators.endRound();
        time.advance(1000);
        QVERIFY(!m_panel->isHatched(A));
        QVERIFY(m_panel->isHatched(B));
        indicators.beginRound();
        process("01", {30});
        process("02", {});
        process("01", {30});
        QVERIFY(m_panel->isHatched(B));
        indicators.endRound();
        QVERIFY(!m_panel->isHatched(B) && !isLit(B));

        // Not monitored, only one LDB polled, and nobody heard for long: none of it looks like
        // rest.
        Monitoring alone = records::monitored();
        alone.polledAlone = "01";
        for (const Monitoring& monitoring : {records::stopped(), alone, records::monitored(16)}) {
            indicators.setMonitoring(monitoring);
            QVERIFY(m_panel->areHatched());
            time.advance(1000);
            QVERIFY(m_panel->areHatched());
            indicators.setMonitoring(records::monitored());
            m_panel->show({30});
            QVERIFY(!m_panel->isHatched(B));
        }

        // A round that was on when the others were polled again says nothing of them.
        indicators.setMonitoring(alone);
        indicators.beginRound();
        process("01", {});
        indicators.setMonitoring(records::monitored());
        process("01", {});
        indicators.endRound();
        QVERIFY(m_panel->areHatched());

        // Dark at a round's end only.
        m_panel->show({30});
        process("01", {});
        QVERIFY(!m_panel->isHatched(A));
        QVERIFY(isLit(A) || untilChange(A) < 1000);
        indicators.beginRound();
        indicators.endRound();
        indicators.beginRound();
        indicators.endRound();
        QVERIFY(!isLit(A) && untilChange(A) == 1000);
    }

    void statesInWords()
    {
        const QString before = m_panel->lamps[A].toolTip();
        m_panel->show({253, 2, 1});
        // An unlit lamp says something else before a round has been seen.
        QVERIFY(m_panel->lamps[A].toolTip() != before);
        QStringList found;
        for (const QLabel& lamp : m_panel->lamps) {
            found << lamp.accessibleName();
            QCOMPARE(lamp.toolTip(), lamp.accessibleName() + '\n' + lamp.accessibleDescription());
        }
        QCOMPARE(found.join('|'), "SERVICE MODE: off|EARTH FAULT: blinking fast|"
                                  "OPEN/SHORT/LEAK: blinking slowly|SETTINGS: blinking fast");

        // In another language the state is kept, its words change, in every lamp.
        const BracketingTranslator translator;
        m_panel->indicators.retranslate();
        QCOMPARE(m_panel->lamps[B].accessibleName(), "[[EARTH FAULT]: blinking fast]");
        for (const QLabel& lamp : m_panel->lamps) {
            QVERIFY(lamp.toolTip().startsWith("[["));
            QVERIFY(lamp.accessibleDescription().startsWith('['));
        }
        m_panel->indicators.setMonitoring(records::stopped());
        QCOMPARE(m_panel->lamps[B].accessibleName(), "[[EARTH FAULT]: not known]");
        QCOMPARE(m_panel->lamps[B].accessibleDescription(), "[Not all LDBs are monitored.]");
    }

private:
    struct Panel
    {
        std::array<QLabel, 4> lamps;
        StatusIndicators indicators{&lamps[A], &lamps[C], &lamps[B], &lamps[D]};

        Panel() { indicators.setMonitoring(records::monitored()); }

        /// A whole round of a bus of one LDB.
        void show(const Codes& codes)
        {
            indicators.beginRound();
            indicators.processData("01", withCodes("01", codes));
            indicators.endRound();
        }
        bool isHatched(int lamp) const
        {
            return lamps[static_cast<std::size_t>(lamp)].pixmap(Qt::ReturnByValue).toImage() ==
                   lampimage::drawUnknown().toImage();
        }
        bool areHatched() const
        {
            return isHatched(A) && isHatched(B) && isHatched(C) && isHatched(D);
        }
    };

    QRgb colourOf(int lamp) const
    {
        const QImage image =
            m_panel->lamps[static_cast<std::size_t>(lamp)].pixmap(Qt::ReturnByValue).toImage();
        return image.pixel(image.width() * 8 / 18, image.height() * 8 / 18);
    }
    bool isLit(int lamp) const { return colourOf(lamp) != kOff; }
    /// Runs until the lamp changes; the ms that took, at most 1000.
    int untilChange(int lamp) const
    {
        const bool before = isLit(lamp);
        int ms = 0;
        while (ms < 1000 && isLit(lamp) == before) {
            VirtualTime::current()->advance(1);
            ++ms;
        }
        return ms;
    }
    /// Whether any lamp is lit within the next second.
    bool anyIsLit() const
    {
        return std::any_of(m_panel->lamps.begin(), m_panel->lamps.end(),
                           [this](const QLabel& lamp) {
                               const int index = static_cast<int>(&lamp - m_panel->lamps.data());
                               return isLit(index) || untilChange(index) < 1000;
                           });
    }

    std::unique_ptr<Panel> m_panel;
};

REGISTER_TEST(TestStatusIndicators, InVirtualTime<QApplication>)

#include "tst_statusindicators.moc"
