#include "views/tables/cellcolourrules.h"

#include "app/shared/tuningfile.h"
#include "serial/generalinformation.h"

#include <QColor>
#include <QDebug>

#include <algorithm>

namespace {

const QString kColumnArray = QStringLiteral("column");
const QString kThresholdKey = QStringLiteral("value%1");
const QString kColourKey = QStringLiteral("color%1");

constexpr int kFromThresholdUp = 0;
constexpr int kFromThresholdDown = 1;

int readThreshold(const QSettings& settings, const QString& key)
{
    const QVariant text = settings.value(key, CellColourRules::kNoThreshold);
    bool isNumber = false;
    const int threshold = text.toInt(&isNumber);
    if (!isNumber) {
        qWarning().noquote() << "The threshold" << settings.group() + QLatin1Char('/') + key
                             << "is no whole number and counts as 0:" << text.toString();
    }
    return threshold;
}

QString readColourName(const QSettings& settings, const QString& key)
{
    QString name = settings.value(key).toString();
    if (!name.isEmpty() && !QColor::isValidColor(name)) {
        qWarning().noquote() << "The colour" << settings.group() + QLatin1Char('/') + key
                             << "is not known:" << name;
    }
    return name;
}

} // namespace

bool CellColourRules::Rule::appliesTo(int value) const
{
    switch (number) {
    case kFromThresholdUp:
        return value >= threshold;
    case kFromThresholdDown:
        return value <= threshold;
    default:
        return value == threshold;
    }
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
            const int threshold = readThreshold(settings, kThresholdKey.arg(number));
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
