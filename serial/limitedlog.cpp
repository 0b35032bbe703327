#include "serial/limitedlog.h"

#include <QDebug>

namespace {

constexpr qint64 kPeriodMs = 60000;
constexpr int kLinesAPeriod = 10;

void put(LimitedLog::Kind kind, const QString& text)
{
    switch (kind) {
    case LimitedLog::Kind::FailedCheck:
    case LimitedLog::Kind::PortError:
        qWarning().noquote() << text;
        return;
    case LimitedLog::Kind::UnexpectedBytes:
    case LimitedLog::Kind::TimeOut:
    case LimitedLog::Kind::Miss:
        qInfo().noquote() << text;
        return;
    }
}

} // namespace

LimitedLog::LimitedLog()
{
    m_clock.start();
}

void LimitedLog::write(Kind kind, const QString& text)
{
    Share& share = m_shares[static_cast<int>(kind)];
    const qint64 now = m_clock.elapsed();
    if (now - share.periodStart >= kPeriodMs) {
        if (share.suppressed > 0) {
            put(kind, QStringLiteral("%1 more lines of the next kind were left out")
                          .arg(share.suppressed));
        }
        share = {now, 0, 0};
    }
    if (share.written < kLinesAPeriod) {
        ++share.written;
        put(kind, text);
    } else {
        ++share.suppressed;
    }
}
