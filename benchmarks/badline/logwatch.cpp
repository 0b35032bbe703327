#include "benchmarks/badline/logwatch.h"

#include "benchmarks/badline/windowoperator.h"

#include <QDateTime>

namespace {

constexpr int kLookMs = 20;

} // namespace

LogWatch::LogWatch(const QString& path, WindowOperator& window)
    : m_file(path)
    , m_window(window)
{
    connect(&m_timer, &QTimer::timeout, this, &LogWatch::look);
    m_timer.start(kLookMs);
}

void LogWatch::look()
{
    m_lossBoxes += m_window.closeLossBox() ? 1 : 0;
    if (!m_file.isOpen() && !m_file.open(QIODevice::ReadOnly)) {
        return; // no record has come yet
    }
    QByteArrayList texts = (m_rest + m_file.readAll()).split('\n');
    m_rest = texts.takeLast();
    if (!m_isHeaderRead && !texts.isEmpty()) {
        m_isHeaderRead = true;
        texts.removeFirst();
    }
    if (texts.isEmpty()) {
        return;
    }
    const qint64 now = QDateTime::currentMSecsSinceEpoch();
    const std::size_t first = m_lines.size();
    for (const QByteArray& text : texts) {
        m_lines.push_back({text, now, {}});
    }
    // What is shown is the last line of each LDB.
    QHash<QString, QStringList> shown = m_window.shownRows();
    for (std::size_t i = m_lines.size(); i > first; --i) {
        LoggedLine& line = m_lines[i - 1];
        line.shown = shown.take(QString::fromUtf8(line.text.left(line.text.indexOf(';'))));
    }
}
