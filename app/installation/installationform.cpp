#include "app/installation/installationform.h"

#include "app/installation/installationcontrol.h"
#include "app/notices/filedialog.h"
#include "app/notices/messagebox.h"

#include <QCloseEvent>
#include <QDir>
#include <QEvent>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace {

constexpr QSize kFirstSize(820, 560);
constexpr int kNotesLines = 4; ///< seen at once
const QString kSuffix = QStringLiteral("json");

void tellFailure(QWidget* parent, const QString& reason)
{
    MessageBox::tell(
        parent, QMessageBox::Warning,
        [reason] {
            return BoxText{InstallationForm::tr("Installation"), reason};
        },
        QStringLiteral("installationFileBox"));
}

} // namespace

InstallationForm::InstallationForm(InstallationControl* control, std::function<PortIdentity()> port,
                                   QWidget* parent)
    : QDialog(parent)
    , m_control(control)
    , m_port(std::move(port))
    , m_list(new QListWidget)
    , m_nameLabel(new QLabel)
    , m_name(new QLineEdit)
    , m_placeLabel(new QLabel)
    , m_place(new QLineEdit)
    , m_notesLabel(new QLabel)
    , m_notes(new QPlainTextEdit)
    , m_ldbsLabel(new QLabel)
    , m_ldbs(new QTreeWidget)
    , m_forget(new QPushButton)
    , m_new(new QPushButton)
    , m_import(new QPushButton)
    , m_export(new QPushButton)
    , m_use(new QPushButton)
    , m_close(new QPushButton)
{
    setObjectName(QStringLiteral("installationForm"));
    setWindowFlags(Qt::Dialog | Qt::WindowTitleHint | Qt::WindowCloseButtonHint);
    build();
    connectAll();
    resize(kFirstSize);
    retranslate();
}

void InstallationForm::build()
{
    m_list->setObjectName(QStringLiteral("installationList"));
    m_name->setObjectName(QStringLiteral("installationNameEdit"));
    m_place->setObjectName(QStringLiteral("installationPlaceEdit"));
    m_notes->setObjectName(QStringLiteral("installationNotesEdit"));
    m_ldbs->setObjectName(QStringLiteral("installationLdbs"));
    m_forget->setObjectName(QStringLiteral("forgetLdbButton"));
    m_new->setObjectName(QStringLiteral("addInstallationButton"));
    m_import->setObjectName(QStringLiteral("importInstallationButton"));
    m_export->setObjectName(QStringLiteral("exportInstallationButton"));
    m_use->setObjectName(QStringLiteral("useInstallationButton"));
    m_close->setObjectName(QStringLiteral("closeInstallationButton"));
    m_notes->setTabChangesFocus(true);
    m_notes->setMaximumHeight(kNotesLines * fontMetrics().lineSpacing() +
                              2 * m_notes->frameWidth() +
                              2 * static_cast<int>(m_notes->document()->documentMargin()));
    m_ldbs->setColumnCount(ColumnCount);
    m_ldbs->setRootIsDecorated(false);
    m_ldbs->setAlternatingRowColors(true);
    m_ldbs->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_nameLabel->setBuddy(m_name);
    m_placeLabel->setBuddy(m_place);
    m_notesLabel->setBuddy(m_notes);
    m_ldbsLabel->setBuddy(m_ldbs);

    auto* left = new QVBoxLayout;
    left->addWidget(m_list, 1);
    left->addWidget(m_new);
    left->addWidget(m_import);
    left->addWidget(m_export);
    auto* fields = new QFormLayout;
    fields->addRow(m_nameLabel, m_name);
    fields->addRow(m_placeLabel, m_place);
    fields->addRow(m_notesLabel, m_notes);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(m_forget);
    buttons->addStretch();
    buttons->addWidget(m_use);
    buttons->addWidget(m_close);
    auto* right = new QVBoxLayout;
    right->addLayout(fields);
    right->addWidget(m_ldbsLabel);
    right->addWidget(m_ldbs, 1);
    right->addLayout(buttons);
    auto* layout = new QHBoxLayout(this);
    constexpr int kListShare = 2;
    constexpr int kFieldsShare = 5;
    layout->addLayout(left, kListShare);
    layout->addLayout(right, kFieldsShare);
    // Enter belongs to the fields.
    for (QPushButton* button : {m_forget, m_new, m_import, m_export, m_use, m_close}) {
        button->setAutoDefault(false);
    }
}

