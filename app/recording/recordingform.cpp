#include "app/recording/recordingform.h"

#include "app/notices/messagebox.h"
#include "app/recording/recordingcontrol.h"
#include "app/shared/constants.h"
#include "app/shared/usersettings.h"

#include <QCheckBox>
#include <QDir>
#include <QDoubleSpinBox>
#include <QEvent>
#include <QFileDialog>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QPushButton>
#include <QSpinBox>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <map>

namespace {

constexpr double kMegabytesPerGigabyte = 1024.0;
constexpr int kMostDays = 3650;
constexpr double kLeastGigabytes = 0.1;
constexpr double kMostGigabytes = 1000.0;
constexpr QSize kFirstSize(560, 480);

} // namespace

RecordingForm::RecordingForm(RecordingControl* control, QWidget* parent)
    : QDialog(parent)
    , m_control(control)
    , m_isOn(new QCheckBox)
    , m_folderLabel(new QLabel)
    , m_folder(new QLineEdit)
    , m_browse(new QPushButton)
    , m_daysLabel(new QLabel)
    , m_days(new QSpinBox)
    , m_sizeLabel(new QLabel)
    , m_size(new QDoubleSpinBox)
    , m_listLabel(new QLabel)
    , m_list(new QTreeWidget)
    , m_ok(new QPushButton)
    , m_cancel(new QPushButton)
{
    setObjectName(QStringLiteral("recordingForm"));
    setWindowFlags(Qt::Dialog | Qt::WindowTitleHint | Qt::WindowCloseButtonHint);
    build();
    resize(kFirstSize);
    retranslate();
    connect(m_browse, &QPushButton::clicked, this, &RecordingForm::browse);
    connect(m_ok, &QPushButton::clicked, this, &RecordingForm::store);
    connect(m_cancel, &QPushButton::clicked, this, &QDialog::reject);
}

void RecordingForm::build()
{
    m_isOn->setObjectName(QStringLiteral("recordingOnCheckBox"));
    m_folder->setObjectName(QStringLiteral("recordingFolderEdit"));
    m_browse->setObjectName(QStringLiteral("recordingBrowseButton"));
    m_days->setObjectName(QStringLiteral("recordingDaysSpinBox"));
    m_size->setObjectName(QStringLiteral("recordingSizeSpinBox"));
    m_list->setObjectName(QStringLiteral("recordingDayList"));
    m_ok->setObjectName(QStringLiteral("recordingOkButton"));
    m_cancel->setObjectName(QStringLiteral("recordingCancelButton"));
    m_days->setRange(1, kMostDays);
    m_size->setDecimals(1);
    m_size->setRange(kLeastGigabytes, kMostGigabytes);
    m_list->setColumnCount(ColumnCount);
    m_list->setRootIsDecorated(false);
    m_list->setAlternatingRowColors(true);
    m_folderLabel->setBuddy(m_folder);
    m_daysLabel->setBuddy(m_days);
    m_sizeLabel->setBuddy(m_size);
    m_listLabel->setBuddy(m_list);
    m_ok->setDefault(true);
    m_browse->setAutoDefault(false);
    m_cancel->setAutoDefault(false);

    auto* place = new QHBoxLayout;
    place->addWidget(m_folder, 1);
    place->addWidget(m_browse);
    auto* fields = new QFormLayout;
    fields->addRow(m_folderLabel, place);
    fields->addRow(m_daysLabel, m_days);
    fields->addRow(m_sizeLabel, m_size);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(m_ok);
    buttons->addWidget(m_cancel);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_isOn);
    layout->addLayout(fields);
    layout->addWidget(m_listLabel);
    layout->addWidget(m_list, 1);
    layout->addLayout(buttons);
}

void RecordingForm::open()
{
    if (!isVisible()) {
        load();
    }
    QDialog::show();
    raise();
    activateWindow();
}

void RecordingForm::load()
{
    const Recorder::Options& options = m_control->recorder()->options();
    m_isOn->setChecked(options.isEnabled);
    m_folder->setText(
        QDir::toNativeSeparators(userSettings().value(constants::kRecordingFolderKey).toString()));
    m_days->setValue(options.limits.days);
    const qint64 megabytes = options.limits.bytes / RecordingControl::kMegabyte;
    m_size->setValue(static_cast<double>(megabytes) / kMegabytesPerGigabyte);
    loadDays();
}

