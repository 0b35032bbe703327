#include "app/report/reportwindow.h"

#include "app/notices/filedialog.h"
#include "app/notices/messagebox.h"
#include "app/report/reportpreview.h"
#include "app/report/visitreading.h"
#include "app/shared/constants.h"
#include "app/shared/usersettings.h"
#include "importexport/report/visitcollector.h"
#include "recording/recordingaccess.h"
#include "serial/ldb/microseconds.h"
#include "views/quality/qualityfindings.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateTimeEdit>
#include <QDir>
#include <QEvent>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QPlainTextEdit>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QShortcut>
#include <QSplitter>
#include <QStandardPaths>
#include <QVBoxLayout>

#include <memory>
#include <utility>
#include <vector>

namespace {

constexpr QSize kWindowSize{1100, 680}; // fits on a 1366 x 768 screen
constexpr int kFormWidth = 330;
constexpr int kTypingPause = 700; // ms
constexpr int kLongestLine = 200;
using microseconds::kMillisecond;
const QString kMomentFormat = QStringLiteral("yyyy-MM-dd HH:mm:ss");
const QString kDayFormat = QStringLiteral("yyyy-MM-dd");

/// What can be said of the line for certain, in the language in force.
QString lineWords(const std::vector<RecordedMinute>& ofLdbs)
{
    CountsOfLdbs counts;
    for (const RecordedMinute& line : ofLdbs) {
        counts[line.hexId].add(line);
    }
    return qualityfindings::text(counts);
}

/// A part of a file's name.
QString withoutSeparators(QString text)
{
    for (const QChar c : QStringLiteral("/\\:*?\"<>|")) {
        text.replace(c, QLatin1Char('-'));
    }
    return text.trimmed();
}

template <typename Widget>
Widget* named(const char* name)
{
    auto* widget = new Widget;
    widget->setObjectName(QLatin1String(name));
    return widget;
}

} // namespace

ReportWindow::ReportWindow(Surroundings around, QWidget* parent)
    : QWidget(parent, Qt::Window)
    , m_around(std::move(around))
    , m_reading(new VisitReading(m_around.access, this))
    , m_maker(new ReportMaker(&lineWords, m_around.thread, this))
    , m_folder(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation))
{
    setObjectName(QStringLiteral("reportWindow"));
    build();
    loadUsers();
    connectAll();
    retranslate();
}

ReportWindow::~ReportWindow() = default;

void ReportWindow::build()
{
    m_preview = named<ReportPreview>("reportPreview");
    auto* splitter = new QSplitter;
    splitter->addWidget(buildForm());
    splitter->addWidget(m_preview);
    splitter->setStretchFactor(0, 0);
    splitter->setStretchFactor(1, 1);
    splitter->setSizes({kFormWidth, kWindowSize.width() - kFormWidth});
    splitter->setChildrenCollapsible(false);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(splitter);
    resize(kWindowSize);
    m_typing.setSingleShot(true);
    m_typing.setInterval(kTypingPause);
}

