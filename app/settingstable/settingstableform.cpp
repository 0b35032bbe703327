// What the window of the table of settings is made of, and its texts.
#include "app/notices/filedialog.h"
#include "app/settingstable/filebar.h"
#include "app/settingstable/settingstablewindow.h"
#include "app/settingstable/tabledelegate.h"
#include "app/settingstable/tableimport.h"
#include "app/settingstable/tablereading.h"
#include "app/settingstable/tablewriting.h"
#include "app/shared/wholefile.h"
#include "app/transfer/settingstransfer.h"
#include "importexport/settingscomparison.h"
#include "importexport/settingsfilewriter.h"
#include "serial/ldb/busaddress.h"

#include <QAction>
#include <QComboBox>
#include <QEvent>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QRegularExpression>
#include <QStyle>
#include <QTableView>
#include <QToolBar>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr QSize kFirstSize(1270, 640);
constexpr int kSearchWidth = 160;
constexpr int kProgressWidth = 160;
constexpr int kCellMargin = 6;

/// How many letters a column is wide; the last one takes the rest.
int lettersOf(int column)
{
    constexpr int kNumber = 10;
    constexpr int kUsual = 11;
    constexpr int kId = 11;   // beside the mark of the sorting
    constexpr int kName = 27; // an edited one stands beside what it was
    constexpr int kTime = 10;
    constexpr int kFirmware = 19;
    switch (column) {
    case SettingsTableModel::LdbColumn:
        return kId;
    case SettingsTableModel::FirmwareColumn:
        return kFirmware;
    case SettingsTableModel::ReadColumn:
        return kTime;
    default:
        break;
    }
    switch (kindOf(*SettingsTableModel::fieldOf(column))) {
    case FieldKind::FreeText:
        return kName;
    case FieldKind::Number:
        return kNumber;
    case FieldKind::Switch:
        break;
    }
    return kUsual;
}

struct ActionText
{
    const char* name;
    const char* text;
    const char* tip;
};

constexpr ActionText kActionTexts[] = {
    {"readAll", QT_TRANSLATE_NOOP("SettingsTableWindow", "Read All"),
     QT_TRANSLATE_NOOP("SettingsTableWindow", "Read the settings of all LDB's")},
    {"readSelected", QT_TRANSLATE_NOOP("SettingsTableWindow", "Read Selected"),
     QT_TRANSLATE_NOOP("SettingsTableWindow", "Read the LDB's of the selected cells again")},
    {"stop", QT_TRANSLATE_NOOP("SettingsTableWindow", "Stop"),
     QT_TRANSLATE_NOOP("SettingsTableWindow",
                       "End the reading, or the writing behind the LDB under way")},
    {"undo", QT_TRANSLATE_NOOP("SettingsTableWindow", "Undo"),
     QT_TRANSLATE_NOOP("SettingsTableWindow", "Take the last change of the table back")},
    {"redo", QT_TRANSLATE_NOOP("SettingsTableWindow", "Redo"),
     QT_TRANSLATE_NOOP("SettingsTableWindow", "Make the change again that was taken back")},
    {"copy", QT_TRANSLATE_NOOP("SettingsTableWindow", "Copy"),
     QT_TRANSLATE_NOOP("SettingsTableWindow", "Copy the selected cells for a spreadsheet")},
    {"paste", QT_TRANSLATE_NOOP("SettingsTableWindow", "Paste"),
     QT_TRANSLATE_NOOP("SettingsTableWindow",
                       "Put cells of a spreadsheet in, from the first selected cell on")},
    {"set", QT_TRANSLATE_NOOP("SettingsTableWindow", "Set..."),
     QT_TRANSLATE_NOOP("SettingsTableWindow", "Give the selected LDB's one value")},
    {"import", QT_TRANSLATE_NOOP("SettingsTableWindow", "Import..."),
     QT_TRANSLATE_NOOP("SettingsTableWindow", "Take the values of a file as changes")},
    {"export", QT_TRANSLATE_NOOP("SettingsTableWindow", "Export..."),
     QT_TRANSLATE_NOOP("SettingsTableWindow", "Write what the table shows, with its changes, into "
                                              "a file")},
    {"former", QT_TRANSLATE_NOOP("SettingsTableWindow", "Former Settings..."),
     QT_TRANSLATE_NOOP("SettingsTableWindow",
                       "Compare with what the LDB's had before, or put it back")},
    {"goOn", QT_TRANSLATE_NOOP("SettingsTableWindow", "Go On Writing"),
     QT_TRANSLATE_NOOP("SettingsTableWindow",
                       "Write what was confirmed before the connection ended")},
    {"write", QT_TRANSLATE_NOOP("SettingsTableWindow", "Write..."),
     QT_TRANSLATE_NOOP("SettingsTableWindow",
                       "Show what would be written; nothing is sent before you confirm it")},
};

} // namespace

