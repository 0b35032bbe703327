#include "app/window/windowlook.h"

#include "app/shared/usersettings.h"

#include <QAbstractButton>
#include <QGuiApplication>
#include <QLabel>
#include <QMainWindow>
#include <QPalette>
#include <QRect>
#include <QScreen>
#include <QSettings>
#include <QSplitter>
#include <QStyle>
#include <QToolBox>

namespace windowlook {

namespace {

void loadSplitter(const QSettings& settings, const QString& key, QSplitter* splitter)
{
    if (settings.contains(key)) {
        splitter->restoreState(settings.value(key).toByteArray());
    }
}

/// The form's size is that of a small laptop's whole screen; a panel or dock may leave less.
void fitToScreen(QMainWindow* window)
{
    const int titleBar = window->style()->pixelMetric(QStyle::PM_TitleBarHeight);
    const QSize available = QGuiApplication::primaryScreen()->availableGeometry().size();
    window->resize(window->size().boundedTo(available - QSize(0, titleBar)));
}

void loadPlace(const QSettings& settings, QMainWindow* window)
{
    if (settings.value(constants::kScreenGeometryKey).toRect() != desktopGeometry()) {
        fitToScreen(window);
        return;
    }
    if (settings.contains(constants::kWindowGeometryKey)) {
        window->restoreGeometry(settings.value(constants::kWindowGeometryKey).toByteArray());
    }
    if (settings.contains(constants::kWindowStateKey)) {
        window->restoreState(settings.value(constants::kWindowStateKey).toByteArray());
    }
}

} // namespace

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

QRect desktopGeometry()
{
    return QGuiApplication::primaryScreen()->virtualGeometry();
}

void save(const Layout& layout)
{
    QSettings settings = userSettings();
    settings.setValue(constants::kWindowGeometryKey, layout.window->saveGeometry());
    settings.setValue(constants::kWindowStateKey, layout.window->saveState());
    settings.setValue(constants::kScreenGeometryKey, desktopGeometry());
    settings.setValue(constants::kOverviewPlotSplitterKey, layout.overviewAndPlot->saveState());
    settings.setValue(constants::kLeftRightSplitterKey, layout.leftAndRight->saveState());
    settings.setValue(constants::kPlotDetailSplitterKey, layout.plotAndDetail->saveState());
}

void load(const Layout& layout)
{
    const QSettings settings = userSettings();
    loadPlace(settings, layout.window);
    loadSplitter(settings, constants::kOverviewPlotSplitterKey, layout.overviewAndPlot);
    loadSplitter(settings, constants::kLeftRightSplitterKey, layout.leftAndRight);
    loadSplitter(settings, constants::kPlotDetailSplitterKey, layout.plotAndDetail);
}

} // namespace windowlook
