#include "views/events/eventbar.h"

#include "app/shared/colours.h"
#include "app/shared/usersettings.h"
#include "serial/ldb/microseconds.h"

#include <QBoxLayout>
#include <QComboBox>
#include <QDateTime>
#include <QDateTimeEdit>
#include <QEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QThread>

#include <utility>

namespace {

constexpr int kLongestText = 100;
constexpr int kPassingMs = 60000;
using microseconds::kDay;
using microseconds::kHour;
using microseconds::kMillisecond;
constexpr qint64 kWeek = 7 * kDay;
const QString kDateFormat = QStringLiteral("dd-MM-yyyy HH:mm");

void select(QComboBox* box, const QVariant& data)
{
    const int index = box->findData(data);
    box->setCurrentIndex(qMax(0, index));
}

QHBoxLayout* lineOf(QWidget* widget)
{
    auto* line = new QHBoxLayout(widget);
    line->setContentsMargins(0, 0, 0, 0);
    return line;
}

} // namespace

EventBar::EventBar(std::function<qint64()> now, QWidget* parent)
    : QWidget(parent)
    , m_now(std::move(now))
    , m_text(new QLineEdit)
    , m_ldb(new QComboBox)
    , m_group(new QComboBox)
    , m_period(new QComboBox)
    , m_from(new QDateTimeEdit)
    , m_to(new QDateTimeEdit)
    , m_count(new QLabel)
    , m_mark(new QPushButton)
    , m_export(new QPushButton)
    , m_first(new QWidget(this))
    , m_second(new QWidget(this))
    , m_lines(new QBoxLayout(QBoxLayout::TopToBottom, this))
{
    m_text->setObjectName(QStringLiteral("eventTextEdit"));
    m_ldb->setObjectName(QStringLiteral("eventLdbBox"));
    m_group->setObjectName(QStringLiteral("eventGroupBox"));
    m_period->setObjectName(QStringLiteral("eventPeriodBox"));
    m_from->setObjectName(QStringLiteral("eventFromEdit"));
    m_to->setObjectName(QStringLiteral("eventToEdit"));
    m_count->setObjectName(QStringLiteral("eventCountLabel"));
    m_mark->setObjectName(QStringLiteral("eventMarkButton"));
    m_export->setObjectName(QStringLiteral("eventExportButton"));
    m_text->setMaxLength(kLongestText);
    m_text->installEventFilter(this);
    m_count->setMargin(2);
    for (QComboBox* box : {m_ldb, m_group, m_period}) {
        box->setSizeAdjustPolicy(QComboBox::AdjustToContents);
        connect(box, qOverload<int>(&QComboBox::currentIndexChanged), this, &EventBar::chosen);
    }
    const QDateTime today(QDateTime::fromMSecsSinceEpoch(m_now()).date().startOfDay());
    for (QDateTimeEdit* edit : {m_from, m_to}) {
        edit->setDisplayFormat(kDateFormat);
        edit->setCalendarPopup(true);
        edit->setDateTime(edit == m_from ? today.addDays(-1) : today.addDays(1));
        connect(edit, &QDateTimeEdit::dateTimeChanged, this, &EventBar::chosen);
    }
    makeLayout();
    connect(m_text, &QLineEdit::textChanged, this, &EventBar::chosen);
    connect(m_period, qOverload<int>(&QComboBox::currentIndexChanged), this, &EventBar::showPeriod);
    connect(m_mark, &QAbstractButton::clicked, this, &EventBar::markWanted);
    connect(m_export, &QAbstractButton::clicked, this, &EventBar::exportWanted);
    m_passing.setInterval(kPassingMs);
    connect(&m_passing, &QTimer::timeout, this, &EventBar::chosen);
    retranslate();
    showPeriod();
}

