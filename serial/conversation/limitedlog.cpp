#include "serial/conversation/limitedlog.h"

namespace {

constexpr qint64 kPeriod = 60000000;
constexpr int kLinesAPeriod = 10;

} // namespace

QStringList LimitedLog::admit(Kind kind, const QString& text, qint64 now)
{
    QStringList lines;
    Share& share = m_shares[static_cast<std::size_t>(kind)];
    if (now - share.periodStart >= kPeriod) {
        if (share.suppressed > 0) {
            lines.append(
                QStringLiteral("%1 lines like the next one were left out").arg(share.suppressed));
        }
        share = {now, 0, 0};
    }
    if (share.written < kLinesAPeriod) {
        ++share.written;
        lines.append(text);
    } else {
        ++share.suppressed;
    }
    return lines;
}
