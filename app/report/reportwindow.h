#pragma once

#include "app/report/reportmaker.h"
#include "importexport/report/visitreport.h"

#include <QTimer>
#include <QWidget>

#include <functional>
#include <optional>

class QCheckBox;
class QComboBox;
class QDateTimeEdit;
class QFormLayout;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;
class RecordingAccess;
class ReportPreview;
class VisitReading;

/// The window "Report of the visit": its choices, the preview, and saving and printing. Nothing
/// waits for it: other threads collect and make the report. Closing only hides it. GUI thread.
class ReportWindow : public QWidget
{
    Q_OBJECT
public:
    struct Surroundings
    {
        RecordingAccess* access = nullptr;
        std::function<void()> flush;      ///< writes what was told by now into the recording
        std::function<qint64()> wallTime; ///< ms since 1970 UTC
        /// The installation's name and place, and its remembered LDBs.
        std::function<ReportRequest()> installation;
        ReportMaker::Thread thread = ReportMaker::Thread::Own;
    };

    /// What the surroundings point to outlives this object.
    ReportWindow(Surroundings around, QWidget* parent);
    ~ReportWindow() override;

public slots:
    /// Opens the window with a report of today's visit.
    void open();

protected:
    void changeEvent(QEvent* event) override;

private:
    enum class Span : int
    {
        Visit,
        Today,
        FromTo
    };
    /// What is under way, or shown.
    enum class State
    {
        Empty,
        Collecting,
        Making,
        Ready
    };

    void build();
    QWidget* buildForm();
    void connectAll();
    void retranslate();
    void loadUsers();
    void keepUsers() const;

    void findVisit();
    void collect();
    void make();
    void makeTyped();
    void setState(State state);
    void updateControls();
    TimeSpan span() const;
    ReportHead head() const;
    ReportPages::Paper paper() const;

    void save(bool isPdf);
    void print();
    void tellSaved(const QString& path, const QString& failure);

    Surroundings m_around;
    VisitReading* m_reading;
    ReportMaker* m_maker;
    std::optional<VisitReport> m_report; ///< collected
    std::optional<TimeSpan> m_visit;
    State m_state = State::Empty;
    QTimer m_typing; ///< a document is made when the user pauses
    QString m_folder;

    QFormLayout* m_form = nullptr;
    QComboBox* m_span = nullptr;
    QDateTimeEdit* m_from = nullptr;
    QDateTimeEdit* m_to = nullptr;
    QLineEdit* m_engineer = nullptr;
    QLineEdit* m_reference = nullptr;
    QPlainTextEdit* m_remarks = nullptr;
    QCheckBox* m_appendix = nullptr;
    QComboBox* m_paper = nullptr;
    QPushButton* m_refresh = nullptr;
    QPushButton* m_pdf = nullptr;
    QPushButton* m_html = nullptr;
    QPushButton* m_print = nullptr;
    QLabel* m_status = nullptr;
    ReportPreview* m_preview = nullptr;
};
