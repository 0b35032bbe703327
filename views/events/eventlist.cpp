#include "views/events/eventlist.h"

#include "recording/recordingexport.h"
#include "serial/ldb/generalinformation.h"
#include "serial/ldb/microseconds.h"
#include "views/events/eventbar.h"
#include "views/events/eventmodel.h"

#include <QDateTime>
#include <QEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTableView>
#include <QThread>
#include <QVBoxLayout>

#include <optional>
#include <utility>

using namespace events;

namespace {

constexpr int kCellMargin = 8;
constexpr int kRowMargin = 6;
constexpr int kWidest = 3000;
constexpr int kDetailLines = 3;
constexpr int kLeastRows = 2;
constexpr int kFirstRows = 2; ///< besides: on a small screen the plot needs the room
/// A text is measured only if it could be the widest; letters are taken to be at least this narrow.
constexpr double kNarrow = 0.7;
using microseconds::kSecond;

} // namespace

EventList::EventList(std::function<qint64()> now, QWidget* parent)
    : QWidget(parent)
    , m_model(new EventModel(this))
    , m_history(new EventHistory(m_model, this))
    , m_bar(new EventBar(std::move(now)))
    , m_table(new QTableView)
    , m_details(new QPlainTextEdit)
{
    auto* lines = new QVBoxLayout(this);
    lines->setContentsMargins(4, 2, 4, 2);
    lines->addWidget(m_bar);
    lines->addWidget(m_table, 1);
    lines->addWidget(m_details);
    setUpTable();
    m_details->setObjectName(QStringLiteral("eventDetails"));
    m_details->setReadOnly(true);
    m_details->setTabChangesFocus(true);
    m_details->setFixedHeight(fontMetrics().lineSpacing() * kDetailLines + 2 * kRowMargin);
    m_details->hide();

    connect(m_bar, &EventBar::chosen, this, &EventList::filter);
    connect(m_bar, &EventBar::left, this, &EventList::takeFocus);
    connect(m_bar, &EventBar::markWanted, this, &EventList::markWanted);
    connect(m_bar, &EventBar::exportWanted, this, &EventList::exportWanted);
    connect(m_model, &EventModel::countChanged, this, &EventList::showCounts);
    connect(m_history, &EventHistory::changed, this, &EventList::showCounts);
    m_bar->load();
    filter();
    showCounts();
    fitColumns();
}

void EventList::setUpTable()
{
    m_table->setObjectName(QStringLiteral("eventTable"));
    m_table->setAccessibleName(tr("Events"));
    m_table->setModel(m_model);
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setSelectionMode(QAbstractItemView::SingleSelection);
    m_table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_table->setTabKeyNavigation(false);
    m_table->setWordWrap(false);
    m_table->setShowGrid(false);
    m_table->setAlternatingRowColors(true);
    m_table->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    const int row = fontMetrics().height() + kRowMargin;
    m_table->verticalHeader()->hide();
    m_table->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    m_table->verticalHeader()->setDefaultSectionSize(row);
    m_table->horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    m_table->horizontalHeader()->setHighlightSections(false);
    m_table->setMinimumHeight(row * (kLeastRows + 1));
    const int swatch = fontMetrics().height() - kRowMargin;
    m_table->setIconSize({swatch, swatch});
    m_table->installEventFilter(this);
    m_table->viewport()->installEventFilter(this); // narrower where the rows are scrolled
    connect(m_table, &QTableView::doubleClicked, this, &EventList::goTo);
    connect(m_table->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &EventList::showDetails);
    connect(m_model, &QAbstractItemModel::modelReset, this, [this] {
        m_widest = 0;
        measure(0, m_model->rowCount() - 1);
    });
    connect(m_model, &QAbstractItemModel::rowsInserted, this,
            [this](const QModelIndex&, int first, int last) {
                measure(first, last);
                // A user who has scrolled down keeps seeing the same events.
                QScrollBar* bar = m_table->verticalScrollBar();
                if (bar->value() > 0 && first <= bar->value()) {
                    bar->setValue(bar->value() + last - first + 1);
                }
            });
}

void EventList::read(EventHistory::Ask ask)
{
    Q_ASSERT(QThread::currentThread() == thread());
    m_history->read(std::move(ask));
}

void EventList::add(const RecordedEvent& event)
{
    Q_ASSERT(QThread::currentThread() == thread());
    m_model->add({event});
}

void EventList::setMarkHindrance(const QString& reason)
{
    m_bar->setMarkHindrance(reason);
}

