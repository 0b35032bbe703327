#include "tests/support/sandbox.h"
#include "tests/support/testcase.h"
#include "tests/views/bracketingtranslator.h"
#include "tests/views/records.h"
#include "views/filelogger.h"
#include "views/logfilename.h"

#include <QDir>
#include <QFileInfo>
#include <QLocale>
#include <QSignalSpy>
#include <QTextCodec>

#include <csignal>
#include <memory>
#include <optional>
#include <sys/resource.h>

using records::withCodes;

namespace {

const QByteArray kHeader = "Device Id;Name;Mode;Loop;Primary Port (V);Primary Port (mA);"
                           "Secondary Port (V);Secondary Port (mA);Earth;Amplifier;Timestamp\n";

/// A record at "hh:mm:ss" of one day, or at a text of its own.
QList<QStringList> recordAt(const QString& hexId, const QString& time)
{
    QList<QStringList> rows = withCodes(hexId, {});
    rows[generalinformation::TimestampRow][0] =
        time.count(QLatin1Char(':')) == 2 ? QStringLiteral("2026-03-04: ") + time : time;
    return rows;
}

QByteArray lineAt(const QByteArray& hexId, const QByteArray& time)
{
    return hexId + ";Hall;Quiescent;Ok;24;12.34;23.95;-1;Ok;Ok;2026-03-04: " + time + ";\n";
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
    void init() override;
    void cleanup() override;

    void headerAndLineByteForByte();
    void headerFollowsTheLanguage();
    void everyLineIsInTheFileAtOnce();
    void foreignLocaleAndCodec();
    void fields_data();
    void fields();
    void periods_data();
    void periods();
    void everyRunBeginsAPeriod();
    void modes_data();
    void modes();
    void existingFiles_data();
    void existingFiles();
    void cannotOpen_data();
    void cannotOpen();
    void deviceFull();
    void diskFullWithinALine();
    void fileChangedByOthers();
    void removedFile();
    void ignoredWhileStopped();
    void names_data();
    void names();

private:
    QString path() const { return m_sandbox->path(QStringLiteral("log.csv")); }
    QByteArray content() const { return Sandbox::readFile(path()); }
    void process(const char* hexId, const char* time)
    {
        const QString id = QString::fromLatin1(hexId);
        m_logger->processData(id, recordAt(id, QString::fromLatin1(time)));
    }

    std::optional<Sandbox> m_sandbox;
    std::unique_ptr<FileLogger> m_logger;
};

void TestFileLogger::init()
{
    TestCase::init();
    m_sandbox.emplace();
    m_logger = std::make_unique<FileLogger>();
    m_logger->setFileName(path());
}

void TestFileLogger::cleanup()
{
    m_logger.reset();
    m_sandbox.reset();
    TestCase::cleanup();
}

void TestFileLogger::headerAndLineByteForByte()
{
    QVERIFY(m_logger->startStop(true));
    QVERIFY(m_logger->isLogging());
    QCOMPARE(content(), QByteArray());
    process("1F", "10:00:00");
    QVERIFY(m_logger->startStop(false));
    QVERIFY(!m_logger->isLogging());
    QCOMPARE(content(), kHeader + "1F;Hall;Quiescent;Ok;24;12.34;23.95;-1;Ok;Ok;"
                                  "2026-03-04: 10:00:00;\n");
}

void TestFileLogger::headerFollowsTheLanguage()
{
    const BracketingTranslator translator;
    QVERIFY(m_logger->startStop(true));
    process("01", "10:00:00");
    QVERIFY(content().startsWith("[Device Id];[Name];"));
    QCOMPARE(content().split('\n').first().count('['), 11);
}

void TestFileLogger::everyLineIsInTheFileAtOnce()
{
    m_logger->setInterval(0);
    QVERIFY(m_logger->startStop(true));
    QByteArray expected = kHeader;
    for (const char* time : {"10:00:00", "10:00:00", "10:00:01"}) {
        process("01", time);
        expected += lineAt("01", time);
        QCOMPARE(content(), expected);
    }
}

void TestFileLogger::foreignLocaleAndCodec()
{
    QTextCodec* formerCodec = QTextCodec::codecForLocale();
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("ISO-8859-1"));
    QLocale::setDefault(QLocale(QLocale::German));
    const QString name = QString::fromUtf8("Küche Ω");
    QVERIFY(m_logger->startStop(true));
    m_logger->processData(QStringLiteral("01"), withCodes(QStringLiteral("01"), {}, name));
    QLocale::setDefault(QLocale::c());
    QTextCodec::setCodecForLocale(formerCodec);

