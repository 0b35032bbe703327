#include "app/startup.h"
#include "history/keptldbs.h"
#include "tests/support/testprogram.h"

#include <csignal>
#include <cstdlib>

namespace {

const QString kSpeakArgument = "--speak";
const QString kDieArgument = "--die";

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
    void dataFolderIsTheProgramsOwn()
    {
        // Whatever its file is called, here that of the tests.
        setNames();
        QVERIFY2(KeptLdbs::standardFolder().endsWith("/Velmark/TavroCordexSniffer"),
                 qPrintable(KeptLdbs::standardFolder()));
    }

    void line()
    {
        const std::pair<QtMsgType, const char*> kinds[] = {{QtDebugMsg, "{Debug} \t\t"},
                                                           {QtInfoMsg, "{Info} \t\t"},
                                                           {QtWarningMsg, "{Warning} \t"},
                                                           {QtCriticalMsg, "{Critical} \t"}};
        for (const auto& [type, kind] : kinds) {
            // A text that looks like a place marker must come through as it is.
            QCOMPARE(messageLine(type, QTime(4, 3, 27), "x%1y"),
                     QString("[04:03:27] ") + kind + " x%1y\n");
        }
    }

    void writesToStandardOutputButLastWords_data()
    {
        addColumns<QString, int>("argument", "exitCode");
        QTest::newRow("warning") << kSpeakArgument << 0;
        QTest::newRow("warning, then fatal") << kDieArgument << SIGABRT;
    }

    void writesToStandardOutputButLastWords()
    {
        QFETCH(QString, argument);
        QProcess child;
        child.start(QCoreApplication::applicationFilePath(), {"tst_messagehandler", argument});
        QVERIFY(child.waitForFinished());
        QTEST(child.exitCode(), "exitCode");
        const QString output = QString::fromUtf8(child.readAllStandardOutput());
        const QRegularExpression expected(
            "^\\[\\d\\d:\\d\\d:\\d\\d\\] \\{Warning\\} \t the caf\u00e9 loop\n$");
        QVERIFY2(expected.match(output).hasMatch(), qPrintable(output));
        QVERIFY(!child.readAllStandardError().contains("last words"));
    }
};

REGISTER_TEST(TestMessageHandler, ChildOrApplication)

#include "tst_messagehandler.moc"
