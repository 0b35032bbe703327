#include "tests/recording/captured.h"
#include "tests/support/testprogram.h"

#include <QProcess>

#include <unistd.h>

/// What Wireshark makes of a capture with the dissector. It loads no scripts for root: then another
/// user runs it.
class TestWireshark : public TestCase
{
    Q_OBJECT
private slots:
    void isReadByWireshark()
    {
        QByteArray damaged = TestBus::framed(TestBus::status());
        damaged[20] = '7';
        const QByteArray capture = captureOf([&damaged](RecordedBus& bus) {
            bus.ask("0A", ExchangeKind::Status, RecordedBus::loopOpen(true));
            bus.ask("0A", ExchangeKind::Name, QByteArray("4E6F727468").leftJustified(32, '0'));
            bus.ask("2B", ExchangeKind::Status, "00", ExchangeOutcome::Damaged);
            std::get<input::Told>(bus.inputs.back()).exchange.answer = damaged + "zz";
            bus.ask("2B", ExchangeKind::Write, {}, ExchangeOutcome::Believed);
            auto& write = std::get<input::Told>(bus.inputs.back()).exchange;
            write.request = TestBus::framed("FE2B73631601");
            write.answer = "\x06";
            write.flight = 20000;
            RecordedEvent gap;
            gap.at = bus.now;
            gap.kind = EventKind::Gap;
            gap.since = bus.now - 1;
            bus.inputs.push_back(gap);
            bus.ask("30", ExchangeKind::Probe, {}, ExchangeOutcome::Silent);
        });
        // Readable for another user, as the sandbox is not.
        QTemporaryDir folder;
        QVERIFY(QFile::setPermissions(folder.path(), QFile::Permissions(0x7755)));
        const auto file = [&folder](const char* name, const QByteArray& content) {
            QFile readable(folder.filePath(name));
            const bool isDone = readable.open(QIODevice::WriteOnly) &&
                                readable.write(content) == content.size() &&
                                readable.setPermissions(QFile::Permissions(0x6644));
            return isDone ? readable.fileName() : QString();
        };
        const QString captureFile = file("visit.pcapng", capture);
        const QString script =
            file("ldb.lua", Sandbox::readFile(PROJECT_FOLDER "/tools/wireshark/ldb.lua"));
        QStringList command{TSHARK,
                            "-X",
                            "lua_script:" + script,
                            "-r",
                            captureFile,
                            "-T",
                            "fields",
                            "-E",
                            "separator=|",
                            "-e",
                            "_ws.col.Info",
                            "-e",
                            "ldb.to",
                            "-e",
                            "ldb.from",
                            "-e",
                            "ldb.status.loop",
                            "-e",
                            "ldb.status.primary.voltage",
                            "-e",
                            "ldb.status.secondary.current",
                            "-e",
                            "ldb.name",
                            "-e",
                            "ldb.damaged"};
        if (geteuid() == 0) {
            command = QStringList{"setpriv",        "--reuid=65534", "--regid=65534",
                                  "--clear-groups", "env",           "HOME=" + folder.path()} +
                      command;
        }
        QProcess process;
        process.start(command.takeFirst(), command);
        QVERIFY(process.waitForFinished(60000));
        const QByteArray said = process.readAllStandardError();
        QVERIFY2(process.exitCode() == 0 && !said.contains("Lua"), said.constData());
        const QStringList expected{
            "status of 0A|0A||||||",
            "0A: Quiescent, loop Open, earth Ok||0A|Open|24.0 V|-1.0 mA||",
            "read name of 0A|0A||||||",
            "0A: North||0A||||North|",
            "status of 2B|2B||||||",
            "DAMAGED, 2 stray|||||||1",
            "write audio mute of 2B|2B||||||",
            "2B: ACK||2B|||||",
            "exchanges before this are missing|||||||",
            "poll of 30|30||||||",
        };
        QCOMPARE(QString::fromUtf8(process.readAllStandardOutput()).trimmed().split('\n'),
                 expected);
    }
};

REGISTER_TEST(TestWireshark, QCoreApplication)
#include "tst_wireshark.moc"
