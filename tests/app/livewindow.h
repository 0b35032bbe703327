#pragma once

#include "app/notices/messagebox.h"
#include "app/shared/usersettings.h"
#include "app/window/mainwindow.h"
#include "serial/ldb/ldbsettings.h"
#include "tests/support/sandbox.h"
#include "tests/support/testbus.h"
#include "tests/support/testcase.h"
#include "tests/support/virtualtime.h"
#include "tracking/faultfinding/fimtracking.h"
#include "views/tables/overviewcolumns.h"

#include <QtWidgets>

#include <map>
#include <memory>

/// Base of tests of the whole window on the test bus: what it shows, and as what.
class LiveWindow : public TestCase
{
    Q_OBJECT
protected slots:
    void cleanup() override;

protected:
    inline static const QStringList kLdbs{"03", "0A", "FD"};

    QString setLogPath() const;
    void makeBus(const QStringList& ldbs);
    void makeWindow();
    void open(const QStringList& ldbs);
    /// A window on the bus that there is; on return each LDB has a row.
    void startWindow(int ldbs = kLdbs.size());
    /// On a bus of its own; on return the names are known, and a whole round is over.
    void start(const QStringList& ldbs = kLdbs);

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
    QString settingsState() const { return label("settingsStateLabel"); }
    QString message() const { return m_window->statusBar()->currentMessage(); }
    FimTracking* tracking() const { return m_window->findChild<FimTracking*>(); }

    QTableView* overview() const { return child<QTableView>("deviceOverviewTableView"); }
    int rows() const { return overview()->model()->rowCount(); }
    QModelIndex cell(const QString& hexId, int column) const;
    QString text(const QString& hexId, int column) const;
    bool isLive(const QString& hexId) const;
    QStringList liveRows() const;
    QString age(const QString& hexId) const;
    QColor loopTextColour() const;
    void clickRow(const QString& hexId) const;
    QString detail(int row, int column = 1) const;
    QString detailTime() const { return detail(10); }
    QString detailAge() const { return detail(10, 0); }
    int detailsHeight() const;
    bool areLampsHatched() const;
    QStringList causes() const;
    QColor curveColour(const char* name) const;
    /// The time of the bus, as the window shows times.
    static QString clock();

    QList<MessageBox*> boxes() const { return m_window->findChildren<MessageBox*>(); }
    void closeBoxes() const;
    /// The dialog of that name that is open, over whichever window.
    QDialog* dialog(const QString& name) const;
    static void press(const QDialog* dialog, const QString& text);
    /// Waits for the dialog; whether it came.
    bool answer(const QString& name, const QString& text) const;
    /// Has a run of fault finding begun, of the selected LDB.
    bool beginRun() const;
    LdbSettings inLdb(const QString& hexId) const;

    std::unique_ptr<TestBus> m_bus;
    std::unique_ptr<MainWindow> m_window;

private:
    mutable std::map<QByteArray, QPointer<QObject>> m_children;
};

/// The same where nobody looks at the pixels: no window repaints, which takes most of the time of
/// tests that live through hours.
class UnpaintedWindow : public LiveWindow
{
    Q_OBJECT
protected slots:
    void init() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};