void EventBar::makeLayout()
{
    m_lines->setContentsMargins(0, 0, 0, 0);
    m_lines->addWidget(m_first, 1);
    m_lines->addWidget(m_second);
    QHBoxLayout* first = lineOf(m_first);
    first->addWidget(m_text, 1);
    first->addWidget(m_ldb);
    first->addWidget(m_group);
    QHBoxLayout* second = lineOf(m_second);
    second->addWidget(m_period);
    second->addWidget(m_from);
    second->addWidget(m_to);
    second->addWidget(m_count);
    second->addStretch(1);
    second->addWidget(m_mark);
    second->addWidget(m_export);
}

EventBar::Period EventBar::period() const
{
    return static_cast<Period>(m_period->currentData().toInt());
}

EventFilter EventBar::filter() const
{
    EventFilter filter;
    filter.hexId = m_ldb->currentData().toString();
    const int group = m_group->currentData().toInt();
    if (group >= 0) {
        filter.group = static_cast<EventGroup>(group);
    }
    const qint64 now = m_now() * kMillisecond;
    switch (period()) {
    case Period::All:
        break;
    case Period::Hour:
        filter.span.from = now - kHour;
        break;
    case Period::Day:
        filter.span.from = now - kDay;
        break;
    case Period::Week:
        filter.span.from = now - kWeek;
        break;
    case Period::Own:
        filter.span.from = microseconds::of(m_from->dateTime());
        // To the end of the minute that is shown.
        filter.span.to = microseconds::of(m_to->dateTime().addSecs(60));
        break;
    }
    filter.words = m_text->text().split(QLatin1Char(' '), Qt::SkipEmptyParts);
    return filter;
}

void EventBar::setHexIds(const QStringList& hexIds)
{
    const QString chosenId = m_ldb->currentData().toString();
    QStringList ids = hexIds;
    if (!chosenId.isEmpty() && !ids.contains(chosenId)) {
        ids.append(chosenId);
        ids.sort();
    }
    QStringList former;
    for (int index = 1; index < m_ldb->count(); ++index) {
        former.append(m_ldb->itemData(index).toString());
    }
    if (ids == former && m_ldb->count() > 0) {
        return;
    }
    const QSignalBlocker blocker(m_ldb);
    m_ldb->clear();
    m_ldb->addItem(tr("All LDBs"), QString());
    for (const QString& hexId : qAsConst(ids)) {
        m_ldb->addItem(hexId, hexId);
    }
    select(m_ldb, chosenId);
}

void EventBar::setCounts(int shown, int all, const QString& remark)
{
    m_count->setText(tr("%1 of %2").arg(shown).arg(all) + remark);
    QPalette palette;
    const bool isHiding = shown < all;
    if (isHiding) {
        palette.setColor(QPalette::Window, QColor(colours::kPartlyMonitored));
        palette.setColor(QPalette::WindowText, Qt::black);
    }
    if (isHiding != m_count->autoFillBackground()) {
        m_count->setPalette(palette);
        m_count->setAutoFillBackground(isHiding);
    }
    fold();
}

void EventBar::setMarkHindrance(const QString& reason)
{
    m_markHindrance = reason;
    m_mark->setEnabled(reason.isEmpty());
    m_mark->setToolTip(reason.isEmpty() ? tr("Set a mark with a line of text at the moment that is "
                                             "shown (M)")
                                        : reason);
}

void EventBar::load()
{
    const QSettings settings = userSettings();
    const auto time = [&settings](const QString& key, QDateTimeEdit* edit) {
        const QDateTime kept = settings.value(key).toDateTime();
        if (kept.isValid()) {
            edit->setDateTime(kept);
        }
    };
    m_text->setText(settings.value(constants::kEventsTextKey).toString());
    const QString hexId = settings.value(constants::kEventsLdbKey).toString();
    if (!hexId.isEmpty() && m_ldb->findData(hexId) < 0) {
        m_ldb->addItem(hexId, hexId);
    }
    select(m_ldb, hexId);
    select(m_group, settings.value(constants::kEventsGroupKey, -1).toInt());
    time(constants::kEventsFromKey, m_from);
    time(constants::kEventsToKey, m_to);
    select(m_period, settings.value(constants::kEventsPeriodKey).toInt());
}

