#pragma once

#include <QByteArray>
#include <QFile>
#include <QObject>
#include <QStringList>
#include <QTimer>

#include <vector>

class WindowOperator;

/// A line of the log as it was found.
struct LoggedLine
{
    QByteArray text;
    qint64 seenAt = 0; ///< wall time, ms since 1970
    QStringList shown; ///< the LDB's row in the overview then; empty when nobody looked
};

/// Reads the log while it is written, looks at the window beside it, and closes the boxes about
/// losses, again and again.
class LogWatch : public QObject
{
    Q_OBJECT
public:
    /// `window` outlives this object.
    LogWatch(const QString& path, WindowOperator& window);

    /// Looks at once.
    void look();
    /// All lines but the header.
    const std::vector<LoggedLine>& lines() const { return m_lines; }
    int lossBoxes() const { return m_lossBoxes; }

private:
    QFile m_file;
    WindowOperator& m_window;
    QTimer m_timer;
    QByteArray m_rest;
    bool m_isHeaderRead = false;
    std::vector<LoggedLine> m_lines;
    int m_lossBoxes = 0;
};
