#pragma once

#include "tests/support/scriptedbus.h"

#include <QMap>

class SerialLink;

/// A scripted bus whose LDBs keep settings: they answer the settings request, take the five changes
/// over, and acknowledge. A test can put its own script in front.
class SettingsBus : public QObject
{
    Q_OBJECT
public:
    explicit SettingsBus(const QStringList& presentHexIds, QObject* parent = nullptr);

    ScriptedBus& bus() { return m_bus; }

    /// Asked first for every request but the cyclic polling.
    void setScript(ScriptedBus::Script script) { m_script = std::move(script); }
    /// A script that gives requests to one LDB that begin so this answer.
    void answerTo(const QString& hexId, const QByteArray& request, const QByteArray& answer);

    /// The 56 digits that an LDB answers; at first those of `record(hexId)`.
    QByteArray& settingsOf(const QString& hexId) { return m_records[hexId]; }

    /// 56 digits of an LDB that is called "LDB <hexId>": flags general fault and earth leakage,
    /// further byte 5A, not muted, delay 10, 20 FIMs.
    static QByteArray record(const QString& hexId);

    /// Requests so far, without the polling.
    QList<QByteArray> requests() const { return m_requests; }
    /// Those of `requests` that change or store something.
    QList<QByteArray> writes() const;
    void clearRequests() { m_requests.clear(); }

    /// As new: no script, no requests, every LDB's first settings.
    void reset();

    /// Starts a link on this bus and returns once it has found the LDBs.
    bool connectLink(SerialLink& link);

private:
    std::optional<QByteArray> answer(const QByteArray& body);
    bool takeChange(const QString& hexId, const QByteArray& parameter, const QByteArray& value);

    ScriptedBus m_bus;
    ScriptedBus::Script m_script;
    QMap<QString, QByteArray> m_records;
    QList<QByteArray> m_requests;
};
