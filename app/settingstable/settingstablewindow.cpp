#include "app/settingstable/settingstablewindow.h"

#include "app/notices/filedialog.h"
#include "app/notices/messagebox.h"
#include "app/settingstable/filebar.h"
#include "app/settingstable/formerlist.h"
#include "app/settingstable/setvaluedialog.h"
#include "app/settingstable/tableclipboard.h"
#include "app/settingstable/tableimport.h"
#include "app/settingstable/tablereading.h"
#include "app/settingstable/tablewriting.h"
#include "app/settingstable/writepreview.h"
#include "app/transfer/settingstransfer.h"
#include "serial/link/seriallink.h"

#include <QClipboard>
#include <QCloseEvent>
#include <QComboBox>
#include <QGuiApplication>
#include <QSignalBlocker>
#include <QTableView>
#include <QThread>

#include <algorithm>
#include <set>

SettingsTableWindow::SettingsTableWindow(Surroundings surroundings, QWidget* parent)
    : QWidget(parent, Qt::Window)
    , m_around(std::move(surroundings))
    , m_model(new SettingsTableModel(this))
    , m_filter(new TableFilter(this))
    , m_reading(new TableReading(m_around.link, m_around.wallTime, m_model, this))
    , m_writing(new TableWriting(
          [this](std::vector<LdbChange> changes) {
              return m_around.transfer->write(std::move(changes));
          },
          m_around.wallTime, m_model, this))
{
    Q_ASSERT(QThread::currentThread() == thread());
    setObjectName(QStringLiteral("settingsTableWindow"));
    m_filter->setSourceModel(m_model);
    build();
    follow();
    retranslate();
}

SettingsTableWindow::~SettingsTableWindow()
{
    // Its views and models send signals while they end, when this object is only half there.
    const QList<QObject*> parts = findChildren<QObject*>();
    for (QObject* part : parts) {
        part->disconnect(this);
    }
}

void SettingsTableWindow::follow()
{
    const SerialLink* link = m_around.link;
    const auto takeLdbs = [this] {
        m_model->setLdbs(m_around.link->knownLdbs(), m_around.link->connectedLdbs());
    };
    connect(link, &SerialLink::ldbListChanged, this, takeLdbs);
    connect(link, &SerialLink::ldbDisconnected, this, takeLdbs);
    connect(link, &SerialLink::stopped, this, takeLdbs);
    connect(link, &SerialLink::ldbStateUpdated, this, [this](const QString& hexId) {
        m_model->setConnected(hexId, m_around.link->isConnected(hexId));
    });
    takeLdbs();
    connect(m_model, &SettingsTableModel::rowsInserted, this, &SettingsTableWindow::updateActions);
    connect(m_model, &SettingsTableModel::editsChanged, this, &SettingsTableWindow::updateActions);
    connect(m_reading, &TableReading::changed, this, &SettingsTableWindow::updateActions);
    connect(m_reading, &TableReading::progressChanged, this,
            [this](int left, int total, qint64 remainingMs) {
                constexpr qint64 kSecond = 1000;
                const QString text = remainingMs < 0
                                         ? tr("Reading: %n left", nullptr, left)
                                         : tr("Reading: %n left, about %1 s", nullptr, left)
                                               .arg((remainingMs + kSecond - 1) / kSecond);
                showProgress(text, left, total);
            });
    connect(m_writing, &TableWriting::progressChanged, this, [this](int left, int total) {
        showProgress(tr("Writing: %n left", nullptr, left), left, total);
    });
    connect(m_writing, &TableWriting::changed, this, [this] {
        if (!m_writing->isOn()) {
            m_import->end();
        }
        updateActions();
    });
    connect(m_around.transfer, &SettingsTransfer::planned, this, &SettingsTableWindow::takePlanned);
}

void SettingsTableWindow::setFormerSettings(const FormerSettingsStore& store)
{
    m_writing->setFormerSettings(store);
}

void SettingsTableWindow::forget()
{
    m_hasRead = false;
    m_model->forget();
}

void SettingsTableWindow::apply(Permission permission)
{
    m_permission = permission;
    readAtFirst();
    updateActions();
}

void SettingsTableWindow::readAtFirst()
{
    if (isVisible() && m_permission && !m_hasRead) {
        readAll();
    }
}

