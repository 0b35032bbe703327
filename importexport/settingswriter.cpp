#include "importexport/settingswriter.h"

#include "serial/link/seriallink.h"

#include <QPointer>
#include <QThread>

#include <algorithm>
#include <array>

namespace {

/// The parameters that make up an LDB's stored settings, in the order in which they are written.
constexpr std::array<LdbParameter, 5> kWritableParameters = {
    LdbParameter::Name, LdbParameter::Flags, LdbParameter::OpenDetectionDelay,
    LdbParameter::AudioMute, LdbParameter::NumberOfFims};

QByteArray encoded(LdbParameter parameter, const LdbSettings& settings)
{
    switch (parameter) {
    case LdbParameter::Name:
        return encodeName(settings.name);
    case LdbParameter::NumberOfFims:
        return encodeSwappedWord(settings.numberOfFims);
    case LdbParameter::Flags:
        return encodeFlags(settings);
    case LdbParameter::AudioMute:
        return encodeAudioMute(settings.audioMute);
    case LdbParameter::OpenDetectionDelay:
        return encodeSwappedWord(settings.openDetectionDelay);
    case LdbParameter::Settings:
        break;
    }
    return {};
}

std::vector<LdbParameter> parametersWith(SettingsWriter::AudioMute audioMute)
{
    std::vector<LdbParameter> parameters;
    for (const LdbParameter parameter : kWritableParameters) {
        if (parameter != LdbParameter::AudioMute ||
            audioMute == SettingsWriter::AudioMute::Written) {
            parameters.push_back(parameter);
        }
    }
    return parameters;
}

QString failureText(const SettingsOutcome::Failure& failure)
{
    const QString name =
        failure.parameter ? parameterName(*failure.parameter) : SettingsWriter::tr("storing");
    switch (failure.how) {
    case Reply::Kind::Silent:
        return SettingsWriter::tr("%1 (no answer)").arg(name);
    case Reply::Kind::Unsent:
        return SettingsWriter::tr("%1 (not sent)").arg(name);
    default:
        return SettingsWriter::tr("%1 (refused)").arg(name);
    }
}

bool isUnsent(const SettingsOutcome::Failure& failure)
{
    return failure.how == Reply::Kind::Unsent;
}

} // namespace

bool SettingsOutcome::isGood() const
{
    return isComplete() && (!isReadBack || (record && differences().empty()));
}

bool SettingsOutcome::isUntouched() const
{
    return failures.size() > parameters.size() &&
           std::all_of(failures.begin(), failures.end(), isUnsent);
}

bool SettingsOutcome::isCut() const
{
    return std::any_of(failures.begin(), failures.end(), isUnsent);
}

std::vector<LdbField> SettingsOutcome::differences() const
{
    std::vector<LdbField> fields;
    for (const LdbField field : kLdbFields) {
        const bool isWritten =
            std::find(parameters.begin(), parameters.end(), parameterOf(field)) != parameters.end();
        if (record && isWritten && !isSameField(field, written, *record)) {
            fields.push_back(field);
        }
    }
    return fields;
}

QString SettingsOutcome::text() const
{
    const QString separator = QStringLiteral(", ");
    if (isUntouched()) {
        return SettingsWriter::tr("the connection ended before it was written");
    }
    QStringList parts;
    QStringList notWritten;
    for (const Failure& failure : failures) {
        notWritten.append(failureText(failure));
    }
    if (!notWritten.isEmpty()) {
        parts.append(SettingsWriter::tr("not written: %1").arg(notWritten.join(separator)));
    }
    QStringList different;
    for (const LdbField field : differences()) {
        different.append(
            SettingsWriter::tr("%1 (%2)").arg(fieldName(field), fieldValue(field, *record)));
    }
    if (isCut()) {
        parts.append(SettingsWriter::tr("the connection ended before everything was written"));
    } else if (isReadBack && !record) {
        parts.append(SettingsWriter::tr("the settings could not be read again"));
    } else if (!different.isEmpty()) {
        parts.append(SettingsWriter::tr("the LDB reports other values than written: %1")
                         .arg(different.join(separator)));
    }
    return parts.join(QStringLiteral("; "));
}

SettingsWriter::SettingsWriter(SerialLink* link, const QString& hexId, const LdbSettings& settings,
                               AudioMute audioMute, ReadBack readBack, QObject* parent)
    : SettingsWriter(link, hexId, settings, parametersWith(audioMute), readBack, parent)
{
}

