#include "app/putback/ldbputback.h"

#include "app/notices/notices.h"
#include "importexport/ldbfields.h"
#include "serial/link/seriallink.h"

#include <QDebug>

#include <algorithm>
#include <utility>

LdbPutBack::LdbPutBack(Tools tools, const KeptLdb& kept, const QString& hexId, bool isSame,
                       QObject* parent)
    : QObject(parent)
    , m_tools(std::move(tools))
    , m_kept(kept)
    , m_hexId(hexId)
    , m_isSame(isSame)
{
}

LdbPutBack::~LdbPutBack()
{
    if (m_box) {
        m_box->disconnect(this);
        m_box->close();
    }
}

void LdbPutBack::start()
{
    m_tools.link->ask(
        std::make_unique<RequestCommand>(m_hexId, LdbParameter::Settings), this,
        [this](const Reply& reply) { process(decodeLdbSettings(reply.answer(), m_hexId)); });
}

void LdbPutBack::process(const std::optional<LdbSettings>& now)
{
    if (!now) {
        emit finished(End::Failed);
        return;
    }
    m_now = *now;
    const KeptMatch fit = match(m_kept, m_hexId, m_now.name);
    if (m_isSame || fit == KeptMatch::Both) {
        restoreMute();
    } else if (fit == KeptMatch::None) {
        emit finished(End::Answered);
    } else {
        askWhetherSame();
    }
}

MessageBox* LdbPutBack::ask(const char* name, const BoxTexts& texts, QMessageBox::Icon icon)
{
    m_box = new MessageBox(icon, texts, m_tools.window());
    m_box->setObjectName(QLatin1String(name));
    m_isAsking = true;
    connect(m_box, &QDialog::finished, this, [this] { m_isAsking = false; });
    m_box->open();
    return m_box;
}

void LdbPutBack::askWhetherSame()
{
    MessageBox* box = ask(
        "sameLdbBox",
        [kept = m_kept, hexId = m_hexId, name = m_now.name] {
            return putbacktexts::whetherSame(kept, hexId, name);
        },
        QMessageBox::Question);
    connect(box, &QDialog::finished, this, [this, box] {
        switch (static_cast<putbacktexts::Same>(box->choice())) {
        case putbacktexts::Same::Yes:
            restoreMute();
            break;
        case putbacktexts::Same::Forget:
            m_kept.audioMute.reset();
            m_kept.settings.reset();
            forget();
            emit finished(End::Done);
            break;
        default:
            emit finished(End::Answered);
            break;
        }
    });
}

void LdbPutBack::restoreMute()
{
    LdbSettings settings = m_now;
    settings.audioMute = m_kept.audioMute.value_or(m_now.audioMute);
    std::vector<LdbField> fields;
    if (settings.audioMute != m_now.audioMute) {
        fields.push_back(LdbField::AudioMute);
    }
    // Also where it has everything again: a program that died may have written and not stored it.
    write({settings, fields}, &LdbPutBack::processMute);
}

void LdbPutBack::processMute()
{
    const SettingsOutcome& outcome = m_writer->outcome();
    if (!outcome.record || outcome.record->audioMute != outcome.written.audioMute) {
        qWarning() << "The audio mute of LDB" << m_hexId << "could not be put back";
        emit finished(End::Failed);
        return;
    }
    m_now = *outcome.record;
    if (!outcome.parameters.empty()) {
        m_tools.notices->say([hexId = m_hexId, isMuted = m_now.audioMute] {
            return putbacktexts::muteRestored(hexId, isMuted);
        });
    }
    settleMute(outcome.isStored());
}

void LdbPutBack::settleMute(bool isStored)
{
    m_kept.audioMute.reset();
    m_isMuteSettled = true;
    const bool isSame = m_kept.settings && differingFields(*m_kept.settings, m_now).empty();
    if (isSame && isStored) {
        m_kept.settings.reset();
    }
    forget();
    const QPointer<LdbPutBack> alive(this);
    emit muteSettled();
    if (!alive) {
        return;
    }
    if (m_kept.settings && !isSame) {
        offerSettings({});
    } else {
        emit finished(m_kept.settings ? End::Answered : End::Done);
    }
}

void LdbPutBack::offerSettings(const QString& failure)
{
    MessageBox* box = ask(
        "formerSettingsBox",
        [kept = m_kept, hexId = m_hexId, now = m_now, failure] {
            return putbacktexts::offer(kept, hexId, now, failure);
        },
        QMessageBox::Question);
    box->setDefaultChoice(static_cast<int>(putbacktexts::Offered::Restore));
    connect(box, &QDialog::finished, this, [this, box] {
        switch (static_cast<putbacktexts::Offered>(box->choice())) {
        case putbacktexts::Offered::Restore:
            restoreSettings();
            break;
        case putbacktexts::Offered::Leave:
            m_tools.notices->say(
                [hexId = m_hexId] { return putbacktexts::settingsForgotten(hexId); });
            forgetSettings();
            break;
        default:
            emit finished(End::Answered);
            break;
        }
    });
}

void LdbPutBack::adoptFims(quint16 fimCount)
{
    m_now.numberOfFims = fimCount;
    if (m_kept.settings) {
        m_kept.settings->numberOfFims = fimCount;
    }
}

void LdbPutBack::restoreSettings()
{
    // The question may have been open for long: what the LDB has got meanwhile is not overwritten.
    write({*m_kept.settings, differingFields(*m_kept.settings, m_now), m_now},
          &LdbPutBack::processSettings);
}

void LdbPutBack::processSettings()
{
    const SettingsOutcome& outcome = m_writer->outcome();
    const QPointer<LdbPutBack> alive(this);
    emit settingsWritten();
    if (!alive) {
        return;
    }
    if (outcome.isRenamed) {
        m_tools.notices->box(QMessageBox::Warning, [hexId = m_hexId, name = outcome.fresh->name] {
            return putbacktexts::otherLdb(hexId, name);
        });
        emit finished(End::Answered);
        return;
    }
    if (outcome.record || outcome.fresh) {
        m_now = outcome.record ? *outcome.record : *outcome.fresh;
    }
    if (!outcome.isGood()) {
        offerSettings(outcome.text());
        return;
    }
    m_tools.notices->say([hexId = m_hexId] { return putbacktexts::settingsRestored(hexId); });
    forgetSettings();
}

void LdbPutBack::forgetSettings()
{
    m_kept.settings.reset();
    forget();
    emit finished(End::Done);
}

void LdbPutBack::write(const SettingsChange& change, void (LdbPutBack::*processed)())
{
    m_writer = std::make_unique<SettingsWriter>(m_tools.link, m_hexId, change,
                                                SettingsWriter::ReadBack::Always);
    connect(m_writer.get(), &SettingsWriter::finished, this, processed);
    m_writer->start();
}

/// Keeps what is left of it.
void LdbPutBack::forget()
{
    if (!m_tools.kept.find(m_kept.hexId, m_kept.name)) {
        return; // the disk could not take it in the first place
    }
    const QString reason = m_tools.kept.keep(m_kept);
    if (!reason.isEmpty()) {
        qWarning() << "LDB" << m_hexId << "cannot be forgotten:" << reason;
        m_tools.notices->say(
            [hexId = m_hexId, reason] { return putbacktexts::cannotForget(hexId, reason); });
    }
}
