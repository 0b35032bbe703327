#include "serial/answerledger.h"
#include "tests/support/testcase.h"
#include "tests/support/testprogram.h"

#include <QMap>

namespace {

constexpr qint64 kHorizon = 1500;

const QMap<QString, AnswerShape> kShapes{
    {"status", AnswerShape::Status},     {"name", AnswerShape::Name},
    {"firmware", AnswerShape::Firmware}, {"settings", AnswerShape::Settings},
    {"ack", AnswerShape::Acknowledge},   {"any", AnswerShape::Any}};

const QMap<QString, QByteArray> kAnswers{{"status", QByteArray(50, '0')},
                                         {"49", QByteArray(49, '0')},
                                         {"51", QByteArray(51, '0')},
                                         {"name", QByteArray("48616C6C").leftJustified(32, '0')},
                                         {"noname", QByteArray(32, 'Z')},
                                         {"firmware", "4C4442203130"},
                                         {"nofirmware", "4C44422031"},
                                         {"settings:0A", QByteArray("0A").leftJustified(56, '0')},
                                         {"settings:0B", QByteArray("0B").leftJustified(56, '0')},
                                         {"settings:0C", QByteArray("0C").leftJustified(56, '0')},
                                         {"ack", "\x06"},
                                         {"nak", "\x15"}};

const QMap<AnswerLedger::Verdict, QString> kVerdicts{{AnswerLedger::Verdict::Take, "take"},
                                                     {AnswerLedger::Verdict::Drop, "drop"},
                                                     {AnswerLedger::Verdict::Misfit, "misfit"}};

} // namespace

class TestAnswerLedger : public TestCase
{
    Q_OBJECT
private slots:
    void conversation_data();
    void conversation();
};

void TestAnswerLedger::conversation_data()
{
    // "ask" an LDB for something, "send" it at a time (ms), "owed" or "clear" of debts at a time,
    // or an answer, its time, and what is made of it.
    QTest::addColumn<QString>("steps");

    QTest::newRow("bare ACK is no status") << "ask 0A status, send 0, ack 50 misfit";
    QTest::newRow("49 characters are no status") << "ask 0A status, send 0, 49 50 misfit";
    QTest::newRow("51 characters are no status") << "ask 0A status, send 0, 51 50 misfit";
    QTest::newRow("status is no name") << "ask 0A name, send 0, status 50 misfit";
    QTest::newRow("name of no digits") << "ask 0A name, send 0, noname 50 misfit";
    QTest::newRow("ten digits are no firmware") << "ask 0A firmware, send 0, nofirmware 50 misfit";
    QTest::newRow("refusal") << "ask 0A ack, send 0, nak 50 take";
    QTest::newRow("refused request") << "ask 0A settings, send 0, nak 50 take";
    QTest::newRow("probe takes all") << "ask 0A any, send 0, status 50 take";
    QTest::newRow("own late answer is taken")
        << "ask 0A settings, send 0, send 120, settings:0A 130 take";
    QTest::newRow("surplus answer is not the next request's")
        << "ask 0A ack, send 0, send 120, ack 130 take,"
           "ask 0B ack, send 140, owed 150, ack 250 drop, nak 270 take";
    QTest::newRow("late answer of the same shape is not another LDB's")
        << "ask 0A firmware, send 0, ask 0B firmware, send 120, firmware 130 drop,"
           "firmware 140 take";
    QTest::newRow("silent request costs the next one answer")
        << "ask 0A ack, send 0, send 120, send 240, ask 0A ack, send 360, ack 380 drop,"
           "send 480, ack 500 take";
    QTest::newRow("settings are told apart by their address")
        << "ask 0A settings, send 0, ask 0B settings, send 120, settings:0B 130 take,"
           "ask 0C settings, send 200, settings:0A 210 drop, settings:0C 220 take";
    QTest::newRow("debts end")
        << "ask 0A ack, send 0, ask 0B ack, send 1490, owed 1499, clear 1500, ack 1500 take";
    QTest::newRow("later answer of the same LDB settles its debts")
        << "ask 0A status, send 0, send 500, status 520 take, ask 0A name, send 530,"
           "name 550 take, ask 0B status, send 560, clear 561, status 580 take";
    QTest::newRow("silent probes do not eat answers")
        << "ask 0A any, send 0, ask 0A any, send 0, ask 0A any, send 0,"
           "ask 0B status, send 10, ack 20 drop, status 30 take";
}

void TestAnswerLedger::conversation()
{
    QFETCH(QString, steps);

    AnswerLedger ledger(kHorizon);
    const QStringList each = steps.split(',');
    for (const QString& step : each) {
        const QStringList words = step.simplified().split(' ');
        const QString& what = words.first();
        const qint64 time = words.at(1).toLongLong();
        if (what == "ask") {
            ledger.begin({words.at(1), "body", kShapes[words.at(2)]});
        } else if (what == "send") {
            ledger.transmitted(time);
        } else if (what == "owed" || what == "clear") {
            QVERIFY2(ledger.isOwed(time) == (what == "owed"), qPrintable(step));
        } else {
            QVERIFY2(kVerdicts[ledger.judge(kAnswers[what], time)] == words.at(2),
                     qPrintable(step));
        }
    }
}

REGISTER_TEST(TestAnswerLedger, QCoreApplication)
#include "tst_answerledger.moc"
