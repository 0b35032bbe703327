#include "tracking/plot/plotmenu.h"

#include "app/notices/filedialog.h"
#include "app/notices/messagebox.h"
#include "tracking/plot/plot.h"
#include "tracking/plot/plotexport.h"
#include "tracking/plot/plotinspector.h"

#include <QCoreApplication>
#include <QMenu>
#include <QPointer>

namespace {

struct PlotMenu
{
    Q_DECLARE_TR_FUNCTIONS(PlotMenu)
};

void tellFailure(Plot& plot, const QString& path, const QString& reason)
{
    MessageBox::tell(plot.window(), QMessageBox::Warning, [path, reason] {
        return BoxText{PlotMenu::tr("Attention"),
                       PlotMenu::tr("%1 cannot be written: %2").arg(path, reason)};
    });
}

void save(Plot& plot, const QString& title, plotexport::Kind kind)
{
    filedialog::save(
        plot.window(), title, plotexport::fileName(plot, kind), false,
        [shown = QPointer<Plot>(&plot), kind](const QString& path) {
            if (shown == nullptr) {
                return;
            }
            const QString reason = plotexport::write(*shown, kind, path);
            if (!reason.isEmpty()) {
                tellFailure(*shown, path, reason);
            }
        },
        plotexport::suffix(kind));
}

} // namespace

void plotmenu::open(Plot& plot, const QPoint& place, double time)
{
    auto* const menu = new QMenu(&plot);
    menu->setObjectName(QStringLiteral("plotMenu"));
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const auto add = [menu, &plot](const char* name, const QString& text, bool isEnabled,
                                   const auto& act) {
        QAction* const action = menu->addAction(text);
        action->setObjectName(QLatin1String(name));
        action->setEnabled(isEnabled);
        QObject::connect(action, &QAction::triggered, &plot, act);
    };
    const bool hasSamples = !plot.history().isEmpty();
    PlotInspector* const inspector = plot.inspector();
    add("follow", PlotMenu::tr("Follow") + QStringLiteral("\tF"), plot.view().isHeld(),
        [&plot] { plot.view().follow(); });
    menu->addSeparator();
    add("markA", PlotMenu::tr("Set Mark A Here") + QStringLiteral("\tA"), hasSamples,
        [inspector, time] { inspector->setMark(PlotMarks::A, time); });
    add("markB", PlotMenu::tr("Set Mark B Here") + QStringLiteral("\tB"), hasSamples,
        [inspector, time] { inspector->setMark(PlotMarks::B, time); });
    add("removeMarks", PlotMenu::tr("Remove the Marks") + QStringLiteral("\tDel"),
        inspector->marks().isAny(), [inspector] { inspector->removeMarks(); });
    menu->addSeparator();
    const auto addSave = [&](const char* name, const QString& text, plotexport::Kind kind) {
        add(name, text, hasSamples, [&plot, kind] {
            save(plot,
                 kind == plotexport::Kind::Values ? PlotMenu::tr("Save the Values")
                                                  : PlotMenu::tr("Save the Picture"),
                 kind);
        });
    };
    addSave("savePng", PlotMenu::tr("Save the Picture (PNG)..."), plotexport::Kind::Png);
    addSave("saveSvg", PlotMenu::tr("Save the Picture (SVG)..."), plotexport::Kind::Svg);
    addSave("saveValues", PlotMenu::tr("Save the Values Shown (CSV)..."), plotexport::Kind::Values);
    menu->popup(place);
}
