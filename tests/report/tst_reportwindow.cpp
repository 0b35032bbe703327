#include "app/report/reportwindow.h"
#include "recording/recordingaccess.h"
#include "tests/report/reportedvisit.h"
#include "tests/support/sandbox.h"
#include "tests/support/testprogram.h"

#include <QtWidgets>

namespace {

template <typename Widget>
Widget* find(const QObject& parent, const char* name)
{
    auto* found = parent.findChild<Widget*>(name);
    if (!found) {
        qFatal("there is no %s", name);
    }
    return found;
}

void answerFileDialog(ReportWindow& window, const QString& path)
{
    auto* dialog = window.findChild<QFileDialog*>();
    QVERIFY(dialog);
    dialog->selectFile(path);
    // Without the dialog's own question about what is not there.
    emit dialog->fileSelected(path);
    delete dialog;
}

} // namespace

/// The window of the report, on a recording, in virtual time.
class TestReportWindow : public TestCase
{
    Q_OBJECT
private slots:
    void init() override
    {
        TestCase::init();
        m_sandbox = std::make_unique<Sandbox>();
        m_visit = std::make_unique<ReportedVisit>(m_sandbox->path("recordings"), 4);
        m_access = std::make_unique<RecordingAccess>(RecordingAccess::Thread::Callers);
        m_access->setPath(m_sandbox->path("recordings"));
        m_window = make();
        m_window->open();
        WAIT_VERIFY(pdfButton()->isEnabled());
    }
    void cleanup() override
    {
        m_window.reset();
        m_access.reset();
        m_sandbox.reset();
        TestCase::cleanup();
    }

    void savesWhatIsTyped()
    {
        find<QLineEdit>(*m_window, "reportEngineerEdit")->setFocus();
        QTest::keyClicks(find<QLineEdit>(*m_window, "reportEngineerEdit"), "A. Weber");
        QTest::keyClicks(find<QLineEdit>(*m_window, "reportReferenceEdit"), "PO 4711");
        find<QPlainTextEdit>(*m_window, "reportRemarksEdit")->setPlainText("North wing done");
        // Before the user pauses.
        const QString path = m_sandbox->path("report.html");
        find<QPushButton>(*m_window, "reportHtmlButton")->click();
        answerFileDialog(*m_window, path);
        WAIT_VERIFY(QFile::exists(path));
        const QString html = QString::fromUtf8(Sandbox::readFile(path));
        for (const char* expected : {"A. Weber", "PO 4711", "North wing done", "Hall 1"}) {
            QVERIFY2(html.contains(expected), expected);
        }
        QVERIFY(status().contains(QDir::toNativeSeparators(path)));
        // Another window, another day.
        m_window = make();
        QCOMPARE(find<QLineEdit>(*m_window, "reportEngineerEdit")->text(), QString("A. Weber"));
        QCOMPARE(find<QLineEdit>(*m_window, "reportReferenceEdit")->text(), QString("PO 4711"));
    }

    void saysWhatCannotBeSaved()
    {
        pdfButton()->click();
        answerFileDialog(*m_window, m_sandbox->path("no such folder/report.pdf"));
        WAIT_VERIFY(m_window->findChild<QMessageBox*>("reportSaveBox"));
        QVERIFY(find<QMessageBox>(*m_window, "reportSaveBox")->text().contains("report.pdf"));
        QVERIFY(status().startsWith("Not saved"));
        QVERIFY(pdfButton()->isEnabled());
    }

    void takesAnotherSpan()
    {
        auto* span = find<QComboBox>(*m_window, "reportSpanBox");
        QVERIFY(span->currentText().contains("08:12:00"));
        auto* from = find<QDateTimeEdit>(*m_window, "reportFromEdit");
        QVERIFY(!from->isEnabled());
        span->setCurrentIndex(2);
        emit span->activated(2);
        QVERIFY(from->isEnabled());
        from->setDateTime(QDateTime(QDate(2026, 3, 4), QTime(8, 13)));
        find<QDateTimeEdit>(*m_window, "reportToEdit")
            ->setDateTime(QDateTime(QDate(2026, 3, 4), QTime(8, 12)));
        emit from->editingFinished();
        QVERIFY(status().contains("before its begin"));
        QVERIFY(!pdfButton()->isEnabled()); // what is shown is not what is chosen
        find<QDateTimeEdit>(*m_window, "reportToEdit")
            ->setDateTime(QDateTime(QDate(2026, 3, 4), QTime(8, 14)));
        emit from->editingFinished();
        WAIT_VERIFY(pdfButton()->isEnabled());
        const QString path = m_sandbox->path("report.html");
        find<QPushButton>(*m_window, "reportHtmlButton")->click();
        answerFileDialog(*m_window, path);
        WAIT_VERIFY(QFile::exists(path));
        QVERIFY(Sandbox::readFile(path).contains("2026-03-04: 08:13:00"));
    }

    void followsTheRecordingInForce()
    {
        m_access->setPath(m_sandbox->path("another"));
        WAIT_VERIFY(pdfButton()->isEnabled());
        const QString path = m_sandbox->path("report.html");
        find<QPushButton>(*m_window, "reportHtmlButton")->click();
        answerFileDialog(*m_window, path);
        WAIT_VERIFY(QFile::exists(path));
        QVERIFY(Sandbox::readFile(path).contains("Nothing is recorded of this time."));
    }

private:
    std::unique_ptr<ReportWindow> make()
    {
        const auto installation = [] {
            ReportRequest request;
            request.head.installation = "Hall 1";
            return request;
        };
        return std::make_unique<ReportWindow>(
            ReportWindow::Surroundings{m_access.get(), [] {},
                                       [this] { return m_visit->end / 1000; }, installation,
                                       ReportMaker::Thread::Callers},
            nullptr);
    }
    QPushButton* pdfButton() const { return find<QPushButton>(*m_window, "reportPdfButton"); }
    QString status() const { return find<QLabel>(*m_window, "reportStatusLabel")->text(); }

    std::unique_ptr<Sandbox> m_sandbox;
    std::unique_ptr<ReportedVisit> m_visit;
    std::unique_ptr<RecordingAccess> m_access;
    std::unique_ptr<ReportWindow> m_window;
};

REGISTER_TEST(TestReportWindow, QApplication)
#include "tst_reportwindow.moc"
