#pragma once

#include "app/notices/messagebox.h"
#include "app/shared/usersettings.h"
#include "app/window/mainwindow.h"
#include "serial/ldb/ldbsettings.h"
#include "tests/support/sandbox.h"
#include "tests/support/testbus.h"
#include "tests/support/testcase.h"
#include "tests/support/virtualtime.h"
#include "tests/tracking/plotinspection.h"
#include "tracking/faultfinding/fimtracking.h"
#include "views/lamps/statusindicators.h"
#include "views/tables/overviewcolumns.h"

#include <QtWidgets>
#include <qwt_plot_curve.h>

#include <algorithm>
#include <map>
#include <memory>

/// Base of tests of the whole window on the test bus: what it shows, and as what.
class LiveWindow : public TestCase
{
    Q_OBJECT
protected slots:
    void init() override
    {
        TestCase::init();
        m_sandbox = std::make_unique<Sandbox>();
    }

    void cleanup() override
    {
        m_window.reset();
        m_bus.reset();
        m_sandbox.reset();
        TestCase::cleanup();
    }

protected:
    inline static const QStringList kLdbs{"03", "0A", "FD"};

    QString setLogPath() const
    {
        QString path = m_sandbox->path("log.csv");
        child<QLineEdit>("logFilePathText")->setText(path);
        return path;
    }
    void makeBus(const QStringList& ldbs)
    {
        m_bus = std::make_unique<TestBus>(ldbs);
        userSettings().setValue(constants::kComPortKey, m_bus->portName());
    }
    void makeWindow()
    {
        m_window = std::make_unique<MainWindow>(m_bus->ports());
        m_window->show();
    }
    void open(const QStringList& ldbs)
    {
        makeBus(ldbs);
        makeWindow();
    }
    void start(const QStringList& ldbs = kLdbs)
    {
        open(ldbs);
        click("startButton");
        WAIT_VERIFY(overview()->model()->rowCount() == ldbs.size());
        // With their names, and after a whole round.
        VirtualTime::current()->advance(4000);
        QVERIFY(!areLampsHatched());
    }
    template <typename T>
    T* child(const char* name) const
    {
        // Kept, as it is asked for at every step of a wait.
        QPointer<QObject>& known = m_children[name];
        if (!known) {
            known = m_window->findChild<T*>(QLatin1String(name));
        }
        T* found = qobject_cast<T*>(known);
        Q_ASSERT(found != nullptr);
        return found;
    }
    QPushButton* button(const char* name) const { return child<QPushButton>(name); }
    void click(const char* name) const { button(name)->click(); }
    QString label(const char* name) const { return child<QLabel>(name)->text(); }
    QString strip() const { return label("monitoringLabel"); }
    QString message() const { return m_window->statusBar()->currentMessage(); }
    FimTracking* tracking() const { return m_window->findChild<FimTracking*>(); }
    QTableView* overview() const { return child<QTableView>("deviceOverviewTableView"); }
    QModelIndex cell(const QString& hexId, int column) const
    {
        const QAbstractItemModel* model = overview()->model();
        for (int row = 0; row < model->rowCount(); ++row) {
            if (model->index(row, overview::IdColumn).data().toString() == hexId) {
                return model->index(row, column);
            }
        }
        return {};
    }
    QString text(const QString& hexId, int column) const
    {
        return cell(hexId, column).data().toString();
    }
    bool isLive(const QString& hexId) const
    {
        return cell(hexId, overview::TickColumn).data(overview::LiveRole).toBool();
    }
    QStringList liveRows() const
    {
        QStringList live;
        for (const QString& hexId : kLdbs) {
            if (isLive(hexId)) {
                live.append(hexId);
            }
        }
        return live;
    }
    QString age(const QString& hexId) const
    {
        return cell(hexId, overview::ModeColumn).data(overview::AgeRole).toString();
    }
    QColor loopTextColour() const
    {
        return cell(kLdbs.at(1), overview::LoopColumn)
            .data(Qt::ForegroundRole)
            .value<QBrush>()
            .color();
    }
    bool areLampsHatched() const
    {
        for (const char* lamp : {"lampALabel", "lampBLabel", "lampCLabel", "lampDLabel"}) {
            if (child<QLabel>(lamp)->pixmap(Qt::ReturnByValue).toImage() !=
                lampimage::drawUnknown().toImage()) {
                return false;
            }
        }
        return true;
    }
    int detailsHeight() const
    {
        return child<QTableView>("deviceDetailTableView")->verticalHeader()->length();
    }
    QString detailTime() const
    {
        return child<QTableView>("deviceDetailTableView")->model()->index(10, 1).data().toString();
    }
    QString detailAge() const
    {
        return child<QTableView>("deviceDetailTableView")->model()->index(10, 0).data().toString();
    }
    QColor curveColour(const char* name) const
    {
        return plotinspection::curveOf(*child<QWidget>("plotContainer"), name)->pen().color();
    }
    QString clock() const
    {
        return QDateTime::fromMSecsSinceEpoch(VirtualTime::kWallStart +
                                              VirtualTime::current()->now())
            .toString(QStringLiteral("hh:mm:ss"));
    }
    void clickRow(const QString& hexId) const
    {
        QTest::mouseClick(overview()->viewport(), Qt::LeftButton, Qt::NoModifier,
                          overview()->visualRect(cell(hexId, overview::NameColumn)).center());
    }
    QList<MessageBox*> boxes() const { return m_window->findChildren<MessageBox*>(); }
    void closeBoxes() const
    {
        for (MessageBox* box : boxes()) {
            box->close();
        }
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    /// The dialog of that name that is open, over whichever window.
    QDialog* dialog(const QString& name) const
    {
        const auto dialogs = m_window->findChildren<QDialog*>(name);
        const auto open = std::find_if(dialogs.begin(), dialogs.end(),
                                       [](const QDialog* dialog) { return dialog->isVisible(); });
        return open == dialogs.end() ? nullptr : *open;
    }
    static void press(const QDialog* dialog, const QString& text)
    {
        for (auto* candidate : dialog->findChildren<QPushButton*>()) {
            if (candidate->text().remove(QLatin1Char('&')) == text) {
                candidate->click();
                return;
            }
        }
        QFAIL(qPrintable("no button " + text));
    }
    /// Waits for the dialog; whether it came.
    bool answer(const QString& name, const QString& text) const
    {
        constexpr int kWholeRun = 1500000; // ms, of fault finding
        if (!waitUntil([&] { return dialog(name) != nullptr; }, kWholeRun)) {
            return false;
        }
        press(dialog(name), text);
        return true;
    }
    /// Has a run of fault finding begun, of the selected LDB.
    bool beginRun() const
    {
        click("fimTrackingButton");
        return answer("startConfirmationBox", "Yes") && answer("trackingModeBox", "Commissioning");
    }
    LdbSettings inLdb(const QString& hexId) const
    {
        return *decodeLdbSettings(m_bus->settingsOf(hexId));
    }
    QStringList causes() const
    {
        QStringList texts;
        const auto* list = child<QListWidget>("lampCausesOut");
        for (int row = 0; row < list->count(); ++row) {
            texts.append(list->item(row)->text());
        }
        return texts;
    }

    std::unique_ptr<Sandbox> m_sandbox;
    std::unique_ptr<TestBus> m_bus;
    std::unique_ptr<MainWindow> m_window;

private:
    mutable std::map<QByteArray, QPointer<QObject>> m_children;
};
