#include "views/quality/qualitywindow.h"

#include "serial/ldb/microseconds.h"
#include "views/quality/qualitymodel.h"
#include "views/quality/qualitystrip.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateTime>
#include <QEvent>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QShortcut>
#include <QSignalBlocker>
#include <QTableView>
#include <QThread>
#include <QVBoxLayout>

namespace {

constexpr int kRefreshDelay = 100; // ms
constexpr int kWidth = 1200;
constexpr int kHeight = 560;
constexpr int kNameWidth = 140;
constexpr int kRowMargin = 8;   // above and below a text, together
constexpr int kCellMargin = 12; // pixels beside a text
using microseconds::kMillisecond;

} // namespace

QualityWindow::QualityWindow(const Sources& sources, QWidget* parent)
    : QWidget(parent, Qt::Window)
    , m_model(new QualityModel(this))
    , m_reading(new QualityReading(sources.reading, this))
    , m_reach(new QComboBox(this))
    , m_words(new QLabel(this))
    , m_note(new QLabel(this))
    , m_view(new QTableView(this))
    , m_bars(new QCheckBox(this))
{
    Q_ASSERT(QThread::currentThread() == thread());
    setObjectName(QStringLiteral("qualityWindow"));
    m_model->setNames(sources.nameOf);
    build();
    m_refresh.setSingleShot(true);
    m_refresh.setInterval(kRefreshDelay);
    connect(&m_refresh, &QTimer::timeout, this, &QualityWindow::refresh);
    connect(m_reading, &QualityReading::changed, this, [this] {
        if (!m_refresh.isActive()) {
            m_refresh.start();
        }
    });
    connect(m_reach, qOverload<int>(&QComboBox::currentIndexChanged), this,
            [this](int reach) { m_reading->setReach(static_cast<QualityReach>(reach)); });
    connect(m_bars, &QAbstractButton::toggled, this, &QualityWindow::barsShownChanged);
    connect(m_view, &QTableView::activated, this, [this](const QModelIndex& cell) {
        if (cell.row() > 0) {
            emit ldbActivated(cell.siblingAtColumn(QualityModel::LdbColumn).data().toString());
        }
    });
    retranslate();
    refresh();
}

void QualityWindow::build()
{
    m_reach->setObjectName(QStringLiteral("qualityReachBox"));
    m_words->setObjectName(QStringLiteral("qualityWordsLabel"));
    m_note->setObjectName(QStringLiteral("qualityNoteLabel"));
    m_view->setObjectName(QStringLiteral("qualityTable"));
    m_bars->setObjectName(QStringLiteral("qualityBarsBox"));
    m_reach->addItems({{}, {}, {}, {}});
    m_words->setWordWrap(true);
    m_words->setTextInteractionFlags(Qt::TextSelectableByMouse);
    QFont bold = font();
    bold.setBold(true);
    m_words->setFont(bold);
    m_note->setWordWrap(true);

    m_view->setModel(m_model);
    m_view->setItemDelegateForColumn(QualityModel::BarsColumn, new QualityStripDelegate(m_view));
    m_view->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_view->setSelectionMode(QAbstractItemView::SingleSelection);
    m_view->setTabKeyNavigation(false);
    m_view->setWordWrap(false);
    m_view->verticalHeader()->hide();
    m_view->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + kRowMargin);
    m_view->horizontalHeader()->setStretchLastSection(true);
    m_view->horizontalHeader()->setHighlightSections(false);

    auto* top = new QHBoxLayout;
    top->addWidget(m_reach);
    top->addWidget(m_words, 1);
    auto* bottom = new QHBoxLayout;
    bottom->addWidget(m_note, 1);
    bottom->addWidget(m_bars);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addWidget(m_view, 1);
    layout->addLayout(bottom);
    resize(kWidth, kHeight);
    connect(new QShortcut(Qt::Key_Escape, this), &QShortcut::activated, this, &QWidget::close);
}

void QualityWindow::open()
{
    show();
    raise();
    activateWindow();
    m_view->setFocus();
}

void QualityWindow::setShown(std::optional<qint64> at)
{
    m_shown = at;
    m_reading->setShown(at);
    m_note->setText(noteText());
}

void QualityWindow::setBarsShown(bool areShown)
{
    const QSignalBlocker blocker(m_bars);
    m_bars->setChecked(areShown);
}

void QualityWindow::showEvent(QShowEvent* event)
{
    m_reading->setOn(true);
    QWidget::showEvent(event);
}

void QualityWindow::hideEvent(QHideEvent* event)
{
    m_reading->setOn(false);
    QWidget::hideEvent(event);
}

void QualityWindow::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange) {
        retranslate();
        refresh();
    }
}

void QualityWindow::refresh()
{
    const QualityHistory& history = m_reading->history();
    m_model->setLines(history.lines(), history.isSampled());
    m_words->setText(qualityfindings::text(history.counts()));
    m_note->setText(noteText());
}

QString QualityWindow::noteText() const
{
    QStringList sentences;
    if (m_shown) {
        sentences.append(
            tr("Recorded: up to %1.")
                .arg(QDateTime::fromMSecsSinceEpoch(wholeMinutes(*m_shown) / kMillisecond)
                         .toString(QStringLiteral("yyyy-MM-dd HH:mm"))));
    }
    if (!m_reading->isRecorded()) {
        sentences.append(tr("Nothing is recorded: what was counted within the last hour is shown, "
                            "without answer times."));
    } else if (m_reading->isReading()) {
        sentences.append(tr("Reading the recording..."));
    } else if (m_reading->history().isSampled()) {
        sentences.append(tr("Answer times with ≈ are of an evenly spread sample."));
    }
    return sentences.join(QLatin1Char(' '));
}

void QualityWindow::retranslate()
{
    setWindowTitle(tr("Line quality"));
    const QStringList reaches{tr("Now (5 minutes)"), tr("Last hour"), tr("Last day"),
                              tr("Last week")};
    for (int reach = 0; reach < reaches.size(); ++reach) {
        m_reach->setItemText(reach, reaches.at(reach));
    }
    m_reach->setAccessibleName(tr("How far back"));
    m_reach->setToolTip(tr("How far back the quality of the line is looked at"));
    m_view->setAccessibleName(tr("Line quality, worst first"));
    m_bars->setText(tr("Small bars in the overview"));
    m_bars->setToolTip(
        tr("Shows at each name how well the LDB's exchanges of the last 15 minutes went"));
    m_model->retranslate();
    // Set once: widths that follow the contents would be measured at each refresh.
    const QHeaderView* header = m_view->horizontalHeader();
    const int least = m_view->fontMetrics().horizontalAdvance(QStringLiteral("> 99.99 %"));
    for (int column = 0; column < QualityModel::BarsColumn; ++column) {
        m_view->setColumnWidth(column,
                               std::max(header->sectionSizeHint(column), least) + kCellMargin);
    }
    m_view->setColumnWidth(QualityModel::NameColumn, kNameWidth);
}
