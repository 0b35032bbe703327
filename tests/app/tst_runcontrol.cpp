#include "app/window/runcontrol.h"
#include "tests/support/testcase.h"
#include "tests/support/testprogram.h"

Q_DECLARE_METATYPE(LinkSituation)

namespace {

LinkSituation polling(LdbState state = LdbState::Quiescent)
{
    LinkSituation situation;
    situation.running = true;
    situation.selected = true;
    situation.state = state;
    return situation;
}

LinkSituation with(LinkSituation situation, bool LinkSituation::*member, bool value = true)
{
    situation.*member = value;
    return situation;
}

/// A letter for each group of controls that can be used.
QString letters(const EnabledControls& controls)
{
    QString text;
    text += controls.reload ? QStringLiteral("R") : QString();
    text += controls.transfer ? QStringLiteral("T") : QString();
    text += controls.selection ? QStringLiteral("S") : QString();
    text += controls.allActions ? QStringLiteral("A") : QString();
    text += controls.singleActions ? QStringLiteral("1") : QString();
    text += controls.outsideService ? QStringLiteral("M") : QString();
    return text;
}

} // namespace

class TestRunControl : public TestCase
{
    Q_OBJECT
private slots:
    void situations_data();
    void situations();
};

void TestRunControl::situations_data()
{
    QTest::addColumn<LinkSituation>("situation");
    // Reload, Transfer, Selection, All, 1 = single, M = what service mode forbids
    QTest::addColumn<QString>("enabled");

    using S = LinkSituation;
    QTest::newRow("stopped") << S() << QStringLiteral("R");
    QTest::newRow("stopped, LDB still ticked")
        << with(polling(), &S::running, false) << QStringLiteral("R");
    QTest::newRow("scanning") << with(polling(), &S::initialising) << QString();
    QTest::newRow("nothing ticked yet")
        << with(polling(LdbState::Disconnected), &S::selected, false) << QStringLiteral("RTSA");
    QTest::newRow("resting") << polling() << QStringLiteral("RTSA1M");
    QTest::newRow("booting") << polling(LdbState::Booting) << QStringLiteral("RTSA1M");
    QTest::newRow("fault") << polling(LdbState::Fault) << QStringLiteral("RTSA1M");
    QTest::newRow("service mode") << polling(LdbState::ServiceMode) << QStringLiteral("RTSA1");
    QTest::newRow("ticked LDB lost") << polling(LdbState::Disconnected) << QStringLiteral("RTS");
    QTest::newRow("saving") << with(polling(), &S::saving) << QStringLiteral("RT");
    QTest::newRow("exporting") << with(polling(), &S::transferring) << QStringLiteral("RTS");
    QTest::newRow("exporting in service mode")
        << with(polling(LdbState::ServiceMode), &S::transferring) << QStringLiteral("RTS");
    QTest::newRow("scanning while exporting")
        << with(with(polling(), &S::transferring), &S::initialising) << QString();
}

void TestRunControl::situations()
{
    QFETCH(LinkSituation, situation);
    QTEST(letters(enabledControls(situation)), "enabled");
}

REGISTER_TEST(TestRunControl, NoApplication)

#include "tst_runcontrol.moc"