void SettingsTableWindow::build()
{
    m_tools = new QToolBar;
    m_search = new QLineEdit;
    m_compare = new QComboBox;
    m_show = new QComboBox;
    m_status = new QLabel;
    m_progress = new QProgressBar;
    auto* importBar = new FileBar;
    m_compareBar = new FileBar;
    m_search->setObjectName(QStringLiteral("tableSearch"));
    m_compare->setObjectName(QStringLiteral("tableCompare"));
    m_show->setObjectName(QStringLiteral("tableShow"));
    m_status->setObjectName(QStringLiteral("tableStatus"));
    m_progress->setObjectName(QStringLiteral("tableProgress"));
    importBar->setObjectName(QStringLiteral("importBar"));
    m_compareBar->setObjectName(QStringLiteral("compareBar"));
    m_search->setFixedWidth(kSearchWidth);
    m_progress->setFixedWidth(kProgressWidth);
    m_progress->setTextVisible(false);
    m_progress->hide();
    m_tools->setToolButtonStyle(Qt::ToolButtonTextOnly);
    for (int item = 0; item < 3; ++item) {
        m_compare->addItem({});
        m_show->addItem({});
    }
    m_import = new TableImport(m_around.transfer, m_model, importBar, m_around.isPending, this);
    buildTable();
    auto* looking = new QHBoxLayout;
    looking->addWidget(m_search);
    looking->addWidget(m_compare);
    looking->addWidget(m_show);
    looking->addStretch();
    looking->addWidget(m_status);
    looking->addWidget(m_progress);
    auto* content = new QVBoxLayout(this);
    content->addWidget(m_tools);
    content->addLayout(looking);
    content->addWidget(importBar);
    content->addWidget(m_compareBar);
    content->addWidget(m_view, 1);
    buildActions();
    connect(m_search, &QLineEdit::textChanged, m_filter, &TableFilter::setSearch);
    connect(m_show, qOverload<int>(&QComboBox::currentIndexChanged), this,
            [this](int item) { m_filter->setShow(static_cast<TableFilter::Show>(item)); });
    connect(m_compare, qOverload<int>(&QComboBox::activated), this, [this](int item) {
        const auto with = static_cast<TableComparison::With>(item);
        if (with == TableComparison::With::Other) {
            showComparison(); // nothing changes until a file is chosen
            chooseComparison();
            return;
        }
        m_model->compareWith(with);
        showComparison();
    });
    connect(m_compareBar, &FileBar::closed, this, [this] {
        m_model->compareWith(TableComparison::With::Most);
        showComparison();
    });
    connect(m_compareBar, &FileBar::otherReadingWanted, this, [this] {
        m_compareFile.setReading(m_compareFile.otherReading());
        m_model->compareWithOther(m_compareFile.settings());
        showComparison();
    });
    connect(m_import, &TableImport::detailsWanted, this, [this] {
        tell([] { return tr("These are left out:"); },
             [sentences = m_import->leftOut()] {
                 QStringList lines;
                 for (const Text& sentence : sentences) {
                     lines.append(sentence());
                 }
                 return lines.join(QLatin1Char('\n'));
             });
    });
    resize(kFirstSize);
    m_view->setFocus();
}

void SettingsTableWindow::buildTable()
{
    m_view = new QTableView;
    m_view->setObjectName(QStringLiteral("settingsTable"));
    m_view->setModel(m_filter);
    m_view->setItemDelegate(new TableDelegate(m_view));
    m_view->setSortingEnabled(true);
    m_view->sortByColumn(SettingsTableModel::LdbColumn, Qt::AscendingOrder);
    m_view->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed |
                            QAbstractItemView::AnyKeyPressed);
    m_view->verticalHeader()->hide();
    // All rows have one height, and widths do not follow the contents, so that the table scrolls
    // without a stutter.
    m_view->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    m_view->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + kCellMargin);
    m_view->setWordWrap(false);
    m_view->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    m_view->horizontalHeader()->setDefaultAlignment(Qt::AlignCenter |
                                                    static_cast<Qt::Alignment>(Qt::TextWordWrap));
    m_view->horizontalHeader()->setStretchLastSection(true);
    m_view->setTabKeyNavigation(false); // Tab leaves the table
    const int letter = fontMetrics().averageCharWidth();
    for (int column = 0; column < SettingsTableModel::StateColumn; ++column) {
        m_view->setColumnWidth(column, lettersOf(column) * letter);
    }
    connect(m_view->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &SettingsTableWindow::updateActions);
}