void InstallationForm::connectAll()
{
    connect(m_list, &QListWidget::currentItemChanged, this, [this](const QListWidgetItem* item) {
        if (item != nullptr) {
            keep();
            show(item->data(Qt::UserRole).toString());
        }
    });
    connect(m_name, &QLineEdit::editingFinished, this, &InstallationForm::keep);
    connect(m_place, &QLineEdit::editingFinished, this, &InstallationForm::keep);
    connect(m_ldbs, &QTreeWidget::itemSelectionChanged, this,
            [this] { m_forget->setEnabled(!m_ldbs->selectedItems().isEmpty()); });
    const auto let = [this](const QPushButton* button, auto slot) {
        connect(button, &QPushButton::clicked, this, slot);
    };
    let(m_forget, &InstallationForm::forgetLdbs);
    let(m_new, [this] {
        keep();
        load(m_control->add({}));
        m_name->setFocus();
    });
    let(m_import, &InstallationForm::import);
    let(m_export, &InstallationForm::exportShown);
    let(m_use, &InstallationForm::use);
    let(m_close, [this] { close(); });
    connect(m_control, &InstallationControl::changed, this, &InstallationForm::processChange);
}

void InstallationForm::open()
{
    load(m_control->current().id);
    QDialog::show();
    raise();
    activateWindow();
}

void InstallationForm::load(const QString& id)
{
    m_installations = m_control->all();
    const Installation& current = m_control->current();
    const auto isCurrent = [&](const Installation& one) {
        return one.id == current.id;
    };
    const auto stored = std::find_if(m_installations.begin(), m_installations.end(), isCurrent);
    if (stored != m_installations.end()) {
        *stored = current; // what is in force may be newer than its file
    } else if (!current.id.isEmpty()) {
        m_installations.push_back(current);
    }
    const QSignalBlocker blocker(m_list);
    m_list->clear();
    for (const Installation& installation : m_installations) {
        const bool isInForce = isCurrent(installation);
        auto* item = new QListWidgetItem(
            isInForce ? tr("%1 (in use)").arg(installation.title()) : installation.title(), m_list);
        item->setData(Qt::UserRole, installation.id);
        if (installation.id == id || m_list->currentItem() == nullptr) {
            m_list->setCurrentItem(item);
        }
    }
    const QListWidgetItem* item = m_list->currentItem();
    show(item == nullptr ? QString() : item->data(Qt::UserRole).toString());
}

void InstallationForm::show(const QString& id)
{
    const auto shown = std::find_if(m_installations.begin(), m_installations.end(),
                                    [&](const Installation& one) { return one.id == id; });
    const bool isAny = shown != m_installations.end();
    m_shown = isAny ? *shown : Installation();
    m_name->setText(m_shown.name);
    m_place->setText(m_shown.place);
    m_notes->setPlainText(m_shown.notes);
    for (QWidget* field :
         std::initializer_list<QWidget*>{m_name, m_place, m_notes, m_ldbs, m_export}) {
        field->setEnabled(isAny);
    }
    m_use->setEnabled(isAny && (m_shown.id != m_control->current().id || !m_control->isSettled()));
    showLdbs();
}

void InstallationForm::showLdbs()
{
    m_ldbs->clear();
    for (const KnownLdb& ldb : m_shown.ldbs) {
        new QTreeWidgetItem(m_ldbs, {ldb.hexId, ldb.name});
    }
    m_forget->setEnabled(false);
    m_ldbsLabel->setText(tr("LDBs remembered: %n", nullptr, static_cast<int>(m_shown.ldbs.size())));
}

