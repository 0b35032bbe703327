#include "tests/support/bracketingtranslator.h"
#include "tests/support/sandbox.h"
#include "tests/support/testcase.h"
#include "tests/support/testprogram.h"
#include "tests/views/records.h"
#include "views/log/filelogger.h"

#include <QSignalSpy>
#include <QTextCodec>

#include <csignal>
#include <memory>
#include <optional>
#include <sys/resource.h>

namespace {

const QByteArray kHeader = "Device Id;Name;Mode;Loop;Primary Port (V);Primary Port (mA);"
                           "Secondary Port (V);Secondary Port (mA);Earth;Amplifier;Timestamp\n";

/// A record at "hh:mm:ss" of one day, or at no time that could be read.
QList<QStringList> recordAt(const QString& hexId, const QString& time)
{
    QList<QStringList> rows = records::record(hexId);
    rows[generalinformation::TimestampRow][0] = "2026-03-04: " + time;
    return rows;
}

QByteArray lineAt(const QString& hexId, const QString& time)
{
    return hexId.toLatin1() +
           ";Hall;Quiescent;Ok;24;12.34;23.95;-1;Ok;Ok;2026-03-04: " + time.toLatin1() + ";\n";
}

/// Bounds the size of files that this process writes, as a full disk would.
class FileSizeLimit
{
public:
    explicit FileSizeLimit(rlim_t bytes)
    {
        std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &m_former);
        const rlimit limit{bytes, m_former.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit() { setrlimit(RLIMIT_FSIZE, &m_former); }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

private:
    rlimit m_former{};
};

} // namespace

class TestFileLogger : public TestCase
{
    Q_OBJECT
private slots:
    void initTestCase();
    void init() override;
    void cleanup() override;

    void everyLineIsInTheFileAtOnce();
    void headerFollowsTheLanguage();
    void fields_data();
    void fields();
    void periods_data();
    void periods();
    void modes();
    void existingFiles_data();
    void existingFiles();
    void cannotOpen();
    void writingFails_data();
    void writingFails();
    void fileChangedByOthers();
    void ignoredWhileStopped();
    void names();

private:
    QString path() const { return m_sandbox->path(QStringLiteral("log.csv")); }
    QByteArray content() const { return Sandbox::readFile(path()); }
    void process(const QString& hexId, const QString& time)
    {
        m_logger->processData(hexId, recordAt(hexId, time));
    }
    /// How often logging has failed, and for what.
    QStringList failures() const
    {
        QStringList all;
        for (const auto& failure : *m_failed) {
            all << failure.at(0).toString() + ": " + failure.at(1).toString();
        }
        return all;
    }

    std::optional<Sandbox> m_sandbox;
    std::unique_ptr<FileLogger> m_logger;
    std::unique_ptr<QSignalSpy> m_failed;
};

void TestFileLogger::initTestCase()
{
    // The file is the same wherever it is written.
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("ISO-8859-1"));
    QLocale::setDefault(QLocale(QLocale::German));
}

void TestFileLogger::init()
{
    TestCase::init();
    m_sandbox.emplace();
    m_logger = std::make_unique<FileLogger>();
    m_logger->setFileName(path());
    m_failed = std::make_unique<QSignalSpy>(m_logger.get(), &FileLogger::loggingFailed);
}

void TestFileLogger::cleanup()
{
    m_logger.reset();
    m_sandbox.reset();
    TestCase::cleanup();
}

void TestFileLogger::everyLineIsInTheFileAtOnce()
{
    m_logger->setInterval(0);
    QVERIFY(m_logger->startStop(true));
    QVERIFY(m_logger->isLogging());
    QCOMPARE(content(), QByteArray());
    QByteArray expected = kHeader;
    for (const char* time : {"10:00:00", "10:00:00", "10:00:01"}) {
        process("1F", time);
        expected += lineAt("1F", time);
        QCOMPARE(content(), expected);
    }
    QVERIFY(m_logger->startStop(false));
    QVERIFY(!m_logger->isLogging());
    QCOMPARE(content(), expected);
}

void TestFileLogger::headerFollowsTheLanguage()
{
    const BracketingTranslator translator;
    QVERIFY(m_logger->startStop(true));
    process("01", "10:00:00");
    QVERIFY(content().startsWith("[Device Id];[Name];"));
    QCOMPARE(content().split('\n').first().count('['), 11);
}