    QVERIFY(QLocale(QLocale::German).toString(0.5).contains(QLatin1Char(',')));
    QCOMPARE(content(), kHeader + "01;K\xC3\xBC"
                                  "che \xCE\xA9;Quiescent;Ok;24;12.34;23.95;-1;Ok;Ok;"
                                  "2026-03-04: 10:00:00;\n");
}

void TestFileLogger::fields_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("texts"); // of the row's strings, joined by "|"
    QTest::addColumn<QString>("field");

    QTest::newRow("blanks") << 1 << "  North\t hall \n 2  |0"
                            << "North hall 2";
    QTest::newRow("separator is kept as it is") << 1 << "a;b|0"
                                                << "a;b";
    QTest::newRow("quotation mark is kept as it is") << 1 << "\"a\"|0"
                                                     << "\"a\"";
    QTest::newRow("empty") << 1 << "|0"
                           << "";
    QTest::newRow("shorted primary port") << 4 << "Short|-40000|-40000"
                                          << "-40000";
    QTest::newRow("shorted secondary port") << 7 << "Short(memory)|-40000|-40000"
                                            << "-40000";
    QTest::newRow("measurement without a value") << 5 << "12.3 mA"
                                                 << "";
    QTest::newRow("text, not code") << 8 << "Open(memory)|2"
                                    << "Open(memory)";
}

void TestFileLogger::fields()
{
    QFETCH(int, row);
    QFETCH(QString, texts);
    QFETCH(QString, field);

    QList<QStringList> rows = recordAt(QStringLiteral("01"), QStringLiteral("10:00:00"));
    rows[row] = texts.split(QLatin1Char('|'));
    QVERIFY(m_logger->startStop(true));
    m_logger->processData(QStringLiteral("01"), rows);

    QByteArrayList expected = lineAt("01", "10:00:00").split(';');
    expected[row] = field.toUtf8();
    QCOMPARE(content(), kHeader + expected.join(';'));
}

