#include "serial/link/seriallink.h"
#include "serial/link/serialprocessor.h"
#include "tests/support/sandbox.h"
#include "tests/support/testbus.h"
#include "tests/support/testprogram.h"

#include <utility>

Q_DECLARE_METATYPE(Reply::Kind)

/// The link in virtual time; its worker thread is tested with the processor's real port.
class TestSerialLink : public TestCase
{
    Q_OBJECT
private slots:
    void init() override
    {
        TestCase::init();
        m_bus = std::make_unique<TestBus>(QStringList{"03", "0A"});
        m_link = std::make_unique<SerialLink>(m_bus->ports());
        m_link->setPortName(m_bus->portName());
    }

    void cleanup() override
    {
        m_link.reset();
        m_bus.reset();
        TestCase::cleanup();
    }

    /// Whoever the processor tells something calls it back at once.
    void theProcessorStopsInsideASignal_data()
    {
        const Table<QByteArray, bool> row("signal", "isHeldUp");
        for (const bool isHeldUp : {false, true}) {
            for (const char* signal :
                 {SIGNAL(ldbListInitializationProgress(int, int)),
                  SIGNAL(ldbListChanged(QStringList)),
                  SIGNAL(generalInformationUpdated(QString, QList<QStringList>))}) {
                row(isHeldUp ? "held up" : "", signal, isHeldUp);
            }
        }
    }

    void theProcessorStopsInsideASignal()
    {
        QFETCH(QByteArray, signal);
        QFETCH(bool, isHeldUp);
        if (isHeldUp) {
            m_bus->holdUp();
        }
        SerialProcessor processor(m_bus->ports().make);
        processor.setPortName(m_bus->portName());
        QSignalSpy stopped(&processor, &SerialProcessor::stopped);
        connect(&processor, signal.constData(), &processor, SLOT(stop()));
        for (int run = 1; run <= 2; ++run) {
            processor.start();
            WAIT_VERIFY(stopped.size() >= run);
            const auto asked = m_bus->requests().size();
            VirtualTime::current()->advance(5000);
            QCOMPARE(stopped.size(), run);
            QVERIFY(m_bus->requests().size() <= asked + 1); // the one that had left
            QVERIFY(m_bus->requests().contains("FE03737803") || !signal.contains("general"));
        }
    }

    void nothingOfAStoppedRunComesLater()
    {
        QSignalSpy rows(m_link.get(), &SerialLink::generalInformationUpdated);
        QSignalSpy states(m_link.get(), &SerialLink::ldbStateUpdated);
        QSignalSpy stopped(m_link.get(), &SerialLink::stopped);
        // A status makes more than one signal, so there is one on its way when the new run begins.
        bool isRestarted = false;
        const auto restart = [&] {
            if (!std::exchange(isRestarted, true)) {
                m_link->stop();
                m_bus->setPresent({"FD"});
                m_link->dismiss({"03"}); // the new run would tell of its loss
                rows.clear();
                states.clear();
                m_link->start();
            }
        };
        connect(m_link.get(), &SerialLink::generalInformationUpdated, m_link.get(), restart);
        connect(m_link.get(), &SerialLink::ldbStateUpdated, m_link.get(), restart);
        m_link->start();
        WAIT_VERIFY(isRestarted && rows.size() + states.size() > 3);
        for (const QSignalSpy* spy : {&rows, &states}) {
            QCOMPARE(spy->first().first().toString(), "FD");
        }
        QCOMPARE(stopped.size(), 1);
        QVERIFY(m_link->isRunning());
    }

    void everyCommandEndsOnce_data()
    {
        // "answer": to the first command
        // "end": of the run: none, before the commands, or before it takes them
        addColumns<QByteArray, QString, QList<Reply::Kind>>("answer", "end", "kinds");
        using Kind = Reply::Kind;
        const auto row = [](const char* tag, const QByteArray& answer, const char* end, Kind first,
                            Kind second) {
            QTest::newRow(tag) << answer << QString::fromLatin1(end) << QList<Kind>{first, second};
        };
        row("accepted", "\x06", "", Kind::Accepted, Kind::Accepted);
        row("refused", "\x15", "", Kind::Refused, Kind::Accepted);
        row("silent", QByteArray(), "", Kind::Silent, Kind::Accepted);
        row("no run", "", "before", Kind::Unsent, Kind::Unsent);
        row("the run ends before it takes them", "", "at once", Kind::Unsent, Kind::Unsent);
    }

