#pragma once

#include "app/settingstable/remainingtime.h"
#include "importexport/settingsreader.h"
#include "serial/ldb/exchange.h"

#include <QObject>
#include <QSet>

#include <functional>
#include <map>
#include <memory>
#include <optional>

class SerialLink;
class SettingsTableModel;

/// Reads settings and firmware ids into the table. GUI thread.
class TableReading : public QObject
{
    Q_OBJECT
public:
    /// `wallTime`: ms since 1970 UTC, the clock of the link's ports. All outlive this object.
    TableReading(SerialLink* link, std::function<qint64()> wallTime, SettingsTableModel* model,
                 QObject* parent = nullptr);
    ~TableReading() override;

    bool isOn() const { return m_reader != nullptr; }
    /// Begins; does nothing while a reading is on, or for no LDBs.
    void read(const QStringList& hexIds);
    /// Ends when the LDBs already asked have answered.
    void stop();

signals:
    /// `remainingMs`: -1 while it is not known.
    void progressChanged(int left, int total, qint64 remainingMs);
    /// A reading begins, or has ended.
    void changed();

private:
    void takeExchange(const Exchange& exchange);
    /// LDBs that the polling has not asked for their names yet; nothing in short rounds.
    std::optional<int> unnamed() const;
    void end();

    SerialLink* m_link;
    std::function<qint64()> m_wallTime;
    SettingsTableModel* m_model;
    std::unique_ptr<SettingsReader> m_reader; ///< while it is on
    RemainingTime m_remaining;
    QSet<QString> m_askedForName;             ///< by the polling, since the scan
    std::optional<Exchange> m_name;           ///< a first question for one, until the next question
    std::map<ExchangeKind, qint64> m_flights; ///< the last ones, µs
};
