#include "app/recording/evidenceform.h"

#include "app/notices/filedialog.h"
#include "app/notices/messagebox.h"
#include "app/recording/recordingcontrol.h"
#include "serial/ldb/microseconds.h"

#include <QButtonGroup>
#include <QComboBox>
#include <QDateTimeEdit>
#include <QDir>
#include <QEvent>
#include <QFileDialog>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QVBoxLayout>

#include <algorithm>
#include <limits>
#include <utility>

namespace {

using microseconds::kMillisecond;
constexpr qint64 kHour = 3600LL * 1000;
constexpr int kLongestInterval = 86400;
constexpr int kProgressSteps = 1000;
const QString kMomentFormat = QStringLiteral("yyyy-MM-dd HH:mm:ss");

qint64 midnight(qint64 now)
{
    return QDateTime::fromMSecsSinceEpoch(now).date().startOfDay().toMSecsSinceEpoch();
}

TimeSpan spanOf(qint64 from, qint64 to)
{
    return {from * kMillisecond, to * kMillisecond};
}

/// A part of a file's name.
QString withoutSeparators(QString text)
{
    for (const QChar c : QStringLiteral("/\\:*?\"<>|")) {
        text.replace(c, QLatin1Char('-'));
    }
    return text;
}

QString suffixOf(EvidenceOrder::Kind kind)
{
    return kind == EvidenceOrder::Kind::Capture ? QStringLiteral("pcapng") : QStringLiteral("csv");
}

QRadioButton* addChoice(QButtonGroup* group, int id, const char* name, QLayout* layout)
{
    auto* button = new QRadioButton;
    button->setObjectName(QLatin1String(name));
    group->addButton(button, id);
    layout->addWidget(button);
    return button;
}

} // namespace

EvidenceForm::EvidenceForm(Surroundings around, QWidget* parent)
    : QDialog(parent)
    , m_around(std::move(around))
    , m_writer(new EvidenceWriter(m_around.control->access(), this))
    , m_folder(QDir::homePath())
    , m_whatBox(new QGroupBox)
    , m_what(new QButtonGroup(this))
    , m_ldbLabel(new QLabel)
    , m_ldb(new QComboBox)
    , m_intervalLabel(new QLabel)
    , m_interval(new QSpinBox)
    , m_spanBox(new QGroupBox)
    , m_span(new QButtonGroup(this))
    , m_from(new QDateTimeEdit)
    , m_to(new QDateTimeEdit)
    , m_state(new QLabel)
    , m_progress(new QProgressBar)
    , m_save(new QPushButton)
    , m_stop(new QPushButton)
    , m_close(new QPushButton)
{
    setObjectName(QStringLiteral("evidenceForm"));
    setWindowFlags(Qt::Dialog | Qt::WindowTitleHint | Qt::WindowCloseButtonHint);
    build();
    connectAll();
    retranslate();
}

void EvidenceForm::build()
{
    m_ldb->setObjectName(QStringLiteral("evidenceLdbBox"));
    m_interval->setObjectName(QStringLiteral("evidenceIntervalSpinBox"));
    m_from->setObjectName(QStringLiteral("evidenceFromEdit"));
    m_to->setObjectName(QStringLiteral("evidenceToEdit"));
    m_state->setObjectName(QStringLiteral("evidenceStateLabel"));
    m_progress->setObjectName(QStringLiteral("evidenceProgressBar"));
    m_save->setObjectName(QStringLiteral("evidenceSaveButton"));
    m_stop->setObjectName(QStringLiteral("evidenceStopButton"));
    m_close->setObjectName(QStringLiteral("evidenceCloseButton"));

    auto* what = new QVBoxLayout(m_whatBox);
    addChoice(m_what, int(EvidenceOrder::Kind::Log), "evidenceLogChoice", what);
    auto* log = new QHBoxLayout;
    m_ldbLabel->setBuddy(m_ldb);
    m_intervalLabel->setBuddy(m_interval);
    m_interval->setRange(0, kLongestInterval);
    log->addSpacing(2 * fontMetrics().lineSpacing());
    log->addWidget(m_ldbLabel);
    log->addWidget(m_ldb, 1);
    log->addWidget(m_intervalLabel);
    log->addWidget(m_interval);
    what->addLayout(log);
    addChoice(m_what, int(EvidenceOrder::Kind::Events), "evidenceEventsChoice", what);
    addChoice(m_what, int(EvidenceOrder::Kind::Capture), "evidenceCaptureChoice", what);
    addChoice(m_what, int(EvidenceOrder::Kind::Copy), "evidenceCopyChoice", what);

    auto* spans = new QVBoxLayout(m_spanBox);
    addChoice(m_span, int(Span::Visit), "evidenceVisitChoice", spans);
    addChoice(m_span, int(Span::LastHour), "evidenceLastHourChoice", spans);
    addChoice(m_span, int(Span::Today), "evidenceTodayChoice", spans);
    auto* free = new QHBoxLayout;
    addChoice(m_span, int(Span::FromTo), "evidenceFromToChoice", free);
    for (QDateTimeEdit* edit : {m_from, m_to}) {
        edit->setDisplayFormat(kMomentFormat);
        edit->setCalendarPopup(true);
        free->addWidget(edit, 1);
    }
    spans->addLayout(free);

    m_state->setWordWrap(true);
    m_state->setTextFormat(Qt::PlainText);
    m_state->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_progress->setRange(0, kProgressSteps);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    for (QPushButton* button : {m_save, m_stop, m_close}) {
        buttons->addWidget(button);
        button->setAutoDefault(false);
    }
    m_save->setDefault(true);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_whatBox);
    layout->addWidget(m_spanBox);
    layout->addWidget(m_state);
    layout->addWidget(m_progress);
    layout->addStretch();
    layout->addLayout(buttons);
}

