#pragma once

#include <QHash>
#include <QString>
#include <QStringList>

class MainWindow;
class QPushButton;
class QTableView;
class QWidget;

/// Lets the event loop run for so many milliseconds.
void letRun(int milliseconds);

/// Works the main window as its user does: presses its buttons, reads its table, closes its boxes.
/// Ends the benchmark when something does not come.
class WindowOperator
{
public:
    /// `window` outlives this object.
    explicit WindowOperator(MainWindow* window);

    /// Logs every record of all LDBs into the file.
    void startLogging(const QString& path);

    void pressStart();
    void pressStop();
    bool isRunning() const;
    /// Waits until the scan of the run that was started is over.
    void awaitScan();

    /// Closes the box about lost LDBs, where there is one. Whether there was.
    bool closeLossBox();

    int rows() const;
    /// The texts of each LDB's row in the overview, as they stand there.
    QHash<QString, QStringList> shownRows() const;

private:
    QPushButton* button(const char* name) const;
    QWidget* openBox(const char* name) const;

    MainWindow* m_window;
    QTableView* m_overview;
};
