#pragma once

#include "history/keptldbs.h"
#include "tests/support/sandbox.h"
#include "tests/tracking/modelldb.h"
#include "tracking/faultfinding/fimtracking.h"
#include "tracking/faultfinding/sidepanel.h"

#include <QtWidgets>

#include <memory>
#include <utility>

using Phase = TrackingRun::Phase;

/// The boxes over a window that are open.
QList<QMessageBox*> openBoxes(const QWidget* over);
QStringList boxTexts(const QWidget* over);
void pass(qint64 milliseconds);
/// Deletes what has asked for it, which without a running event loop nobody else does.
void deletePending();

/// The window over a model LDB, and what a user does with it.
struct TrackingBench
{
    explicit TrackingBench(const LoopPlan& plan = healthyLoop(4));

    void setPlotsVisible(bool visible) const;
    static void press(const QWidget* box, const QString& text);
    /// The box that is open, if it is the only one.
    QMessageBox* question() const;
    QDialog* anyQuestion() const;
    /// Answers the questions.
    void choose(const QString& mode = "Commissioning") const;
    void closeBoxes() const;
    /// Lets time pass until a phase comes; false if it does not within an hour.
    bool reach(Phase phase) const;
    void reportState(int state) const;

    template <typename T>
    T* find(const char* name) const
    {
        return window->findChild<T*>(name);
    }
    QString label(const char* name) const { return find<QLabel>(name)->text(); }
    /// The text of a side's label, empty while it is hidden.
    QString sideLabel(int ldbPort, const char* name) const;
    /// Whether a side's plot shows currents up to its edge, the newest moment.
    bool hasCurve(int ldbPort) const;
    SidePanel* sidePanel(int ldbPort) const;
    QPushButton* startButton() const { return find<QPushButton>("startButton"); }

    Sandbox sandbox;
    QList<std::pair<KeptLdb, bool>> ends; ///< of runs, as the window told them
    QWidget mainWindow;
    std::shared_ptr<ModelLdb> ldb;
    QPointer<FimTracking> window; // the main window's child, deletes itself when closed
};
