#include "app/ldbsettings/ldbsettingseditor.h"

#include "app/ldbsettings/leavequestion.h"
#include "app/ldbsettings/settingsfields.h"
#include "app/ldbsettings/settingstexts.h"
#include "app/notices/notices.h"
#include "app/shared/whynot.h"
#include "serial/link/seriallink.h"
#include "ui_ldbsettingseditor.h"

#include <QEvent>
#include <QThread>

#include <utility>

namespace {

constexpr int kSavedMessageMs = 5000;
const QString kFailureBox = QStringLiteral("failedSaveBox");

} // namespace

LdbSettingsEditor::LdbSettingsEditor(QWidget* parent)
    : QWidget(parent)
    , ui(std::make_unique<Ui::LdbSettingsEditor>())
{
    ui->setupUi(this);
    m_fields = std::make_unique<SettingsFields>(*ui);
    for (const SettingsFields::Flag& flag : m_fields->flags()) {
        connect(flag.box, &QCheckBox::toggled, this,
                [this, flag](bool checked) { change(flag.field, flag.member, checked); });
    }
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

void LdbSettingsEditor::init(SerialLink* link, Notices* notices)
{
    Q_ASSERT(!m_link);
    m_link = link;
    m_notices = notices;
}

QWidget* LdbSettingsEditor::footer() const
{
    return ui->settingsFooter;
}

void LdbSettingsEditor::keepFormer(const LdbSettings& fresh)
{
    const QString error = m_formerSettings.keep(
        {QDateTime::currentDateTimeUtc(), FormerSettings::Occasion::Save, {}, {fresh}});
    if (error.isEmpty()) {
        return;
    }
    m_notices->box(QMessageBox::Warning, [hexId = m_writer->outcome().hexId, error] {
        const QString text = tr("The former settings of LDB %1 could not be kept.").arg(hexId);
        return BoxText{tr("Attention"), text, error};
    });
}

void LdbSettingsEditor::setSelectedLdb(const QString& hexId)
{
    m_hexId = hexId;
    m_isUnanswered = false;
    m_hasFailed = false;
    m_afterSave = nullptr;
    m_afterFailedSave = nullptr;
    m_edit.clear();
    m_fields->showFirmwareId({});
    showLastRead();
    refresh();
}

void LdbSettingsEditor::showLastRead()
{
    const auto read = m_lastRead.constFind(m_hexId);
    if (!m_allowed.editing && !m_edit.hasRecord() && read != m_lastRead.constEnd()) {
        m_edit.receive(*read);
    }
}

void LdbSettingsEditor::forget()
{
    m_lastRead.clear();
    setSelectedLdb(m_hexId);
}

void LdbSettingsEditor::requestSettings()
{
    if (m_hexId.isEmpty() || !m_link) {
        return;
    }
    m_isUnanswered = false;
    refresh();
    m_link->ask(
        std::make_unique<RequestCommand>(m_hexId, LdbParameter::Settings), this,
        [this, hexId = m_hexId](const Reply& reply) { processLdbSettings(hexId, reply.answer()); });
    m_link->ask(
        std::make_unique<ExecuteCommand>(m_hexId, LdbAction::FirmwareId), this,
        [this, hexId = m_hexId](const Reply& reply) { processFirmwareId(hexId, reply.answer()); });
}

void LdbSettingsEditor::processLdbSettings(const QString& hexId, const QByteArray& answer)
{
    Q_ASSERT(QThread::currentThread() == thread());
    const std::optional<LdbSettings> record = decodeLdbSettings(answer, hexId);
    if (record) {
        m_lastRead.insert(hexId, *record);
    }
    if (hexId != m_hexId) {
        return;
    }
    m_isUnanswered = !record;
    if (record) {
        m_edit.receive(*record);
        if (!isSaving()) {
            // Answers come in the order of the requests: this one was read after what was written.
            m_edit.endSave();
            m_hasFailed = m_hasFailed && (hasUnsavedChanges() || !m_writer->outcome().isStored());
        }
    }
    refresh();
}

void LdbSettingsEditor::processFirmwareId(const QString& hexId, const QByteArray& answer)
{
    Q_ASSERT(QThread::currentThread() == thread());
    const std::optional<QString> firmwareId = decodeFirmwareId(answer);
    if (firmwareId && hexId == m_hexId) {
        m_fields->showFirmwareId(*firmwareId);
    }
}

void LdbSettingsEditor::processCompared()
{
    const SettingsOutcome& outcome = m_writer->outcome();
    m_lastRead.insert(outcome.hexId, *outcome.fresh);
    keepFormer(*outcome.fresh);
    if (outcome.hexId == m_hexId && m_edit.hasRecord()) {
        m_edit.receiveBeforeSave(*outcome.fresh);
        refresh();
    }
}

void LdbSettingsEditor::processWritten()
{
    if (m_writer->outcome().hexId == m_hexId) {
        m_edit.noteWritten(m_writer->outcome());
    }
    refresh();
    if (!m_writer->outcome().isComplete()) {
        tellOutcome();
    }
    emit savingChanged(false);
}

void LdbSettingsEditor::processSaved()
{
    const SettingsOutcome& outcome = m_writer->outcome();
    tellOutcome();
    emit saved(outcome);
    if (!outcome.isGood()) {
        m_notices->box(
            QMessageBox::Warning,
            [outcome] {
                return BoxText{tr("Error"),
                               tr("Not all settings of LDB %1 are saved.").arg(outcome.hexId),
                               outcome.text()};
            },
            kFailureBox);
    }
    if (outcome.record) {
        m_lastRead.insert(outcome.hexId, *outcome.record);
    }
    if (outcome.hexId != m_hexId || !m_edit.hasRecord()) {
        return;
    }
    m_hasFailed = !outcome.isGood();
    if (outcome.isUntouched()) {
        m_edit.endSave();
    }
    if (outcome.record) {
        m_edit.receiveAfterSave(*outcome.record, outcome.written, outcome.isComplete());
    }
    refresh();
    endLeaving(outcome.isGood());
}

void LdbSettingsEditor::endLeaving(bool isSaved)
{
    const std::function<void()> goOn = std::exchange(m_afterSave, nullptr);
    const std::function<void()> stay = std::exchange(m_afterFailedSave, nullptr);
    if (goOn && isSaved) {
        leave(goOn, stay); // there may be new edits
    } else if (stay) {
        stay();
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

void LdbSettingsEditor::leave(const std::function<void()>& goOn, const std::function<void()>& stay)
{
    if (!hasUnsavedChanges()) {
        goOn();
        return;
    }
    using leavequestion::Answer;
    const auto answered = [this, goOn, stay](Answer answer) {
        if (answer == Answer::Save) {
            m_afterSave = goOn;
            m_afterFailedSave = stay;
            save();
        } else if (answer == Answer::Discard) {
            m_edit.undo();
            refresh();
            goOn();
        } else if (stay) {
            stay();
        }
    };
    // A Save under way is what the answer Save waits for.
    leavequestion::ask(m_notices, this, m_hexId, m_edit.changeCount(),
                       isSaving() ? Hindrance::None : m_allowed.settings.hindrance, answered);
}

void LdbSettingsEditor::drop()
{
    m_notices->box(
        QMessageBox::Warning, [hexId = m_hexId, changes = settingstexts::changes(m_edit)] {
            return BoxText{tr("Attention"),
                           tr("LDB %1 is gone. These changes were not saved:").arg(hexId),
                           changes.join(QLatin1Char('\n'))};
        });
    m_edit.undo();
}

void LdbSettingsEditor::apply(const EnabledControls& controls)
{
    const bool hadRecord = m_edit.hasRecord();
    m_allowed = controls;
    showLastRead();
    if (!hadRecord && m_edit.hasRecord()) {
        m_fields->showValues(m_edit);
    }
    showState(); // the values as they are: the user may be typing one
}

void LdbSettingsEditor::on_settingsSaveButton_clicked()
{
    save();
}

void LdbSettingsEditor::save()
{
    if (isSaving() || !m_edit.hasRecord()) {
        return;
    }
    if (m_edit.isChanged(LdbField::Name) && !isStorableName(m_edit.values().name)) {
        m_notices->say(
            [] { return tr("The name does not fit into %n byte(s).", nullptr, kMaxNameBytes); });
        endLeaving(false);
        return;
    }
    emit savingChanged(true);
    m_notices->say([hexId = m_hexId] { return tr("Saving the settings of LDB %1").arg(hexId); });
    m_edit.beginSave();
    m_hasFailed = false;
    m_writer = std::make_unique<SettingsWriter>(m_link, m_hexId, m_edit.change(),
                                                SettingsWriter::ReadBack::Always);
    connect(m_writer.get(), &SettingsWriter::compared, this, &LdbSettingsEditor::processCompared);
    connect(m_writer.get(), &SettingsWriter::written, this, &LdbSettingsEditor::processWritten);
    connect(m_writer.get(), &SettingsWriter::finished, this, &LdbSettingsEditor::processSaved);
    m_writer->start();
    refresh();
}

void LdbSettingsEditor::on_settingsUndoButton_clicked()
{
    m_edit.undo();
    m_hasFailed = false;
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
    m_fields->showValues(m_edit);
    showState();
}

void LdbSettingsEditor::showState()
{
    m_fields->markChanges(m_edit, failedSave());
    m_fields->permit(m_edit, m_allowed.editing);
    updateButtons();
    QStringList lines{recordText()};
    lines.append(settingstexts::ofAll(m_edit, failedSave()));
    lines.removeAll(QString());
    ui->settingsStateLabel->setText(lines.join(QLatin1Char('\n')));
}

const SettingsOutcome* LdbSettingsEditor::failedSave() const
{
    return m_hasFailed ? &m_writer->outcome() : nullptr;
}

void LdbSettingsEditor::updateButtons()
{
    const Permission use = isSaving() ? Permission{Hindrance::Saving} : m_allowed.settings;
    for (QWidget* button :
         {ui->settingsSaveButton, ui->settingsUndoButton, ui->settingsDefaultButton}) {
        if (use) {
            m_fields->permit(button, m_edit, m_allowed.editing);
        } else {
            WhyNot::permit(button, use);
        }
    }
}

QString LdbSettingsEditor::recordText() const
{
    if (m_hexId.isEmpty()) {
        return tr("No LDB selected");
    }
    if (!m_allowed.editing) {
        return (m_edit.hasRecord() ? tr("LDB %1 is not connected: this was read last")
                                   : tr("LDB %1 is not connected: its settings are not known"))
            .arg(m_hexId);
    }
    if (!m_edit.hasRecord()) {
        return (m_isUnanswered ? tr("LDB %1 did not answer: its settings are not known")
                               : tr("Waiting for the settings of LDB %1"))
            .arg(m_hexId);
    }
    return {};
}

void LdbSettingsEditor::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange) {
        const QString firmwareId = ui->settingsFirmwareIdLabel->text();
        ui->retranslateUi(this);
        ui->settingsFirmwareIdLabel->setText(firmwareId);
        m_fields->reserveBoldWidths();
        refresh();
    }
    QWidget::changeEvent(event);
}
