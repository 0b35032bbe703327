#include "app/shared/wholefile.h"
#include "tests/support/sandbox.h"
#include "tests/support/testprogram.h"

#include <csignal>
#include <sys/resource.h>

/// A file on a disk that gets full.
class TestWholeFile : public TestCase
{
    Q_OBJECT
private slots:
    void keepsTheOldFileOnAFullDisk_data()
    {
        QTest::addColumn<int>("room");
        QTest::addColumn<int>("length");
        QTest::newRow("fits") << 100000 << 50000;
        QTest::newRow("no room for a short file") << 0 << 10; // shorter than any buffer
        QTest::newRow("no room for a long one") << 0 << 50000;
        QTest::newRow("no room for its rest") << 49000 << 50000;
    }
    void keepsTheOldFileOnAFullDisk()
    {
        QFETCH(int, room);
        QFETCH(int, length);
        const Sandbox sandbox;
        const QString path = sandbox.path("file");
        sandbox.writeFile("file", "old");
        const QByteArray content(length, 'x');
        // As good as a full disk: no file grows any more.
        std::signal(SIGXFSZ, SIG_IGN);
        rlimit former{};
        QCOMPARE(getrlimit(RLIMIT_FSIZE, &former), 0);
        rlimit full = former;
        full.rlim_cur = rlim_t(room);
        QCOMPARE(setrlimit(RLIMIT_FSIZE, &full), 0);
        const QString reason = WholeFile::write(path, content);
        QCOMPARE(setrlimit(RLIMIT_FSIZE, &former), 0);
        const bool fits = room >= length;
        QCOMPARE(reason, fits ? QString() : QString("File too large"));
        QCOMPARE(Sandbox::readFile(path), fits ? content : QByteArray("old"));
        QCOMPARE(QDir(sandbox.path("")).entryList(QDir::Files), QStringList("file"));
    }

    void saysWhyItCannotBeOpened()
    {
        const Sandbox sandbox;
        QCOMPARE(WholeFile::write(sandbox.path("no/file"), "x"),
                 QString("No such file or directory"));
    }
};

REGISTER_TEST(TestWholeFile, QCoreApplication)
#include "tst_wholefile.moc"
