#include "app/lookback/gotodialog.h"

#include "serial/ldb/microseconds.h"

#include <QDateTime>
#include <QDateTimeEdit>
#include <QDialogButtonBox>
#include <QLabel>
#include <QVBoxLayout>

#include <algorithm>

namespace {

} // namespace

GoToDialog::GoToDialog(TimeSpan extent, qint64 proposed, QWidget* parent)
    : QDialog(parent)
    , m_time(new QDateTimeEdit(this))
{
    setObjectName(QStringLiteral("goToDialog"));
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(tr("Go to a Time"));
    m_time->setObjectName(QStringLiteral("goToTime"));
    m_time->setDisplayFormat(QStringLiteral("yyyy-MM-dd hh:mm:ss"));
    m_time->setCalendarPopup(true);
    m_time->setDateTimeRange(microseconds::localTime(extent.from),
                             microseconds::localTime(extent.to));
    m_time->setDateTime(microseconds::localTime(std::clamp(proposed, extent.from, extent.to)));
    m_time->setCurrentSection(QDateTimeEdit::HourSection);
    auto* label = new QLabel(tr("&Moment to show:"), this);
    label->setBuddy(m_time);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(label);
    layout->addWidget(m_time);
    layout->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(buttons, &QDialogButtonBox::accepted, this, [this] {
        emit chosen(microseconds::of(m_time->dateTime()));
        accept();
    });
}