void TestFileLogger::periods_data()
{
    QTest::addColumn<int>("interval");
    QTest::addColumn<QString>("records"); // id@time, the written ones marked with "*"

    QTest::newRow("others only in the opening second")
        << 5 << "*0A@10:00:00 *0B@10:00:00 0A@10:00:02 *0B@10:00:05";
    QTest::newRow("a second before the period is over") << 5 << "*01@10:00:00 01@10:00:04";
    QTest::newRow("on the second") << 5 << "*01@10:00:00 *01@10:00:05 01@10:00:09 *01@10:00:10";
    QTest::newRow("a late opener shifts the periods")
        << 5 << "*01@10:00:00 *01@10:00:07 01@10:00:11 *01@10:00:12";
    QTest::newRow("the same LDB twice in the opening second")
        << 5 << "*01@10:00:00 01@10:00:00 *02@10:00:00 02@10:00:00";
    QTest::newRow("the same in a later period")
        << 5 << "*01@10:00:00 *02@10:00:05 *01@10:00:05 02@10:00:05 01@10:00:05";
    QTest::newRow("each second") << 1 << "*01@10:00:00 01@10:00:00 *01@10:00:01 *02@10:00:01";
    QTest::newRow("zero takes all") << 0 << "*01@10:00:00 *01@10:00:00 *02@10:00:00 *01@10:00:03";
    QTest::newRow("clock set back") << 5 << "*01@10:00:10 01@10:00:09 02@09:00:00 *01@10:00:15";
    QTest::newRow("clock set back, zero") << 0 << "*01@10:00:10 01@10:00:09 *01@10:00:10";
    QTest::newRow("a day") << 86400 << "*01@00:00:00 01@23:59:59";
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
    QByteArrayList expected;
    const QStringList each = records.split(QLatin1Char(' '));
    for (QString record : each) {
        const bool isWritten = record.startsWith(QLatin1Char('*'));
        record.remove(QLatin1Char('*'));
        const QString hexId = record.section(QLatin1Char('@'), 0, 0);
        const QString time = record.section(QLatin1Char('@'), 1);
        const QList<QStringList> rows = recordAt(hexId, time);
        m_logger->processData(hexId, rows);
        if (isWritten) {
            expected << hexId.toLatin1() + "@" + rows.last().first().toLatin1();
        }
    }
    QByteArrayList written;
    const QByteArrayList lines = content().mid(kHeader.size()).split('\n');
    for (const QByteArray& line : lines) {
        const QByteArrayList fields = line.split(';');
        if (fields.size() > 1) {
            written << fields.first() + "@" + fields.at(10);
        }
    }
    QCOMPARE(written, expected);
}

void TestFileLogger::everyRunBeginsAPeriod()
{
    m_logger->setInterval(3600);
    QVERIFY(m_logger->startStop(true));
    process("01", "10:00:00");
    QVERIFY(m_logger->startStop(false));
    QVERIFY(m_logger->startStop(true));
    process("01", "10:00:01");
    // Starting again without a stop is a new run as well, and no second header comes.
    QVERIFY(m_logger->startStop(true));
    process("01", "10:00:02");
    QCOMPARE(content(), kHeader + lineAt("01", "10:00:00") + lineAt("01", "10:00:01") +
                            lineAt("01", "10:00:02"));
}

void TestFileLogger::modes_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("selected");
    QTest::addColumn<QByteArray>("lines");

    const QByteArray a = lineAt("0A", "10:00:00");
    const QByteArray b = lineAt("0B", "10:00:00");
    QTest::newRow("as created") << -1 << "" << a + b;
    QTest::newRow("all") << 1 << "0A" << a + b;
    QTest::newRow("selected") << 0 << "0B" << b;
    QTest::newRow("none selected") << 0 << "" << QByteArray();
    QTest::newRow("selected in another case") << 0 << "0b" << QByteArray();
}