    void everyCommandEndsOnce()
    {
        QFETCH(QByteArray, answer);
        QFETCH(QString, end);
        QFETCH(QList<Reply::Kind>, kinds);
        const QByteArray first("FE0373780000");
        const QByteArray firmware("FE0A737804");
        m_bus->setScript([&](const QByteArray& body) -> std::optional<QByteArray> {
            // While this one is waited for nothing else is sent.
            const bool isHeldUp = body == firmware && end == QLatin1String("at once");
            return body == first || isHeldUp ? std::optional(answer) : std::nullopt;
        });
        if (end != QLatin1String("before")) {
            m_link->start();
            WAIT_COMPARE(m_link->stateOf("0A"), LdbState::Quiescent);
            WAIT_VERIFY(m_bus->requests().contains(firmware));
        }
        QObject context;
        QList<Reply::Kind> replies;
        const auto ask = [&](LdbControl control) {
            m_link->ask(std::make_unique<ExecuteCommand>(QString("03"), control), &context,
                        [&](const Reply& reply) {
                            QCOMPARE(QThread::currentThread(), context.thread());
                            replies.append(reply.kind());
                        });
        };
        ask(LdbControl::FimReset);
        ask(LdbControl::LdbReset);
        if (end == QLatin1String("at once")) {
            m_link->stop();
        }
        QVERIFY(replies.isEmpty()); // from the event loop
        WAIT_COMPARE(replies.size(), 2);
        QCOMPARE(replies, kinds);
        m_link.reset();
        QCoreApplication::processEvents();
        QCOMPARE(replies.size(), 2);
    }

    void nothingQueuedBeforeACutIsSentBehindIt()
    {
        // At whichever moment the line is cut; the port is back under another name.
        for (int moment = 0; moment < 60; ++moment) {
            m_link.reset();
            m_bus = std::make_unique<TestBus>(QStringList{"03", "0A"});
            m_link = std::make_unique<SerialLink>(m_bus->ports());
            QVERIFY(m_bus->scan(*m_link));
            WAIT_COMPARE(m_link->stateOf("0A"), LdbState::Quiescent);
            connect(m_link.get(), &SerialLink::communicationFailed, m_link.get(),
                    [this] { m_link->stop(); });
            int sent = 0;
            QObject context; // the link outlives what it would count
            connect(m_link.get(), &SerialLink::exchanged, &context,
                    [&sent](const Exchange& exchange) {
                        sent += exchange.kind == ExchangeKind::Action ? 1 : 0;
                    });
            QList<Reply::Kind> replies;
            for (const char* hexId : {"03", "0A", "03"}) {
                m_link->ask(std::make_unique<ExecuteCommand>(QString(hexId), LdbControl::FimReset),
                            &context,
                            [&replies](const Reply& reply) { replies.append(reply.kind()); });
            }
            VirtualTime::current()->advance(moment * 20LL);
            const ExpectWarning expected("The line is cut");
            m_bus->cut();
            WAIT_VERIFY(!m_link->isRunning());
            WAIT_COMPARE(replies.size(), 3);
            QCOMPARE(static_cast<int>(replies.count(Reply::Kind::Unsent)), 3 - sent);
            const auto heard = m_bus->commands().size();
            QVERIFY(heard <= sent);

            m_bus->setPortName(QString("port %1").arg(moment));
            m_bus->restore();
            QSignalSpy scans(m_link.get(), &SerialLink::ldbListInitializationProgress);
            QSignalSpy losses(m_link.get(), &SerialLink::ldbDisconnected);
            QSignalSpy rounds(m_link.get(), &SerialLink::roundEnded);
            m_link->setStart({StartPlan::Kind::Resume, {}});
            m_link->setPortName(m_bus->portName());
            QCOMPARE(m_link->knownLdbs(), (QStringList{"03", "0A"}));
            m_link->start();
            WAIT_VERIFY(rounds.size() >= 3);
            QCOMPARE(m_link->connectedLdbs(), (QStringList{"03", "0A"}));
            QCOMPARE(m_bus->commands().size(), heard);
            QCOMPARE(replies.size(), 3);
            QVERIFY(scans.isEmpty() && losses.isEmpty());
        }
    }

