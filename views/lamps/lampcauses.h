#pragma once

#include "views/lamps/lamplevels.h"

#include <QMap>
#include <QString>
#include <QStringList>

#include <array>

/// Why an LDB raises a lamp.
struct LampCause
{
    QString name;      ///< the LDB's own name, may be empty
    QString condition; ///< in the language the record was made in

    bool operator==(const LampCause& other) const
    {
        return name == other.name && condition == other.condition;
    }
    bool operator!=(const LampCause& other) const { return !(*this == other); }
};

/// For each lamp the LDBs that raise it now, that is by their latest record.
class LampCauses
{
public:
    using ByHexId = QMap<QString, LampCause>;

    /// Takes an LDB's record in place of its former one; gives the lamps whose causes changed.
    QList<Lamp> update(const QString& hexId, const QList<QStringList>& dataList);
    void clear();

    /// A lamp's causes in the order of the addresses.
    const ByHexId& of(Lamp lamp) const { return m_causes[static_cast<std::size_t>(lamp)]; }

private:
    std::array<ByHexId, kLamps.size()> m_causes;
};
