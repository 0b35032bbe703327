#pragma once

#include "recording/recordedvalues.h"

#include <QDialog>

class QDateTimeEdit;

/// Asks for a moment within a recording, in local time. Deletes itself when it is closed. GUI
/// thread.
class GoToDialog : public QDialog
{
    Q_OBJECT
public:
    /// Moments are UTC, µs since 1970.
    GoToDialog(TimeSpan extent, qint64 proposed, QWidget* parent);

signals:
    void chosen(qint64 at);

private:
    QDateTimeEdit* m_time;
};
