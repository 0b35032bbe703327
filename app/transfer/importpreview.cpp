#include "app/transfer/importpreview.h"

#include <QDialogButtonBox>
#include <QEvent>
#include <QFileInfo>
#include <QHeaderView>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

constexpr QSize kFirstSize(900, 560);
constexpr int kProblemLines = 6; ///< seen at once

QTreeWidgetItem* makeRow(const ImportPlan::Entry& entry)
{
    const SettingsComparison& comparison = entry.comparison;
    auto* row = new QTreeWidgetItem;
    row->setText(ImportPreview::LdbColumn,
                 ImportPreview::tr("%1 (address %2)")
                     .arg(comparison.hexId, QString::number(entry.line.address)));
    row->setText(ImportPreview::PresentNameColumn, comparison.present.name);
    row->setText(ImportPreview::FileNameColumn, comparison.wanted.name);
    if (comparison.isSame()) {
        row->setText(ImportPreview::ChangesColumn, ImportPreview::tr("nothing"));
        row->setDisabled(true);
        return row;
    }
    const QStringList changes = comparison.changeTexts();
    row->setText(ImportPreview::ChangesColumn,
                 ImportPreview::tr("%n field(s)", nullptr, changes.size()) + QLatin1Char('\n') +
                     changes.join(QLatin1Char('\n')));
    for (int column = 0; column < ImportPreview::ColumnCount; ++column) {
        row->setTextAlignment(column, Qt::AlignLeft | Qt::AlignTop);
    }
    if (comparison.present.name != comparison.wanted.name) {
        // Another name is the sign of another LDB.
        QFont bold;
        bold.setBold(true);
        row->setFont(ImportPreview::PresentNameColumn, bold);
        row->setFont(ImportPreview::FileNameColumn, bold);
    }
    return row;
}

} // namespace

ImportPreview::ImportPreview(const ImportPlan& plan, const QString& filePath, QWidget* parent)
    : QDialog(parent)
    , m_plan(plan)
    , m_fileName(QFileInfo(filePath).fileName())
    , m_summary(new QLabel)
    , m_reading(new QLabel)
    , m_otherReading(new QPushButton)
    , m_ldbs(new QTreeWidget)
    , m_problemsTitle(new QLabel)
    , m_problems(new QListWidget)
    , m_write(new QPushButton)
    , m_cancel(new QPushButton)
{
    setObjectName(QStringLiteral("importPreview"));
    setAttribute(Qt::WA_DeleteOnClose);
    setModal(true);
    for (QLabel* label : {m_summary, m_reading, m_problemsTitle}) {
        label->setWordWrap(true);
        label->setTextFormat(Qt::PlainText);
    }
    m_summary->setObjectName(QStringLiteral("importSummaryLabel"));
    m_reading->setObjectName(QStringLiteral("importReadingLabel"));
    m_otherReading->setObjectName(QStringLiteral("otherReadingButton"));
    m_ldbs->setObjectName(QStringLiteral("importLdbs"));
    m_problems->setObjectName(QStringLiteral("importProblems"));
    m_write->setObjectName(QStringLiteral("importWriteButton"));
    m_cancel->setObjectName(QStringLiteral("importCancelButton"));
    m_ldbs->setColumnCount(ColumnCount);
    m_ldbs->setRootIsDecorated(false);
    m_ldbs->setWordWrap(true);
    m_ldbs->setAlternatingRowColors(true);
    m_ldbs->setSelectionMode(QAbstractItemView::NoSelection);
    m_problems->setWordWrap(true);
    m_problems->setMaximumHeight(kProblemLines * fontMetrics().lineSpacing());

    auto* reading = new QHBoxLayout;
    reading->addWidget(m_reading, 1);
    reading->addWidget(m_otherReading);
    auto* buttons = new QDialogButtonBox;
    buttons->addButton(m_write, QDialogButtonBox::AcceptRole);
    buttons->addButton(m_cancel, QDialogButtonBox::RejectRole);
    m_write->setAutoDefault(false);
    m_otherReading->setAutoDefault(false);
    m_cancel->setDefault(true);
    m_cancel->setFocus();
    auto* content = new QVBoxLayout(this);
    content->addWidget(m_summary);
    content->addLayout(reading);
    content->addWidget(m_ldbs, 1);
    content->addWidget(m_problemsTitle);
    content->addWidget(m_problems);
    content->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(m_otherReading, &QPushButton::clicked, this, [this] {
        emit readingWanted(m_plan.reading == IdReading::Decimal ? IdReading::Hexadecimal
                                                                : IdReading::Decimal);
    });
    resize(kFirstSize);
    refresh();
}

