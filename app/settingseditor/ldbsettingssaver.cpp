#include "app/settingseditor/ldbsettingssaver.h"

#include "app/settingseditor/ldbsettingsfields.h"
#include "serial/ldbsettingscommands.h"
#include "serial/seriallink.h"

#include <QThread>

namespace {

const QString kListSeparator = QStringLiteral(", ");

QString commandName(int command)
{
    const std::vector<LdbParameter> parameters = writtenParameters(AudioMuteChange::Written);
    const auto position = static_cast<std::size_t>(command);
    return position < parameters.size() ? parameterName(parameters[position])
                                        : LdbSettingsSaver::tr("storing");
}

QStringList differences(const LdbSettings& written, const LdbSettings& record)
{
    QStringList names;
    for (const LdbField field : kLdbFields) {
        if (!isSameField(field, written, record)) {
            names.append(
                LdbSettingsSaver::tr("%1 (%2)").arg(fieldName(field), fieldValue(field, record)));
        }
    }
    return names;
}

} // namespace

LdbSettingsSaver::LdbSettingsSaver(SerialLink* link, QObject* parent)
    : QObject(parent)
    , m_link(link)
{
    m_rebootTimer.setSingleShot(true);
    connect(&m_rebootTimer, &QTimer::timeout, this, &LdbSettingsSaver::readAgain);
    connect(link, &SerialLink::ldbStateUpdated, this, &LdbSettingsSaver::processStateUpdated);
}

LdbSettingsSaver::~LdbSettingsSaver() = default;

std::unique_ptr<CommandBatch>
LdbSettingsSaver::batchOf(std::vector<std::unique_ptr<ISerialCommand>> commands)
{
    auto batch = std::make_unique<CommandBatch>(m_link, 1);
    batch->add(m_hexId, std::move(commands));
    return batch;
}

void LdbSettingsSaver::save(const QString& hexId, const LdbSettings& settings)
{
    Q_ASSERT(QThread::currentThread() == thread());
    Q_ASSERT(!m_isWriting);
    m_rebootTimer.stop();
    m_hexId = hexId;
    m_written = settings;
    m_notWritten.clear();
    m_isSecondReading = false;
    m_isWriting = true;
    m_batch = batchOf(settingsCommands(hexId, settings, AudioMuteChange::Written));
    connect(
        m_batch.get(), &CommandBatch::answered, this,
        [this](const QString&, int command, const Reply& reply) { processReply(command, reply); });
    connect(m_batch.get(), &CommandBatch::finished, this, &LdbSettingsSaver::processAllWritten);
    connect(m_batch.get(), &CommandBatch::aborted, this, &LdbSettingsSaver::processWritingAborted);
    m_batch->start();
}

void LdbSettingsSaver::processReply(int command, const Reply& reply)
{
    if (!reply.isAccepted()) {
        m_notWritten.append(
            (reply.kind() == Reply::Kind::Silent ? tr("%1 (no answer)") : tr("%1 (refused)"))
                .arg(commandName(command)));
    }
}

void LdbSettingsSaver::processAllWritten()
{
    m_isWriting = false;
    if (!m_notWritten.isEmpty()) {
        fail({});
    }
    readRecord();
    emit finished();
}

void LdbSettingsSaver::processWritingAborted()
{
    m_isWriting = false;
    fail(tr("the connection ended before everything was written"));
    emit finished();
}

void LdbSettingsSaver::readRecord()
{
    m_recordAnswer.clear();
    std::vector<std::unique_ptr<ISerialCommand>> commands;
    commands.push_back(std::make_unique<RequestCommand>(m_hexId, LdbParameter::Settings));
    m_batch = batchOf(std::move(commands));
    connect(m_batch.get(), &CommandBatch::answered, this,
            [this](const QString&, int, const Reply& reply) { m_recordAnswer = reply.answer(); });
    connect(m_batch.get(), &CommandBatch::finished, this,
            [this] { processRecord(m_recordAnswer); });
    connect(m_batch.get(), &CommandBatch::aborted, this, &LdbSettingsSaver::processReadingAborted);
    m_batch->start();
}

void LdbSettingsSaver::processRecord(const QByteArray& answer)
{
    const std::optional<LdbSettings> record = decodeLdbSettings(answer);
    const bool isRead = record && busaddress::toHexId(record->address) == m_hexId;
    const QStringList different = isRead ? differences(m_written, *record) : QStringList();
    const bool isGood = isRead && different.isEmpty();
    const bool mayBeRebooting = answer.isEmpty() || m_link->stateOf(m_hexId) == LdbState::Booting;
    if (!isGood && mayBeRebooting && !m_isSecondReading) {
        waitForReboot();
        return;
    }
    if (!isRead) {
        fail(tr("the settings could not be read again"));
        return;
    }
    if (!isGood) {
        fail(tr("the LDB reports other values than written: %1")
                 .arg(different.join(kListSeparator)));
    } else if (m_notWritten.isEmpty()) {
        emit saved(m_hexId);
    }
    emit recordRead(m_hexId, *record, m_written, m_notWritten.isEmpty());
}

void LdbSettingsSaver::waitForReboot()
{
    m_rebootTimer.start(kRebootLimitMs);
}

void LdbSettingsSaver::processStateUpdated(const QString& hexId, LdbState state)
{
    if (hexId == m_hexId && state != LdbState::Booting && state != LdbState::Disconnected &&
        m_rebootTimer.isActive()) {
        readAgain();
    }
}

void LdbSettingsSaver::readAgain()
{
    m_rebootTimer.stop();
    m_isSecondReading = true;
    readRecord();
}

void LdbSettingsSaver::processReadingAborted()
{
    fail(tr("the settings could not be read again"));
}

void LdbSettingsSaver::fail(const QString& what)
{
    QStringList parts;
    if (!m_notWritten.isEmpty()) {
        parts.append(tr("not written: %1").arg(m_notWritten.join(kListSeparator)));
    }
    if (!what.isEmpty()) {
        parts.append(what);
    }
    emit failed(tr("LDB %1: %2").arg(m_hexId, parts.join(QStringLiteral("; "))));
}
