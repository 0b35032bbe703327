#include "serial/link/busport.h"
#include "serial/link/serialprocessor.h"
#include "tests/support/sandbox.h"
#include "tests/support/testbus.h"
#include "tests/support/testcase.h"
#include "tests/support/testprogram.h"

#include <QSignalSpy>

namespace {

/// A port of the bus whose bytes come only when they are looked for, as to a thread that is held
/// up.
class HeldUpPort : public BusPort
{
public:
    explicit HeldUpPort(std::unique_ptr<BusPort> port)
        : m_port(std::move(port))
    {
        connect(m_port.get(), &BusPort::readyRead, this,
                [this] { m_received += m_port->readAll(); });
    }
    bool open() override { return m_port->open(); }
    void close() override { m_port->close(); }
    bool isOpen() const override { return m_port->isOpen(); }
    void write(const QByteArray& bytes) override { m_port->write(bytes); }
    QByteArray readAll() override { return std::exchange(m_received, {}); }
    void fetch() override
    {
        if (!m_received.isEmpty()) {
            emit readyRead();
        }
    }
    qint64 now() const override { return m_port->now(); }
    qint64 wallTime() const override { return m_port->wallTime(); }
    int error() const override { return m_port->error(); }
    QString errorText() const override { return m_port->errorText(); }

private:
    std::unique_ptr<BusPort> m_port;
    QByteArray m_received;
};

} // namespace

/// Whoever the processor tells something calls it back at once.
class TestCallingBack : public TestCase
{
    Q_OBJECT
private slots:
    void stops_data()
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

    void stops()
    {
        QFETCH(QByteArray, signal);
        QFETCH(bool, isHeldUp);
        const Sandbox sandbox;
        TestBus bus({"03"});
        SerialProcessor processor([&](const QString& name) -> std::unique_ptr<BusPort> {
            auto port = bus.ports().make(name);
            return isHeldUp ? std::make_unique<HeldUpPort>(std::move(port)) : std::move(port);
        });
        processor.setPortName(bus.portName());
        QSignalSpy stopped(&processor, &SerialProcessor::stopped);
        connect(&processor, signal.constData(), &processor, SLOT(stop()));
        for (int run = 1; run <= 2; ++run) {
            processor.start();
            WAIT_VERIFY(stopped.size() >= run);
            const auto asked = bus.requests().size();
            VirtualTime::current()->advance(5000);
            QCOMPARE(stopped.size(), run);
            QVERIFY(bus.requests().size() <= asked + 1); // the one that had left
        }
    }
};

REGISTER_TEST(TestCallingBack, InVirtualTime<QCoreApplication>)
#include "tst_callingback.moc"
