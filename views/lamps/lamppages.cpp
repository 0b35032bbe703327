#include "views/lamps/lamppages.h"

#include <QListWidget>
#include <QThread>

#include <memory>

namespace {

constexpr int kHexIdRole = Qt::UserRole;

// Empty for the entry that says that there is none.
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

LampPages::LampPages(const LampPageLists& lists, QObject* parent)
    : QObject(parent)
    // In the order of the lamps.
    , m_lists{lists.serviceMode, lists.earthFault, lists.openShortLeak, lists.settings}
{
    for (QListWidget* each : m_lists) {
        // The page is narrow, and the end of a condition's text tells as much as its start.
        each->setWordWrap(true);
        each->setAlternatingRowColors(true);
        each->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        // A click is enough: from a blinking lamp to its cause is two clicks, page and entry.
        connect(each, &QListWidget::itemClicked, this, &LampPages::activate);
        connect(each, &QListWidget::itemActivated, this, &LampPages::activate);
    }
    retranslate();
}

void LampPages::processData(const QString& hexId, const QList<QStringList>& dataList)
{
    Q_ASSERT(QThread::currentThread() == thread());
    const QList<Lamp> changed = m_causes.update(hexId, dataList);
    for (const Lamp lamp : changed) {
        fill(lamp);
    }
}

void LampPages::reset()
{
    Q_ASSERT(QThread::currentThread() == thread());
    m_causes.clear();
    retranslate();
}

void LampPages::retranslate()
{
    for (const Lamp lamp : kLamps) {
        fill(lamp);
    }
}

void LampPages::fill(Lamp lamp)
{
    QListWidget* page = list(lamp);
    const LampCauses::ByHexId& causes = m_causes.of(lamp);
    // Both are in the order of the addresses, and the empty id of the entry "none" comes before
    // all: one walk leaves every entry that stays untouched.
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
        auto none = std::make_unique<QListWidgetItem>(tr("No LDB"));
        none->setFlags(Qt::NoItemFlags);
        page->addItem(none.release());
    }
}

void LampPages::activate(const QListWidgetItem* item)
{
    const QString hexId = hexIdOf(item);
    if (!hexId.isEmpty()) {
        emit ldbActivated(hexId);
    }
}