/// The current event stays current where it is still shown.
void EventList::filter()
{
    const RecordedEvent* current = m_model->eventAt(m_table->currentIndex().row());
    const auto kept = current != nullptr ? std::optional<RecordedEvent>(*current) : std::nullopt;
    m_model->setFilter(m_bar->filter());
    const int row = kept ? m_model->rowOf(*kept) : -1;
    if (row >= 0 && m_table->currentIndex().row() != row) {
        m_table->setCurrentIndex(m_model->index(row, EventColumn));
    }
    showDetails();
}

void EventList::showCounts()
{
    m_bar->setHexIds(m_model->hexIds());
    m_bar->setCounts(m_model->rowCount(), m_model->count(),
                     m_history->isReading() ? QStringLiteral(" ...")
                     : m_history->isCut()   ? tr(", older ones left out")
                                            : QString());
}

void EventList::showDetails()
{
    const QModelIndex current = m_table->currentIndex();
    const RecordedEvent* event = m_model->eventAt(current.row());
    const bool hasDetails = event != nullptr && event->hasValues();
    if (hasDetails) {
        QStringList lines{event->description()};
        if (!event->before.isEmpty()) {
            lines.append(tr("Before: %1").arg(event->before));
        }
        if (!event->after.isEmpty()) {
            lines.append(tr("After: %1").arg(event->after));
        }
        m_details->setPlainText(lines.join(QLatin1Char('\n')));
    }
    m_details->setVisible(hasDetails);
}

/// Finds the widest text without measuring each.
void EventList::measure(int first, int last)
{
    const QFontMetrics metrics = m_table->fontMetrics();
    const int former = m_widest;
    for (int row = first; row <= last; ++row) {
        const QString text =
            m_model->data(m_model->index(row, EventColumn), Qt::DisplayRole).toString();
        if (text.size() * metrics.averageCharWidth() > kNarrow * m_widest) {
            m_widest = qMin(kWidest, qMax(m_widest, metrics.horizontalAdvance(text)));
        }
    }
    if (former != m_widest) {
        fitColumns();
    }
}

void EventList::fitColumns()
{
    QHeaderView* header = m_table->horizontalHeader();
    const auto fit = [this, header](Column column, const QStringList& texts) {
        int width = header->sectionSizeHint(column);
        for (const QString& text : texts) {
            width = qMax(width, m_table->fontMetrics().horizontalAdvance(text) + 2 * kCellMargin);
        }
        m_table->setColumnWidth(column, width);
        return width;
    };
    const QDateTime widest(QDate(2028, 8, 28), QTime(20, 28, 28));
    int used = fit(TimeColumn, {widest.toString(generalinformation::kSecondsFormat)});
    used += fit(LdbColumn, {QStringLiteral("DD")});
    used += fit(DurationColumn, {EventModel::tr("not ended"), durationText(59LL * 61 * kSecond),
                                 durationText((23LL * 60 + 59) * 60 * kSecond)});
    const int need = m_widest + m_table->iconSize().width() + 3 * kCellMargin;
    const int wanted = qMax(need, m_table->viewport()->width() - used);
    if (m_table->columnWidth(EventColumn) != wanted) {
        m_table->setColumnWidth(EventColumn, wanted);
    }
}

void EventList::goTo(const QModelIndex& index)
{
    if (const RecordedEvent* event = m_model->eventAt(index.row())) {
        emit momentWanted(event->at, event->hexId);
    }
}

QString EventList::csv() const
{
    QString lines = recordingexport::eventHeader();
    for (int row = 0; row < m_model->rowCount(); ++row) {
        lines += recordingexport::eventLine(*m_model->eventAt(row));
    }
    return lines;
}

void EventList::save() const
{
    m_bar->save();
}

QSize EventList::sizeHint() const
{
    const int rows = kFirstRows * m_table->verticalHeader()->defaultSectionSize();
    return {QWidget::sizeHint().width(), minimumSizeHint().height() + rows};
}

void EventList::takeFocus()
{
    if (!m_table->currentIndex().isValid()) {
        m_table->setCurrentIndex(m_model->index(0, EventColumn));
    }
    m_table->setFocus(Qt::ShortcutFocusReason);
}

void EventList::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange) {
        m_table->setAccessibleName(tr("Events"));
        m_model->retranslate();
        fitColumns();
        showCounts();
        showDetails();
    }
}

bool EventList::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Resize) {
        fitColumns();
    } else if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            goTo(m_table->currentIndex());
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}