Text SettingsTableWindow::underWay() const
{
    const int edits = m_model->editCount();
    if (edits == 0) {
        return {};
    }
    return [edits] {
        return tr("The table of settings has %n change(s) that are not written.", nullptr, edits);
    };
}

void SettingsTableWindow::open()
{
    show();
    raise();
    activateWindow();
    readAtFirst();
}

void SettingsTableWindow::readAll()
{
    m_hasRead = true;
    m_reading->read(m_around.link->connectedLdbs());
}

QModelIndexList SettingsTableWindow::selectedCells() const
{
    return m_view->selectionModel()->selectedIndexes();
}

QStringList SettingsTableWindow::selectedLdbs() const
{
    std::set<int> rows;
    for (const QModelIndex& cell : selectedCells()) {
        rows.insert(cell.row());
    }
    QStringList hexIds;
    for (const int row : rows) {
        hexIds.append(m_filter->index(row, SettingsTableModel::LdbColumn).data().toString());
    }
    return hexIds;
}

void SettingsTableWindow::copy()
{
    const QModelIndexList cells = selectedCells();
    if (!cells.isEmpty()) {
        QGuiApplication::clipboard()->setText(tableclipboard::copied(cells));
    }
}

void SettingsTableWindow::paste()
{
    const auto pasted =
        tableclipboard::pasted(QGuiApplication::clipboard()->text(), selectedCells());
    if (pasted.error) {
        tell(pasted.error);
    } else if (!pasted.edits.empty()) {
        m_model->edit(pasted.edits, tr("Paste"));
    }
}

void SettingsTableWindow::setForSelected()
{
    const auto field = SettingsTableModel::fieldOf(m_view->currentIndex().column());
    const QStringList hexIds = selectedLdbs();
    if (!field || hexIds.isEmpty() || m_model->isLocked()) {
        tell([] { return tr("Select cells of the setting that is to be set."); });
        return;
    }
    const TableRow* first = m_model->find(
        m_view->currentIndex().siblingAtColumn(SettingsTableModel::LdbColumn).data().toString());
    auto* dialog = new SetValueDialog(*field, hexIds.size(),
                                      first != nullptr ? first->shown() : LdbSettings(), this);
    connect(dialog, &QDialog::accepted, this, [this, dialog, field = *field, hexIds] {
        std::vector<SettingsTableModel::CellEdit> edits;
        for (const QString& hexId : hexIds) {
            edits.push_back({hexId, field, dialog->values()});
        }
        m_model->edit(edits, dialog->windowTitle());
    });
    dialog->open();
}

void SettingsTableWindow::chooseImport()
{
    filedialog::load(this, tr("Select File"), [this](const QString& path) { importFile(path); });
}

void SettingsTableWindow::importFile(const QString& path)
{
    if (m_permission) {
        m_around.transfer->importFrom(path); // `planned()` comes when the LDBs are read
        return;
    }
    Text error;
    const QByteArray content = ImportPlan::load(path, error);
    if (error) {
        tell(error);
        return;
    }
    m_hasRead = true;
    m_import->take(TableFile(path, content, IdReading::Hexadecimal));
}

void SettingsTableWindow::takePlanned()
{
    m_hasRead = true;
    m_import->takePlan(QDateTime::fromMSecsSinceEpoch(m_around.wallTime()));
    show();
    raise();
    activateWindow();
}

void SettingsTableWindow::chooseComparison()
{
    filedialog::load(this, tr("Select File"), [this](const QString& path) {
        Text error;
        const QByteArray content = ImportPlan::load(path, error);
        if (error) {
            tell(error);
            return;
        }
        m_compareFile = TableFile(path, content, IdReading::Hexadecimal);
        m_isFileCompared = true;
        m_model->compareWithOther(m_compareFile.settings());
        showComparison();
    });
}

void SettingsTableWindow::showComparison()
{
    const bool isOther = m_model->comparison().with() == TableComparison::With::Other;
    {
        const QSignalBlocker blocker(m_compare);
        m_compare->setCurrentIndex(static_cast<int>(m_model->comparison().with()));
    }
    m_filter->invalidate();
    if (!isOther || !m_model->comparison().other().name) {
        m_compareBar->hide();
        return;
    }
    const QString name = m_model->comparison().other().name();
    const bool isAgainst = m_isFileCompared && m_compareFile.fitsBetterOtherwise(m_model->rows());
    const bool isDecimal = m_compareFile.reading() == IdReading::Decimal;
    m_compareBar->show(
        m_isFileCompared
            ? tr("Compared with \"%1\". %2").arg(name, m_compareFile.readingText(m_model->rows()))
            : tr("Compared with: %1").arg(name),
        !m_isFileCompared || !(isAgainst || isDecimal) ? QString()
        : isDecimal                                    ? tr("Read as hexadecimal")
                                                       : tr("Read as decimal"),
        QString(), tr("Close"), isAgainst);
}

