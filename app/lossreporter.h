#pragma once

#include <QPointer>
#include <QStringList>

class MessageBox;
class QWidget;

/// Tells the user which LDBs were lost: one box at a time, to which every LDB lost while it is open
/// adds a line. GUI thread.
class LossReporter
{
public:
    /// `window` is the boxes' parent and outlives this object.
    explicit LossReporter(QWidget* window);

    void report(const QString& hexId);

private:
    QWidget* m_window;
    QPointer<MessageBox> m_box;
    QStringList m_lostLdbs; ///< the lines of the open box
};
