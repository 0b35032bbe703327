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
    , m_count(new QLabel)
    , m_queue(new QLabel)
{
    m_progress->setFixedWidth(kProgressBarWidth);
    const auto add = [bar](QWidget* widget, const char* name) {
        widget->setObjectName(QLatin1String(name));
        bar->addPermanentWidget(widget);
    };
    add(m_progress, "progressBar");
    add(m_count, "countLabel");
    add(m_queue, "queueLabel");
    m_progress->hide();
    showAvailable(0);
}

void StatusBarDisplay::showAvailable(int ldbCount, int lost)
{
    m_ldbs = ldbCount;
    m_lost = lost;
    showCount([ldbCount, lost] {
        return lost == 0
                   ? tr("Available LDB's: %n.", nullptr, ldbCount)
                   : tr("%1 of %2 answer, %3 lost.").arg(ldbCount - lost).arg(ldbCount).arg(lost);
    });
}

void StatusBarDisplay::showLoading()
{
    showCount([] { return tr("Loading LDB device list..."); });
}

void StatusBarDisplay::showFailure()
{
    showCount([] { return tr("Serial communication failed."); });
    m_hasFailed = true;
}

void StatusBarDisplay::clearFailure()
{
    if (std::exchange(m_hasFailed, false)) {
        showAvailable(m_ldbs, m_lost);
    }
}

void StatusBarDisplay::showCount(const Text& text)
{
    if (!m_hasFailed) {
        m_countText = text;
        m_count->setText(text());
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

void StatusBarDisplay::retranslate()
{
    m_progress->setAccessibleName(tr("Progress"));
    m_count->setText(m_countText());
    showQueueLength(m_commands);
}
