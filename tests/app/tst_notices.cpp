#include "app/notices/linknotices.h"
#include "app/notices/messagebox.h"
#include "app/notices/notices.h"
#include "tests/support/sandbox.h"
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
        const Table<int, QString, bool, bool, QString> row("error", "description", "isThere",
                                                           "mayBeUsed", "details");
        const QString unplugged("Port ttyX is gone: the adapter was unplugged. "
                                "Plug it in and start again.");
        row("unplugged", int(QSerialPort::ResourceError), "Unknown error", false, false, unplugged);
        row("unplugged, said otherwise", int(QSerialPort::ReadError), "Input/output error", false,
            false, unplugged);
        row("unplugged without a word", int(QSerialPort::UnknownError), "Unknown error", false,
            false, unplugged);
        row("broken off", int(QSerialPort::ResourceError), "Input/output error", true, true,
            "The connection to port ttyX broke off. Check the adapter and its cable, and start "
            "again.");
        row("never there", int(QSerialPort::DeviceNotFoundError), "No such file or directory",
            false, false,
            "There is no port ttyX. Plug the adapter in, or choose another port in the settings "
            "dialog.");
        row("no right", int(QSerialPort::PermissionError), "Permission denied", true, false,
            "Port ttyX: Permission denied\nTo use this port, you must be in the group \"uucp\"; "
            "a new membership counts from the next login.");
        // What the system says of a port in use reads like a missing right.
        row("locked by another program", int(QSerialPort::PermissionError),
            "Permission error while locking", true, true,
            "Port ttyX: Permission error while locking\nAnother program is using this port.");
        row("busy", int(QSerialPort::PermissionError), qt_error_string(EBUSY), true, false,
            "Port ttyX: " + qt_error_string(EBUSY) + "\nAnother program is using this port.");
        row("not set up", int(QSerialPort::UnsupportedOperationError), "No such speed", true, true,
            "Port ttyX: No such speed");
        row("nothing known", int(QSerialPort::UnknownError), "Unknown error", true, true,
            "Port ttyX: no reason is known.");
        row("no port's", int(QSerialPort::NoError), "The former connection has not ended yet.",
            true, true, "The former connection has not ended yet.");
    }

    void portFailureDetails()
    {
        QFETCH(int, error);
        QFETCH(QString, description);
        QFETCH(bool, isThere);
        QFETCH(bool, mayBeUsed);
        const BoxText text =
            portFailureText({"ttyX", error, description}, {isThere, mayBeUsed, "uucp"});
        QCOMPARE(text.title, "Error");
        QCOMPARE(text.text, "Cannot establish the serial communication, check the "
                            "serial port settings!");
        QTEST(text.details, "details");
    }

    void noPortIsChosen()
    {
        const BoxText text = portFailureText({{}, QSerialPort::DeviceNotFoundError, {}}, {});
        QVERIFY2(text.details.startsWith("No serial port is chosen. Choose one in the settings"),
                 qPrintable(text.details));
    }

    void asksTheSystem()
    {
        m_sandbox->writeFile("port", QByteArray());
        const QString path = m_sandbox->path("port");
        const PortDevice device = portDevice(path);
        QVERIFY(device.isThere && device.mayBeUsed);
        // The group that owns the device, unless that is root's own.
        const QString owner = QFileInfo(path).group();
        QCOMPARE(device.group, owner == "root" ? "dialout" : owner);

        QFile::remove(path);
        const PortDevice gone = portDevice(path);
        QVERIFY(!gone.isThere && !gone.mayBeUsed);
        QCOMPARE(gone.group, "dialout");
    }
};

REGISTER_TEST(TestNotices, QApplication)

#include "tst_notices.moc"
