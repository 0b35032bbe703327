#include "app/windowlook.h"

#include "app/shared/constants.h"

#include <QAbstractButton>
#include <QLabel>
#include <QPalette>
#include <QToolBox>

namespace windowlook {

void setLogo(QLabel* label)
{
    const QString gap(33, QLatin1Char(' '));
    label->setStyleSheet(
        QStringLiteral("QLabel#logoLabel{%2border-image: url(%1) 2;%2border: 2px transparent;%2}")
            .arg(constants::kLogoResourceTemplate.arg(constants::kProductFamilyName), gap));
}

void makeGrey(QWidget* panel)
{
    QPalette colours = panel->palette();
    colours.setColor(QPalette::Window, Qt::gray);
    colours.setColor(QPalette::WindowText, Qt::black);
    colours.setColor(QPalette::ButtonText, Qt::black);
    panel->setPalette(colours);
}

void makeGrey(QToolBox* toolBox)
{
    makeGrey(static_cast<QWidget*>(toolBox));
    // A style sheet keeps the tool box's own tabs from following its palette.
    const auto tabs =
        toolBox->findChildren<QAbstractButton*>(QString(), Qt::FindDirectChildrenOnly);
    for (QAbstractButton* tab : tabs) {
        makeGrey(static_cast<QWidget*>(tab));
    }
}

} // namespace windowlook
