#include "app/window/windowlook.h"

#include "app/shared/usersettings.h"

#include <QAbstractButton>
#include <QGuiApplication>
#include <QLabel>
#include <QMainWindow>
#include <QMap>
#include <QPalette>
#include <QRect>
#include <QScreen>
#include <QSettings>
#include <QSplitter>
#include <QStyle>

namespace windowlook {

namespace {

/// By the keys of the settings.
QMap<QString, QSplitter*> splittersOf(const QMainWindow* window)
{
    const auto named = [window](const char* name) {
        return window->findChild<QSplitter*>(QLatin1String(name));
    };
    return {{constants::kOverviewPlotSplitterKey, named("deviceOverviewAndPlotSplitter")},
            {constants::kLeftRightSplitterKey, named("leftAndRightSplitter")},
            {constants::kPlotDetailSplitterKey, named("plotAndDetailSplitter")}};
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
    // What is missing is an empty state, which changes nothing.
    window->restoreGeometry(settings.value(constants::kWindowGeometryKey).toByteArray());
    window->restoreState(settings.value(constants::kWindowStateKey).toByteArray());
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
    // A style sheet keeps a tool box's tabs from following its palette.
    const auto tabs = panel->findChildren<QAbstractButton*>(QString(), Qt::FindDirectChildrenOnly);
    for (QAbstractButton* tab : tabs) {
        tab->setPalette(colours);
    }
}

QRect desktopGeometry()
{
    return QGuiApplication::primaryScreen()->virtualGeometry();
}

void save(const QMainWindow* window)
{
    QSettings settings = userSettings();
    settings.setValue(constants::kWindowGeometryKey, window->saveGeometry());
    settings.setValue(constants::kWindowStateKey, window->saveState());
    settings.setValue(constants::kScreenGeometryKey, desktopGeometry());
    const auto splitters = splittersOf(window);
    for (auto each = splitters.begin(); each != splitters.end(); ++each) {
        settings.setValue(each.key(), each.value()->saveState());
    }
}

void load(QMainWindow* window)
{
    const QSettings settings = userSettings();
    loadPlace(settings, window);
    const auto splitters = splittersOf(window);
    for (auto each = splitters.begin(); each != splitters.end(); ++each) {
        each.value()->restoreState(settings.value(each.key()).toByteArray());
    }
}

} // namespace windowlook
