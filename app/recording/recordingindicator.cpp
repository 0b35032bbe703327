#include "app/recording/recordingindicator.h"

#include "app/recording/recordingcontrol.h"

#include <QDesktopServices>
#include <QDir>
#include <QEvent>
#include <QPainter>
#include <QUrl>

namespace {

constexpr int kDot = 10; ///< logical pixels
constexpr int kScale = 3;

// They are told apart by brightness, too; the word says it besides.
constexpr QRgb kOn = 0xffc62828;
constexpr QRgb kOff = 0xff9e9e9e;
constexpr QRgb kFailed = 0xffffa000;

QIcon dot(QRgb colour)
{
    QPixmap pixmap(kDot * kScale, kDot * kScale);
    pixmap.setDevicePixelRatio(kScale);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(colour));
    painter.drawEllipse(QRect(0, 0, kDot, kDot));
    return QIcon(pixmap);
}

} // namespace

RecordingIndicator::RecordingIndicator(RecordingControl* control, QWidget* parent)
    : QToolButton(parent)
    , m_control(control)
{
    setObjectName(QStringLiteral("recordingIndicator"));
    setAutoRaise(true);
    setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    setIconSize({kDot, kDot});
    connect(control->recorder(), &Recorder::changed, this, &RecordingIndicator::showState);
    connect(this, &QToolButton::clicked, this, &RecordingIndicator::openFolder);
    showState();
}

void RecordingIndicator::showState()
{
    const Recorder* recorder = m_control->recorder();
    const QString folder = QDir::toNativeSeparators(m_control->folder());
    if (!recorder->options().isEnabled) {
        setIcon(dot(kOff));
        setText(tr("Recording is off"));
        setToolTip(tr("Nothing is recorded: it is turned off in the settings."));
    } else if (recorder->isOutage()) {
        setIcon(dot(kFailed));
        setText(tr("Not recorded!"));
        setToolTip(m_control->outageText());
    } else if (recorder->isRecording()) {
        setIcon(dot(kOn));
        setText(tr("Recording"));
        const QString path = recorder->filePath();
        setToolTip(tr("Everything on the bus is recorded. Click to open the folder.\n%1")
                       .arg(path.isEmpty() ? folder : QDir::toNativeSeparators(path)));
    } else {
        setIcon(dot(kOff));
        setText(tr("Not recording"));
        setToolTip(tr("What happens on the bus is recorded as soon as it is monitored. Click to "
                      "open the folder.\n%1")
                       .arg(folder));
    }
}

void RecordingIndicator::openFolder()
{
    const QString folder = m_control->folder();
    if (folder.isEmpty() || !QDir(folder).exists() ||
        !QDesktopServices::openUrl(QUrl::fromLocalFile(folder))) {
        emit failed(folder);
    }
}

void RecordingIndicator::changeEvent(QEvent* event)
{
    QToolButton::changeEvent(event);
    if (event->type() == QEvent::LanguageChange) {
        showState();
    }
}