void TestFileLogger::modes()
{
    QFETCH(int, mode);
    QFETCH(QString, selected);
    QFETCH(QByteArray, lines);

    if (mode >= 0) {
        m_logger->setMode(mode);
    }
    m_logger->setSelectedHexId(selected);
    QVERIFY(m_logger->startStop(true));
    process("0A", "10:00:00");
    process("0B", "10:00:00");
    QCOMPARE(content(), lines.isEmpty() ? QByteArray() : kHeader + lines);
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

void TestFileLogger::cannotOpen_data()
{
    QTest::addColumn<QString>("fileName");

    QTest::newRow("no name") << "";
    QTest::newRow("a folder") << ".";
    QTest::newRow("in a folder that is not there") << "missing/log.csv";
}

void TestFileLogger::cannotOpen()
{
    QFETCH(QString, fileName);

    const ExpectWarning warning("^cannot log to ");
    QSignalSpy failed(m_logger.get(), &FileLogger::loggingFailed);
    m_logger->setFileName(fileName);
    QVERIFY(!m_logger->startStop(true));
    QVERIFY(!m_logger->isLogging());
    QVERIFY(!m_logger->errorString().isEmpty());
    process("01", "10:00:00");
    QVERIFY(m_logger->startStop(false));
    QCOMPARE(failed.count(), 0);

    m_logger->setFileName(path());
    QVERIFY(m_logger->startStop(true));
    process("01", "10:00:00");
    QCOMPARE(content(), kHeader + lineAt("01", "10:00:00"));
}

void TestFileLogger::deviceFull()
{
    const QString device = QStringLiteral("/dev/full");
    QSignalSpy failed(m_logger.get(), &FileLogger::loggingFailed);
    m_logger->setFileName(device);
    QVERIFY(m_logger->startStop(true));
    bool wasLogging = true;
    connect(m_logger.get(), &FileLogger::loggingFailed, m_logger.get(),
            [this, &wasLogging] { wasLogging = m_logger->isLogging(); });
    {
        const ExpectWarning warning("^logging to /dev/full stopped - No space left on device$");
        process("01", "10:00:00");
    }
    QCOMPARE(failed.count(), 1);
    QCOMPARE(failed.first().at(0).toString(), device);
    QCOMPARE(failed.first().at(1).toString(), QStringLiteral("No space left on device"));
    QVERIFY(!wasLogging);
    // One line is enough: what comes later is neither tried nor told.
    process("01", "10:00:05");
    QCOMPARE(failed.count(), 1);

    m_logger->setFileName(path());
    QVERIFY(m_logger->startStop(true));
    process("01", "10:00:09");
    QCOMPARE(content(), kHeader + lineAt("01", "10:00:09"));
}

void TestFileLogger::diskFullWithinALine()
{
    QSignalSpy failed(m_logger.get(), &FileLogger::loggingFailed);
    QVERIFY(m_logger->startStop(true));
    process("01", "10:00:00");
    const QByteArray whole = content();
    {
        const ExpectWarning warning("^logging to .*log.csv stopped - ");
        const FileSizeLimit limit(static_cast<rlim_t>(whole.size() + 20));
        process("01", "10:00:01");
    }
    QCOMPARE(failed.count(), 1);
    QVERIFY(!m_logger->isLogging());
    QCOMPARE(content(), whole);
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

void TestFileLogger::removedFile()
{
    QSignalSpy failed(m_logger.get(), &FileLogger::loggingFailed);
    QVERIFY(m_logger->startStop(true));
    process("01", "10:00:00");
    QVERIFY(QFile::remove(path()));
    {
        const ExpectWarning warning("^logging to .*log.csv stopped - ");
        process("01", "10:00:01");
    }
    QCOMPARE(failed.count(), 1);
    QVERIFY(!QFile::exists(path()));
}

void TestFileLogger::ignoredWhileStopped()
{
    process("01", "10:00:00");
    QVERIFY(m_logger->startStop(true));
    m_logger->processData(QStringLiteral("01"), {});
    QVERIFY(m_logger->startStop(false));
    process("01", "10:00:00");
    QCOMPARE(content(), QByteArray());
}

void TestFileLogger::names_data()
{
    QTest::addColumn<QString>("chosen");
    QTest::addColumn<QString>("name");

    QTest::newRow("suffix") << "/tmp/a.csv"
                            << "/tmp/a.csv";
    QTest::newRow("another suffix") << "a.txt"
                                    << "a.txt";
    QTest::newRow("no suffix") << "/tmp/v1.2/a"
                               << "/tmp/v1.2/a.csv";
    QTest::newRow("ends in a point") << "a."
                                     << "a.csv";
    QTest::newRow("empty") << ""
                           << "";
    QTest::newRow("a folder") << "/tmp/"
                              << "/tmp/";
    const QDateTime now({2026, 3, 4}, {5, 6, 7});
    QTest::newRow("the name offered")
        << logfilename::suggested(now) << "ldb-log_2026-03-04_05-06.csv";
}

void TestFileLogger::names()
{
    QFETCH(QString, chosen);
    QFETCH(QString, name);

    QCOMPARE(logfilename::withSuffix(chosen), name);
}

QTEST_GUILESS_MAIN(TestFileLogger)
#include "tst_filelogger.moc"
