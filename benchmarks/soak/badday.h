#pragma once

#include "simulator/scenario.h"

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QStringList>

#include <random>
#include <vector>

/// The installation of the soak and what befalls it. All that waits for silence is shortened alike,
/// so that a day of exchanges passes in less than a day.
class BadDay
{
public:
    /// `ldbs`: at least 2, half of them neighbours, half with gaps between them.
    /// `scale`: 1 leaves the windows and latenesses as they are, 25 makes them 25 times shorter.
    BadDay(int ldbs, int scale, quint32 seed);

    /// The scenario file. Its bus is bad from the start, with latenesses as they are.
    QByteArray scenarioJson() const;
    /// The tuning file: the answer window, shortened.
    QByteArray tuning() const;
    /// Names by id.
    const QHash<QString, QString>& names() const { return m_names; }

    /// Time that one exchange of the polling takes on the wire of the healthy installation, ms.
    double pacedExchangeMs() const;

    /// The command for the shortened latenesses, and for those as they are. A scan waits 120 ms
    /// for each address whatever the tuning file says, so that it needs them.
    QString scaledLateness() const;
    static QString fullLateness();

    /// Something that happens at a part (0 to 1) of an hour.
    struct Event
    {
        double at = 0;
        QString command;
        QString vanishing; ///< the LDB that it takes off the bus, if it does
    };
    /// What happens in the next hour, in order; the line is whole and every LDB there at its end.
    std::vector<Event> nextHour();

private:
    QString anyLdb();

    int m_scale;
    quint32 m_seed;
    std::mt19937 m_random;
    QStringList m_ldbs;
    QHash<QString, QString> m_names;
};
