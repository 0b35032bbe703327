#include "views/tables/overviewbar.h"

#include "app/shared/colours.h"
#include "app/shared/usersettings.h"
#include "views/tables/namesearch.h"
#include "views/tables/overviewcolumns.h"
#include "views/tables/overviewfilter.h"

#include <QCheckBox>
#include <QEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QShortcut>
#include <QTableView>
#include <QThread>

namespace {

constexpr int kLongestText = 100;

/// Dark on a ground that is seen at once; none takes it away.
void setGround(QWidget* widget, const QString& colour)
{
    QPalette palette;
    if (!colour.isEmpty()) {
        const QColor ground(colour);
        palette.setColor(QPalette::Window, ground);
        palette.setColor(QPalette::Button, ground);
        palette.setColor(QPalette::WindowText, Qt::black);
        palette.setColor(QPalette::ButtonText, Qt::black);
    }
    widget->setPalette(palette);
    widget->setAutoFillBackground(!colour.isEmpty());
}

} // namespace

OverviewBar::OverviewBar(QWidget* parent)
    : QWidget(parent)
    , m_text(new QLineEdit(this))
    , m_onlyFaults(new QCheckBox(this))
    , m_faultsFirst(new QCheckBox(this))
    , m_count(new QLabel(this))
    , m_hiddenFaults(new QPushButton(this))
{
    m_text->setObjectName(QStringLiteral("overviewFilterEdit"));
    m_onlyFaults->setObjectName(QStringLiteral("overviewOnlyFaultsBox"));
    m_faultsFirst->setObjectName(QStringLiteral("overviewFaultsFirstBox"));
    m_count->setObjectName(QStringLiteral("overviewCountLabel"));
    m_hiddenFaults->setObjectName(QStringLiteral("overviewHiddenFaultsButton"));
    m_text->setMaxLength(kLongestText);
    m_count->setMargin(2);
    m_count->setTextInteractionFlags(Qt::NoTextInteraction);
    setGround(m_hiddenFaults, colours::kNotMonitored);
    m_hiddenFaults->hide();

    auto* line = new QHBoxLayout(this);
    line->setContentsMargins(0, 0, 0, 0);
    line->addWidget(m_text, 1);
    line->addWidget(m_onlyFaults);
    line->addWidget(m_faultsFirst);
    line->addWidget(m_count);
    line->addWidget(m_hiddenFaults);

    m_text->installEventFilter(this);
    connect(m_text, &QLineEdit::textChanged, this, &OverviewBar::choose);
    connect(m_onlyFaults, &QAbstractButton::toggled, this, &OverviewBar::choose);
    connect(m_faultsFirst, &QAbstractButton::toggled, this, &OverviewBar::choose);
    // Nothing else hides a faulty LDB.
    connect(m_hiddenFaults, &QAbstractButton::clicked, this, &OverviewBar::clearText);
    connect(new QShortcut(QKeySequence::Find, this), &QShortcut::activated, this, [this] {
        m_text->setFocus(Qt::ShortcutFocusReason);
        m_text->selectAll();
    });
    retranslate();
}

void OverviewBar::setView(QTableView* view)
{
    Q_ASSERT(QThread::currentThread() == thread());
    m_view = view;
    m_filter = qobject_cast<OverviewFilter*>(view->model());
    Q_ASSERT(m_filter != nullptr);
    new NameSearch(view, m_filter);
    view->installEventFilter(this);
    connect(m_filter, &OverviewFilter::countsChanged, this, &OverviewBar::showCounts);
    load();
    choose();
}

void OverviewBar::load()
{
    const QSettings settings = userSettings();
    m_text->setText(settings.value(constants::kOverviewFilterKey).toString());
    m_onlyFaults->setChecked(settings.value(constants::kOverviewOnlyFaultsKey).toBool());
    m_faultsFirst->setChecked(settings.value(constants::kOverviewFaultsFirstKey).toBool());
}

void OverviewBar::save() const
{
    QSettings settings = userSettings();
    settings.setValue(constants::kOverviewFilterKey, m_text->text());
    settings.setValue(constants::kOverviewOnlyFaultsKey, m_onlyFaults->isChecked());
    settings.setValue(constants::kOverviewFaultsFirstKey, m_faultsFirst->isChecked());
}

void OverviewBar::choose()
{
    Q_ASSERT(QThread::currentThread() == thread());
    if (m_filter != nullptr) {
        m_filter->setChoice(
            {m_text->text(), m_onlyFaults->isChecked(), m_faultsFirst->isChecked()});
    }
}

void OverviewBar::showCounts()
{
    if (m_filter == nullptr) {
        return;
    }
    const OverviewFilter::Counts counts = m_filter->counts();
    m_count->setText(tr("%1 of %2").arg(counts.shown).arg(counts.all));
    // An LDB that has not told anything yet has no row: nobody hides it.
    const bool isHiding = counts.hidden > 0;
    if (isHiding != m_count->autoFillBackground()) {
        setGround(m_count, isHiding ? colours::kPartlyMonitored : QString());
    }
    m_hiddenFaults->setText(tr("%n faults hidden", nullptr, counts.hiddenFaults));
    m_hiddenFaults->setVisible(counts.hiddenFaults > 0);
}

void OverviewBar::retranslate()
{
    m_text->setPlaceholderText(tr("Filter (Ctrl+F)"));
    m_text->setToolTip(tr("Show only LDBs with these words in their id, name, mode or conditions. "
                          "Esc shows all again."));
    m_text->setAccessibleName(tr("Filter of the overview"));
    m_onlyFaults->setText(tr("Only faults"));
    m_onlyFaults->setToolTip(
        tr("Show only LDBs that are lost, in fault, or named behind one of the lamps"));
    m_faultsFirst->setText(tr("Faults first"));
    m_faultsFirst->setToolTip(tr("Lost and faulty LDBs stand at the top, whatever is sorted by"));
    m_count->setToolTip(tr("LDBs that are shown, of all. The selected one is always shown."));
    m_hiddenFaults->setToolTip(
        tr("The filter hides LDBs that are lost or faulty: click to show all"));
    showCounts();
}

void OverviewBar::clearText()
{
    const bool hadFocus = m_hiddenFaults->hasFocus();
    m_text->clear();
    if (hadFocus) {
        goToTable(); // the button hides itself
    }
}

void OverviewBar::goToTable()
{
    if (!m_view->currentIndex().isValid()) {
        m_view->setCurrentIndex(m_filter->index(0, overview::IdColumn));
    }
    m_view->setFocus(Qt::OtherFocusReason);
}

void OverviewBar::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange) {
        retranslate();
    }
}

bool OverviewBar::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress) {
        return QWidget::eventFilter(watched, event);
    }
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key == Qt::Key_Escape && !m_text->text().isEmpty()) {
        m_text->clear();
        return true;
    }
    const bool isWayDown = key == Qt::Key_Down || key == Qt::Key_Return || key == Qt::Key_Enter ||
                           key == Qt::Key_Escape;
    if (watched == m_text && isWayDown) {
        goToTable();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}
