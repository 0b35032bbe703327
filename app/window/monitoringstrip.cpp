#include "app/window/monitoringstrip.h"

#include "app/shared/colours.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPalette>
#include <QPushButton>

namespace {

constexpr int kSideMargin = 8; // pixels
constexpr int kMargin = 2;

QString groundOf(const Monitoring& monitoring)
{
    if (!monitoring.isPolling()) {
        return colours::kNotMonitored;
    }
    return monitoring.isWhole() && monitoring.lost == 0 && monitoring.awaited == 0
               ? colours::kMonitored
               : colours::kPartlyMonitored;
}

} // namespace

MonitoringStrip::MonitoringStrip(QWidget* parent)
    : QFrame(parent)
    , m_text(new QLabel(this))
    , m_dismiss(new QPushButton(this))
    , m_endWaiting(new QPushButton(this))
{
    m_text->setObjectName(QStringLiteral("monitoringLabel"));
    m_dismiss->setObjectName(QStringLiteral("dismissLostButton"));
    m_endWaiting->setObjectName(QStringLiteral("endWaitingButton"));
    setAutoFillBackground(true);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(kSideMargin, kMargin, kMargin, kMargin);
    layout->addWidget(m_text, 1);
    layout->addWidget(m_endWaiting);
    layout->addWidget(m_dismiss);
    // The strip keeps its height when the button goes.
    QSizePolicy policy = m_dismiss->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    m_dismiss->setSizePolicy(policy);
    connect(m_dismiss, &QPushButton::clicked, this, &MonitoringStrip::dismissLost);
    connect(m_endWaiting, &QPushButton::clicked, this, &MonitoringStrip::endWaiting);
    refresh();
}

void MonitoringStrip::setMonitoring(const Monitoring& monitoring)
{
    m_monitoring = monitoring;
    refresh();
}

void MonitoringStrip::setWaiting(bool isWaiting)
{
    m_isWaiting = isWaiting;
    refresh();
}

void MonitoringStrip::refresh()
{
    const QString state = text(m_monitoring);
    m_text->setText(m_isWaiting ? tr("%1; waiting for it to come back").arg(state) : state);
    m_endWaiting->setText(tr("End Waiting"));
    m_endWaiting->setToolTip(tr("Do not go on by itself when the port is back"));
    m_endWaiting->setVisible(m_isWaiting);
    m_dismiss->setText(tr("Dismiss Lost LDBs"));
    m_dismiss->setToolTip(tr("Take the lost LDBs out of the list; one that answers comes back"));
    m_dismiss->setVisible(m_monitoring.lost > 0);
    QPalette colours;
    colours.setColor(QPalette::Window, QColor(groundOf(m_monitoring)));
    colours.setColor(QPalette::WindowText, Qt::black);
    if (palette().color(QPalette::Window) != colours.color(QPalette::Window)) {
        setPalette(colours);
        m_dismiss->setPalette(QPalette());
        m_endWaiting->setPalette(QPalette());
    }
}

void MonitoringStrip::changeEvent(QEvent* event)
{
    QFrame::changeEvent(event);
    if (event->type() == QEvent::LanguageChange) {
        refresh();
    }
}

QString MonitoringStrip::text(const Monitoring& monitoring)
{
    QString reason;
    switch (monitoring.state) {
    case Monitoring::State::Polling:
        if (!monitoring.polledAlone.isEmpty()) {
            return tr("Only LDB %1 is polled.").arg(monitoring.polledAlone);
        }
        if (monitoring.awaited > 0) {
            return tr("Monitored: %1 of %2 LDBs answer, %3 lost, %4 not heard yet.")
                .arg(monitoring.known - monitoring.lost - monitoring.awaited)
                .arg(monitoring.known)
                .arg(monitoring.lost)
                .arg(monitoring.awaited);
        }
        return monitoring.lost == 0 ? tr("Monitored: %n LDBs answer.", nullptr, monitoring.known)
                                    : tr("Monitored: %1 of %2 LDBs answer, %3 lost.")
                                          .arg(monitoring.known - monitoring.lost)
                                          .arg(monitoring.known)
                                          .arg(monitoring.lost);
    case Monitoring::State::NotStarted:
        return tr("Not monitored: click Start.");
    case Monitoring::State::Stopped:
        reason = tr("stopped");
        break;
    case Monitoring::State::NothingFound:
        reason = tr("no LDB was found");
        break;
    case Monitoring::State::PortNotOpened:
        reason = monitoring.portName.isEmpty() ? tr("no serial port is chosen")
                                               : tr("%1 cannot be opened").arg(monitoring.portName);
        break;
    case Monitoring::State::ConnectionLost:
        reason = tr("the connection to %1 was lost").arg(monitoring.portName);
        break;
    case Monitoring::State::NotRecorded:
        reason = tr("it was not recorded");
        break;
    case Monitoring::State::Scanning:
        reason = tr("the bus is being scanned");
        break;
    case Monitoring::State::NoAnswer:
        reason = tr("no LDB answers");
        break;
    }
    return monitoring.since ? tr("Not monitored since %1: %2")
                                  .arg(monitoring.clockText(*monitoring.since), reason)
                            : tr("Not monitored: %1").arg(reason);
}
