#pragma once

#include "serial/ldbstatus.h"

#include <QHash>
#include <QString>

/// What the conversation remembers of each LDB from one round to the next, since the last scan.
class LdbMemory
{
public:
    void clear() { *this = LdbMemory(); }

    /// Empty until the LDB has told it.
    QString name(const QString& hexId) const { return m_names.value(hexId); }
    void setName(const QString& hexId, const QString& name) { m_names.insert(hexId, name); }

    /// Takes over the state; whether it is another than the last one, or the first.
    bool updateState(const QString& hexId, LdbState state)
    {
        const auto last = m_states.constFind(hexId);
        const bool isNew = last == m_states.constEnd() || *last != state;
        m_states.insert(hexId, state);
        return isNew;
    }

    /// Counts one more; how many in a row there are now.
    int countMiss(const QString& hexId) { return ++m_misses[hexId]; }
    void forgetMisses(const QString& hexId) { m_misses.remove(hexId); }

private:
    QHash<QString, QString> m_names;
    QHash<QString, LdbState> m_states;
    QHash<QString, int> m_misses;
};
