#include "app/ldbsettings/ldbsettingseditor.h"

#include "app/notices/notices.h"
#include "serial/link/seriallink.h"
#include "ui_ldbsettingseditor.h"

#include <QEvent>
#include <QSignalBlocker>
#include <QThread>
#include <QValidator>

namespace {

constexpr int kSavedMessageMs = 5000;

/// Lets a name be typed only as far as an LDB can store it.
class LdbNameValidator : public QValidator
{
public:
    using QValidator::QValidator;
    State validate(QString& input, int& position) const override
    {
        Q_UNUSED(position)
        return isStorableName(input) ? Acceptable : Invalid;
    }
};

} // namespace

LdbSettingsEditor::LdbSettingsEditor(QWidget* parent)
    : QWidget(parent)
    , ui(std::make_unique<Ui::LdbSettingsEditor>())
{
    ui->setupUi(this);
    ui->settingsNameLineEdit->setValidator(new LdbNameValidator(this));
    initFlagBoxes();
    reserveBoldWidths();
    refresh();
}

LdbSettingsEditor::~LdbSettingsEditor() = default;

/// The user gave the field this value.
template <typename Value>
void LdbSettingsEditor::change(LdbField field, Value LdbSettings::*member, const Value& value)
{
    LdbSettings values;
    values.*member = value;
    m_edit.edit(field, values);
    refresh();
}

void LdbSettingsEditor::initFlagBoxes()
{
    m_flagBoxes = {
        {LdbField::GeneralFaultOutput, &LdbSettings::generalFaultOutput,
         ui->settingsGeneralFaultOutputCheckBox},
        {LdbField::EarthLeakageDetection, &LdbSettings::earthLeakageDetection,
         ui->settingsEarthLeakageDetectionCheckBox},
        {LdbField::EarthWireOpenDetection, &LdbSettings::earthWireOpenDetection,
         ui->settingsEarthWireOpenDetectionCheckBox},
        {LdbField::StartInServiceMode, &LdbSettings::startInServiceMode,
         ui->settingsStartInServiceModeCheckBox},
        {LdbField::AmplifierDetection, &LdbSettings::amplifierDetection,
         ui->settingsAmplifierDetectionCheckBox},
        {LdbField::AudioMute, &LdbSettings::audioMute, ui->settingsAudioMuteCheckBox},
    };
    for (const FlagBox& entry : m_flagBoxes) {
        connect(entry.box, &QCheckBox::toggled, this,
                [this, entry](bool checked) { change(entry.field, entry.member, checked); });
    }
}

void LdbSettingsEditor::reserveBoldWidths()
{
    for (auto* box : findChildren<QCheckBox*>()) {
        const QFont shown = box->font();
        QFont bold = shown;
        bold.setBold(true);
        box->setFont(bold);
        box->setMinimumWidth(box->sizeHint().width());
        box->setFont(shown);
    }
}

void LdbSettingsEditor::init(SerialLink* link, Notices* notices)
{
    Q_ASSERT(!m_link);
    m_link = link;
    m_notices = notices;
}

void LdbSettingsEditor::setSelectedLdb(const QString& hexId)
{
    m_hexId = hexId;
    m_isUnanswered = false;
    m_edit.clear();
    showFirmwareId({});
    refresh();
}

void LdbSettingsEditor::requestSettings()
{
    if (m_hexId.isEmpty() || !m_link) {
        return;
    }
    m_isUnanswered = false;
    refresh();
    m_link->ask(std::make_unique<RequestCommand>(m_hexId, LdbParameter::Settings), this,
                [this, hexId = m_hexId, request = ++m_requests](const Reply& reply) {
                    if (decodeLdbSettings(reply.answer(), hexId)) {
                        m_answeredRequest = request;
                    }
                    processLdbSettings(hexId, reply.answer());
                });
    m_link->ask(
        std::make_unique<ExecuteCommand>(m_hexId, LdbAction::FirmwareId), this,
        [this, hexId = m_hexId](const Reply& reply) { processFirmwareId(hexId, reply.answer()); });
}

void LdbSettingsEditor::requestFreshSettings()
{
    m_awaitedRequest = m_requests + 1;
    requestSettings();
    updateEnabled();
}

