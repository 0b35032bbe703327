#include "app/notices/notices.h"
#include "app/notices/statusbardisplay.h"
#include "tests/support/testprogram.h"

#include <QtWidgets>

class TestStatusBarDisplay : public TestCase
{
    Q_OBJECT
private slots:
    void failureStaysUntilSuccess()
    {
        QStatusBar bar;
        Notices notices(&bar, &bar);
        StatusBarDisplay display(&bar, &notices);
        const auto* count = bar.findChild<QLabel*>("countLabel");
        const QString failed("Serial communication failed.");
        display.showFailure();
        display.showAvailable(5);
        QCOMPARE(count->text(), failed);
        display.showLoading();
        display.retranslate();
        QCOMPARE(count->text(), failed);
        display.clearFailure();
        QCOMPARE(count->text(), "Available LDB's: 5.");
        // Without a failure there is nothing to clear.
        display.showLoading();
        display.clearFailure();
        QCOMPARE(count->text(), "Loading LDB device list...");

        display.showTransferProgress(30, 40);
        QCOMPARE(bar.findChild<QProgressBar*>("progressBar")->text(), "25%");
    }
};

REGISTER_TEST(TestStatusBarDisplay, QApplication)

#include "tst_statusbardisplay.moc"
