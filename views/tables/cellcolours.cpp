#include "views/tables/cellcolours.h"

#include "serial/generalinformation.h"

#include <QBrush>

#include <cmath>

namespace {

// Relative luminance after WCAG 2: linear light, weighted by the eye's sensitivity.
double linearChannel(double channel)
{
    return channel <= 0.03928 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& colour)
{
    return 0.2126 * linearChannel(colour.redF()) + 0.7152 * linearChannel(colour.greenF()) +
           0.0722 * linearChannel(colour.blueF());
}

// Where black and white give the same contrast ratio: (L + 0.05) / 0.05 = 1.05 / (L + 0.05).
constexpr double kEqualContrastLuminance = 0.179;

bool isSame(const QVariant& left, const QVariant& right)
{
    return left.isValid() == right.isValid() && left == right;
}

} // namespace

namespace cellcolours {

QColor readableTextOn(const QColor& background)
{
    return luminance(background) > kEqualContrastLuminance ? Qt::black : Qt::white;
}

void update(QStandardItem& item, int role, const QVariant& value)
{
    if (!isSame(item.data(role), value)) {
        item.setData(value, role);
    }
}

QColor ruleColour(const CellColourRules& rules, int row, const QStringList& rowData)
{
    const int value = rowData.value(generalinformation::ValueColumn).toInt();
    const std::optional<QString> name = rules.colourName(row, value);
    // A name that means nothing is not handed to QColor, which would warn at every record.
    return name && QColor::isValidColor(*name) ? QColor(*name) : QColor();
}

void setColour(QStandardItem& item, const QColor& background)
{
    setColours(item, background, background.isValid() ? readableTextOn(background) : QColor());
}

void setColours(QStandardItem& item, const QColor& background, const QColor& text)
{
    // Cleared rather than set to an empty brush: an empty foreground brush would paint black.
    const auto brush = [](const QColor& colour) {
        return colour.isValid() ? QVariant(QBrush(colour)) : QVariant();
    };
    update(item, Qt::BackgroundRole, brush(background));
    update(item, Qt::ForegroundRole, brush(text));
}

} // namespace cellcolours
