#include "app/settingstable/filebar.h"

#include "app/shared/colours.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

FileBar::FileBar(QWidget* parent)
    : QFrame(parent)
    , m_label(new QLabel)
    , m_otherReading(new QPushButton)
    , m_details(new QPushButton)
    , m_close(new QPushButton)
{
    m_label->setWordWrap(true);
    m_label->setTextFormat(Qt::PlainText);
    m_label->setObjectName(QStringLiteral("barLabel"));
    m_otherReading->setObjectName(QStringLiteral("otherReadingButton"));
    m_details->setObjectName(QStringLiteral("barDetailsButton"));
    m_close->setObjectName(QStringLiteral("barCloseButton"));
    auto* content = new QHBoxLayout(this);
    content->setContentsMargins(4, 2, 4, 2);
    content->addWidget(m_label, 1);
    for (QPushButton* button : {m_otherReading, m_details, m_close}) {
        button->setAutoDefault(false);
        content->addWidget(button);
    }
    connect(m_otherReading, &QPushButton::clicked, this, &FileBar::otherReadingWanted);
    connect(m_details, &QPushButton::clicked, this, &FileBar::detailsWanted);
    connect(m_close, &QPushButton::clicked, this, &FileBar::closed);
    hide();
}

void FileBar::show(const QString& text, const QString& otherReading, const QString& details,
                   const QString& close, bool isWarning)
{
    m_label->setText(text);
    const auto give = [](QPushButton* button, const QString& label) {
        button->setText(label);
        button->setVisible(!label.isEmpty());
    };
    give(m_otherReading, otherReading);
    give(m_details, details);
    give(m_close, close);
    QPalette ground = palette();
    ground.setColor(QPalette::Window,
                    QColor(isWarning ? colours::kPartlyMonitored : colours::kMonitored));
    ground.setColor(QPalette::WindowText, Qt::black);
    setPalette(ground);
    m_label->setPalette(ground);
    setAutoFillBackground(true);
    setVisible(true);
}