void EvidenceForm::connectAll()
{
    const auto isChosen = QOverload<QAbstractButton*>::of(&QButtonGroup::buttonClicked);
    connect(m_what, isChosen, this, &EvidenceForm::apply);
    connect(m_span, isChosen, this, &EvidenceForm::apply);
    connect(m_save, &QPushButton::clicked, this, &EvidenceForm::save);
    connect(m_stop, &QPushButton::clicked, m_writer, &EvidenceWriter::stop);
    connect(m_close, &QPushButton::clicked, this, &QDialog::close);
    connect(m_writer, &EvidenceWriter::progressed, this,
            [this](double share) { m_progress->setValue(qRound(share * kProgressSteps)); });
    connect(m_writer, &EvidenceWriter::ended, this, &EvidenceForm::end);
}

void EvidenceForm::offer(EvidenceOrder::Kind kind)
{
    if (!m_writer->isOn()) {
        const QDateTime now = QDateTime::fromMSecsSinceEpoch(m_around.wallTime());
        if (!isVisible()) {
            m_from->setDateTime(now.addMSecs(-kHour));
            m_to->setDateTime(now);
            m_span->button(int(Span::Visit))->setChecked(true);
            m_state->clear();
            m_progress->reset();
        }
        m_what->button(int(kind))->setChecked(true);
        const QString selected = m_around.selectedLdb();
        m_ldb->clear();
        m_ldb->addItem(tr("All LDBs"));
        if (!selected.isEmpty()) {
            m_ldb->addItem(tr("LDB %1").arg(selected), selected);
        }
        findVisit();
        apply();
    }
    QDialog::show();
    raise();
    activateWindow();
}

void EvidenceForm::findVisit()
{
    const qint64 from = midnight(m_around.wallTime());
    m_around.control->access()->ask(
        this,
        [from](RecordingReader& reader) {
            return reader.runs({from * kMillisecond, std::numeric_limits<qint64>::max()});
        },
        [this, from](const std::vector<RecordedRun>& runs) {
            m_visit.reset();
            for (const RecordedRun& run : runs) {
                // A run that has gone on since yesterday counts from midnight.
                const qint64 begun = qMax(from, run.begun / kMillisecond);
                m_visit = m_visit ? qMin(*m_visit, begun) : begun;
            }
            showVisit();
        });
}

void EvidenceForm::showVisit()
{
    m_span->button(int(Span::Visit))
        ->setText(m_visit ? tr("This &visit: since today's first start, %1")
                                .arg(QDateTime::fromMSecsSinceEpoch(*m_visit).time().toString(
                                    QStringLiteral("HH:mm:ss")))
                          : tr("This &visit: since today's first start"));
}

EvidenceOrder::Kind EvidenceForm::kind() const
{
    return static_cast<EvidenceOrder::Kind>(m_what->checkedId());
}

TimeSpan EvidenceForm::span() const
{
    const qint64 now = m_around.wallTime();
    switch (static_cast<Span>(m_span->checkedId())) {
    case Span::Visit:
        return spanOf(m_visit.value_or(midnight(now)), now + 1);
    case Span::LastHour:
        return spanOf(now - kHour, now + 1);
    case Span::Today:
        return spanOf(midnight(now), now + 1);
    case Span::FromTo:
        break;
    }
    return spanOf(m_from->dateTime().toMSecsSinceEpoch(), m_to->dateTime().toMSecsSinceEpoch());
}

void EvidenceForm::apply()
{
    const bool isOn = m_writer->isOn();
    const bool isLog = kind() == EvidenceOrder::Kind::Log;
    const bool isFree = m_span->checkedId() == int(Span::FromTo);
    m_whatBox->setEnabled(!isOn);
    m_spanBox->setEnabled(!isOn);
    for (QWidget* field : std::initializer_list<QWidget*>{m_ldb, m_interval}) {
        field->setEnabled(isLog);
    }
    m_from->setEnabled(isFree);
    m_to->setEnabled(isFree);
    m_progress->setVisible(isOn);
    m_save->setEnabled(!isOn);
    m_stop->setEnabled(isOn);
}

