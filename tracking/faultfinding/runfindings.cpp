#include "tracking/faultfinding/runfindings.h"

#include "app/notices/messagebox.h"
#include "tracking/faultfinding/alarmsound.h"

#include <QApplication>
#include <QTimer>
#include <QWidget>

RunFindings::RunFindings(QWidget* window)
    : QObject(window)
    , m_window(window)
    , m_alarmSound(new AlarmSound(this))
{
}

void RunFindings::clear()
{
    m_report = TrackingReport();
}

void RunFindings::silence()
{
    m_alarmSound->stop();
}

void RunFindings::addSideEnd(int ldbPort, SideEnd end)
{
    // Opens the box after the rest of the record has been processed.
    QTimer::singleShot(0, this, [this, ldbPort, end] {
        if (const auto* box =
                openBox([ldbPort, end] { return trackingtexts::sideAlarm(ldbPort, end); })) {
            m_alarmSound->soundWhileOpen(box);
            QApplication::alert(m_window);
        }
    });
}

void RunFindings::addFault(const FaultReport& report)
{
    m_report.faults.append(report);
    QTimer::singleShot(
        0, this, [this, report] { openBox([report] { return trackingtexts::fault(report); }); });
}

void RunFindings::finish(const QString& hexId, const QString& name, const TrackingRun& run,
                         const QString& summary)
{
    m_report.hexId = hexId;
    m_report.name = name;
    m_report.mode = run.mode();
    m_report.finishedAt = QDateTime::currentDateTime();
    const FimCounter& counter = run.counter();
    for (int port : {PrimaryPort, SecondaryPort}) {
        m_report.sides[port] = {counter.fimCount(port), counter.isSideTracked(port),
                                counter.isSideFinished(port), counter.sideResult(port)};
    }
    m_report.summary = summary;
}

QString RunFindings::reportText() const
{
    return m_report.finishedAt.isValid() ? trackingtexts::report(m_report) : QString();
}

/// Nothing where the window has been closed since.
MessageBox* RunFindings::openBox(const Text& message)
{
    if (!m_window->isVisible()) {
        return nullptr;
    }
    MessageBox* box = MessageBox::tell(m_window, QMessageBox::Warning, [message] {
        return BoxText{tr("Attention"), message()};
    });
    box->setStyleSheet(QStringLiteral("QLabel { font-size: 20px; }")); // read from a distance
    return box;
}