void TestFileLogger::fields_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("texts"); // of the row's strings, joined by "|"
    QTest::addColumn<QString>("field");

    const auto row = [](const char* tag, int index, const char* texts, const char* field) {
        QTest::newRow(tag) << index << texts << field;
    };
    row("blanks", 1, "  North\t hall \n 2  |0", "North hall 2");
    row("UTF-8 everywhere", 1,
        "K\xC3\xBC"
        "che \xCE\xA9|0",
        "K\xC3\xBC"
        "che \xCE\xA9");
    row("separator is kept as it is", 1, "a;b|0", "a;b");
    row("empty", 1, "|0", "");
    row("shorted primary port", 4, "Short|-40000|-40000", "-40000");
    row("shorted secondary port", 7, "Short(memory)|-40000|-40000", "-40000");
    row("measurement without a value", 5, "12.3 mA", "");
}

void TestFileLogger::fields()
{
    QFETCH(int, row);
    QFETCH(QString, texts);
    QFETCH(QString, field);

    QList<QStringList> rows = recordAt("01", "10:00:00");
    rows[row] = texts.split(QLatin1Char('|'));
    QVERIFY(m_logger->startStop(true));
    m_logger->processData("01", rows);

    QByteArrayList expected = lineAt("01", "10:00:00").split(';');
    expected[row] = field.toUtf8();
    QCOMPARE(content(), kHeader + expected.join(';'));
}

void TestFileLogger::periods_data()
{
    QTest::addColumn<int>("interval");
    // id@time, the written ones marked with "*"; or "stop" and "start"
    QTest::addColumn<QString>("records");

    QTest::newRow("others only in the opening second")
        << 5 << "*0A@10:00:00 *0B@10:00:00 0C@10:00:02 *0B@10:00:05";
    QTest::newRow("on the second") << 5 << "*01@10:00:00 01@10:00:04 *01@10:00:05 *01@10:00:10";
    QTest::newRow("a late opener shifts the periods")
        << 5 << "*01@10:00:00 *01@10:00:07 01@10:00:11 *01@10:00:12";
    QTest::newRow("the same LDB twice in the opening second")
        << 5 << "*01@10:00:00 01@10:00:00 *02@10:00:05 *01@10:00:05 02@10:00:05 01@10:00:05";
    QTest::newRow("zero takes all") << 0 << "*01@10:00:00 *01@10:00:00 *02@10:00:00 *01@10:00:03";
    QTest::newRow("clock set back") << 5 << "*01@10:00:10 01@10:00:09 02@09:00:00 *01@10:00:15";
    QTest::newRow("clock set back, zero") << 0 << "*01@10:00:10 01@10:00:09 *01@10:00:10";
    // Starting again without a stop is a new run as well; none writes a second header.
    QTest::newRow("every run begins a period")
        << 3600 << "*01@10:00:00 stop start *01@10:00:01 start *01@10:00:02 01@10:00:03";
    // While no time is known, no period has begun, and every record counts as the first.
    QTest::newRow("times that do not parse") << 5 << "*01@never *01@never *02@10:00:00 02@10:00:01";
    // No time counts as no time passed: the other LDB falls into the opening second.
    QTest::newRow("time lost within a period") << 5 << "*01@10:00:00 *02@never 01@never";
}

void TestFileLogger::periods()
{
    QFETCH(int, interval);
    QFETCH(QString, records);

    m_logger->setInterval(interval);
    QVERIFY(m_logger->startStop(true));
    QByteArray expected = kHeader;
    const QStringList each = records.split(' ');
    for (const QString& record : each) {
        const QString hexId = record.section('@', 0, 0).remove('*');
        const QString time = record.section('@', 1);
        if (time.isEmpty()) {
            QVERIFY(m_logger->startStop(record == "start"));
            continue;
        }
        process(hexId, time);
        if (record.startsWith('*')) {
            expected += lineAt(hexId, time);
        }
    }
    QCOMPARE(content(), expected);
}

void TestFileLogger::modes()
{
    m_logger->setMode(FileLogger::LogSelected);
    QVERIFY(m_logger->startStop(true));
    process("0A", "10:00:00"); // nothing is selected
    m_logger->setSelectedHexId("0B");
    process("0A", "10:00:00");
    QCOMPARE(content(), QByteArray());
    process("0B", "10:00:00");
    QCOMPARE(content(), kHeader + lineAt("0B", "10:00:00"));
    m_logger->setMode(FileLogger::LogAll);
    process("0A", "10:00:00");
    QCOMPARE(content(), kHeader + lineAt("0B", "10:00:00") + lineAt("0A", "10:00:00"));
}