void LdbSettingsEditor::processLdbSettings(const QString& hexId, const QByteArray& answer)
{
    Q_ASSERT(QThread::currentThread() == thread());
    const std::optional<LdbSettings> record = decodeLdbSettings(answer, m_hexId);
    if (hexId != m_hexId) {
        return;
    }
    m_isUnanswered = !record;
    if (record) {
        m_edit.receive(*record);
        if (!isSaving()) {
            // Answers come in the order of the requests: this one was read after what was written.
            m_edit.endSave();
        }
    }
    refresh();
}

void LdbSettingsEditor::processFirmwareId(const QString& hexId, const QByteArray& answer)
{
    Q_ASSERT(QThread::currentThread() == thread());
    const std::optional<QString> firmwareId = decodeFirmwareId(answer);
    if (firmwareId && hexId == m_hexId) {
        showFirmwareId(*firmwareId);
    }
}

void LdbSettingsEditor::showFirmwareId(const QString& firmwareId)
{
    ui->settingsFirmwareIdLabel->setText(firmwareId);
    // However long the id is, the column keeps its width.
    ui->settingsFirmwareIdLabel->setToolTip(firmwareId.toHtmlEscaped());
}

void LdbSettingsEditor::processWritten()
{
    updateEnabled();
    if (!m_writer->outcome().isComplete()) {
        tellOutcome();
    }
    emit savingChanged(false);
}

void LdbSettingsEditor::processSaved()
{
    const SettingsOutcome& outcome = m_writer->outcome();
    tellOutcome();
    if (outcome.record && outcome.hexId == m_hexId && m_edit.hasRecord()) {
        m_edit.receiveAfterSave(*outcome.record, outcome.written, outcome.isComplete());
        refresh();
    }
}

void LdbSettingsEditor::tellOutcome()
{
    const SettingsOutcome& outcome = m_writer->outcome();
    if (outcome.isGood()) {
        m_notices->say(
            [hexId = outcome.hexId] { return tr("The settings of LDB %1 are saved.").arg(hexId); },
            kSavedMessageMs);
    } else {
        m_notices->say([outcome] { return tr("LDB %1: %2").arg(outcome.hexId, outcome.text()); });
    }
}

void LdbSettingsEditor::apply(const EnabledControls& controls)
{
    m_allowed = controls;
    updateEnabled();
}

void LdbSettingsEditor::on_settingsSaveButton_clicked()
{
    if (isSaving() || !m_edit.hasRecord()) {
        return;
    }
    if (m_edit.isChanged(LdbField::Name) && !isStorableName(m_edit.values().name)) {
        m_notices->say(
            [] { return tr("The name does not fit into %n byte(s).", nullptr, kMaxNameBytes); });
        return;
    }
    emit savingChanged(true);
    m_notices->say([hexId = m_hexId] { return tr("Saving the settings of LDB %1").arg(hexId); });
    m_edit.beginSave();
    m_writer = std::make_unique<SettingsWriter>(m_link, m_hexId, m_edit.values(),
                                                SettingsWriter::AudioMute::Written,
                                                SettingsWriter::ReadBack::Always);
    connect(m_writer.get(), &SettingsWriter::written, this, &LdbSettingsEditor::processWritten);
    connect(m_writer.get(), &SettingsWriter::finished, this, &LdbSettingsEditor::processSaved);
    m_writer->start();
    updateEnabled();
}

void LdbSettingsEditor::on_settingsUndoButton_clicked()
{
    m_edit.undo();
    refresh();
}

void LdbSettingsEditor::on_settingsDefaultButton_clicked()
{
    m_edit.setDefaults();
    refresh();
}

void LdbSettingsEditor::on_settingsOpenDetectionDelayCheckBox_toggled(bool checked)
{
    m_edit.setOpenDetection(checked);
    refresh();
}

void LdbSettingsEditor::on_settingsOpenDetectionDelaySpinBox_valueChanged(int value)
{
    change(LdbField::OpenDetectionDelay, &LdbSettings::openDetectionDelay,
           static_cast<quint16>(value));
}

void LdbSettingsEditor::on_settingsNumberOfFimsSpinBox_valueChanged(int value)
{
    change(LdbField::NumberOfFims, &LdbSettings::numberOfFims, static_cast<quint16>(value));
}

void LdbSettingsEditor::on_settingsNameLineEdit_textChanged(const QString& name)
{
    change(LdbField::Name, &LdbSettings::name, name);
}

void LdbSettingsEditor::refresh()
{
    showValues();
    markChanges();
    updateEnabled();
    ui->settingsStateLabel->setText(stateText());
}

