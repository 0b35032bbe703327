#include "app/settingstable/formerlist.h"

#include "serial/ldb/busaddress.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QEvent>
#include <QHeaderView>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

constexpr QSize kFirstSize(640, 400);
constexpr int kLdbsNamed = 8;

QString occasionText(const FormerSettings& former)
{
    switch (former.occasion) {
    case FormerSettings::Occasion::Save:
        return FormerList::tr("Before a Save");
    case FormerSettings::Occasion::Write:
        return FormerList::tr("Before a Write");
    case FormerSettings::Occasion::Import:
        return FormerList::tr("Before the import of %1").arg(former.note);
    case FormerSettings::Occasion::PutBack:
        break;
    }
    return FormerList::tr("Before settings were put back");
}

QString timeText(const FormerSettings& former)
{
    // The same in every language, and in the order of time when it is sorted.
    return former.at.toLocalTime().toString(QStringLiteral("yyyy-MM-dd hh:mm:ss"));
}

QString ldbsText(const FormerSettings& former)
{
    QStringList ids;
    for (const LdbSettings& settings : former.ldbs) {
        if (ids.size() < kLdbsNamed) {
            ids.append(busaddress::toHexId(settings.address));
        }
    }
    const int all = static_cast<int>(former.ldbs.size());
    return QStringLiteral("%1: %2%3")
        .arg(FormerList::tr("%n LDB(s)", nullptr, all), ids.join(QStringLiteral(", ")),
             all > ids.size() ? QStringLiteral(", ...") : QString());
}

} // namespace

FormerList::FormerList(std::vector<FormerSettings> former, const QString& folder, QWidget* parent)
    : QDialog(parent)
    , m_former(std::move(former))
    , m_folder(folder)
    , m_list(new QTreeWidget)
    , m_compare(new QPushButton)
    , m_putBack(new QPushButton)
    , m_close(new QPushButton)
{
    setObjectName(QStringLiteral("formerList"));
    setAttribute(Qt::WA_DeleteOnClose);
    setModal(true);
    m_list->setObjectName(QStringLiteral("formerSettingsList"));
    m_list->setRootIsDecorated(false);
    m_list->setUniformRowHeights(true);
    m_list->setAlternatingRowColors(true);
    m_compare->setObjectName(QStringLiteral("compareFormerButton"));
    m_putBack->setObjectName(QStringLiteral("putBackFormerButton"));
    auto* buttons = new QDialogButtonBox;
    buttons->addButton(m_compare, QDialogButtonBox::ActionRole);
    buttons->addButton(m_putBack, QDialogButtonBox::ActionRole);
    buttons->addButton(m_close, QDialogButtonBox::RejectRole);
    m_putBack->setAutoDefault(false);
    m_compare->setAutoDefault(false);
    auto* content = new QVBoxLayout(this);
    content->addWidget(m_list, 1);
    content->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(m_list, &QTreeWidget::currentItemChanged, this, &FormerList::updateButtons);
    const auto let = [this](const QPushButton* button, auto signal) {
        connect(button, &QPushButton::clicked, this, [this, signal] {
            const FormerSettings chosen = *current();
            accept();
            emit(this->*signal)(chosen);
        });
    };
    let(m_compare, &FormerList::compareWanted);
    let(m_putBack, &FormerList::putBackWanted);
    resize(kFirstSize);
    refresh();
}

QString FormerList::nameOf(const FormerSettings& former)
{
    return QStringLiteral("%1, %2").arg(occasionText(former), timeText(former));
}

OtherSettings FormerList::settingsOf(const FormerSettings& former)
{
    OtherSettings other{[former] { return nameOf(former); }, {}, true};
    for (const LdbSettings& settings : former.ldbs) {
        other.ldbs.emplace(busaddress::toHexId(settings.address), settings);
    }
    return other;
}

const FormerSettings* FormerList::current() const
{
    const int row = m_list->indexOfTopLevelItem(m_list->currentItem());
    return row < 0 ? nullptr : &m_former[static_cast<std::size_t>(row)];
}

void FormerList::updateButtons()
{
    m_compare->setEnabled(current() != nullptr);
    m_putBack->setEnabled(current() != nullptr);
}

void FormerList::refresh()
{
    setWindowTitle(tr("Former Settings"));
    m_compare->setText(tr("Compare"));
    m_putBack->setText(tr("Put Back..."));
    m_close->setText(tr("Close"));
    m_list->setHeaderLabels({tr("Date and time"), tr("Occasion"), tr("LDB's")});
    m_list->setAccessibleName(tr("Former Settings"));
    m_list->setToolTip(tr("Kept in %1").arg(QDir::toNativeSeparators(m_folder)));
    const int row = m_list->indexOfTopLevelItem(m_list->currentItem());
    m_list->clear();
    for (const FormerSettings& former : m_former) {
        m_list->addTopLevelItem(
            new QTreeWidgetItem({timeText(former), occasionText(former), ldbsText(former)}));
    }
    m_list->setCurrentItem(m_list->topLevelItem(qMax(row, 0)));
    for (int column = 0; column < m_list->columnCount(); ++column) {
        m_list->resizeColumnToContents(column);
    }
    updateButtons();
}

void FormerList::changeEvent(QEvent* event)
{
    QDialog::changeEvent(event);
    if (event->type() == QEvent::LanguageChange) {
        refresh();
    }
}
