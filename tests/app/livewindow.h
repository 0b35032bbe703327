#pragma once

#include "app/notices/messagebox.h"
#include "app/shared/usersettings.h"
#include "app/window/mainwindow.h"
#include "tests/support/sandbox.h"
#include "tests/support/testbus.h"
#include "tests/support/testcase.h"
#include "tests/support/virtualtime.h"
#include "tests/tracking/plotinspection.h"
#include "views/lamps/statusindicators.h"
#include "views/tables/overviewcolumns.h"

#include <QtWidgets>
#include <qwt_plot_curve.h>

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
    void open(const QStringList& ldbs)
    {
        m_bus = std::make_unique<TestBus>(ldbs);
        userSettings().setValue(constants::kComPortKey, m_bus->portName());
        m_window = std::make_unique<MainWindow>(m_bus->ports());
        m_window->show();
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
        T* found = m_window->findChild<T*>(QLatin1String(name));
        Q_ASSERT(found != nullptr);
        return found;
    }
    void click(const char* name) const { child<QPushButton>(name)->click(); }
    QString label(const char* name) const { return child<QLabel>(name)->text(); }
    QString strip() const { return label("monitoringLabel"); }
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
    void closeBoxes() const
    {
        for (MessageBox* box : m_window->findChildren<MessageBox*>()) {
            box->close();
        }
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
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
};