SettingsWriter::SettingsWriter(SerialLink* link, const QString& hexId, const LdbSettings& settings,
                               const std::vector<LdbParameter>& parameters, ReadBack readBack,
                               QObject* parent)
    : QObject(parent)
    , m_link(link)
    , m_readBack(readBack)
    , m_rebootTimer(this)
{
    m_outcome.hexId = hexId;
    m_outcome.written = settings;
    for (const LdbParameter parameter : kWritableParameters) {
        if (std::find(parameters.begin(), parameters.end(), parameter) != parameters.end()) {
            m_outcome.parameters.push_back(parameter);
        }
    }
    m_rebootTimer.setSingleShot(true);
    connect(&m_rebootTimer, &QTimer::timeout, this, &SettingsWriter::readAgain);
    connect(link, &SerialLink::stopped, this, &SettingsWriter::endRebootWait);
    connect(link, &SerialLink::ldbStateUpdated, this, [this](const QString& told, LdbState state) {
        if (told == m_outcome.hexId && state != LdbState::Booting &&
            state != LdbState::Disconnected) {
            endRebootWait();
        }
    });
}

void SettingsWriter::start()
{
    Q_ASSERT(QThread::currentThread() == thread());
    m_left = commandCount();
    const QString& hexId = m_outcome.hexId;
    for (const LdbParameter parameter : m_outcome.parameters) {
        m_link->ask(std::make_unique<ChangeCommand>(hexId, parameter,
                                                    encoded(parameter, m_outcome.written)),
                    this,
                    [this, parameter](const Reply& reply) { processReply(parameter, reply); });
    }
    m_link->ask(std::make_unique<ExecuteCommand>(hexId, LdbAction::StoreSettings), this,
                [this](const Reply& reply) { processReply(std::nullopt, reply); });
}

void SettingsWriter::processReply(std::optional<LdbParameter> parameter, const Reply& reply)
{
    if (!reply.isAccepted()) {
        m_outcome.failures.push_back({parameter, reply.kind()});
    }
    const QPointer<SettingsWriter> alive(this);
    const bool isLast = --m_left == 0;
    emit replied();
    if (alive && isLast) {
        processWritten();
    }
}

void SettingsWriter::processWritten()
{
    const bool isUnsure =
        std::any_of(m_outcome.failures.begin(), m_outcome.failures.end(), [](const auto& failure) {
            return failure.parameter && failure.how == Reply::Kind::Silent;
        });
    const bool isToBeRead = !m_outcome.isCut() && (isUnsure || m_readBack == ReadBack::Always);
    if (isToBeRead) {
        readRecord();
    }
    const QPointer<SettingsWriter> alive(this);
    emit written();
    if (alive && !isToBeRead) {
        emit finished();
    }
}

void SettingsWriter::readRecord()
{
    m_link->ask(std::make_unique<RequestCommand>(m_outcome.hexId, LdbParameter::Settings), this,
                [this](const Reply& reply) { processRecord(reply); });
}

void SettingsWriter::endRebootWait()
{
    if (m_rebootTimer.isActive()) {
        m_rebootTimer.stop();
        readAgain();
    }
}

void SettingsWriter::readAgain()
{
    m_isSecondReading = true;
    readRecord();
}

void SettingsWriter::processRecord(const Reply& reply)
{
    m_outcome.record = decodeLdbSettings(reply.answer(), m_outcome.hexId);
    const std::vector<LdbField> different = m_outcome.differences();
    const bool isSame = m_outcome.record && different.empty();
    const bool mayBeRebooting = reply.kind() == Reply::Kind::Silent ||
                                (reply.kind() != Reply::Kind::Unsent &&
                                 m_link->stateOf(m_outcome.hexId) == LdbState::Booting);
    if (!isSame && mayBeRebooting && !m_isSecondReading) {
        m_rebootTimer.start(kRebootLimitMs);
        return;
    }
    m_outcome.isReadBack = true;
    if (m_outcome.record) {
        // The silence is explained: the LDB did what it was told.
        auto& failures = m_outcome.failures;
        const auto isThere = [&different](const SettingsOutcome::Failure& failure) {
            return failure.parameter && failure.how == Reply::Kind::Silent &&
                   std::none_of(different.begin(), different.end(), [&failure](LdbField field) {
                       return parameterOf(field) == *failure.parameter;
                   });
        };
        failures.erase(std::remove_if(failures.begin(), failures.end(), isThere), failures.end());
    }
    emit finished();
}
