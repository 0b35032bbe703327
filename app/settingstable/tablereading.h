#pragma once

#include "app/settingstable/remainingtime.h"
#include "importexport/settingsreader.h"

#include <QObject>

#include <functional>
#include <memory>

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
    void end();

    SerialLink* m_link;
    std::function<qint64()> m_wallTime;
    SettingsTableModel* m_model;
    std::unique_ptr<SettingsReader> m_reader; ///< while it is on
    RemainingTime m_remaining;
};
