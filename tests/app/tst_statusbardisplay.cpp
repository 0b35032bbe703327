#include "app/notices/notices.h"
#include "app/notices/statusbardisplay.h"
#include "tests/support/testcase.h"
#include "tests/support/testprogram.h"

#include <QtWidgets>

#include <memory>

namespace {

QString text(const QStatusBar& bar, const char* label)
{
    return bar.findChild<QLabel*>(QLatin1String(label))->text();
}

} // namespace

class TestStatusBarDisplay : public TestCase
{
    Q_OBJECT
private slots:
    void init() override;
    void cleanup() override;
    void failureStaysUntilSuccess();
    void progress();

private:
    std::unique_ptr<QStatusBar> m_bar;
    std::unique_ptr<Notices> m_notices;
    std::unique_ptr<StatusBarDisplay> m_display;
};

void TestStatusBarDisplay::init()
{
    TestCase::init();
    m_bar = std::make_unique<QStatusBar>();
    m_bar->show();
    m_notices = std::make_unique<Notices>(m_bar.get(), m_bar.get());
    m_display = std::make_unique<StatusBarDisplay>(m_bar.get(), m_notices.get());
}

void TestStatusBarDisplay::cleanup()
{
    m_display.reset();
    m_bar.reset();
    TestCase::cleanup();
}

void TestStatusBarDisplay::failureStaysUntilSuccess()
{
    const QString failed = QStringLiteral("Serial communication failed.");
    m_display->showFailure();
    m_display->showAvailable(5);
    QCOMPARE(text(*m_bar, "countLabel"), failed);
    m_display->showLoading();
    m_display->retranslate();
    QCOMPARE(text(*m_bar, "countLabel"), failed);
    m_display->clearFailure();
    QCOMPARE(text(*m_bar, "countLabel"), QStringLiteral("Available LDB's: 5."));
    // Without a failure there is nothing to clear.
    m_display->showLoading();
    m_display->clearFailure();
    QCOMPARE(text(*m_bar, "countLabel"), QStringLiteral("Loading LDB device list..."));
}

void TestStatusBarDisplay::progress()
{
    auto* progress = m_bar->findChild<QProgressBar*>(QStringLiteral("progressBar"));
    m_display->showScanProgress(253, 3);
    QCOMPARE(m_bar->currentMessage(),
             QStringLiteral("Scanning for connected LDB's...  LDB's Checked 253, LDB's Found 3"));
    QCOMPARE(progress->value(), progress->maximum());
    m_display->showTransferProgress(30, 40);
    QCOMPARE(progress->text(), QStringLiteral("25%"));
}

REGISTER_TEST(TestStatusBarDisplay, QApplication)

#include "tst_statusbardisplay.moc"
