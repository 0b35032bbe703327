#pragma once

#include "app/shared/text.h"

#include <QCoreApplication>
#include <QString>

class Notices;
class QLabel;
class QProgressBar;
class QStatusBar;

/// What stands in the main window's status bar beside the messages: a progress bar for scans and
/// transfers, the count label and the queue label. It keeps the figures, so that every text can be
/// shown again in another language. GUI thread.
class StatusBarDisplay
{
    Q_DECLARE_TR_FUNCTIONS(MainWindow)
public:
    /// Adds its widgets to `bar`, which owns them. `notices`, which speaks in the same bar,
    /// outlives this object.
    StatusBarDisplay(QStatusBar* bar, Notices* notices);

    // What the count label says.
    /// `ldbCount`: those known, `lost` of which do not answer.
    void showAvailable(int ldbCount, int lost = 0);
    void showLoading();
    /// Stays, whatever `showAvailable()` says, until `clearFailure()`.
    void showFailure();
    void clearFailure();

    void showQueueLength(int commands);

    /// A scan that has checked that many addresses.
    void showScanProgress(int checked, int found);
    /// A transfer with so many commands left.
    void showTransferProgress(int left, int total);
    /// With the message of a scan, but with no other: what became of an action stays.
    void hideProgress();

    void retranslate();

private:
    void showCount(const Text& text);

    Notices* m_notices;
    QProgressBar* m_progress;
    QLabel* m_count;
    QLabel* m_queue;
    Text m_countText;
    bool m_hasFailed = false;
    bool m_isScanning = false;
    int m_ldbs = 0;
    int m_lost = 0;
    int m_commands = 0;
};
