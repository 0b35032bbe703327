#pragma once

#include "tracking/trackingresult.h"

#include <QObject>
#include <QPointer>

class QDialog;
class QWidget;

/// The questions before a tracking run, one after another over a window, none of them blocking:
/// whether to start, what for, and, for fault finding, to disconnect the secondary port.
class StartQuestions : public QObject
{
    Q_OBJECT
public:
    /// `window` is the boxes' parent and this object's.
    explicit StartQuestions(QWidget* window);

    void ask();
    /// Closes the question that is open; no answer comes then.
    void withdraw();

signals:
    /// What the user has chosen; `TrackingMode::Cancelled` if to do nothing.
    void answered(TrackingMode mode);

private:
    void showStartConfirmationDialog();
    void showTrackingModeSelectionDialog();
    void showDisconnectSecondaryPortDialog();
    void openQuestion(QDialog* question);

    QWidget* m_window;
    QPointer<QDialog> m_question;
};
