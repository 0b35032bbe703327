#include "views/tables/cellcolours.h"

#include "app/shared/tuningfile.h"
#include "serial/ldb/generalinformation.h"

#include <QBrush>
#include <QDebug>

#include <algorithm>
#include <cmath>

namespace {

const QString kColumnArray = QStringLiteral("column");
const QString kThresholdKey = QStringLiteral("value%1");
const QString kColourKey = QStringLiteral("color%1");

constexpr int kFromThresholdUp = 0;
constexpr int kFromThresholdDown = 1;

QString readColourName(const QSettings& settings, const QString& key)
{
    QString name = settings.value(key).toString();
    if (!name.isEmpty() && !QColor::isValidColor(name)) {
        qWarning().noquote() << "The colour" << settings.group() + QLatin1Char('/') + key
                             << "is not known:" << name;
    }
    return name;
}

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

// How much of its colour a cell keeps that is not live, and how much of its contrast a text.
constexpr double kFadedColour = 0.3;
constexpr double kFadedText = 0.55;

QColor mixed(const QColor& colour, const QColor& ground, double share)
{
    const auto mix = [share](double a, double b) {
        return share * a + (1.0 - share) * b;
    };
    return QColor::fromRgbF(mix(colour.redF(), ground.redF()),
                            mix(colour.greenF(), ground.greenF()),
                            mix(colour.blueF(), ground.blueF()));
}

bool isSame(const QVariant& left, const QVariant& right)
{
    return left.isValid() == right.isValid() && left == right;
}

} // namespace

bool CellColourRules::Rule::appliesTo(int value) const
{
    return number == kFromThresholdUp     ? value >= threshold
           : number == kFromThresholdDown ? value <= threshold
                                          : value == threshold;
}

CellColourRules CellColourRules::fromTuningFile(const QString& fileName)
{
    QSettings settings = tuningFile(fileName);
    settings.beginGroup(constants::kTableSettingsGroup);
    const int rows =
        std::min<int>(settings.beginReadArray(kColumnArray), generalinformation::RowCount);
    CellColourRules rules;
    for (int row = 0; row < rows; ++row) {
        settings.setArrayIndex(row);
        QVector<Rule> ofRow;
        for (int number = 0; number < kRuleCount; ++number) {
            const int threshold =
                tuningNumber(settings, kThresholdKey.arg(number), kNoThreshold, 0);
            if (threshold != kNoThreshold) {
                ofRow.append({number, threshold, readColourName(settings, kColourKey.arg(number))});
            }
        }
        rules.m_rules.append(ofRow);
    }
    return rules;
}

std::optional<QString> CellColourRules::colourName(int row, int value) const
{
    if (row < 0 || row >= m_rules.size()) {
        return std::nullopt;
    }
    const QVector<Rule>& ofRow = m_rules.at(row);
    const auto winner = std::find_if(ofRow.crbegin(), ofRow.crend(),
                                     [value](const Rule& rule) { return rule.appliesTo(value); });
    return winner == ofRow.crend() ? std::nullopt : std::optional<QString>(winner->colourName);
}

namespace cellcolours {

QColor readableTextOn(const QColor& background)
{
    return luminance(background) > kEqualContrastLuminance ? Qt::black : Qt::white;
}

bool update(QStandardItem& item, int role, const QVariant& value)
{
    const bool differs = !isSame(item.data(role), value);
    if (differs) {
        item.setData(value, role);
    }
    return differs;
}

QColor ruleColour(const CellColourRules& rules, int row, const QStringList& rowData)
{
    if (rowData.size() <= generalinformation::ValueColumn) {
        return {}; // what has no value has no colour
    }
    const int value = rowData.at(generalinformation::ValueColumn).toInt();
    const std::optional<QString> name = rules.colourName(row, value);
    // A name that means nothing is not handed to QColor, which would warn at every record.
    return name && QColor::isValidColor(*name) ? QColor(*name) : QColor();
}

QColor faded(const QColor& colour, const QColor& ground)
{
    return colour.isValid() ? mixed(colour, ground, kFadedColour) : QColor();
}

QColor fadedText(const QColor& text, const QColor& ground)
{
    return mixed(text, ground, kFadedText);
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
