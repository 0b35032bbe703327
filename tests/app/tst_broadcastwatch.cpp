#include "app/actions/broadcastwatch.h"
#include "serial/link/seriallink.h"
#include "tests/support/sandbox.h"
#include "tests/support/testbus.h"
#include "tests/support/testprogram.h"

Q_DECLARE_METATYPE(LdbControl)

namespace {

const QStringList kLdbs{"03", "0A", "FD"};
constexpr int kResting = 10;
constexpr int kServiceMode = 30;
constexpr int kFimResetRuns = 40;

} // namespace

/// What the LDBs say after an action for all is scripted: no board answers it.
class TestBroadcastWatch : public TestCase
{
    Q_OBJECT
private slots:
    void init() override
    {
        TestCase::init();
        m_bus = std::make_unique<TestBus>(kLdbs);
        m_link = std::make_unique<SerialLink>(m_bus->ports());
        m_states.clear();
        m_bus->setScript([this](const QByteArray& body) -> std::optional<QByteArray> {
            const QString hexId = body.mid(2, 2);
            if (body.mid(4) != "737803" || !m_states.contains(hexId)) {
                return std::nullopt;
            }
            const int state = m_states.value(hexId);
            return state < 0 ? QByteArray() : TestBus::framed(TestBus::status(state));
        });
    }

    void cleanup() override
    {
        m_watch.reset();
        m_link.reset();
        m_bus.reset();
        TestCase::cleanup();
    }

    void tellsWhatWasSeen_data()
    {
        // "states": of the LDBs 03, 0A and FD afterwards; negative for silence
        const Table<LdbControl, QList<int>, QStringList> row("control", "states", "missing");
        const int s = kServiceMode;
        const int r = kResting;
        row("all in service mode", LdbControl::ServiceMode, {s, s, s}, {});
        row("one stays out of it", LdbControl::ServiceMode, {s, r, s}, {"0A"});
        row("one is silent", LdbControl::ServiceMode, {s, s, -1}, {"FD"});
        row("all answer after their reset", LdbControl::LdbReset, {r, 0, r}, {});
        row("one does not come back", LdbControl::LdbReset, {-1, r, r}, {"03"});
        row("two in a FIM reset", LdbControl::FimReset, {kFimResetRuns, r, 42}, {"0A"});
    }

    void tellsWhatWasSeen()
    {
        QFETCH(LdbControl, control);
        QFETCH(QList<int>, states);
        QVERIFY(watch(control, states));
        WAIT_VERIFY(m_hasEnded);
        QTEST(m_watch->sight().missing(), "missing");
        QVERIFY(!m_watch->sight().isCut);
        QCOMPARE(m_watch->sight().ldbs, kLdbs);
    }

    void serviceModeIsLookedAtTwice()
    {
        QVERIFY(watch(LdbControl::ServiceMode, {kServiceMode, kServiceMode, kServiceMode}));
        // One is in it at first, and leaves it again.
        QSignalSpy told(m_link.get(), &SerialLink::generalInformationUpdated);
        WAIT_VERIFY(told.size() == kLdbs.size());
        QVERIFY(!m_hasEnded);
        m_states["0A"] = kResting;
        WAIT_VERIFY(m_hasEnded);
        QCOMPARE(m_watch->sight().missing(), QStringList("0A"));
        QCOMPARE(m_watch->sight().states.value("0A"), LdbState::Quiescent);
    }

    void resetHasItsTime()
    {
        // Silent while it boots, longer than rounds take.
        QVERIFY(watch(LdbControl::LdbReset, {kResting, -1, kResting}));
        VirtualTime::current()->advance(20000);
        QVERIFY(!m_hasEnded);
        m_states["0A"] = 0;
        WAIT_VERIFY(m_hasEnded);
        QCOMPARE(m_watch->sight().missing(), QStringList());
    }

    void endsWithTheRun()
    {
        QVERIFY(watch(LdbControl::LdbReset, {kResting, -1, -1}));
        VirtualTime::current()->advance(5000);
        m_link->stop();
        QVERIFY(m_hasEnded);
        QVERIFY(m_watch->sight().isCut);
        QCOMPARE(m_watch->sight().missing(), (QStringList{"0A", "FD"}));
    }

private:
    bool watch(LdbControl control, const QList<int>& states)
    {
        m_hasEnded = false;
        if (!m_bus->scan(*m_link) || !waitUntil([this] {
                // One that never answered is no loss.
                return std::all_of(kLdbs.begin(), kLdbs.end(), [this](const QString& hexId) {
                    return m_link->stateOf(hexId) == LdbState::Quiescent;
                });
            })) {
            return false;
        }
        for (int i = 0; i < kLdbs.size(); ++i) {
            m_states[kLdbs.at(i)] = states.at(i);
        }
        QCoreApplication::processEvents(); // what was asked before
        m_watch = std::make_unique<BroadcastWatch>(m_link.get(), control);
        connect(m_watch.get(), &BroadcastWatch::finished, this, [this] { m_hasEnded = true; });
        return true;
    }

    std::unique_ptr<TestBus> m_bus;
    std::unique_ptr<SerialLink> m_link;
    std::unique_ptr<BroadcastWatch> m_watch;
    QHash<QString, int> m_states;
    bool m_hasEnded = false;
};

REGISTER_TEST(TestBroadcastWatch, InVirtualTime<QCoreApplication>)

#include "tst_broadcastwatch.moc"