void LdbSettingsEditor::showValues()
{
    const LdbSettings& values = m_edit.values();
    // Only the user's own changes are edits.
    const QSignalBlocker nameBlocker(ui->settingsNameLineEdit);
    const QSignalBlocker fimsBlocker(ui->settingsNumberOfFimsSpinBox);
    const QSignalBlocker delayBlocker(ui->settingsOpenDetectionDelaySpinBox);
    const QSignalBlocker detectionBlocker(ui->settingsOpenDetectionDelayCheckBox);
    if (ui->settingsNameLineEdit->text() != values.name) {
        ui->settingsNameLineEdit->setText(values.name);
    }
    ui->settingsNumberOfFimsSpinBox->setValue(values.numberOfFims);
    ui->settingsOpenDetectionDelayCheckBox->setChecked(m_edit.openDetection());
    ui->settingsOpenDetectionDelaySpinBox->setSpecialValueText(
        m_edit.openDetection() ? QString() : QStringLiteral("0"));
    ui->settingsOpenDetectionDelaySpinBox->setValue(values.openDetectionDelay);
    for (const FlagBox& entry : m_flagBoxes) {
        const QSignalBlocker blocker(entry.box);
        entry.box->setChecked(values.*entry.member);
    }
}

void LdbSettingsEditor::markChanges()
{
    const auto markField = [this](QWidget* widget, LdbField field) {
        mark(widget, m_edit.isChanged(field), field);
    };
    markField(ui->settingsNameLineEdit, LdbField::Name);
    markField(ui->settingsNumberOfFimsSpinBox, LdbField::NumberOfFims);
    markField(ui->settingsOpenDetectionDelaySpinBox, LdbField::OpenDetectionDelay);
    mark(ui->settingsOpenDetectionDelayCheckBox,
         m_edit.hasRecord() && m_edit.openDetection() != m_edit.record().openDetection(),
         LdbField::OpenDetectionDelay);
    for (const FlagBox& entry : m_flagBoxes) {
        markField(entry.box, entry.field);
    }
}

void LdbSettingsEditor::mark(QWidget* widget, bool isChanged, LdbField field) const
{
    const QString words =
        isChanged ? tr("Changed. The LDB has: %1").arg(fieldValue(field, m_edit.record()))
                  : QString();
    widget->setAccessibleDescription(words);
    widget->setToolTip(words);
    QFont font = widget->font();
    font.setBold(isChanged);
    widget->setFont(font);
}

void LdbSettingsEditor::updateEnabled()
{
    const bool hasRecord = m_edit.hasRecord();
    const bool isIdle = hasRecord && !isSaving();
    for (QWidget* widget : std::initializer_list<QWidget*>{
             ui->settingsNameLabel, ui->settingsNameLineEdit, ui->settingsNumberOfFimsLabel,
             ui->settingsNumberOfFimsSpinBox, ui->settingsOpenDetectionDelayCheckBox}) {
        widget->setEnabled(hasRecord);
    }
    for (const FlagBox& entry : m_flagBoxes) {
        entry.box->setEnabled(hasRecord);
    }
    const bool hasDelay = hasRecord && m_edit.openDetection();
    ui->settingsOpenDetectionDelayLabel->setEnabled(hasDelay);
    ui->settingsOpenDetectionDelaySpinBox->setEnabled(hasDelay);
    ui->settingsUndoButton->setEnabled(isIdle && m_allowed.singleActions);
    const bool isFresh = m_answeredRequest >= m_awaitedRequest;
    ui->settingsSaveButton->setEnabled(isIdle && isFresh && m_allowed.outsideService);
    ui->settingsDefaultButton->setEnabled(isIdle && m_allowed.outsideService);
}

QString LdbSettingsEditor::stateText() const
{
    if (m_hexId.isEmpty()) {
        return tr("No LDB selected");
    }
    if (!m_edit.hasRecord()) {
        return (m_isUnanswered ? tr("LDB %1 did not answer: its settings are not known")
                               : tr("Waiting for the settings of LDB %1"))
            .arg(m_hexId);
    }
    const int changes = m_edit.changeCount();
    return changes > 0 ? tr("%n unsaved change(s), in bold", nullptr, changes) : QString();
}

void LdbSettingsEditor::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange) {
        const QString firmwareId = ui->settingsFirmwareIdLabel->text();
        ui->retranslateUi(this);
        ui->settingsFirmwareIdLabel->setText(firmwareId);
        reserveBoldWidths();
        refresh();
    }
    QWidget::changeEvent(event);
}