void EvidenceForm::save()
{
    const TimeSpan chosen = span();
    if (chosen.from >= chosen.to) {
        m_state->setText(tr("The end of the span is before its begin."));
        return;
    }
    m_around.control->recorder()->flush();
    if (kind() == EvidenceOrder::Kind::Copy) {
        chooseFolder();
        return;
    }
    const QString begun =
        microseconds::localTime(chosen.from).toString(QStringLiteral("yyyy-MM-dd HHmm"));
    const QString suffix = suffixOf(kind());
    const QString name =
        QStringLiteral("%1 %2.%3").arg(withoutSeparators(m_around.installation()), begun, suffix);
    filedialog::save(
        this, tr("Take Evidence Home"), QDir(m_folder).filePath(name.trimmed()), false,
        [this](const QString& path) { begin(path); }, suffix);
}

void EvidenceForm::chooseFolder()
{
    auto* dialog = new QFileDialog(this, tr("Where the Copy Goes"), m_folder);
    dialog->setObjectName(QStringLiteral("evidenceFolderDialog"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::Directory);
    dialog->setOption(QFileDialog::ShowDirsOnly);
    connect(dialog, &QFileDialog::fileSelected, this, [this](const QString& path) {
        // A folder of its own: the files of a recording are read together.
        const QString now = QDateTime::fromMSecsSinceEpoch(m_around.wallTime())
                                .toString(QStringLiteral("yyyy-MM-dd HHmmss"));
        const QString name =
            QStringLiteral("%1 %2").arg(withoutSeparators(m_around.installation()), now);
        begin(QDir(path).filePath(name.trimmed()));
    });
    dialog->open();
}

void EvidenceForm::begin(const QString& path)
{
    m_path = path;
    m_folder = QFileInfo(path).absolutePath();
    m_state->setText(tr("Writing %1").arg(QDir::toNativeSeparators(path)));
    m_writer->begin({kind(), span(), {m_ldb->currentData().toString(), m_interval->value()}, path});
    apply();
}

void EvidenceForm::end(EvidenceWriter::Outcome outcome, const QString& reason)
{
    const QString path = QDir::toNativeSeparators(m_path);
    switch (outcome) {
    case EvidenceWriter::Outcome::Done:
        m_state->setText(tr("Saved: %1").arg(path));
        break;
    case EvidenceWriter::Outcome::Stopped:
        m_state->setText(tr("Stopped: %1 is not complete, or was not written.").arg(path));
        break;
    case EvidenceWriter::Outcome::Failed:
        m_state->setText(tr("Not saved: %1").arg(path));
        MessageBox::tell(
            isVisible() ? this : parentWidget(), QMessageBox::Warning,
            [path, reason] {
                return BoxText{tr("Take Evidence Home"), tr("%1 could not be written.").arg(path),
                               reason};
            },
            QStringLiteral("evidenceBox"));
        break;
    }
    apply();
}

void EvidenceForm::retranslate()
{
    setWindowTitle(tr("Take Evidence Home"));
    m_whatBox->setTitle(tr("What"));
    m_what->button(int(EvidenceOrder::Kind::Log))
        ->setText(tr("&Log (CSV), as the logger would have written it"));
    m_ldbLabel->setText(tr("Of:"));
    m_intervalLabel->setText(tr("every:"));
    m_interval->setSuffix(tr("s"));
    m_interval->setToolTip(
        tr("Seconds between two records of an LDB; at 0 every record is written"));
    m_what->button(int(EvidenceOrder::Kind::Events))->setText(tr("&Events (CSV)"));
    m_what->button(int(EvidenceOrder::Kind::Capture))
        ->setText(tr("Every &byte on the bus, for Wireshark (pcapng)"));
    m_what->button(int(EvidenceOrder::Kind::Copy))
        ->setText(tr("&Copy of the recording of these days, to look back in this program"));
    m_spanBox->setTitle(tr("When"));
    showVisit();
    m_span->button(int(Span::LastHour))->setText(tr("The last &hour"));
    m_span->button(int(Span::Today))->setText(tr("&Today"));
    m_span->button(int(Span::FromTo))->setText(tr("&From, to:"));
    m_from->setAccessibleName(tr("From"));
    m_to->setAccessibleName(tr("To"));
    m_progress->setAccessibleName(tr("Progress"));
    m_save->setText(tr("&Save..."));
    m_stop->setText(tr("Sto&p"));
    m_close->setText(tr("Close"));
}

void EvidenceForm::changeEvent(QEvent* event)
{
    QDialog::changeEvent(event);
    if (event->type() == QEvent::LanguageChange) {
        retranslate();
    }
}
