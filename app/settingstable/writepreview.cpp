#include "app/settingstable/writepreview.h"

#include "importexport/settingscomparison.h"

#include <QDialogButtonBox>
#include <QEvent>
#include <QHeaderView>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

constexpr QSize kFirstSize(900, 560);
constexpr int kLeftOutLines = 6; ///< seen at once

QTreeWidgetItem* makeRow(const LdbChange& change, LdbField field)
{
    const LdbSettings& present = *change.change.basis;
    const LdbSettings& wanted = change.change.values;
    auto* row = new QTreeWidgetItem;
    row->setText(WritePreview::LdbColumn, change.hexId);
    row->setText(WritePreview::NameColumn, present.name);
    row->setText(WritePreview::FieldColumn, fieldName(field));
    row->setText(
        WritePreview::ChangeColumn,
        QStringLiteral("%1 \u2192 %2").arg(fieldValue(field, present), fieldValue(field, wanted)));
    if (field == LdbField::Name) {
        // Another name is the sign of another LDB.
        QFont bold;
        bold.setBold(true);
        row->setFont(WritePreview::ChangeColumn, bold);
    }
    return row;
}

} // namespace

WritePreview::WritePreview(std::vector<LdbChange> changes, std::vector<Text> leftOut,
                           QWidget* parent)
    : QDialog(parent)
    , m_changes(std::move(changes))
    , m_leftOut(std::move(leftOut))
    , m_summary(new QLabel)
    , m_list(new QTreeWidget)
    , m_leftOutTitle(new QLabel)
    , m_leftOutList(new QListWidget)
    , m_write(new QPushButton)
    , m_cancel(new QPushButton)
{
    setObjectName(QStringLiteral("writePreview"));
    setAttribute(Qt::WA_DeleteOnClose);
    setModal(true);
    m_summary->setObjectName(QStringLiteral("previewSummaryLabel"));
    m_list->setObjectName(QStringLiteral("previewList"));
    m_leftOutList->setObjectName(QStringLiteral("previewLeftOut"));
    m_write->setObjectName(QStringLiteral("previewWriteButton"));
    m_cancel->setObjectName(QStringLiteral("previewCancelButton"));
    layOut();
    resize(kFirstSize);
    refresh();
}

void WritePreview::layOut()
{
    for (QLabel* label : {m_summary, m_leftOutTitle}) {
        label->setWordWrap(true);
        label->setTextFormat(Qt::PlainText);
    }
    m_list->setColumnCount(ColumnCount);
    m_list->setRootIsDecorated(false);
    m_list->setUniformRowHeights(true);
    m_list->setAlternatingRowColors(true);
    m_leftOutList->setWordWrap(true);
    m_leftOutList->setMaximumHeight(kLeftOutLines * fontMetrics().lineSpacing());
    auto* buttons = new QDialogButtonBox;
    buttons->addButton(m_write, QDialogButtonBox::AcceptRole);
    buttons->addButton(m_cancel, QDialogButtonBox::RejectRole);
    m_write->setAutoDefault(false);
    m_write->setEnabled(!m_changes.empty());
    m_cancel->setDefault(true);
    m_cancel->setFocus();
    auto* content = new QVBoxLayout(this);
    content->addWidget(m_summary);
    content->addWidget(m_list, 1);
    content->addWidget(m_leftOutTitle);
    content->addWidget(m_leftOutList);
    content->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

void WritePreview::refresh()
{
    const int ldbs = static_cast<int>(m_changes.size());
    std::size_t fields = 0;
    for (const LdbChange& change : m_changes) {
        fields += change.change.fields.size();
    }
    setWindowTitle(tr("Write Settings"));
    m_summary->setText(tr("Nothing has been written yet. To be written: %1 in %2.")
                           .arg(tr("%n change(s)", nullptr, static_cast<int>(fields)),
                                tr("%n LDB(s)", nullptr, ldbs)));
    m_write->setText(tr("Write %n LDB(s)", nullptr, ldbs));
    m_cancel->setText(tr("Cancel"));
    showChanges();
    const bool isAllThere = m_leftOut.empty();
    m_leftOutTitle->setText(tr("Not written: %1").arg(m_leftOut.size()));
    m_leftOutTitle->setVisible(!isAllThere);
    m_leftOutList->setVisible(!isAllThere);
    m_leftOutList->setAccessibleName(tr("What is not written, and why"));
    m_leftOutList->clear();
    for (const Text& sentence : m_leftOut) {
        m_leftOutList->addItem(sentence());
    }
}

void WritePreview::showChanges()
{
    m_list->setHeaderLabels({tr("LDB"), tr("Name"), tr("Setting"), tr("Change")});
    m_list->setAccessibleName(tr("What is written"));
    m_list->clear();
    QList<QTreeWidgetItem*> rows;
    for (const LdbChange& change : m_changes) {
        for (const LdbField field : change.change.fields) {
            rows.append(makeRow(change, field));
        }
    }
    m_list->addTopLevelItems(rows);
    for (int column = 0; column < ChangeColumn; ++column) {
        m_list->resizeColumnToContents(column);
    }
}

void WritePreview::changeEvent(QEvent* event)
{
    QDialog::changeEvent(event);
    if (event->type() == QEvent::LanguageChange) {
        refresh();
    }
}
