#include "app/windowlayoutstore.h"

#include "app/applicationsettings.h"
#include "app/shared/constants.h"

#include <QGuiApplication>
#include <QMainWindow>
#include <QRect>
#include <QScreen>
#include <QSettings>
#include <QSplitter>

namespace windowlayoutstore {

namespace {

void loadSplitter(const QSettings& settings, const QString& key, QSplitter* splitter)
{
    if (settings.contains(key)) {
        splitter->restoreState(settings.value(key).toByteArray());
    }
}

void loadPlace(const QSettings& settings, QMainWindow* window)
{
    if (settings.value(constants::kScreenGeometryKey).toRect() != desktopGeometry()) {
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
