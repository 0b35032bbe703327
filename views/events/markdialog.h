#pragma once

#include <QDialog>

#include <functional>

class QDialogButtonBox;
class QLabel;
class QLineEdit;
class QPushButton;

/// Asks for the line of text of a mark. Nothing waits for it; it deletes itself when closed. GUI
/// thread.
class MarkDialog : public QDialog
{
    Q_OBJECT
public:
    /// `at`: the moment that the mark is for, UTC, µs since 1970. `done` gets the text, which is
    /// never empty; nothing is called when the user changes his mind.
    MarkDialog(qint64 at, std::function<void(const QString&)> done, QWidget* parent);

    void accept() override;

protected:
    void changeEvent(QEvent* event) override;

private:
    void retranslate();

    qint64 m_at;
    std::function<void(const QString&)> m_done;
    QLabel* m_label;
    QLineEdit* m_text;
    QPushButton* m_set;
    QPushButton* m_cancel;
};
