#pragma once

#include <QDialog>
#include <QString>

class QToolButton;

class ManualBrowser;

/// The window in which the manual is read. GUI thread.
class ManualWindow : public QDialog
{
    Q_OBJECT
public:
    /// Shows the first page of the manual in `folder`, which is there.
    ManualWindow(const QString& folder, QWidget* parent);

    /// Opens the manual's first page for whoever works in `asker`, or brings it to the front where
    /// it is open. A manual that is not there is told in a box. Either belongs to the asker's
    /// window, which may be one that keeps the user from all others.
    static void showIndex(QWidget* asker, const QString& folder = defaultFolder());

    /// Where the manual is installed: beside the program.
    static QString defaultFolder();

protected:
    void changeEvent(QEvent* event) override;

private:
    void showFirstPage();
    void retranslate();

    QString m_folder;
    ManualBrowser* m_browser;
    QToolButton* m_contentsButton;
    QToolButton* m_backButton;
    QToolButton* m_forwardButton;
};

/// Opens the manual when F1 is pressed in any window of the program, boxes included: while one of
/// them keeps the user from the others, a shortcut of the main window would be out of reach.
class HelpKey : public QObject
{
    Q_OBJECT
public:
    /// Needs the application object.
    explicit HelpKey(QString folder = ManualWindow::defaultFolder(), QObject* parent = nullptr);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QString m_folder;
};
