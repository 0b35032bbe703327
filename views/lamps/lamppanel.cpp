#include "views/lamps/lamppanel.h"

#include <QKeyEvent>
#include <QListWidget>
#include <QMouseEvent>
#include <QStyleOptionFocusRect>
#include <QStylePainter>
#include <QThread>
#include <QToolBox>

#include <memory>

namespace {

constexpr int kHexIdRole = Qt::UserRole;

// Empty for the entry "No LDB".
QString hexIdOf(const QListWidgetItem* item)
{
    return item->data(kHexIdRole).toString();
}

QString entryText(const QString& hexId, const LampCause& cause)
{
    const QString who = cause.name.isEmpty() ? hexId : hexId + QStringLiteral("  ") + cause.name;
    return who + QStringLiteral(" – ") + cause.condition;
}

void removeRow(QListWidget* list, int row)
{
    const std::unique_ptr<QListWidgetItem> removed(list->takeItem(row));
}

} // namespace

ClickableLabel::ClickableLabel(QWidget* parent)
    : QLabel(parent)
{
    setCursor(Qt::PointingHandCursor);
}

void ClickableLabel::mouseReleaseEvent(QMouseEvent* event)
{
    QLabel::mouseReleaseEvent(event);
    if (event->button() == Qt::LeftButton && rect().contains(event->pos())) {
        emit clicked();
    }
}

void ClickableLabel::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Space) {
        emit clicked();
    } else {
        QLabel::keyPressEvent(event);
    }
}

void ClickableLabel::paintEvent(QPaintEvent* event)
{
    QLabel::paintEvent(event);
    if (hasFocus()) {
        QStylePainter painter(this);
        QStyleOptionFocusRect option;
        option.initFrom(this);
        painter.drawPrimitive(QStyle::PE_FrameFocusRect, option);
    }
}

LampPanel::LampPanel(const LampWidgets& a, const LampWidgets& b, const LampWidgets& c,
                     const LampWidgets& d, QListWidget* out, QToolBox* toolBox, QObject* parent)
    : QObject(parent)
    , m_indicators(a.lamp, c.lamp, b.lamp, d.lamp)
    , m_lists{a.causes, b.causes, c.causes, d.causes, out}
{
    for (const LampWidgets& widgets : {a, b, c, d}) {
        for (const ClickableLabel* label : {widgets.lamp, widgets.text}) {
            if (label != nullptr) {
                connect(label, &ClickableLabel::clicked, this,
                        [this, toolBox, page = widgets.page] {
                            toolBox->setCurrentWidget(page);
                            emit pageOpened();
                        });
            }
        }
    }
    for (QListWidget* causes : m_lists) {
        // The page is narrow, and a condition must be readable to its end.
        causes->setWordWrap(true);
        causes->setAlternatingRowColors(true);
        causes->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        // A click is enough: from a blinking lamp to its cause is two clicks, page and entry.
        connect(causes, &QListWidget::itemClicked, this, &LampPanel::activate);
        connect(causes, &QListWidget::itemActivated, this, &LampPanel::activate);
    }
    fillAll();
}

void LampPanel::retranslate()
{
    m_indicators.retranslate();
    fillAll();
}

void LampPanel::processData(const QString& hexId, const QList<QStringList>& dataList)
{
    Q_ASSERT(QThread::currentThread() == thread());
    m_indicators.processData(hexId, dataList);
    const QList<CausePage> changed = m_causes.update(hexId, dataList);
    for (const CausePage page : changed) {
        fill(page);
    }
}

void LampPanel::setMonitoring(const Monitoring& monitoring)
{
    m_indicators.setMonitoring(monitoring);
    if (m_isMonitored == monitoring.isWhole()) {
        return;
    }
    m_isMonitored = monitoring.isWhole();
    if (!m_isMonitored) {
        m_causes.clear();
    }
    fillAll();
}

void LampPanel::keepOnly(const QStringList& hexIds)
{
    m_indicators.keepOnly(hexIds);
    m_causes.keepOnly(hexIds);
    fillAll();
}

void LampPanel::fillAll()
{
    for (const CausePage page : kCausePages) {
        fill(page);
    }
}

void LampPanel::fill(CausePage causePage)
{
    QListWidget* page = list(causePage);
    const LampCauses::ByHexId& causes = m_causes.of(causePage);
    // Both are in the order of the addresses, after the empty id of the entry "No LDB": one walk
    // does it, and leaves the entries that stay untouched.
    int row = 0;
    for (auto cause = causes.begin(); cause != causes.end(); ++cause, ++row) {
        while (row < page->count() && hexIdOf(page->item(row)) < cause.key()) {
            removeRow(page, row);
        }
        if (row == page->count() || hexIdOf(page->item(row)) != cause.key()) {
            auto entry = std::make_unique<QListWidgetItem>();
            entry->setData(kHexIdRole, cause.key());
            page->insertItem(row, entry.release());
        }
        page->item(row)->setText(entryText(cause.key(), *cause));
    }
    while (row < page->count()) {
        removeRow(page, row);
    }
    if (causes.isEmpty()) {
        auto none =
            std::make_unique<QListWidgetItem>(m_isMonitored ? tr("No LDB") : tr("Not monitored"));
        none->setFlags(Qt::NoItemFlags);
        page->addItem(none.release());
    }
}

void LampPanel::activate(const QListWidgetItem* item)
{
    const QString hexId = hexIdOf(item);
    if (!hexId.isEmpty()) {
        emit ldbActivated(hexId);
    }
}
