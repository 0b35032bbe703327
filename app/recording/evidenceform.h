#pragma once

#include "app/recording/evidencewriter.h"

#include <QDialog>

#include <functional>
#include <optional>

class QButtonGroup;
class QComboBox;
class QDateTimeEdit;
class QGroupBox;
class QLabel;
class QProgressBar;
class QPushButton;
class QRadioButton;
class QSpinBox;
class RecordingControl;

/// Takes evidence home: which part of the recording, of which span, into which file. Nothing waits
/// for it, and the writing goes on when the form is closed. GUI thread.
class EvidenceForm : public QDialog
{
    Q_OBJECT
public:
    enum class Span
    {
        Visit, ///< since today's first start
        LastHour,
        Today,
        FromTo
    };
    struct Surroundings
    {
        RecordingControl* control;
        std::function<qint64()> wallTime; ///< ms since 1970 UTC
        std::function<QString()> selectedLdb;
        std::function<QString()> installation; ///< its title
    };

    /// What the surroundings point to outlives this object.
    EvidenceForm(Surroundings around, QWidget* parent);

    /// Opens it with this kind chosen, of this visit; raises it if it is open.
    void offer(EvidenceOrder::Kind kind);
    bool isWriting() const { return m_writer->isOn(); }

protected:
    void changeEvent(QEvent* event) override;

private:
    void build();
    void connectAll();
    void retranslate();
    void apply();
    void findVisit();
    void showVisit();
    /// The span chosen, µs since 1970.
    TimeSpan span() const;
    EvidenceOrder::Kind kind() const;
    void save();
    void chooseFolder();
    void begin(const QString& path);
    void end(EvidenceWriter::Outcome outcome, const QString& reason);

    Surroundings m_around;
    EvidenceWriter* m_writer;
    std::optional<qint64> m_visit; ///< when it began, ms since 1970; none: nothing today
    QString m_path;                ///< of what is, or was, written
    QString m_folder;              ///< proposed

    QGroupBox* m_whatBox;
    QButtonGroup* m_what; ///< ids: `EvidenceOrder::Kind`
    QLabel* m_ldbLabel;
    QComboBox* m_ldb;
    QLabel* m_intervalLabel;
    QSpinBox* m_interval;
    QGroupBox* m_spanBox;
    QButtonGroup* m_span; ///< ids: `Span`
    QDateTimeEdit* m_from;
    QDateTimeEdit* m_to;
    QLabel* m_state;
    QProgressBar* m_progress;
    QPushButton* m_save;
    QPushButton* m_stop;
    QPushButton* m_close;
};