void EventBar::save() const
{
    QSettings settings = userSettings();
    settings.setValue(constants::kEventsTextKey, m_text->text());
    settings.setValue(constants::kEventsLdbKey, m_ldb->currentData());
    settings.setValue(constants::kEventsGroupKey, m_group->currentData());
    settings.setValue(constants::kEventsPeriodKey, m_period->currentData());
    settings.setValue(constants::kEventsFromKey, m_from->dateTime());
    settings.setValue(constants::kEventsToKey, m_to->dateTime());
}

/// Fills a box anew and keeps what is chosen.
template <typename Fill>
void refill(QComboBox* box, const QVariant& atFirst, const Fill& fill)
{
    const QVariant chosenData = box->count() > 0 ? box->currentData() : atFirst;
    const QSignalBlocker blocker(box);
    box->clear();
    fill();
    select(box, chosenData);
}

void EventBar::fillGroups()
{
    refill(m_group, -1, [this] {
        m_group->addItem(tr("All kinds"), -1);
        for (int group = 0; group < eventkinds::kGroups; ++group) {
            m_group->addItem(eventkinds::textOf(static_cast<EventGroup>(group)), group);
        }
    });
}

void EventBar::fillPeriods()
{
    refill(m_period, static_cast<int>(Period::All), [this] {
        const std::pair<QString, Period> periods[] = {{tr("All times"), Period::All},
                                                      {tr("Last hour"), Period::Hour},
                                                      {tr("Last 24 hours"), Period::Day},
                                                      {tr("Last 7 days"), Period::Week},
                                                      {tr("From ... to ..."), Period::Own}};
        for (const auto& [text, value] : periods) {
            m_period->addItem(text, static_cast<int>(value));
        }
    });
}

void EventBar::retranslate()
{
    fillGroups();
    fillPeriods();
    if (m_ldb->count() == 0) {
        setHexIds({});
    }
    m_ldb->setItemText(0, tr("All LDBs"));
    m_text->setPlaceholderText(tr("Text of the events"));
    m_text->setToolTip(tr("Show only events with these words. Esc shows all again."));
    m_text->setAccessibleName(tr("Filter of the events by text"));
    m_ldb->setAccessibleName(tr("LDB whose events are shown"));
    m_group->setAccessibleName(tr("Kind of the events that are shown"));
    m_period->setAccessibleName(tr("Time of the events that are shown"));
    m_from->setAccessibleName(tr("Events from this time on"));
    m_to->setAccessibleName(tr("Events up to this time"));
    m_mark->setText(tr("Mark..."));
    m_export->setText(tr("Export..."));
    m_export->setToolTip(tr("Write the events that are listed to a CSV file"));
    setMarkHindrance(m_markHindrance);
    fold();
}

void EventBar::showPeriod()
{
    const bool isOwn = period() == Period::Own;
    m_from->setVisible(isOwn);
    m_to->setVisible(isOwn);
    const bool isMoving = period() != Period::All && !isOwn;
    isMoving ? m_passing.start() : m_passing.stop();
    fold();
}

/// Puts everything in one line where there is room, else in two.
void EventBar::fold()
{
    const int need = m_first->minimumSizeHint().width() + m_second->minimumSizeHint().width() +
                     m_lines->spacing();
    m_lines->setDirection(width() >= need ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
}

QSize EventBar::minimumSizeHint() const
{
    const int width = qMax(m_first->minimumSizeHint().width(), m_second->minimumSizeHint().width());
    return {width, QWidget::minimumSizeHint().height()};
}

void EventBar::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    fold();
}

void EventBar::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange) {
        retranslate();
    }
}

bool EventBar::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress) {
        return QWidget::eventFilter(watched, event);
    }
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key == Qt::Key_Escape && !m_text->text().isEmpty()) {
        m_text->clear();
        return true;
    }
    if (key == Qt::Key_Down || key == Qt::Key_Return || key == Qt::Key_Enter) {
        emit left();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}
