#include "tests/tracking/trackingbench.h"

#include "tests/support/virtualtime.h"
#include "tests/tracking/plotinspection.h"
#include "tracking/plot/plot.h"

#include <QTest>

using namespace modelldb;

QList<QMessageBox*> openBoxes(const QWidget* over)
{
    QList<QMessageBox*> boxes;
    for (auto* box : over->findChildren<QMessageBox*>(QString(), Qt::FindDirectChildrenOnly)) {
        if (box->isVisible()) {
            boxes.append(box);
        }
    }
    return boxes;
}

QStringList boxTexts(const QWidget* over)
{
    QStringList texts;
    for (const QMessageBox* box : openBoxes(over)) {
        texts.append(box->text());
    }
    return texts;
}

void pass(qint64 milliseconds)
{
    VirtualTime::current()->advance(milliseconds);
}

void deletePending()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

TrackingBench::TrackingBench(const LoopPlan& plan)
    : ldb(std::make_shared<ModelLdb>(plan))
{
    mainWindow.setGeometry(0, 0, 1366, 768);
    mainWindow.show();
    window = new FimTracking(ldb, &mainWindow);
    QObject::connect(window, &FimTracking::runEnds, &mainWindow,
                     [this](const KeptLdb& former, bool isMuted) {
                         ends.append({former, isMuted});
                     });
    // Painting hours of curves would be most of the tests' time.
    setPlotsVisible(false);
}

void TrackingBench::setPlotsVisible(bool visible) const
{
    for (Plot* plot : window->findChildren<Plot*>()) {
        plot->setVisible(visible);
    }
}

void TrackingBench::press(const QWidget* box, const QString& text)
{
    for (auto* button : box->findChildren<QPushButton*>()) {
        if (button->text().remove('&') == text) {
            button->click();
            pass(0);
            return;
        }
    }
    QFAIL(qPrintable(QStringLiteral("no button ") + text));
}

QMessageBox* TrackingBench::question() const
{
    pass(1);
    const QList<QMessageBox*> boxes = openBoxes(window);
    return boxes.size() == 1 ? boxes.first() : nullptr;
}

QDialog* TrackingBench::anyQuestion() const
{
    for (auto* dialog : window->findChildren<QDialog*>()) {
        if (dialog->isVisible()) {
            return dialog;
        }
    }
    return nullptr;
}

void TrackingBench::choose(const QString& mode) const
{
    QVERIFY(question());
    press(question(), "Yes");
    QVERIFY(question());
    press(question(), mode);
}

void TrackingBench::closeBoxes() const
{
    for (QMessageBox* box : openBoxes(window)) {
        box->close();
    }
    deletePending();
}

bool TrackingBench::reach(Phase phase) const
{
    for (qint64 gone = 0; window->run().phase() != phase && gone < kHour; gone += 250) {
        pass(250);
    }
    return window->run().phase() == phase;
}

void TrackingBench::reportState(int state) const
{
    ldb->setState(static_cast<LdbState>(state));
    ldb->report();
}

QString TrackingBench::sideLabel(int ldbPort, const char* name) const
{
    const auto* found = sidePanel(ldbPort)->findChild<QLabel*>(name);
    return found->isHidden() ? QString() : found->text();
}

bool TrackingBench::hasCurve(int ldbPort) const
{
    const SidePanel* panel = sidePanel(ldbPort);
    return plotinspection::columnShows(
        *panel, plotinspection::chartOf(*panel)->canvas()->width() - 4, Qt::cyan);
}

SidePanel* TrackingBench::sidePanel(int ldbPort) const
{
    return find<SidePanel>(ldbPort == PrimaryPort ? "primarySidePanel" : "secondarySidePanel");
}