/// Shows at once what is heard of the installation in force; keeps what is being typed.
void InstallationForm::processChange()
{
    const Installation& current = m_control->current();
    if (!isVisible() || m_shown.id != current.id) {
        return;
    }
    const auto shown = std::find_if(m_installations.begin(), m_installations.end(),
                                    [&](const Installation& one) { return one.id == current.id; });
    if (shown != m_installations.end()) {
        *shown = current;
    }
    m_shown = current;
    showLdbs();
}

void InstallationForm::keep()
{
    Installation described = m_shown;
    described.name = m_name->text().simplified();
    described.place = m_place->text().simplified();
    described.notes = m_notes->toPlainText();
    if (m_shown.id.isEmpty() ||
        (described.name == m_shown.name && described.place == m_shown.place &&
         described.notes == m_shown.notes)) {
        return;
    }
    m_shown = described;
    m_control->describe(described);
    for (int i = 0; i < m_list->count(); ++i) {
        QListWidgetItem* item = m_list->item(i);
        if (item->data(Qt::UserRole).toString() == described.id) {
            item->setText(described.id == m_control->current().id
                              ? tr("%1 (in use)").arg(described.title())
                              : described.title());
            m_installations.at(static_cast<std::size_t>(i)) = described;
        }
    }
}

void InstallationForm::use()
{
    keep();
    m_control->choose(m_shown.id, m_port());
    load(m_shown.id);
}

void InstallationForm::forgetLdbs()
{
    QStringList hexIds;
    const QList<QTreeWidgetItem*> selected = m_ldbs->selectedItems();
    for (const QTreeWidgetItem* item : selected) {
        hexIds.append(item->text(AddressColumn));
    }
    keep();
    m_control->forget(m_shown.id, hexIds);
    load(m_shown.id);
}

void InstallationForm::exportShown()
{
    keep();
    const QString proposed = QDir::home().filePath(m_shown.title() + QLatin1Char('.') + kSuffix);
    filedialog::save(
        this, tr("Export Installation"), proposed, false,
        [this, shown = m_shown](const QString& path) {
            const QString reason = Installations::exportTo(path, shown);
            if (!reason.isEmpty()) {
                tellFailure(this, reason);
            }
        },
        kSuffix);
}

void InstallationForm::import()
{
    keep();
    filedialog::load(
        this, tr("Import Installation"),
        [this](const QString& path) {
            QString failure;
            if (const auto imported = Installations::importFrom(path, &failure)) {
                load(m_control->add(*imported));
            } else {
                tellFailure(this, failure);
            }
        },
        kSuffix);
}

void InstallationForm::retranslate()
{
    setWindowTitle(tr("Installation"));
    m_list->setAccessibleName(tr("Installations"));
    m_nameLabel->setText(tr("&Name:"));
    m_placeLabel->setText(tr("&Place:"));
    m_notesLabel->setText(tr("N&otes:"));
    m_ldbs->setHeaderLabels({tr("Address"), tr("Name")});
    m_ldbs->setAccessibleName(tr("LDBs remembered"));
    m_forget->setText(tr("Forget LDB"));
    m_forget->setToolTip(tr("Take the selected LDBs out of what is remembered; one that answers is "
                            "remembered again"));
    m_new->setText(tr("New"));
    m_new->setToolTip(tr("Make an installation, to be used later"));
    m_import->setText(tr("Import..."));
    m_import->setToolTip(tr("Take an installation from a colleague's file"));
    m_export->setText(tr("Export..."));
    m_export->setToolTip(tr("Write this installation into a file for a colleague"));
    m_use->setText(tr("Use This One"));
    m_use->setToolTip(tr("This is the installation at the port; while it is monitored, it is "
                         "scanned anew"));
    m_close->setText(tr("Close"));
    m_ldbsLabel->setText(tr("LDBs remembered: %n", nullptr, static_cast<int>(m_shown.ldbs.size())));
}

void InstallationForm::changeEvent(QEvent* event)
{
    QDialog::changeEvent(event);
    if (event->type() == QEvent::LanguageChange) {
        retranslate();
    }
}

void InstallationForm::closeEvent(QCloseEvent* event)
{
    keep();
    QDialog::closeEvent(event);
}
