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
    void everyTextFollowsTheLanguage()
    {
        QWidget window;
        QStatusBar bar;
        bar.show();
        Notices notices(&bar, &window);
        QString language = "one";
        notices.say([&language] { return language; }, 60000);
        for (const char* name : {"", "", "named", "named"}) {
            notices.box(
                QMessageBox::Critical,
                [&language] {
                    return BoxText{language, language, language};
                },
                name);
        }
        QCOMPARE(openBoxes(window).size(), 3);
        language = "two";
        QEvent change(QEvent::LanguageChange);
        QCoreApplication::sendEvent(&window, &change);
        notices.retranslate();
        QCOMPARE(bar.currentMessage(), "two");
        for (const MessageBox* box : openBoxes(window)) {
            QCOMPARE(box->windowTitle() + box->text() + box->informativeText(), "twotwotwo");
        }
        notices.hush();
        notices.retranslate();
        QCOMPARE(bar.currentMessage(), QString());
    }

    void longBoxScrolls()
    {
        QWidget window;
        QStatusBar bar;
        Notices notices(&bar, &window);
        LinkNotices losses(&notices);
        constexpr int kLost = 60;
        for (int i = 1; i <= kLost; ++i) {
            losses.tellLoss(QString::number(i), {});
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

    void lossesShareOneBox()
    {
        QWidget window;
        QStatusBar bar;
        Notices notices(&bar, &window);
        LinkNotices losses(&notices);
        losses.tellLoss("0A", "Control  room ");
        losses.tellLoss("FD", {});
        losses.tellLoss("0A",
                        "Control  room "); // came back and went again: it stands there already
        QCOMPARE(openBoxes(window).size(), 1);
        MessageBox* box = openBoxes(window).constFirst();
        QCOMPARE(box->windowTitle(), "Error");
        QCOMPARE(box->text(), "The LDB with ID: 0A (Control room) is disconnected!\n"
                              "The LDB with ID: FD is disconnected!");
        QVERIFY(box->isModal());

        box->accept();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(openBoxes(window).isEmpty());
        losses.tellLoss("0A", "Control  room ");
        QCOMPARE(openBoxes(window).constFirst()->text(),
                 "The LDB with ID: 0A (Control room) is disconnected!");
    }

    void portFailureDetails_data()
    {
        const Table<int, QString, QString> row("error", "description", "details");
        row("gone", int(QSerialPort::ResourceError), "pulled out", "Port /dev/none: pulled out");
        row("nothing said", int(QSerialPort::UnknownError), {}, {});
        row("no right", int(QSerialPort::PermissionError), "Denied",
            "Port /dev/none: Denied\nTo use this port, "
            "you must be in the group \"dialout\"; a new "
            "membership counts from the next login.");
    }

    void portFailureDetails()
    {
        QFETCH(int, error);
        QFETCH(QString, description);
        const BoxText text = portFailureText({"/dev/none", error, description});
        QCOMPARE(text.title, "Error");
        QCOMPARE(text.text, "Cannot establish the serial communication, check the "
                            "serial port settings!");
        QTEST(text.details, "details");
    }

    void refusedPort()
    {
        const Sandbox sandbox;
        sandbox.writeFile("port", QByteArray());
        const QString path = sandbox.path("port");
        // What the system says of a port in use reads like a missing right.
        const BoxText text =
            portFailureText({path, QSerialPort::PermissionError, "Permission error while locking"});
        QVERIFY(text.details.endsWith("\nAnother program is using this port."));
        // The group that owns the device, unless that is root's own.
        const QString owner = QFileInfo(path).group();
        QCOMPARE(portGroup(path), owner == "root" ? "dialout" : owner);
    }
};

REGISTER_TEST(TestNotices, QApplication)

#include "tst_notices.moc"