QWidget* ReportWindow::buildForm()
{
    m_span = named<QComboBox>("reportSpanBox");
    m_span->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_span->setMinimumContentsLength(20);
    m_from = named<QDateTimeEdit>("reportFromEdit");
    m_to = named<QDateTimeEdit>("reportToEdit");
    m_engineer = named<QLineEdit>("reportEngineerEdit");
    m_reference = named<QLineEdit>("reportReferenceEdit");
    m_remarks = named<QPlainTextEdit>("reportRemarksEdit");
    m_appendix = named<QCheckBox>("reportAppendixBox");
    m_paper = named<QComboBox>("reportPaperBox");
    m_refresh = named<QPushButton>("reportRefreshButton");
    m_pdf = named<QPushButton>("reportPdfButton");
    m_html = named<QPushButton>("reportHtmlButton");
    m_print = named<QPushButton>("reportPrintButton");
    m_status = named<QLabel>("reportStatusLabel");
    for (QDateTimeEdit* edit : {m_from, m_to}) {
        edit->setDisplayFormat(kMomentFormat);
        edit->setCalendarPopup(true);
    }
    for (QLineEdit* edit : {m_engineer, m_reference}) {
        edit->setMaxLength(kLongestLine);
    }
    m_remarks->setTabChangesFocus(true);
    m_span->addItems({{}, {}, {}});
    m_paper->addItems({QStringLiteral("A4"), QStringLiteral("Letter")});
    m_status->setWordWrap(true);
    m_status->setTextFormat(Qt::PlainText);
    m_status->setTextInteractionFlags(Qt::TextSelectableByMouse);

    auto* form = new QWidget;
    m_form = new QFormLayout;
    m_form->setRowWrapPolicy(QFormLayout::WrapAllRows);
    for (QWidget* field : std::initializer_list<QWidget*>{m_span, m_from, m_to, m_engineer,
                                                          m_reference, m_remarks, m_paper}) {
        auto* label = new QLabel;
        label->setBuddy(field);
        m_form->addRow(label, field);
    }
    m_form->addRow(m_appendix);
    auto* buttons = new QVBoxLayout;
    for (QPushButton* button : {m_refresh, m_pdf, m_html, m_print}) {
        buttons->addWidget(button);
    }
    auto* layout = new QVBoxLayout(form);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(m_form, 1);
    layout->addWidget(m_status);
    layout->addLayout(buttons);
    return form;
}

void ReportWindow::connectAll()
{
    connect(m_reading, &VisitReading::collected, this, [this](const VisitReport& report) {
        m_report = report;
        make();
    });
    connect(m_reading, &VisitReading::dropped, this, [this] {
        m_report.reset();
        m_visit.reset();
        if (isVisible()) {
            findVisit();
        }
    });
    connect(m_maker, &ReportMaker::made, this, [this](int pages, QSizeF paper) {
        m_preview->setPages(pages, paper);
        setState(State::Ready);
    });
    connect(m_maker, &ReportMaker::drawn, m_preview, &ReportPreview::showPage);
    connect(m_maker, &ReportMaker::saved, this, &ReportWindow::tellSaved);
    connect(m_maker, &ReportMaker::printed, this, [this](bool isDone) {
        m_status->setText(isDone ? tr("Printed.") : tr("It could not be printed."));
    });
    connect(m_preview, &ReportPreview::pageWanted, m_maker, &ReportMaker::draw);

    connect(m_span, QOverload<int>::of(&QComboBox::activated), this, [this] {
        updateControls();
        collect();
    });
    for (const QDateTimeEdit* edit : {m_from, m_to}) {
        connect(edit, &QDateTimeEdit::editingFinished, this, &ReportWindow::collect);
    }
    connect(m_appendix, &QCheckBox::clicked, this, &ReportWindow::collect);
    connect(m_refresh, &QPushButton::clicked, this, &ReportWindow::findVisit);
    connect(new QShortcut(QKeySequence::Refresh, this), &QShortcut::activated, this,
            &ReportWindow::findVisit);
    const auto later = [this] {
        m_typing.start();
    };
    connect(m_engineer, &QLineEdit::textEdited, this, later);
    connect(m_reference, &QLineEdit::textEdited, this, later);
    connect(m_remarks, &QPlainTextEdit::textChanged, this, later);
    connect(&m_typing, &QTimer::timeout, this, &ReportWindow::make);
    connect(m_paper, QOverload<int>::of(&QComboBox::activated), this, &ReportWindow::make);
    connect(m_pdf, &QPushButton::clicked, this, [this] { save(true); });
    connect(m_html, &QPushButton::clicked, this, [this] { save(false); });
    connect(m_print, &QPushButton::clicked, this, &ReportWindow::print);
}

void ReportWindow::loadUsers()
{
    const QSettings settings = userSettings();
    m_engineer->setText(settings.value(constants::kReportEngineerKey).toString());
    m_reference->setText(settings.value(constants::kReportReferenceKey).toString());
    // The country's printers hold A4 or Letter.
    const bool isMetric = QLocale::system().measurementSystem() == QLocale::MetricSystem;
    const int usual =
        static_cast<int>(isMetric ? ReportPages::Paper::A4 : ReportPages::Paper::Letter);
    m_paper->setCurrentIndex(
        qBound(0, settings.value(constants::kReportPaperKey, usual).toInt(), m_paper->count() - 1));
}

