#pragma once

#include "serial/ldb/ldbsettings.h"

#include <QObject>
#include <QStringList>

#include <map>

class SerialLink;

/// Reads the settings records of many LDBs. GUI thread; receivers may destroy it from any of its
/// signals, which ends it: what it has not asked yet it does not ask.
class SettingsReader : public QObject
{
    Q_OBJECT
public:
    /// `link` outlives the reader.
    SettingsReader(SerialLink* link, QStringList hexIds);

    /// Begins; once. Without LDBs `finished()` comes all the same, from the event loop.
    void start();

    /// Of those that gave a valid record of their own so far.
    const std::map<QString, LdbSettings>& records() const { return m_records; }

signals:
    /// LDBs still to be read, and all of them.
    void progressChanged(int left, int total);
    /// The end, once.
    void finished();

private:
    void askNext();

    SerialLink* m_link;
    QStringList m_hexIds;
    int m_nextToAsk = 0;
    int m_left;
    std::map<QString, LdbSettings> m_records;
};
