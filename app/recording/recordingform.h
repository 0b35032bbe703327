#pragma once

#include <QDialog>

class QCheckBox;
class QDoubleSpinBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QSpinBox;
class QTreeWidget;
class RecordingControl;

/// The preferences of the recording: on or off, where, how long, how large, and which days of the
/// installation in force stay whatever their age. Only OK stores them. Nothing waits for it. GUI
/// thread.
class RecordingForm : public QDialog
{
    Q_OBJECT
public:
    enum Column
    {
        DayColumn, ///< with the tick that keeps it
        SizeColumn,
        ColumnCount
    };

    /// `control` outlives this object.
    RecordingForm(RecordingControl* control, QWidget* parent);

    /// Opens it with what is set, or raises it.
    void open() override;

protected:
    void changeEvent(QEvent* event) override;

private:
    void build();
    void retranslate();
    void load();
    void loadDays();
    void browse();
    void store();
    /// Why something failed; empty when nothing did.
    QStringList storeDays();

    RecordingControl* m_control;
    QCheckBox* m_isOn;
    QLabel* m_folderLabel;
    QLineEdit* m_folder;
    QPushButton* m_browse;
    QLabel* m_daysLabel;
    QSpinBox* m_days;
    QLabel* m_sizeLabel;
    QDoubleSpinBox* m_size;
    QLabel* m_listLabel;
    QTreeWidget* m_list;
    QPushButton* m_ok;
    QPushButton* m_cancel;
};
