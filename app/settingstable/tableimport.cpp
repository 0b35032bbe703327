#include "app/settingstable/tableimport.h"

#include "app/settingstable/filebar.h"
#include "app/transfer/settingstransfer.h"

#include <utility>

TableImport::TableImport(SettingsTransfer* transfer, SettingsTableModel* model, FileBar* bar,
                         std::function<bool(const QString& hexId)> isPending, QObject* parent)
    : QObject(parent)
    , m_transfer(transfer)
    , m_model(model)
    , m_bar(bar)
    , m_isPending(std::move(isPending))
{
    connect(bar, &FileBar::closed, this, &TableImport::discard);
    connect(bar, &FileBar::otherReadingWanted, this, &TableImport::readOtherwise);
    connect(bar, &FileBar::detailsWanted, this, &TableImport::detailsWanted);
}

void TableImport::takePlan(const QDateTime& now)
{
    for (const auto& [hexId, settings] : m_transfer->bus().settings) {
        m_model->takeReading({hexId, settings, {}}, now);
    }
    const ImportPlan& plan = m_transfer->plan();
    take(TableFile(m_transfer->importPath(), plan.content, plan.reading));
}

void TableImport::refuse()
{
    m_transfer->refuse();
    end();
}

void TableImport::take(const TableFile& file)
{
    m_file = file;
    m_isOn = true;
    m_model->edit(file.edits(), tr("Import of %1").arg(file.name()));
    show();
}

void TableImport::readOtherwise()
{
    std::vector<SettingsTableModel::CellEdit> edits;
    for (const SettingsTableModel::CellEdit& edit : m_file.edits()) {
        const TableRow* row = m_model->find(edit.hexId);
        // What the user has changed since stays.
        const bool isImported = row != nullptr && row->isEdited(edit.field) &&
                                isSameField(edit.field, row->wanted, *edit.values);
        if (isImported) {
            edits.push_back({edit.hexId, edit.field, std::nullopt});
        }
    }
    m_file.setReading(m_file.otherReading());
    m_transfer->planWith(m_file.reading());
    for (const SettingsTableModel::CellEdit& edit : m_file.edits()) {
        edits.push_back(edit);
    }
    m_model->edit(edits, tr("Import of %1").arg(m_file.name()));
    show();
}

void TableImport::show()
{
    if (!m_isOn) {
        m_bar->hide();
        return;
    }
    const bool isAgainst = m_file.fitsBetterOtherwise(m_model->rows());
    const bool isOffered = isAgainst || m_file.reading() == IdReading::Decimal;
    const int problems = static_cast<int>(leftOut().size());
    m_bar->show(tr("Import of \"%1\": nothing has been written yet. %2")
                    .arg(m_file.name(), m_file.readingText(m_model->rows())),
                !isOffered                               ? QString()
                : m_file.reading() == IdReading::Decimal ? tr("Read as hexadecimal")
                                                         : tr("Read as decimal"),
                problems == 0 ? QString() : tr("%n left out...", nullptr, problems),
                tr("Discard the Import"), isAgainst);
}

void TableImport::end()
{
    m_isOn = false;
    show();
}

void TableImport::discard()
{
    std::vector<SettingsTableModel::CellEdit> edits;
    for (const SettingsTableModel::CellEdit& edit : m_file.edits()) {
        edits.push_back({edit.hexId, edit.field, std::nullopt});
    }
    m_model->edit(edits, tr("Discard the Import"));
    refuse();
}

std::vector<Text> TableImport::leftOut() const
{
    std::vector<Text> sentences;
    if (m_isOn) {
        sentences = m_transfer->isPlanned() ? m_transfer->plan().problems : m_file.problems();
    }
    for (const QString& hexId : m_model->unreadEdits()) {
        sentences.emplace_back([hexId] { return tr("LDB %1 has not been read yet.").arg(hexId); });
    }
    for (const LdbChange& change : m_model->changes()) {
        if (m_isPending(change.hexId)) {
            sentences.emplace_back([hexId = change.hexId] {
                return tr("LDB %1: what fault finding has changed is being put back.").arg(hexId);
            });
        }
    }
    return sentences;
}
