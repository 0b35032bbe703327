#pragma once

#include "app/settingstable/tablerow.h"
#include "app/shared/text.h"

#include <vector>

/// Settings of several LDBs from elsewhere than the bus: a file, or former settings.
struct OtherSettings
{
    Text name; ///< as the user knows them
    std::map<QString, LdbSettings> ldbs;
    bool hasMute = false; ///< a file has no column for it
};

/// What the values of the table are compared with. A value.
class TableComparison
{
public:
    enum class With
    {
        Most,     ///< what more than half of the LDBs have
        Defaults, ///< the factory's
        Other     ///< a file, or former settings
    };

    With with() const { return m_with; }
    void setWith(With with) { m_with = with; }
    void setOther(const OtherSettings& other) { m_other = other; }
    const OtherSettings& other() const { return m_other; }

    /// Counts what most LDBs have; gives whether the result has changed in any field.
    bool count(const std::vector<TableRow>& rows);

    /// The settings that hold the expected value of the LDB's field; null where none is expected.
    const LdbSettings* expected(const QString& hexId, LdbField field) const;
    bool differs(const TableRow& row, LdbField field) const;

private:
    With m_with = With::Most;
    std::map<LdbField, LdbSettings> m_most;
    LdbSettings m_defaults = factoryDefaults();
    OtherSettings m_other;
};
