#pragma once

#include "serial/ldb/ldbstatus.h"

#include <QHash>
#include <QString>

#include <optional>
#include <utility>

/// What the conversation remembers of each LDB from one round to the next, since the last scan.
class LdbMemory
{
public:
    void clear() { m_ldbs.clear(); }
    /// Forgets one LDB.
    void forget(const QString& hexId) { m_ldbs.remove(hexId); }

    /// Empty until the LDB has told it.
    QString name(const QString& hexId) const
    {
        return m_ldbs.value(hexId).name.known.value_or(QString());
    }
    /// Takes back what was known of an LDB before the last `clear()`.
    void recall(const QString& hexId, const QString& name)
    {
        m_ldbs[hexId].name.known = name;
        setProven(hexId);
    }
    /// Takes what is remembered from another run of an LDB that has still to be heard.
    void remember(const QString& hexId, const QString& name)
    {
        if (!name.isEmpty()) {
            m_ldbs[hexId].name.known = name;
        }
    }
    /// A name that the LDB told: the first is taken over, another one when it is told twice in a
    /// row. Gives whether it is the known one now.
    bool hearName(const QString& hexId, const QString& name)
    {
        Ldb& ldb = m_ldbs[hexId];
        ldb.isNameDue = false;
        if (!std::exchange(ldb.isNameHeard, true)) {
            ldb.name.known = name;
        }
        return ldb.name.hear(name);
    }
    /// A name that cannot be another LDB's.
    void takeName(const QString& hexId, const QString& name)
    {
        Ldb& ldb = m_ldbs[hexId];
        ldb.isNameHeard = true;
        ldb.isNameDue = false;
        ldb.name = {name, std::nullopt};
    }
    /// Whether it has still to tell its name in this run.
    bool isNameDue(const QString& hexId) const { return m_ldbs.value(hexId).isNameDue; }
    /// As for a name, but the first one needs two as well: nothing in a firmware identification
    /// tells a right one from one that got past the check digits.
    bool hearFirmware(const QString& hexId, const QString& firmware)
    {
        return m_ldbs[hexId].firmware.hear(firmware);
    }

    /// Takes over the state. Gives whether it differs from the last one, or is the first.
    bool updateState(const QString& hexId, LdbState state)
    {
        auto& last = m_ldbs[hexId].state;
        const bool isNew = last != state;
        last = state;
        return isNew;
    }

    /// Counts one more. Gives how many in a row there are now.
    int countMiss(const QString& hexId) { return ++m_ldbs[hexId].misses; }
    void forgetMisses(const QString& hexId) { m_ldbs[hexId].misses = 0; }
    /// Names and firmware stay, but each name is due: it may be another bus. States are to be told
    /// anew, and misses are forgiven.
    void beginRun()
    {
        for (Ldb& ldb : m_ldbs) {
            ldb.state.reset();
            ldb.misses = 0;
            ldb.isNameDue = true;
        }
    }

    /// Whether the LDB has been asked for its status since it was found.
    bool isProven(const QString& hexId) const { return m_ldbs.value(hexId).isProven; }
    void setProven(const QString& hexId) { m_ldbs[hexId].isProven = true; }

private:
    /// A text that is kept for long: a single damaged answer must not change it.
    struct Told
    {
        std::optional<QString> known;
        std::optional<QString> unconfirmed;

        bool hear(const QString& text)
        {
            if (known == text) {
                unconfirmed.reset();
                return true;
            }
            if (unconfirmed == text) {
                known = text;
                unconfirmed.reset();
                return true;
            }
            unconfirmed = text;
            return false;
        }
    };
    struct Ldb
    {
        Told name;
        Told firmware;
        std::optional<LdbState> state;
        int misses = 0;
        bool isProven = false;
        bool isNameHeard = false; ///< since it was found
        bool isNameDue = true;
    };
    QHash<QString, Ldb> m_ldbs;
};