void ImportPreview::setPlan(const ImportPlan& plan)
{
    m_plan = plan;
    refresh();
}

void ImportPreview::refresh()
{
    setWindowTitle(tr("Import Settings"));
    const int ldbs = m_plan.ldbsToWrite();
    m_summary->setText(tr("Nothing has been written yet. From \"%1\": %2 in %3.")
                           .arg(m_fileName, tr("%n change(s)", nullptr, m_plan.fieldsToWrite()),
                                tr("%n LDB(s)", nullptr, ldbs)));
    m_write->setText(tr("Write %n LDB(s)", nullptr, ldbs));
    m_cancel->setText(tr("Cancel"));
    showReading();
    showLdbs();
    showProblems();
}

void ImportPreview::showReading()
{
    const bool isDecimal = m_plan.reading == IdReading::Decimal;
    const NameAgreement& names = m_plan.names;
    const bool isAgainst = names.isAgainst(m_plan.reading);
    QString text = isDecimal ? tr("The IDs of the file are read as decimal.")
                             : tr("The IDs of the file are read as hexadecimal.");
    if (isAgainst) {
        text += QLatin1Char(' ') +
                (isDecimal ? tr("The names fit better as hexadecimal: then %1 are those of the "
                                "LDB's, now %2.")
                           : tr("The names fit better as decimal: then %1 are those of the LDB's, "
                                "now %2."))
                    .arg(isDecimal ? names.hexadecimal : names.decimal)
                    .arg(names.with(m_plan.reading));
    }
    QFont font;
    font.setBold(isAgainst);
    m_reading->setFont(font);
    m_reading->setText(text);
    m_otherReading->setText(isDecimal ? tr("Read as hexadecimal") : tr("Read as decimal"));
    m_otherReading->setVisible(isAgainst || isDecimal);
}

void ImportPreview::showLdbs()
{
    m_ldbs->setHeaderLabels(
        {tr("LDB"), tr("Name in the LDB"), tr("Name in the file"), tr("What changes")});
    m_ldbs->clear();
    // What is about to change is not to be searched for between what is not.
    for (const bool isSame : {false, true}) {
        for (const ImportPlan::Entry& entry : m_plan.entries) {
            if (entry.comparison.isSame() == isSame) {
                m_ldbs->addTopLevelItem(makeRow(entry));
            }
        }
    }
    m_ldbs->setAccessibleName(tr("LDB's of the file"));
    for (int column = 0; column < ChangesColumn; ++column) {
        m_ldbs->resizeColumnToContents(column);
    }
}

void ImportPreview::showProblems()
{
    const bool areThere = !m_plan.problems.empty();
    m_problemsTitle->setText(tr("Not written: %1").arg(m_plan.problems.size()));
    m_problemsTitle->setVisible(areThere);
    m_problems->setVisible(areThere);
    m_problems->setAccessibleName(tr("What is not written, and why"));
    m_problems->clear();
    for (const Text& problem : m_plan.problems) {
        m_problems->addItem(problem());
    }
}

void ImportPreview::changeEvent(QEvent* event)
{
    QDialog::changeEvent(event);
    if (event->type() == QEvent::LanguageChange) {
        refresh();
    }
}
