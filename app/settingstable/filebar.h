#pragma once

#include <QFrame>

class QLabel;
class QPushButton;

/// A strip above the table that says where values come from, with what can be done about it. GUI
/// thread.
class FileBar : public QFrame
{
    Q_OBJECT
public:
    explicit FileBar(QWidget* parent = nullptr);

    /// An empty text hides a button.
    void show(const QString& text, const QString& otherReading, const QString& details,
              const QString& close, bool isWarning);

signals:
    void otherReadingWanted();
    void detailsWanted();
    void closed();

private:
    QLabel* m_label;
    QPushButton* m_otherReading;
    QPushButton* m_details;
    QPushButton* m_close;
};