void RecordingForm::loadDays()
{
    std::map<QDate, qint64> sizes;
    for (const recordingfolder::DayFile& file : recordingfolder::filesOf(m_control->folder())) {
        sizes[file.day] += file.bytes;
    }
    const QSet<QDate> kept = recordingfolder::keptDays(m_control->folder());
    m_list->clear();
    for (auto day = sizes.rbegin(); day != sizes.rend(); ++day) {
        auto* item = new QTreeWidgetItem(m_list);
        item->setText(DayColumn, locale().toString(day->first, QLocale::ShortFormat));
        item->setData(DayColumn, Qt::UserRole, day->first);
        item->setCheckState(DayColumn, kept.contains(day->first) ? Qt::Checked : Qt::Unchecked);
        item->setText(SizeColumn, locale().formattedDataSize(day->second, 1,
                                                             QLocale::DataSizeTraditionalFormat));
    }
    m_list->resizeColumnToContents(DayColumn);
}

void RecordingForm::browse()
{
    auto* dialog = new QFileDialog(this, tr("Folder for Recordings"), m_folder->text());
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::Directory);
    dialog->setOption(QFileDialog::ShowDirsOnly);
    connect(dialog, &QFileDialog::fileSelected, this,
            [this](const QString& path) { m_folder->setText(QDir::toNativeSeparators(path)); });
    dialog->open();
}

void RecordingForm::store()
{
    const QStringList reasons = storeDays();
    {
        QSettings settings = userSettings();
        settings.setValue(constants::kRecordingKey, m_isOn->isChecked());
        settings.setValue(constants::kRecordingFolderKey,
                          QDir::fromNativeSeparators(m_folder->text().trimmed()));
        settings.setValue(constants::kRecordingDaysKey, m_days->value());
        settings.setValue(constants::kRecordingMegabytesKey,
                          qRound64(m_size->value() * kMegabytesPerGigabyte));
    }
    m_control->loadPreferences();
    if (reasons.isEmpty()) {
        accept();
        return;
    }
    MessageBox::tell(
        this, QMessageBox::Warning,
        [reasons] {
            return BoxText{tr("Recording"),
                           tr("Which days are kept could not be stored. The days may be deleted "
                              "when they are old."),
                           reasons.join(QLatin1Char('\n'))};
        },
        QStringLiteral("recordingDaysBox"));
}

QStringList RecordingForm::storeDays()
{
    QStringList reasons;
    const QSet<QDate> kept = recordingfolder::keptDays(m_control->folder());
    for (int row = 0; row < m_list->topLevelItemCount(); ++row) {
        const QTreeWidgetItem* item = m_list->topLevelItem(row);
        const QDate day = item->data(DayColumn, Qt::UserRole).toDate();
        const bool isKept = item->checkState(DayColumn) == Qt::Checked;
        if (isKept != kept.contains(day)) {
            const QString reason = recordingfolder::setKept(m_control->folder(), day, isKept);
            if (!reason.isEmpty()) {
                reasons.append(reason);
            }
        }
    }
    return reasons;
}

void RecordingForm::retranslate()
{
    setWindowTitle(tr("Recording"));
    m_isOn->setText(tr("&Record everything while the bus is monitored"));
    m_folderLabel->setText(tr("&Folder:"));
    m_folder->setPlaceholderText(tr("With what is remembered of the installation"));
    m_folder->setToolTip(tr("Recordings lie in it under the installation; what was recorded before "
                            "stays where it is"));
    m_browse->setText(tr("Browse..."));
    m_daysLabel->setText(tr("Keep for &days:"));
    m_days->setToolTip(tr("What is older is deleted by whole days"));
    m_sizeLabel->setText(tr("Keep at &most:"));
    //: gigabytes
    m_size->setSuffix(tr(" GB"));
    m_size->setToolTip(
        tr("For each installation. When there is more, the oldest days are deleted"));
    m_listLabel->setText(tr("Days re&corded; those ticked are kept whatever their age and size:"));
    m_list->setHeaderLabels({tr("Keep Day"), tr("Size")});
    m_list->setAccessibleName(tr("Days recorded"));
    m_ok->setText(tr("OK"));
    m_cancel->setText(tr("Cancel"));
}

void RecordingForm::changeEvent(QEvent* event)
{
    QDialog::changeEvent(event);
    if (event->type() == QEvent::LanguageChange) {
        retranslate();
    }
}