void SettingsTableWindow::preview(FormerSettings::Occasion occasion)
{
    std::vector<LdbChange> changes = m_model->changes();
    changes.erase(std::remove_if(
                      changes.begin(), changes.end(),
                      [this](const LdbChange& change) { return m_around.isPending(change.hexId); }),
                  changes.end());
    auto* dialog = new WritePreview(std::move(changes), m_import->leftOut(), this);
    connect(dialog, &QDialog::accepted, this, [this, dialog, occasion] {
        const bool isImport = m_import->isOn() && occasion == FormerSettings::Occasion::Write;
        write(dialog->changes(), isImport ? FormerSettings::Occasion::Import : occasion);
    });
    dialog->open();
}

void SettingsTableWindow::write(const std::vector<LdbChange>& changes,
                                FormerSettings::Occasion occasion)
{
    const QString note =
        occasion == FormerSettings::Occasion::Import ? m_import->name() : QString();
    QString error = m_writing->keepFormer(changes, occasion, note);
    if (!error.isEmpty()) {
        tell([] { return tr("Nothing was written, as the former settings could not be kept."); },
             [error] { return error; });
    } else if (!m_writing->write(changes)) {
        tell([] { return tr("Nothing was written, as the LDB's cannot be written to now."); });
    }
}

void SettingsTableWindow::goOn()
{
    m_writing->write(m_writing->open());
}

void SettingsTableWindow::showFormer()
{
    const FormerSettingsStore& store = m_writing->formerSettings();
    auto* list = new FormerList(store.all(), store.folder(), this);
    connect(list, &FormerList::compareWanted, this, [this](const FormerSettings& former) {
        m_isFileCompared = false;
        m_model->compareWithOther(FormerList::settingsOf(former));
        showComparison();
    });
    connect(list, &FormerList::putBackWanted, this, &SettingsTableWindow::putBack);
    list->open();
}

void SettingsTableWindow::putBack(const FormerSettings& former)
{
    std::vector<SettingsTableModel::CellEdit> edits;
    for (const auto& [hexId, settings] : FormerList::settingsOf(former).ldbs) {
        for (const LdbField field : kLdbFields) {
            edits.push_back({hexId, field, settings});
        }
    }
    m_model->edit(edits, tr("Put back"));
    preview(FormerSettings::Occasion::PutBack);
}

void SettingsTableWindow::tell(const Text& text, const Text& details)
{
    MessageBox::tell(this, QMessageBox::Warning, [text, details] {
        return BoxText{tr("Attention"), text(), details ? details() : QString()};
    });
}

void SettingsTableWindow::closeEvent(QCloseEvent* event)
{
    const QString name = QStringLiteral("unwrittenSettingsBox");
    const int edits = m_model->editCount();
    if (edits == 0 || MessageBox::find(this, name) != nullptr) {
        event->setAccepted(edits == 0);
        return;
    }
    event->ignore();
    const MessageBox* box = MessageBox::tell(
        this, QMessageBox::Question,
        [text = underWay()] {
            return BoxText{tr("Attention"), text(), {}, {tr("Discard"), tr("Keep"), tr("Stay")}};
        },
        name);
    connect(box, &QDialog::finished, this, [this, box] {
        enum Choice
        {
            Discard,
            Keep // and close the window
        };
        if (box->choice() == Discard) {
            discardEdits();
        }
        if (box->choice() == Discard || box->choice() == Keep) {
            hide();
        }
    });
}

void SettingsTableWindow::discardEdits()
{
    std::vector<SettingsTableModel::CellEdit> edits;
    for (const TableRow& row : m_model->rows()) {
        for (const LdbField field : row.edits) {
            edits.push_back({row.hexId, field, std::nullopt});
        }
    }
    m_model->edit(edits, tr("Discard"));
    if (m_import->isOn()) {
        m_import->refuse();
    }
}