    void aKnownStartIsForOneRun()
    {
        QSignalSpy probed(m_link.get(), &SerialLink::knownProbed);
        QSignalSpy awaited(m_link.get(), &SerialLink::awaitedChanged);
        QSignalSpy losses(m_link.get(), &SerialLink::ldbDisconnected);
        QSignalSpy exchanges(m_link.get(), &SerialLink::exchanged);
        m_link->setStart({StartPlan::Kind::Known, {{"0A", "old"}, {"30", "gone"}}});
        m_link->start();
        WAIT_COMPARE(probed.size(), 1);
        QCOMPARE(probed.first(), (QList<QVariant>{1, 2}));
        QCOMPARE(m_link->knownLdbs(), (QStringList{"0A", "30"}));
        QVERIFY(m_link->isAwaited("30") && !m_link->isConnected("30"));
        QVERIFY(!m_link->isAwaited("0A") && m_link->isConnected("0A"));
        QCOMPARE(m_link->nameOf("30"), QString("gone"));
        QCOMPARE(awaited.size(), 3);
        WAIT_COMPARE(m_link->nameOf("0A"), QString("LDB 0A"));
        WAIT_COMPARE(m_link->stateOf("03"), LdbState::Quiescent); // found behind the others
        QVERIFY(losses.isEmpty());
        QVERIFY(exchanges.first().first().value<Exchange>().kind == ExchangeKind::Probe);
        m_link->dismiss({"30"});
        QCOMPARE(m_link->knownLdbs(), (QStringList{"0A", "03"}));
        // It is there after all, before the search has come to its address.
        m_bus->setPresent({"03", "0A", "30"});
        WAIT_COMPARE(m_link->stateOf("30"), LdbState::Quiescent);
        QVERIFY(m_link->isConnected("30"));

        m_link->stop();
        m_bus->clearRequests();
        m_link->start();
        WAIT_COMPARE(m_link->stateOf("03"), LdbState::Quiescent);
        QCOMPARE(m_link->knownLdbs(), (QStringList{"03", "0A", "30"}));
        QVERIFY(m_bus->requests().contains("FE0170"));
    }

    void emptyBusStopsTheRunOnce()
    {
        m_bus->setPresent({});
        QSignalSpy stopped(m_link.get(), &SerialLink::stopped);
        m_link->start();
        WAIT_COMPARE(stopped.size(), 1);
        QVERIFY(!m_link->isRunning());
        m_link->stop();
        QCOMPARE(stopped.size(), 1);
    }

    void reloadStartsOrRescans()
    {
        m_link->rescan();
        WAIT_COMPARE(m_link->stateOf("03"), LdbState::Quiescent); // and 0A is next
        QCOMPARE(m_link->knownLdbs(), (QStringList{"03", "0A"}));
        QCOMPARE(m_link->connectedLdbs(), m_link->knownLdbs());
        QVERIFY(!m_link->isConnected("04"));
        QCOMPARE(m_bus->requests().count("FE0170"), 1);

        QSignalSpy list(m_link.get(), &SerialLink::ldbListChanged);
        m_bus->setScript([this](const QByteArray& body) -> std::optional<QByteArray> {
            if (body == "FE0170") {
                m_bus->setPresent({"07"});
            }
            return std::nullopt;
        });
        m_bus->clearRequests();
        m_link->rescan();
        WAIT_COMPARE(m_link->knownLdbs(), QStringList{"07"});
        QVERIFY(list.first().first().toStringList().isEmpty());
        WAIT_COMPARE(m_link->stateOf("07"), LdbState::Quiescent);
        QCOMPARE(m_link->stateOf("0A"), LdbState::Disconnected);
        // At the next dispatch rather than after the round, once, and nothing is polled that is
        // gone.
        const QList<QByteArray> requests = m_bus->requests();
        const int firstProbe = requests.indexOf("FE0170");
        QVERIFY2(firstProbe >= 0 && firstProbe <= 3, qPrintable(QString::number(firstProbe)));
        QCOMPARE(requests.count("FE0170"), 1);
        QVERIFY(!requests.mid(firstProbe).contains("FE03737803"));
    }

private:
    std::unique_ptr<TestBus> m_bus;
    std::unique_ptr<SerialLink> m_link;
};

REGISTER_TEST(TestSerialLink, InVirtualTime<QCoreApplication>)
#include "tst_seriallink.moc"