QAction* SettingsTableWindow::addAction(const char* name, const QKeySequence& shortcut,
                                        const std::function<void()>& run)
{
    auto* action = new QAction(this);
    action->setObjectName(QLatin1String(name));
    action->setShortcut(shortcut);
    connect(action, &QAction::triggered, this, run);
    m_tools->addAction(action);
    m_tools->widgetForAction(action)->setFocusPolicy(Qt::TabFocus);
    return action;
}

void SettingsTableWindow::buildActions()
{
    addAction("readAll", QKeySequence::Refresh, [this] { readAll(); });
    addAction("readSelected", QStringLiteral("Shift+F5"),
              [this] { m_reading->read(selectedLdbs()); });
    addAction("stop", QStringLiteral("Ctrl+."), [this] {
        m_reading->stop();
        m_writing->stop();
    });
    m_tools->addSeparator();
    // Not at the end, where a narrow window hides what does not fit.
    addAction("goOn", QStringLiteral("Ctrl+G"), [this] { goOn(); });
    addAction("write", QStringLiteral("Ctrl+Return"),
              [this] { preview(FormerSettings::Occasion::Write); });
    m_tools->addSeparator();
    addAction("undo", QKeySequence::Undo, [this] { m_model->undoStack()->undo(); });
    addAction("redo", QKeySequence::Redo, [this] { m_model->undoStack()->redo(); });
    addAction("copy", QKeySequence::Copy, [this] { copy(); });
    addAction("paste", QKeySequence::Paste, [this] { paste(); });
    addAction("set", QStringLiteral("Ctrl+D"), [this] { setForSelected(); });
    m_tools->addSeparator();
    addAction("import", QKeySequence::Open, [this] { chooseImport(); });
    addAction("export", QKeySequence::Save, [this] { exportFile(); });
    addAction("former", QStringLiteral("Ctrl+H"), [this] { showFormer(); });
    auto* search = new QAction(this);
    search->setShortcut(QKeySequence::Find);
    connect(search, &QAction::triggered, m_search, [this] { m_search->setFocus(); });
    QWidget::addAction(search);
}

void SettingsTableWindow::updateActions()
{
    const bool isBusy = m_reading->isOn() || m_writing->isOn();
    const bool isUsable = m_permission && !isBusy;
    const bool isOpen = !m_writing->open().empty();
    const auto enable = [this](const char* name, bool isEnabled) {
        findChild<QAction*>(QLatin1String(name))->setEnabled(isEnabled);
    };
    enable("readAll", isUsable);
    enable("readSelected", isUsable && m_view->selectionModel()->hasSelection());
    enable("stop", isBusy);
    enable("undo", m_model->undoStack()->canUndo() && !m_writing->isOn());
    enable("redo", m_model->undoStack()->canRedo() && !m_writing->isOn());
    enable("paste", !m_writing->isOn());
    enable("set", !m_writing->isOn() && m_view->selectionModel()->hasSelection());
    enable("import", !isBusy);
    enable("former", !isBusy);
    enable("export", !m_model->rows().empty());
    enable("write", isUsable && m_model->editCount() > 0);
    enable("goOn", isUsable && isOpen);
    findChild<QAction*>(QStringLiteral("goOn"))->setVisible(isOpen);
    updateStatus();
}

void SettingsTableWindow::updateStatus()
{
    if (m_reading->isOn() || m_writing->isOn()) {
        return;
    }
    m_progress->hide();
    const int edits = m_model->editCount();
    const int ldbs = m_model->rowCount();
    const int shown = m_filter->rowCount();
    QString text = shown == ldbs ? tr("%n LDB(s)", nullptr, ldbs)
                                 : tr("%1 of %n LDB(s) shown", nullptr, ldbs).arg(shown);
    if (edits > 0) {
        text += QStringLiteral(", ") + tr("%n to write", nullptr, edits);
    }
    if (!m_permission) {
        text += QStringLiteral(". ") + hindranceText(m_permission.hindrance);
    }
    m_status->setText(text);
}

