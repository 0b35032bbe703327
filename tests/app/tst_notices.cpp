#include "app/lossreporter.h"
#include "app/messagebox.h"
#include "app/portfailure.h"
#include "tests/support/sandbox.h"
#include "tests/support/testcase.h"

#include <QApplication>
#include <QFileInfo>
#include <QLabel>
#include <QScrollArea>
#include <QScrollBar>
#include <QSerialPort>
#include <QWidget>

namespace {

QList<MessageBox*> openBoxes(const QWidget& window)
{
    return window.findChildren<MessageBox*>();
}

void close(MessageBox* box)
{
    box->accept();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

} // namespace

class TestNotices : public TestCase
{
    Q_OBJECT
private slots:
    void boxIsReadable();
    void longBoxScrolls();
    void boxFollowsLanguage();
    void lossesShareOneBox();
    void portFailureDetails_data();
    void portFailureDetails();
    void portInUse();
    void groupOfPort();
};

void TestNotices::boxIsReadable()
{
    QWidget window;
    auto* box = new MessageBox(
        QMessageBox::Critical,
        [] {
            return BoxText{QStringLiteral("Error"), QStringLiteral("one line"),
                           QStringLiteral("<b>what the port said</b>")};
        },
        &window);
    box->open();
    QCoreApplication::processEvents();

    QVERIFY(box->isVisible());
    QCOMPARE(box->size(), QSize(500, 200));
    QCOMPARE(box->windowTitle(), QStringLiteral("Error"));
    QCOMPARE(box->standardButtons(), QMessageBox::StandardButtons(QMessageBox::Ok));
    for (const QLabel* label : box->findChildren<QLabel*>()) {
        const QRect shown = QRect(label->mapTo(box, QPoint()), label->size());
        QVERIFY2(box->rect().contains(shown), qPrintable(label->objectName()));
        QVERIFY2(label->height() >= label->minimumSizeHint().height(),
                 qPrintable(label->objectName()));
    }
    close(box);
    QVERIFY(openBoxes(window).isEmpty());
}

void TestNotices::longBoxScrolls()
{
    QWidget window;
    LossReporter losses(&window);
    constexpr int kLost = 60;
    for (int i = 1; i <= kLost; ++i) {
        losses.report(QString::number(i));
    }
    MessageBox* box = openBoxes(window).value(0);
    QVERIFY(box != nullptr);
    QCoreApplication::processEvents();
    QCOMPARE(box->size(), QSize(500, 200));
    const auto* area = box->findChild<QScrollArea*>();
    QVERIFY(area != nullptr);
    QVERIFY(area->verticalScrollBar()->maximum() > 0);
    QVERIFY(area->widget()->height() > kLost * area->fontMetrics().height() - 1);
}

void TestNotices::boxFollowsLanguage()
{
    QWidget window;
    QString language = QStringLiteral("English");
    MessageBox box(
        QMessageBox::Critical,
        [&language] {
            return BoxText{language, language, language + language};
        },
        &window);
    box.show();
    language = QStringLiteral("Nederlands");
    QEvent change(QEvent::LanguageChange);
    QCoreApplication::sendEvent(&box, &change);
    QCOMPARE(box.windowTitle(), language);
    QCOMPARE(box.text(), language);
    QCOMPARE(box.informativeText(), language + language);
    QCOMPARE(box.findChildren<QScrollArea*>().size(), 1);
}

void TestNotices::lossesShareOneBox()
{
    QWidget window;
    LossReporter losses(&window);
    losses.report(QStringLiteral("0A"));
    losses.report(QStringLiteral("FD"));
    losses.report(QStringLiteral("0A")); // came back and went again: it stands there already
    QCOMPARE(openBoxes(window).size(), 1);
    MessageBox* box = openBoxes(window).constFirst();
    QCOMPARE(box->windowTitle(), QStringLiteral("Error"));
    QCOMPARE(box->text(), QStringLiteral("The LDB with ID: 0A is disconnected!\n"
                                         "The LDB with ID: FD is disconnected!"));
    QVERIFY(box->isModal());

    close(box);
    losses.report(QStringLiteral("0A"));
    QCOMPARE(openBoxes(window).size(), 1);
    QCOMPARE(openBoxes(window).constFirst()->text(),
             QStringLiteral("The LDB with ID: 0A is disconnected!"));
}

void TestNotices::portFailureDetails_data()
{
    QTest::addColumn<int>("error");
    QTest::addColumn<QString>("description");
    QTest::addColumn<QString>("details");
    QTest::newRow("gone") << int(QSerialPort::ResourceError) << QStringLiteral("pulled out")
                          << QStringLiteral("Port /dev/none: pulled out");
    QTest::newRow("nothing said") << int(QSerialPort::UnknownError) << QString() << QString();
    QTest::newRow("no right") << int(QSerialPort::PermissionError) << QStringLiteral("Denied")
                              << QStringLiteral("Port /dev/none: Denied\nTo use this port, you "
                                                "must be in the group \"dialout\"; a new "
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

void TestNotices::portInUse()
{
    // What the system says of it reads like a missing right.
    const Sandbox sandbox;
    sandbox.writeFile(QStringLiteral("port"), QByteArray());
    const BoxText text =
        portFailureText({sandbox.path(QStringLiteral("port")), QSerialPort::PermissionError,
                         QStringLiteral("Permission error while locking the device")});
    QVERIFY(text.details.endsWith(QStringLiteral("\nAnother program is using this port.")));
}

void TestNotices::groupOfPort()
{
    // The group that owns the device, unless that is root's own.
    const Sandbox sandbox;
    sandbox.writeFile(QStringLiteral("port"), QByteArray());
    const QString path = sandbox.path(QStringLiteral("port"));
    const QString owner = QFileInfo(path).group();
    QCOMPARE(portGroup(path), owner == QLatin1String("root") ? QStringLiteral("dialout") : owner);
    QCOMPARE(portGroup(QStringLiteral("no such port")), QStringLiteral("dialout"));
}

QTEST_MAIN(TestNotices)

#include "tst_notices.moc"
