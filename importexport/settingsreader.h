#pragma once

#include "serial/ldb/ldbsettings.h"
#include "serial/ldb/reply.h"

#include <QObject>
#include <QStringList>

#include <map>
#include <memory>
#include <vector>

class ISerialCommand;
class SerialLink;

/// What one LDB answered to the reader.
struct LdbReading
{
    QString hexId;
    std::optional<LdbSettings> settings; ///< a valid record of its own
    QString firmwareId;                  ///< empty where it was not asked for, or is not known
    bool isUnsent = false;               ///< the run ended before all was asked
    int left = 0;                        ///< replies still to come
};

/// Reads the settings records of many LDBs, and the firmware ids where they are wanted. GUI
/// thread; receivers may destroy it from any of its signals, which ends it: what it has not asked
/// yet it does not ask.
class SettingsReader : public QObject
{
    Q_OBJECT
public:
    enum class Extent
    {
        Settings,
        SettingsAndFirmware
    };

    /// What becomes of an LDB that is lost when it has its turn.
    enum class Lost
    {
        Ask,
        Skip ///< it is not asked, and told as one without an answer
    };

    /// `link` outlives the reader. When the run ends, what is left is told as unsent: what begins
    /// after it is another run, perhaps on another bus.
    SettingsReader(SerialLink* link, QStringList hexIds, Extent extent = Extent::Settings,
                   Lost lost = Lost::Ask);

    /// Begins; once. Without LDBs `finished()` comes all the same, from the event loop.
    void start();
    /// Asks no further LDB: `finished()` comes when those asked have answered, perhaps before this
    /// returns.
    void stop();

    /// Of those that gave a valid record of their own so far.
    const std::map<QString, LdbSettings>& records() const { return m_records; }

signals:
    /// All replies of this LDB are there.
    void ldbRead(const LdbReading& reading);
    /// LDBs still to be read, and all of them.
    void progressChanged(int left, int total);
    /// The end, once.
    void finished();

private:
    void askNext();
    bool isToBeAsked(LdbReading& reading) const;
    void ask(std::size_t index, std::unique_ptr<ISerialCommand> command,
             void (*take)(LdbReading& reading, const Reply& reply));
    void processLdb(const LdbReading& reading);

    SerialLink* m_link;
    std::vector<LdbReading> m_readings;
    const Extent m_extent;
    const Lost m_lost;
    bool m_hasLinkEnded = false;
    std::size_t m_nextToAsk = 0;
    int m_left;
    bool m_isStopping = false;
    bool m_hasEnded = false;
    std::map<QString, LdbSettings> m_records;
};
