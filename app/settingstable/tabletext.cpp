#include "app/settingstable/tabletext.h"

namespace {

constexpr QChar kTab = u'\t';
constexpr QChar kLineFeed = u'\n';
constexpr QChar kQuote = u'"';

QString quoted(QString cell)
{
    const bool isToBeQuoted =
        cell.contains(kTab) || cell.contains(kLineFeed) || cell.startsWith(kQuote);
    if (isToBeQuoted) {
        cell.replace(QStringLiteral("\""), QStringLiteral("\"\""));
        cell = kQuote + cell + kQuote;
    }
    return cell;
}

/// Takes the cell at the place in the text, and moves the place to what ends the cell.
QString takeCell(const QString& text, int& at)
{
    QString cell;
    bool isQuoted = at < text.size() && text[at] == kQuote;
    at += isQuoted ? 1 : 0;
    for (; at < text.size(); ++at) {
        const QChar character = text[at];
        if (isQuoted && character == kQuote) {
            if (at + 1 < text.size() && text[at + 1] == kQuote) {
                ++at;
            } else {
                isQuoted = false;
                continue;
            }
        } else if (!isQuoted && (character == kTab || character == kLineFeed)) {
            break;
        }
        cell += character;
    }
    return cell;
}

} // namespace

QString tabletext::ofField(LdbField field, const LdbSettings& settings)
{
    // A spreadsheet calculates with a number that has no unit.
    return kindOf(field) == FieldKind::Switch ? fieldValue(field, settings)
                                              : fieldVariant(field, settings).toString();
}

bool tabletext::toField(LdbField field, const QString& text, LdbSettings& settings)
{
    if (kindOf(field) == FieldKind::FreeText) {
        return setFieldVariant(field, text, settings);
    }
    QString trimmed = text.trimmed();
    if (kindOf(field) == FieldKind::Number) {
        const QString unit = fieldUnit(field);
        if (!unit.isEmpty() && trimmed.endsWith(unit)) {
            trimmed = trimmed.chopped(unit.size()).trimmed();
        }
        return setFieldVariant(field, trimmed, settings);
    }
    for (const bool value : {false, true}) {
        LdbSettings example;
        setFieldVariant(field, value, example);
        const QString word = fieldValue(field, example);
        if (trimmed == QString::number(value ? 1 : 0) ||
            trimmed.compare(word, Qt::CaseInsensitive) == 0) {
            return setFieldVariant(field, value, settings);
        }
    }
    return false;
}

QString tabletext::join(const std::vector<QStringList>& rows)
{
    QString text;
    for (QStringList row : rows) {
        for (QString& cell : row) {
            cell = quoted(cell);
        }
        text += row.join(kTab) + kLineFeed;
    }
    return text;
}

std::vector<QStringList> tabletext::split(const QString& text)
{
    QString clean = text;
    clean.remove(u'\r');
    std::vector<QStringList> rows;
    for (int at = 0; at < clean.size(); ++at) {
        rows.emplace_back();
        for (;; ++at) {
            rows.back().append(takeCell(clean, at));
            if (at >= clean.size() || clean[at] == kLineFeed) {
                break;
            }
        }
    }
    return rows;
}
