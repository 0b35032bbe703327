#include "app/settingstable/tablecomparison.h"

#include <algorithm>
#include <utility>

namespace {

constexpr int kFewestForMost = 3; ///< with two LDBs neither is the exception

/// An LDB whose value more than half have; none where there is no such value.
std::optional<LdbSettings> most(const std::vector<LdbSettings>& shown, LdbField field)
{
    std::map<QString, std::pair<int, const LdbSettings*>> counts;
    for (const LdbSettings& settings : shown) {
        auto& entry = counts[fieldVariant(field, settings).toString()];
        ++entry.first;
        entry.second = &settings;
    }
    for (const auto& [value, entry] : counts) {
        if (2 * entry.first > static_cast<int>(shown.size())) {
            return *entry.second;
        }
    }
    return std::nullopt;
}

} // namespace

bool TableComparison::count(const std::vector<TableRow>& rows)
{
    std::map<LdbField, LdbSettings> found;
    for (const LdbField field : kLdbFields) {
        std::vector<LdbSettings> shown;
        for (const TableRow& row : rows) {
            if (row.isKnown(field)) {
                shown.push_back(row.shown());
            }
        }
        const auto common = shown.size() < kFewestForMost ? std::nullopt : most(shown, field);
        if (common) {
            found.emplace(field, *common);
        }
    }
    const bool isSame =
        found.size() == m_most.size() &&
        std::equal(found.begin(), found.end(), m_most.begin(), [](const auto& a, const auto& b) {
            return a.first == b.first && isSameField(a.first, a.second, b.second);
        });
    m_most = std::move(found);
    return !isSame;
}

const LdbSettings* TableComparison::expected(const QString& hexId, LdbField field) const
{
    switch (m_with) {
    case With::Most: {
        const auto found = m_most.find(field);
        return found == m_most.end() ? nullptr : &found->second;
    }
    case With::Defaults:
        return hasDefault(field) ? &m_defaults : nullptr;
    case With::Other:
        break;
    }
    const auto found = m_other.ldbs.find(hexId);
    const bool isThere =
        found != m_other.ldbs.end() && (m_other.hasMute || field != LdbField::AudioMute);
    return isThere ? &found->second : nullptr;
}

bool TableComparison::differs(const TableRow& row, LdbField field) const
{
    const LdbSettings* settings = row.isKnown(field) ? expected(row.hexId, field) : nullptr;
    return settings != nullptr && !isSameField(field, *settings, row.shown());
}
