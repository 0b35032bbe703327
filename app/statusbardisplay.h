#pragma once

#include <QCoreApplication>
#include <QString>

#include <functional>

class QLabel;
class QProgressBar;
class QStatusBar;

/// The main window's status bar: timed messages, a progress bar for scans and transfers, the count
/// label and the queue label. It keeps the figures, so that every text can be shown again in
/// another language. GUI thread.
class StatusBarDisplay
{
    Q_DECLARE_TR_FUNCTIONS(MainWindow)
public:
    /// Adds its widgets to `bar`, which owns them and outlives this object.
    explicit StatusBarDisplay(QStatusBar* bar);

    /// Shows what `text` gives, for `milliseconds` or, at 0, until another message comes.
    void showMessage(std::function<QString()> text, int milliseconds = 0);
    void clearMessage();

    // What the count label says.
    void showAvailable(int ldbCount);
    void showLoading();
    /// Stays, whatever `showAvailable()` says, until `clearFailure()`.
    void showFailure();
    void clearFailure();

    void showQueueLength(int commands);

    /// A scan that has checked that many addresses.
    void showScanProgress(int checked, int found);
    /// A transfer with so many commands left.
    void showTransferProgress(int left, int total);
    void hideProgress();

    /// Says that only this LDB is polled; nothing for an empty id.
    void showPolledAlone(const QString& hexId);

    void retranslate();

private:
    enum class Count
    {
        Available,
        Loading,
        Failed
    };

    void updateCount();

    QStatusBar* m_bar;
    QProgressBar* m_progress;
    QLabel* m_polledAlone;
    QLabel* m_count;
    QLabel* m_queue;
    std::function<QString()> m_message;
    int m_messageMs = 0;
    Count m_shownCount = Count::Available;
    int m_ldbs = 0;
    int m_commands = 0;
    QString m_hexIdPolledAlone;
};
