#include "app/notices/linknotices.h"
#include "app/notices/messagebox.h"
#include "app/notices/notices.h"
#include "tests/support/sandbox.h"
#include "tests/support/testcase.h"
#include "tests/support/testprogram.h"

#include <QSerialPort>
#include <QtWidgets>

namespace {

QList<MessageBox*> openBoxes(const QWidget& window)
{
    return window.findChildren<MessageBox*>();
}

} // namespace

class TestNotices : public TestCase
{
    Q_OBJECT
private slots:
    void everyTextFollowsTheLanguage();
    void longBoxScrolls();
    void lossesShareOneBox();
    void portFailureDetails_data();
    void portFailureDetails();
    void refusedPort();
};

void TestNotices::everyTextFollowsTheLanguage()
{
    QWidget window;
    QStatusBar bar;
    bar.show();
    Notices notices(&bar, &window);
    QString language = QStringLiteral("one");
    notices.say([&language] { return language; }, 60000);
    for (const char* name : {"", "", "named", "named"}) {
        notices.box(
            QMessageBox::Critical,
            [&language] {
                return BoxText{language, language, language};
            },
            QString::fromLatin1(name));
    }
    QCOMPARE(openBoxes(window).size(), 3);
    language = QStringLiteral("two");
    QEvent change(QEvent::LanguageChange);
    QCoreApplication::sendEvent(&window, &change);
    notices.retranslate();
    QCOMPARE(bar.currentMessage(), QStringLiteral("two"));
    for (const MessageBox* box : openBoxes(window)) {
        QCOMPARE(box->windowTitle() + box->text() + box->informativeText(), "twotwotwo");
    }
    notices.hush();
    notices.retranslate();
    QCOMPARE(bar.currentMessage(), QString());
}

void TestNotices::longBoxScrolls()
{
    QWidget window;
    QStatusBar bar;
    Notices notices(&bar, &window);
    LinkNotices losses(&notices);
    constexpr int kLost = 60;
    for (int i = 1; i <= kLost; ++i) {
        losses.tellLoss(QString::number(i), QString());
    }
    const MessageBox* box = openBoxes(window).value(0);
    QCoreApplication::processEvents();
    QVERIFY(box->isVisible());
    QCOMPARE(box->size(), QSize(500, 200));
    const auto* area = box->findChild<QScrollArea*>();
    QVERIFY(area->verticalScrollBar()->maximum() > 0);
    QVERIFY(area->widget()->width() <= area->viewport()->width());
    QVERIFY(area->widget()->height() > kLost * area->fontMetrics().height() - 1);
}

void TestNotices::lossesShareOneBox()
{
    QWidget window;
    QStatusBar bar;
    Notices notices(&bar, &window);
    LinkNotices losses(&notices);
    losses.tellLoss(QStringLiteral("0A"), QStringLiteral("Control  room "));
    losses.tellLoss(QStringLiteral("FD"), QString());
    losses.tellLoss(
        QStringLiteral("0A"),
        QStringLiteral("Control  room ")); // came back and went again: it stands there already
    QCOMPARE(openBoxes(window).size(), 1);
    MessageBox* box = openBoxes(window).constFirst();
    QCOMPARE(box->windowTitle(), QStringLiteral("Error"));
    QCOMPARE(box->text(), QStringLiteral("The LDB with ID: 0A (Control room) is disconnected!\n"
                                         "The LDB with ID: FD is disconnected!"));
    QVERIFY(box->isModal());

    box->accept();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(openBoxes(window).isEmpty());
    losses.tellLoss(QStringLiteral("0A"), QStringLiteral("Control  room "));
    QCOMPARE(openBoxes(window).constFirst()->text(),
             QStringLiteral("The LDB with ID: 0A (Control room) is disconnected!"));
}

void TestNotices::portFailureDetails_data()
{
    addColumns<int, QString, QString>("error", "description", "details");
    QTest::newRow("gone") << int(QSerialPort::ResourceError) << QStringLiteral("pulled out")
                          << QStringLiteral("Port /dev/none: pulled out");
    QTest::newRow("nothing said") << int(QSerialPort::UnknownError) << QString() << QString();
    QTest::newRow("no right") << int(QSerialPort::PermissionError) << QStringLiteral("Denied")
                              << QStringLiteral("Port /dev/none: Denied\nTo use this port, "
                                                "you must be in the group \"dialout\"; a new "
                                                "membership counts from the next login.");
}

void TestNotices::portFailureDetails()
{
    QFETCH(int, error);
    QFETCH(QString, description);
    const BoxText text = portFailureText({QStringLiteral("/dev/none"), error, description});
    QCOMPARE(text.title, QStringLiteral("Error"));
    QCOMPARE(text.text, QStringLiteral("Cannot establish the serial communication, check the "
                                       "serial port settings!"));
    QTEST(text.details, "details");
}

void TestNotices::refusedPort()
{
    const Sandbox sandbox;
    sandbox.writeFile(QStringLiteral("port"), QByteArray());
    const QString path = sandbox.path(QStringLiteral("port"));
    // What the system says of a port in use reads like a missing right.
    const BoxText text = portFailureText(
        {path, QSerialPort::PermissionError, QStringLiteral("Permission error while locking")});
    QVERIFY(text.details.endsWith(QStringLiteral("\nAnother program is using this port.")));
    // The group that owns the device, unless that is root's own.
    const QString owner = QFileInfo(path).group();
    QCOMPARE(portGroup(path), owner == QLatin1String("root") ? QStringLiteral("dialout") : owner);
}

REGISTER_TEST(TestNotices, QApplication)

#include "tst_notices.moc"
