#pragma once

#include "serial/ldb/ldbsettings.h"
#include "serial/ldb/ldbstatus.h"

#include <QHash>
#include <QObject>
#include <QStringList>
#include <QTimer>

class SerialLink;

/// What was seen of the LDBs after an action for all, which none of them answers.
struct BroadcastSight
{
    LdbControl control = LdbControl::FimReset;
    QStringList ldbs; ///< all that were known when it was sent
    /// Those in service mode; those that have answered since an LDB reset; those seen in a FIM
    /// reset.
    QStringList seen;
    QHash<QString, LdbState> states; ///< told last
    QHash<QString, QString> names;   ///< at the end
    bool isCut = false;              ///< the run ended before everything was looked at

    /// The others, in the order of `ldbs`.
    QStringList missing() const;
};

/// Watches the LDBs after an action for all: two rounds of polling, and after a reset at least as
/// long as it takes. Knows no widgets. GUI thread; receivers may destroy it from its signal.
class BroadcastWatch : public QObject
{
    Q_OBJECT
public:
    /// How long an LDB may be silent after its reset, and one may take to begin a FIM reset.
    static constexpr int kLdbResetMs = 60000;
    static constexpr int kFimResetMs = 5000;

    /// Begins to watch, right after the sending. `link` outlives the watch.
    BroadcastWatch(SerialLink* link, LdbControl control, QObject* parent = nullptr);

    const BroadcastSight& sight() const { return m_sight; }

signals:
    /// The end, once; `sight()` is complete.
    void finished();

private:
    void take(const QString& hexId, LdbState state);
    void finishIfSeen();
    bool haveTwoRoundsPassed() const;
    void finish();

    SerialLink* m_link;
    BroadcastSight m_sight;
    QHash<QString, int> m_tellings; ///< how often each has told its state
    int m_rounds = 0;               ///< that have ended, the one that was on included
    QTimer m_atLeast;
};
