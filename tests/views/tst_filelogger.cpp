#include "tests/support/bracketingtranslator.h"
#include "tests/support/sandbox.h"
#include "tests/support/testprogram.h"
#include "tests/views/records.h"
#include "views/log/filelogger.h"

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
    void initTestCase()
    {
        // The file is the same wherever it is written.
        QTextCodec::setCodecForLocale(QTextCodec::codecForName("ISO-8859-1"));
        QLocale::setDefault(QLocale(QLocale::German));
    }
    void init() override
    {
        TestCase::init();
        m_logger = std::make_unique<FileLogger>();
        m_logger->setFileName(path());
        m_failed = std::make_unique<QSignalSpy>(m_logger.get(), &FileLogger::loggingFailed);
    }
    void cleanup() override
    {
        m_logger.reset();
        TestCase::cleanup();
    }

    void everyLineIsInTheFileAtOnce()
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

    void fields_data()
    {
        // "texts": of the row's strings, joined by "|"
        const Table<int, QString, QString> row("row", "texts", "field");
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

    void fields()
    {
        QFETCH(int, row);
        QFETCH(QString, texts);
        QFETCH(QString, field);

        QList<QStringList> rows = recordAt("01", "10:00:00");
        rows[row] = texts.split('|');
        QVERIFY(m_logger->startStop(true));
        m_logger->processData("01", rows);

        QByteArrayList expected = lineAt("01", "10:00:00").split(';');
        expected[row] = field.toUtf8();
        QCOMPARE(content(), kHeader + expected.join(';'));
    }

    void periods_data()
    {
        // id@time, the written ones marked with "*"; or "stop" and "start"
        const Table<int, QString> row("interval", "records");
        row("others only in the opening second", 5,
            "*0A@10:00:00 *0B@10:00:00 0C@10:00:02 *0B@10:00:05");
        row("on the second", 5, "*01@10:00:00 01@10:00:04 *01@10:00:05 *01@10:00:10");
        row("a late opener shifts the periods", 5,
            "*01@10:00:00 *01@10:00:07 01@10:00:11 *01@10:00:12");
        row("the same LDB twice in the opening second", 5,
            "*01@10:00:00 01@10:00:00 *02@10:00:05 *01@10:00:05 02@10:00:05 01@10:00:05");
        row("zero takes all", 0, "*01@10:00:00 *01@10:00:00 *02@10:00:00 *01@10:00:03");
        row("clock set back", 5, "*01@10:00:10 01@10:00:09 02@09:00:00 *01@10:00:15");
        row("clock set back, zero", 0, "*01@10:00:10 01@10:00:09 *01@10:00:10");
        // Starting again without a stop is a new run as well; none writes a second header.
        row("every run begins a period", 3600,
            "*01@10:00:00 stop start *01@10:00:01 start *01@10:00:02 01@10:00:03");
        // While no time is known, no period has begun, and every record counts as the first.
        row("times that do not parse", 5, "*01@never *01@never *02@10:00:00 02@10:00:01");
        // No time counts as no time passed: the other LDB falls into the opening second.
        row("time lost within a period", 5, "*01@10:00:00 *02@never 01@never");
    }

    void periods()
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

    void modes()
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

    void existingFiles_data()
    {
        // "end": that the file is given before a line is added
        const Table<QByteArray, QByteArray> row("before", "end");
        row("empty", {}, kHeader);
        row("a former run", kHeader + "old;\n", {});
        row("someone else's file", "notes\r\n", {});
        row("torn last line", kHeader + "01;Ha", "\n");
        row("torn within a character", "01;K\xC3", "\n");
    }

    void existingFiles()
    {
        QFETCH(QByteArray, before);
        QFETCH(QByteArray, end);
        m_sandbox->writeFile("log.csv", before);
        QVERIFY(m_logger->startStop(true));
        // A run without a record changes nothing.
        QCOMPARE(content(), before);
        process("01", "10:00:00");
        process("02", "10:00:00");
        QCOMPARE(content(), before + end + lineAt("01", "10:00:00") + lineAt("02", "10:00:00"));
    }

    void cannotOpen()
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

    void writingFails_data()
    {
        const Table<QString, QString> row("file", "reason");
        row("device full", "/dev/full", "No space left on device");
        row("disk full within a line", "log.csv", "File too large");
        row("file removed", "log.csv", "The file has been removed.");
    }

    void writingFails()
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

    void fileChangedByOthers()
    {
        m_logger->setInterval(0);
        QVERIFY(m_logger->startStop(true));
        process("01", "10:00:00");
        m_sandbox->writeFile("log.csv", "a note longer than what stood there\n" + kHeader);
        const QByteArray before = content();
        process("01", "10:00:01");
        QCOMPARE(content(), before + lineAt("01", "10:00:01"));
    }

    void names()
    {
        using logfilename::withSuffix;
        QCOMPARE(withSuffix("a.txt"), "a.txt");
        QCOMPARE(withSuffix("/tmp/v1.2/a"), "/tmp/v1.2/a.csv");
        QCOMPARE(withSuffix("a."), "a.csv");
        QCOMPARE(withSuffix("/tmp/"), "/tmp/");
        const QDateTime now({2026, 3, 4}, {5, 6, 7});
        QCOMPARE(withSuffix(logfilename::suggested(now)), "ldb-log_2026-03-04_05-06.csv");
    }

private:
    QString path() const { return m_sandbox->path("log.csv"); }
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

    std::unique_ptr<FileLogger> m_logger;
    std::unique_ptr<QSignalSpy> m_failed;
};

REGISTER_TEST(TestFileLogger, QCoreApplication)
#include "tst_filelogger.moc"
