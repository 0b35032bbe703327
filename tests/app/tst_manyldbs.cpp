#include "app/window/monitor.h"
#include "tests/app/livewindow.h"
#include "tests/support/testprogram.h"
#include "tests/support/views.h"
#include "tests/tracking/plotinspection.h"
#include "views/tables/deviceoverviewtable.h"

#include <qwt_plot_curve.h>

#include <algorithm>

namespace {

constexpr int kLdbCount = 80; // their rounds are long ones
const QString kOne = "1E";
const QString kOther = "46";
constexpr qint64 kRoundMs = 20000; // longer than a round
constexpr qint64 kWithinMs = 2500; // the selected LDB is heard that often
constexpr qint64 kStepMs = 100;
constexpr qint64 kQuietMs = 22000;

QStringList manyLdbs()
{
    QStringList ldbs;
    for (int address = 1; address <= kLdbCount; ++address) {
        ldbs.append(QStringLiteral("%1").arg(address, 2, 16, QLatin1Char('0')).toUpper());
    }
    return ldbs;
}

} // namespace

/// The whole window on a large site: what is different where a round takes long, and where more
/// rows are there than fit.
class TestManyLdbs : public LiveWindow
{
    Q_OBJECT
private slots:
    void selectedIsFollowed()
    {
        const QStringList ldbs = manyLdbs();
        const QString path = setUp(ldbs);
        VirtualTime::current()->advance(kRoundMs); // how long one takes is known then
        for (const QString& hexId : {kOne, kOther}) {
            QVERIFY(select(hexId));
            VirtualTime::current()->advance(kWithinMs);
            qint64 longest = 0;
            qint64 unchanged = 0;
            QString shown = detailTime();
            const int samplesBefore = samples();
            for (qint64 gone = 0; gone < kRoundMs; gone += kStepMs) {
                VirtualTime::current()->advance(kStepMs);
                unchanged = detailTime() == shown ? unchanged + kStepMs : 0;
                longest = std::max(longest, unchanged);
                shown = detailTime();
                QCOMPARE(text(hexId, overview::TimestampColumn),
                         shown.section(QLatin1Char('\n'), 0, 0));
            }
            QVERIFY2(longest <= kWithinMs, qPrintable(QString::number(longest)));
            // Nothing of it is lost in the plot.
            QVERIFY(samples() - samplesBefore >= kRoundMs / kWithinMs);
        }
        // The log has what the rounds have told, and no more.
        QFile log(path);
        QVERIFY(log.open(QIODevice::ReadOnly));
        const QByteArray lines = log.readAll();
        const int rounds = lines.count("\n01;");
        QVERIFY(rounds >= 3);
        for (const QString& hexId : {kOne, kOther}) {
            const int records = lines.count('\n' + hexId.toLatin1() + ';');
            QVERIFY(std::abs(records - rounds) <= 1);
        }
    }

    void lampsLightAtOnce()
    {
        const QStringList ldbs = manyLdbs();
        setUp(ldbs);
        WAIT_COMPARE(lamp(), QString("EARTH FAULT: off"));
        bool isFaulty = true;
        m_bus->setScript([&isFaulty](const QByteArray& body) -> std::optional<QByteArray> {
            QByteArray status = TestBus::status();
            status[17] = '1';
            return isFaulty && body == "FE" + kOther.toLatin1() + "737803"
                       ? std::make_optional(TestBus::framed(status))
                       : std::nullopt;
        });
        WAIT_COMPARE(text(kOther, overview::EarthColumn), QString("Leakage"));
        QCOMPARE(lamp(), "EARTH FAULT: blinking fast");
        isFaulty = false;
        WAIT_COMPARE(text(kOther, overview::EarthColumn), QString("Ok"));
        QCOMPARE(lamp(), "EARTH FAULT: blinking fast");
        WAIT_COMPARE(lamp(), QString("EARTH FAULT: off"));
    }

    /// Three rounds, as they are here, and not as long as if each LDB were asked for all it is.
    void valuesLiveForThreeRounds()
    {
        m_sandbox->writeTuning("[SerialSettings]\nDISCONNECTED_COUNT=1000\n");
        setUp(manyLdbs());
        const auto* monitor = m_window->findChild<Monitor*>();
        VirtualTime::current()->advance(kRoundMs);
        const QString first = text(kOne, overview::TimestampColumn);
        WAIT_VERIFY(text(kOne, overview::TimestampColumn) != first);
        const qint64 begun = VirtualTime::current()->now();
        const QString second = text(kOne, overview::TimestampColumn);
        WAIT_VERIFY(text(kOne, overview::TimestampColumn) != second);
        const qint64 round = VirtualTime::current()->now() - begun;
        const qint64 lifetime = monitor->monitoring().lifetime;
        QVERIFY2(lifetime >= 3 * round && lifetime <= 4 * round,
                 qPrintable(QStringLiteral("%1 of %2").arg(lifetime).arg(round)));

        // That nobody answers is said sooner: any answer would tell that it is not so.
        m_bus->setPresent({});
        VirtualTime::current()->advance(kQuietMs);
        QVERIFY2(strip().endsWith("no LDB answers"), qPrintable(strip()));
    }

    void filterIsKept()
    {
        start();
        QApplication::setActiveWindow(m_window.get());
        QTest::keyClick(m_window.get(), Qt::Key_F, Qt::ControlModifier);
        QTest::keyClicks(QApplication::focusWidget(), "ldb 0a");
        QCOMPARE(columnTexts(*overview()->model(), overview::IdColumn).join(' '), "03 0A");
        // A lost LDB that is hidden is told of at the table as well.
        m_bus->setPresent({"03", "0A"});
        WAIT_VERIFY(child<QPushButton>("overviewHiddenFaultsButton")->isVisible());
        closeBoxes();
        QVERIFY(m_window->close());
        m_window.reset();

        open(kLdbs);
        click("startButton");
        WAIT_COMPARE(label("overviewCountLabel"), QString("2 of 3"));
        QCOMPARE(child<QLineEdit>("overviewFilterEdit")->text(), QString("ldb 0a"));
        // What a lamp's page names is shown when it is clicked there.
        QVERIFY(select("FD"));
        QCOMPARE(columnTexts(*overview()->model(), overview::IdColumn).join(' '), "0A FD");
    }

private:
    /// Polls them and logs; the log's path.
    QString setUp(const QStringList& ldbs)
    {
        open(ldbs);
        QString path = setLogPath();
        child<QSpinBox>("logSpeedSpinBox")->setValue(0);
        click("startButton");
        waitUntil([&] { return overview()->model()->rowCount() == ldbs.size(); });
        click("logStartStopButton");
        return path;
    }
    bool select(const QString& hexId) const
    {
        return m_window->findChild<DeviceOverviewTable*>()->selectLdb(hexId);
    }
    int samples() const
    {
        return static_cast<int>(
            plotinspection::curveOf(*child<QWidget>("plotContainer"), "VPri")->dataSize());
    }
    QString lamp() const { return child<QLabel>("lampBLabel")->accessibleName(); }
};

REGISTER_TEST(TestManyLdbs, InVirtualTime<QApplication>)
#include "tst_manyldbs.moc"