void SettingsTableWindow::showProgress(const QString& text, int left, int total)
{
    m_status->setText(text);
    m_progress->setMaximum(total);
    m_progress->setValue(total - left);
    m_progress->show();
}

void SettingsTableWindow::retranslate()
{
    setWindowTitle(tr("Settings of all LDB's"));
    m_tools->setWindowTitle(tr("Tools"));
    for (const ActionText& text : kActionTexts) {
        auto* action = findChild<QAction*>(QLatin1String(text.name));
        action->setText(tr(text.text));
        action->setIconText(tr(text.text)); // the default is the text without its dots
        const QString key = action->shortcut().toString(QKeySequence::NativeText);
        action->setToolTip(key.isEmpty() ? tr(text.tip)
                                         : QStringLiteral("%1 (%2)").arg(tr(text.tip), key));
    }
    m_search->setPlaceholderText(tr("Search"));
    m_search->setAccessibleName(tr("Search"));
    const auto name = [](QComboBox* box, const QString& what, const QStringList& items) {
        box->setAccessibleName(what);
        box->setToolTip(what);
        for (int item = 0; item < items.size(); ++item) {
            box->setItemText(item, items.at(item));
        }
        box->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    };
    name(m_compare, tr("What the values are compared with"),
         {tr("Compare with most others"), tr("Compare with factory defaults"),
          tr("Compare with a file...")});
    name(m_show, tr("Which LDB's are shown"),
         {tr("All LDB's"), tr("Only differing"), tr("Only changed")});
    m_view->setAccessibleName(tr("Settings of all LDB's"));
    m_model->retranslate();
    fitHeads();
    m_import->show();
    showComparison();
    updateActions();
}

/// Makes each column as wide as the longest word of its title, and the header as high as the titles
/// need.
void SettingsTableWindow::fitHeads()
{
    QHeaderView* header = m_view->horizontalHeader();
    // The titles of columns with selected cells are bold.
    QFont bold = header->font();
    bold.setBold(true);
    const QFontMetrics metrics(bold);
    const int margin = 2 * (header->style()->pixelMetric(QStyle::PM_HeaderMargin) + 2);
    // A line ends at a blank, or after a hyphen.
    static const QRegularExpression pieces(QStringLiteral(" |(?<=-)"));
    int height = 0;
    for (int column = 0; column < SettingsTableModel::ColumnCount; ++column) {
        const QString title =
            m_model->headerData(column, Qt::Horizontal, Qt::DisplayRole).toString();
        int width = m_view->columnWidth(column);
        for (const QString& word : title.split(pieces)) {
            width = std::max(width, metrics.horizontalAdvance(word) + margin);
        }
        m_view->setColumnWidth(column, width);
        const QRect room(0, 0, width - margin, QWIDGETSIZE_MAX);
        height = std::max(
            height, metrics.boundingRect(room, int{Qt::TextWordWrap} | int{Qt::AlignCenter}, title)
                        .height());
    }
    header->setFixedHeight(height + kCellMargin);
}

void SettingsTableWindow::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange) {
        retranslate();
    }
}

void SettingsTableWindow::exportFile()
{
    filedialog::save(this, tr("Select File"), {}, false, [this](const QString& path) {
        WholeFile file(path);
        bool isWritten = file.open();
        QStringList spoiled;
        if (isWritten) {
            SettingsFileWriter writer(&file);
            isWritten = writer.writeHead();
            for (const TableRow& row : m_model->rows()) {
                if (row.read || row.edits.size() >= kFileFields.size()) {
                    LdbSettings settings = row.shown();
                    settings.address = busaddress::fromHexId(row.hexId);
                    isWritten = isWritten && writer.writeLine(settings, row.firmwareId);
                    if (!SettingsFileWriter::canHold(settings, row.firmwareId)) {
                        spoiled.append(row.hexId);
                    }
                }
            }
        }
        QString reason = file.finish();
        if (!isWritten || !reason.isEmpty()) {
            tell([] { return tr("The file cannot be written."); }, [reason] { return reason; });
        } else if (!spoiled.isEmpty()) {
            tell([] { return tr("Names have characters that the file cannot hold."); },
                 [spoiled] { return spoiled.join(QStringLiteral(", ")); });
        }
    });
}
