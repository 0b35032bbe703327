#include "app/notices/statusbardisplay.h"

#include "app/notices/notices.h"
#include "serial/ldb/busaddress.h"

#include <QLabel>
#include <QProgressBar>
#include <QStatusBar>

#include <utility>

namespace {

constexpr int kScanMessageMs = 2500;
constexpr int kProgressBarWidth = 160;

} // namespace

StatusBarDisplay::StatusBarDisplay(QStatusBar* bar, Notices* notices)
    : m_notices(notices)
    , m_progress(new QProgressBar)
    , m_polledAlone(new QLabel)
    , m_count(new QLabel)
    , m_queue(new QLabel)
{
    m_progress->setObjectName(QStringLiteral("progressBar"));
    m_progress->setFixedWidth(kProgressBarWidth);
    m_polledAlone->setObjectName(QStringLiteral("polledAloneLabel"));
    m_count->setObjectName(QStringLiteral("countLabel"));
    m_queue->setObjectName(QStringLiteral("queueLabel"));
    bar->addPermanentWidget(m_progress);
    bar->addPermanentWidget(m_polledAlone);
    bar->addPermanentWidget(m_count);
    bar->addPermanentWidget(m_queue);
    m_progress->hide();
    m_polledAlone->hide();
}

void StatusBarDisplay::showAvailable(int ldbCount)
{
    m_ldbs = ldbCount;
    if (m_shownCount != Count::Failed) {
        m_shownCount = Count::Available;
    }
    updateCount();
}

void StatusBarDisplay::showLoading()
{
    if (m_shownCount != Count::Failed) {
        m_shownCount = Count::Loading;
    }
    updateCount();
}

void StatusBarDisplay::showFailure()
{
    m_shownCount = Count::Failed;
    updateCount();
}

void StatusBarDisplay::clearFailure()
{
    if (m_shownCount == Count::Failed) {
        m_shownCount = Count::Available;
        updateCount();
    }
}

void StatusBarDisplay::updateCount()
{
    switch (m_shownCount) {
    case Count::Available:
        m_count->setText(tr("Available LDB's: %n.", nullptr, m_ldbs));
        break;
    case Count::Loading:
        m_count->setText(tr("Loading LDB device list..."));
        break;
    case Count::Failed:
        m_count->setText(tr("Serial communication failed."));
        break;
    }
}

void StatusBarDisplay::showQueueLength(int commands)
{
    m_commands = commands;
    m_queue->setText(tr("Serial commands in queue: ") + QString::number(commands));
}

void StatusBarDisplay::showScanProgress(int checked, int found)
{
    m_isScanning = true;
    m_notices->say(
        [checked, found] {
            return tr("Scanning for connected LDB's...  LDB's Checked %1, LDB's Found %2")
                .arg(checked)
                .arg(found);
        },
        kScanMessageMs);
    m_progress->setRange(0, busaddress::kLast);
    m_progress->setValue(checked);
    m_progress->show();
}

void StatusBarDisplay::showTransferProgress(int left, int total)
{
    m_progress->setRange(0, total);
    m_progress->setValue(total - left);
    m_progress->show();
}

void StatusBarDisplay::hideProgress()
{
    if (std::exchange(m_isScanning, false)) {
        m_notices->hush();
    }
    m_progress->hide();
    m_progress->reset();
}

void StatusBarDisplay::showPolledAlone(const QString& hexId)
{
    m_hexIdPolledAlone = hexId;
    m_polledAlone->setVisible(!hexId.isEmpty());
    m_polledAlone->setText(tr("Only LDB %1 is polled.").arg(hexId));
}

void StatusBarDisplay::retranslate()
{
    m_progress->setAccessibleName(tr("Progress"));
    updateCount();
    showQueueLength(m_commands);
    showPolledAlone(m_hexIdPolledAlone);
}
