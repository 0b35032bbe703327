#pragma once

#include "app/shared/constants.h"

#include <QColor>
#include <QStandardItem>
#include <QString>
#include <QVector>

#include <optional>

/// The colour rules of the tuning file: which colour a record's row takes at which machine value.
/// A value type; lookups are pure and may run on any thread.
///
/// A row has up to 25 rules, numbered 0 to 24. Rule 0 applies from its threshold upwards, rule 1
/// from its threshold downwards, every other rule at its threshold exactly. Of all that apply the
/// one with the highest number wins.
class CellColourRules
{
public:
    static constexpr int kRuleCount = 25;
    /// A rule with this threshold is switched off, and so is one that has no threshold.
    static constexpr int kNoThreshold = -9999;

    /// No rules: nothing is coloured.
    CellColourRules() = default;

    /// Reads the rules from an INI file. A missing file, group or array gives no rules; a threshold
    /// that is no number counts as 0; a colour name that means nothing stays as it is. The last two
    /// are warned of.
    static CellColourRules
    fromTuningFile(const QString& fileName = QString(constants::kTuningFileName));

    /// The colour of the record's row `row` at `value`: a name or #rrggbb as the file gives it
    /// (empty where the winning rule has none), or nothing where no rule applies.
    std::optional<QString> colourName(int row, int value) const;

private:
    struct Rule
    {
        int number;
        int threshold;
        QString colourName;

        bool appliesTo(int value) const;
    };

    // Outer index: row of the record. Inner order: ascending rule numbers.
    QVector<QVector<Rule>> m_rules;
};

/// What the tables share in colouring and filling their cells. GUI thread.
namespace cellcolours {

/// Black or white, whichever reads better on `background`.
QColor readableTextOn(const QColor& background);

/// Writes an item's value only where it differs, so that an unchanged cell is not repainted. An
/// invalid value clears the role. Gives whether it differed.
bool update(QStandardItem& item, int role, const QVariant& value);

/// The colour that the rules give a record's row, taken from its machine value (0 where that is no
/// whole number); invalid where no rule applies or the rule's colour means nothing.
QColor ruleColour(const CellColourRules& rules, int row, const QStringList& rowData);

/// The colour that `colour` has on `ground` in a cell whose value is not live: pale, so that nobody
/// takes it for the present, and still to be told from others. An invalid one stays so.
QColor faded(const QColor& colour, const QColor& ground);
/// The colour of texts that are not live.
QColor fadedText(const QColor& text, const QColor& ground);

/// Gives a cell a background with a text colour that reads on it; an invalid colour clears both.
void setColour(QStandardItem& item, const QColor& background);

/// Gives a cell a background and a text colour.
void setColours(QStandardItem& item, const QColor& background, const QColor& text);

} // namespace cellcolours