void ReportWindow::keepUsers() const
{
    QSettings settings = userSettings();
    settings.setValue(constants::kReportEngineerKey, m_engineer->text());
    settings.setValue(constants::kReportReferenceKey, m_reference->text());
    settings.setValue(constants::kReportPaperKey, m_paper->currentIndex());
}

void ReportWindow::open()
{
    Q_ASSERT(QThread::currentThread() == thread());
    show();
    raise();
    activateWindow();
    findVisit();
}

/// Finds today's visit, then collects what is chosen.
void ReportWindow::findVisit()
{
    m_around.flush();
    setState(State::Collecting);
    const qint64 now = m_around.wallTime() * kMillisecond;
    m_around.access->ask(
        this, [now](RecordingReader& reader) { return visitOfToday(reader, now + 1); },
        [this](TimeSpan visit) {
            const bool isFirst = !m_visit;
            m_visit = visit;
            m_span->setItemText(
                int(Span::Visit),
                tr("This visit, since %1")
                    .arg(microseconds::localTime(visit.from).toString(QStringLiteral("HH:mm:ss"))));
            if (isFirst) {
                m_from->setDateTime(microseconds::localTime(visit.from));
                m_to->setDateTime(microseconds::localTime(visit.to));
            }
            collect();
        });
}

void ReportWindow::collect()
{
    const TimeSpan chosen = span();
    if (chosen.from >= chosen.to) {
        setState(State::Empty);
        m_status->setText(tr("The end of the span is before its begin."));
        return;
    }
    ReportRequest request = m_around.installation();
    request.span = chosen;
    request.hasAppendix = m_appendix->isChecked();
    setState(State::Collecting);
    m_reading->begin(request);
}

void ReportWindow::make()
{
    m_typing.stop();
    keepUsers();
    if (!m_report || m_reading->isOn()) {
        return;
    }
    m_report->head = head();
    setState(State::Making);
    m_maker->make(*m_report, paper());
}

/// Makes the document anew if something was typed since, so that nothing typed is missing in what
/// leaves the window.
void ReportWindow::makeTyped()
{
    if (m_typing.isActive()) {
        make();
    }
}

void ReportWindow::setState(State state)
{
    m_state = state;
    switch (state) {
    case State::Collecting:
        m_status->setText(tr("Reading the recording..."));
        m_preview->setText(m_status->text());
        break;
    case State::Making:
        m_status->setText(tr("Making the pages..."));
        break;
    case State::Empty:
    case State::Ready:
        m_status->clear();
        break;
    }
    updateControls();
}

void ReportWindow::updateControls()
{
    const bool isFree = m_span->currentIndex() == int(Span::FromTo);
    m_from->setEnabled(isFree);
    m_to->setEnabled(isFree);
    for (QPushButton* button : {m_pdf, m_html, m_print}) {
        button->setEnabled(m_state == State::Ready);
    }
}

TimeSpan ReportWindow::span() const
{
    const qint64 now = m_around.wallTime() * kMillisecond + 1;
    switch (static_cast<Span>(m_span->currentIndex())) {
    case Span::Visit:
        if (m_visit) {
            return {m_visit->from, now};
        }
        break;
    case Span::FromTo:
        return {microseconds::of(m_from->dateTime()), microseconds::of(m_to->dateTime())};
    case Span::Today:
        break;
    }
    return {microseconds::of(microseconds::localTime(now).date().startOfDay()), now};
}

ReportHead ReportWindow::head() const
{
    ReportHead head = m_around.installation().head;
    head.engineer = m_engineer->text();
    head.reference = m_reference->text();
    head.remarks = m_remarks->toPlainText();
    head.program = QStringLiteral("%1 %2").arg(constants::kApplicationDisplayName,
                                               constants::kApplicationVersion);
    return head;
}

