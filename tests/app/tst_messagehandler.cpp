#include "app/startup.h"
#include "tests/support/testcase.h"

#include <QCoreApplication>
#include <QProcess>
#include <QTime>

#include <csignal>

namespace {

const QString kSpeakArgument = QStringLiteral("--speak");
const QString kDieArgument = QStringLiteral("--die");

/// What the child processes of this test do; 0 where this is no child.
bool runAsChild(const QStringList& arguments)
{
    if (!arguments.contains(kSpeakArgument) && !arguments.contains(kDieArgument)) {
        return false;
    }
    qInstallMessageHandler(messageHandler);
    qWarning("the caf\u00e9 loop");
    if (arguments.contains(kDieArgument)) {
        qFatal("the last words");
    }
    return true;
}

} // namespace

class TestMessageHandler : public TestCase
{
    Q_OBJECT
private slots:
    void line_data();
    void line();
    void writesToStandardOutputButLastWords_data();
    void writesToStandardOutputButLastWords();
};

void TestMessageHandler::line_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("expected");
    QTest::newRow("debug") << int(QtDebugMsg) << QStringLiteral("[04:03:27] {Debug} \t\t x%1y\n");
    QTest::newRow("info") << int(QtInfoMsg) << QStringLiteral("[04:03:27] {Info} \t\t x%1y\n");
    QTest::newRow("warning") << int(QtWarningMsg)
                             << QStringLiteral("[04:03:27] {Warning} \t x%1y\n");
    QTest::newRow("critical") << int(QtCriticalMsg)
                              << QStringLiteral("[04:03:27] {Critical} \t x%1y\n");
}

void TestMessageHandler::line()
{
    QFETCH(int, type);
    QFETCH(QString, expected);
    // A text that looks like a place marker must come through as it is.
    QCOMPARE(messageLine(static_cast<QtMsgType>(type), QTime(4, 3, 27), QStringLiteral("x%1y")),
             expected);
}

void TestMessageHandler::writesToStandardOutputButLastWords_data()
{
    QTest::addColumn<QString>("argument");
    QTest::addColumn<int>("exitCode");
    QTest::newRow("warning") << kSpeakArgument << 0;
    QTest::newRow("warning, then fatal") << kDieArgument << SIGABRT;
}

void TestMessageHandler::writesToStandardOutputButLastWords()
{
    QFETCH(QString, argument);
    QProcess child;
    child.start(QCoreApplication::applicationFilePath(), {argument});
    QVERIFY(child.waitForFinished());
    QTEST(child.exitCode(), "exitCode");
    const QString output = QString::fromUtf8(child.readAllStandardOutput());
    const QRegularExpression expected(
        QStringLiteral("^\\[\\d\\d:\\d\\d:\\d\\d\\] \\{Warning\\} \t the caf\u00e9 loop\n$"));
    QVERIFY2(expected.match(output).hasMatch(), qPrintable(output));
    QVERIFY(!child.readAllStandardError().contains("last words"));
}

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    if (runAsChild(QCoreApplication::arguments())) {
        return 0;
    }
    TestMessageHandler test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_messagehandler.moc"
