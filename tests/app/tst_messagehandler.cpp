#include "app/startup.h"
#include "tests/support/testcase.h"
#include "tests/support/testprogram.h"

#include <csignal>
#include <cstdlib>

namespace {

const QString kSpeakArgument = QStringLiteral("--speak");
const QString kDieArgument = QStringLiteral("--die");

/// This program once more, as a child of the test: it speaks and ends before the test begins.
class ChildOrApplication
{
public:
    ChildOrApplication(int& argc, char** argv)
        : m_application(argc, argv)
    {
        const QStringList arguments = QCoreApplication::arguments();
        if (!arguments.contains(kSpeakArgument) && !arguments.contains(kDieArgument)) {
            return;
        }
        qInstallMessageHandler(messageHandler);
        qWarning("the caf\u00e9 loop");
        if (arguments.contains(kDieArgument)) {
            qFatal("the last words");
        }
        std::exit(EXIT_SUCCESS);
    }

private:
    QCoreApplication m_application;
};

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
    addColumns<int, QString>("type", "expected");
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
    addColumns<QString, int>("argument", "exitCode");
    QTest::newRow("warning") << kSpeakArgument << 0;
    QTest::newRow("warning, then fatal") << kDieArgument << SIGABRT;
}

void TestMessageHandler::writesToStandardOutputButLastWords()
{
    QFETCH(QString, argument);
    QProcess child;
    child.start(QCoreApplication::applicationFilePath(),
                {QStringLiteral("tst_messagehandler"), argument});
    QVERIFY(child.waitForFinished());
    QTEST(child.exitCode(), "exitCode");
    const QString output = QString::fromUtf8(child.readAllStandardOutput());
    const QRegularExpression expected(
        QStringLiteral("^\\[\\d\\d:\\d\\d:\\d\\d\\] \\{Warning\\} \t the caf\u00e9 loop\n$"));
    QVERIFY2(expected.match(output).hasMatch(), qPrintable(output));
    QVERIFY(!child.readAllStandardError().contains("last words"));
}

REGISTER_TEST(TestMessageHandler, ChildOrApplication)

#include "tst_messagehandler.moc"