ReportPages::Paper ReportWindow::paper() const
{
    return static_cast<ReportPages::Paper>(m_paper->currentIndex());
}

void ReportWindow::save(bool isPdf)
{
    const QString suffix = isPdf ? QStringLiteral("pdf") : QStringLiteral("html");
    const QString name =
        QStringLiteral("%1 %2.%3")
            .arg(withoutSeparators(m_report->head.installation),
                 microseconds::localTime(m_report->span.from).toString(kDayFormat), suffix);
    filedialog::save(
        this, isPdf ? tr("Save the Report as PDF") : tr("Save the Report as HTML"),
        QDir(m_folder).filePath(name.trimmed()), false,
        [this, isPdf](const QString& path) {
            m_folder = QFileInfo(path).absolutePath();
            makeTyped();
            m_status->setText(tr("Writing %1").arg(QDir::toNativeSeparators(path)));
            isPdf ? m_maker->savePdf(path) : m_maker->saveHtml(path);
        },
        suffix);
}

void ReportWindow::tellSaved(const QString& path, const QString& failure)
{
    const QString shown = QDir::toNativeSeparators(path);
    if (failure.isEmpty()) {
        m_status->setText(tr("Saved: %1").arg(shown));
        return;
    }
    m_status->setText(tr("Not saved: %1").arg(shown));
    MessageBox::tell(
        this, QMessageBox::Warning,
        [shown, failure] {
            return BoxText{tr("Report of the Visit"), tr("%1 could not be written.").arg(shown),
                           failure};
        },
        QStringLiteral("reportSaveBox"));
}

void ReportWindow::print()
{
    auto printer = std::make_shared<QPrinter>(QPrinter::HighResolution);
    printer->setPageSize(
        QPageSize(paper() == ReportPages::Paper::A4 ? QPageSize::A4 : QPageSize::Letter));
    printer->setFullPage(true);
    printer->setDocName(windowTitle());
    auto* dialog = new QPrintDialog(printer.get(), this);
    dialog->setObjectName(QStringLiteral("reportPrintDialog"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    // The dialog uses the printer until it is gone.
    auto isWanted = std::make_shared<bool>(false);
    connect(dialog, &QDialog::accepted, this, [isWanted] { *isWanted = true; });
    connect(dialog, &QObject::destroyed, this, [this, printer, isWanted] {
        if (*isWanted) {
            makeTyped();
            m_status->setText(tr("Printing..."));
            m_maker->print(printer);
        }
    });
    dialog->open();
}

void ReportWindow::retranslate()
{
    setWindowTitle(tr("Report of the Visit"));
    const auto label = [this](QWidget* field, const QString& text) {
        qobject_cast<QLabel*>(m_form->labelForField(field))->setText(text);
    };
    label(m_span, tr("&Time:"));
    label(m_from, tr("F&rom:"));
    label(m_to, tr("T&o:"));
    label(m_engineer, tr("&Engineer:"));
    label(m_reference, tr("&Customer's reference:"));
    label(m_remarks, tr("Re&marks:"));
    label(m_paper, tr("&Paper:"));
    m_span->setItemText(int(Span::Visit), tr("This visit"));
    m_span->setToolTip(tr("This visit began with today's first start of the bus"));
    m_span->setItemText(int(Span::Today), tr("Today"));
    m_span->setItemText(int(Span::FromTo), tr("From, to"));
    m_appendix->setText(tr("&Settings of all LDB's as an appendix"));
    m_appendix->setToolTip(tr("Those that were read in this time. \"Settings of all LDB's\" reads "
                              "them all"));
    m_refresh->setText(tr("Re&fresh"));
    m_refresh->setToolTip(tr("Reads the recording again (F5)"));
    m_pdf->setText(tr("Save as P&DF..."));
    m_html->setText(tr("Save as &HTML..."));
    m_print->setText(tr("Pri&nt..."));
    m_preview->setAccessibleName(tr("Pages of the report"));
}

void ReportWindow::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange) {
        retranslate();
        if (isVisible()) {
            findVisit(); // the texts of records are in the language in which they are read
        }
    }
}