void TestFileLogger::existingFiles_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("expected");

    const QByteArray line = lineAt("01", "10:00:00");
    QTest::newRow("empty") << QByteArray() << kHeader + line;
    QTest::newRow("a former run") << kHeader + "old;\n" << kHeader + "old;\n" + line;
    QTest::newRow("someone else's file") << QByteArray("notes\r\n") << "notes\r\n" + line;
    QTest::newRow("torn last line") << kHeader + "01;Ha" << kHeader + "01;Ha\n" + line;
    QTest::newRow("torn within a character")
        << QByteArray("01;K\xC3") << QByteArray("01;K\xC3\n") + line;
}

void TestFileLogger::existingFiles()
{
    QFETCH(QByteArray, before);
    QFETCH(QByteArray, expected);

    m_sandbox->writeFile(QStringLiteral("log.csv"), before);
    QVERIFY(m_logger->startStop(true));
    // A run without a record changes nothing.
    QCOMPARE(content(), before);
    process("01", "10:00:00");
    process("02", "10:00:00");
    QCOMPARE(content(), expected + lineAt("02", "10:00:00"));
}

void TestFileLogger::cannotOpen()
{
    for (const char* fileName : {"", "missing/log.csv"}) {
        const ExpectWarning warning("^cannot log to ");
        m_logger->setFileName(fileName);
        QVERIFY(!m_logger->startStop(true));
        QVERIFY(!m_logger->isLogging());
        QVERIFY(!m_logger->errorString().isEmpty());
        process("01", "10:00:00");
        QVERIFY(m_logger->startStop(false));
    }
    QCOMPARE(failures(), QStringList());
    m_logger->setFileName(path());
    QVERIFY(m_logger->startStop(true));
    process("01", "10:00:00");
    QCOMPARE(content(), kHeader + lineAt("01", "10:00:00"));
}

void TestFileLogger::writingFails_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("reason");
    QTest::newRow("device full") << "/dev/full"
                                 << "No space left on device";
    QTest::newRow("disk full within a line") << "log.csv"
                                             << "File too large";
    QTest::newRow("file removed") << "log.csv"
                                  << "The file has been removed.";
}

void TestFileLogger::writingFails()
{
    QFETCH(QString, file);
    QFETCH(QString, reason);

    m_logger->setFileName(file);
    QVERIFY(m_logger->startStop(true));
    if (file == "log.csv") {
        process("01", "10:00:00");
    }
    const bool isRemoved = reason.contains("removed") && QFile::remove(path());
    const QByteArray whole = content();
    bool wasLogging = true;
    connect(m_logger.get(), &FileLogger::loggingFailed, m_logger.get(),
            [this, &wasLogging] { wasLogging = m_logger->isLogging(); });
    {
        const ExpectWarning warning("^logging to .* stopped - ");
        const FileSizeLimit limit(static_cast<rlim_t>(whole.size() + 20));
        process("01", "10:00:01");
    }
    QVERIFY(!wasLogging);
    // One failure is enough: what comes later is neither tried nor told.
    process("01", "10:00:05");
    QCOMPARE(failures(), QStringList{file + ": " + reason});
    // No part of a line stays, and a file that is gone does not come back.
    QCOMPARE(content(), whole);
    QCOMPARE(QFile::exists(path()), file == "log.csv" && !isRemoved);
}

void TestFileLogger::fileChangedByOthers()
{
    m_logger->setInterval(0);
    QVERIFY(m_logger->startStop(true));
    process("01", "10:00:00");
    m_sandbox->writeFile(QStringLiteral("log.csv"),
                         "a note longer than what stood there\n" + kHeader);
    const QByteArray before = content();
    process("01", "10:00:01");
    QCOMPARE(content(), before + lineAt("01", "10:00:01"));
}

void TestFileLogger::ignoredWhileStopped()
{
    process("01", "10:00:00");
    QVERIFY(m_logger->startStop(true));
    m_logger->processData("01", {});
    QVERIFY(m_logger->startStop(false));
    process("01", "10:00:00");
    QCOMPARE(content(), QByteArray());
}

void TestFileLogger::names()
{
    using logfilename::withSuffix;
    QCOMPARE(withSuffix("a.txt"), "a.txt");
    QCOMPARE(withSuffix("/tmp/v1.2/a"), "/tmp/v1.2/a.csv");
    QCOMPARE(withSuffix("a."), "a.csv");
    QCOMPARE(withSuffix("/tmp/"), "/tmp/");
    const QDateTime now({2026, 3, 4}, {5, 6, 7});
    QCOMPARE(withSuffix(logfilename::suggested(now)), "ldb-log_2026-03-04_05-06.csv");
}

REGISTER_TEST(TestFileLogger, QCoreApplication)
#include "tst_filelogger.moc"
