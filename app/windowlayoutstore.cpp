#include "app/windowlayoutstore.h"

#include "app/applicationsettings.h"
#include "app/shared/constants.h"

#include <QGuiApplication>
#include <QMainWindow>
#include <QRect>
#include <QScreen>
#include <QSettings>
#include <QSplitter>
#include <QStyle>

namespace windowlayoutstore {

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

QRect desktopGeometry()
{
    return QGuiApplication::primaryScreen()->virtualGeometry();
}

void save(const Layout& layout)
{
    QSettings settings = applicationSettings();
    settings.setValue(constants::kWindowGeometryKey, layout.window->saveGeometry());
    settings.setValue(constants::kWindowStateKey, layout.window->saveState());
    settings.setValue(constants::kScreenGeometryKey, desktopGeometry());
    settings.setValue(constants::kOverviewPlotSplitterKey, layout.overviewAndPlot->saveState());
    settings.setValue(constants::kLeftRightSplitterKey, layout.leftAndRight->saveState());
    settings.setValue(constants::kPlotDetailSplitterKey, layout.plotAndDetail->saveState());
}

void load(const Layout& layout)
{
    const QSettings settings = applicationSettings();
    loadPlace(settings, layout.window);
    loadSplitter(settings, constants::kOverviewPlotSplitterKey, layout.overviewAndPlot);
    loadSplitter(settings, constants::kLeftRightSplitterKey, layout.leftAndRight);
    loadSplitter(settings, constants::kPlotDetailSplitterKey, layout.plotAndDetail);
}

} // namespace windowlayoutstore
