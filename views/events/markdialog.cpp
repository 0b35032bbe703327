#include "views/events/markdialog.h"

#include "serial/ldb/generalinformation.h"
#include "serial/ldb/microseconds.h"

#include <QDateTime>
#include <QDialogButtonBox>
#include <QEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include <utility>

namespace {

constexpr int kLongestText = 200;
constexpr int kLettersShown = 45;

} // namespace

MarkDialog::MarkDialog(qint64 at, std::function<void(const QString&)> done, QWidget* parent)
    : QDialog(parent)
    , m_at(at)
    , m_done(std::move(done))
    , m_label(new QLabel)
    , m_text(new QLineEdit)
{
    setObjectName(QStringLiteral("markDialog"));
    setAttribute(Qt::WA_DeleteOnClose);
    m_text->setObjectName(QStringLiteral("markTextEdit"));
    m_text->setMaxLength(kLongestText);
    m_text->setMinimumWidth(fontMetrics().averageCharWidth() * kLettersShown);
    m_label->setBuddy(m_text);
    auto* buttons = new QDialogButtonBox;
    m_set = buttons->addButton(QString(), QDialogButtonBox::AcceptRole);
    m_set->setObjectName(QStringLiteral("markSetButton"));
    m_set->setEnabled(false);
    m_cancel = buttons->addButton(QString(), QDialogButtonBox::RejectRole);
    auto* lines = new QVBoxLayout(this);
    lines->addWidget(m_label);
    lines->addWidget(m_text);
    lines->addWidget(buttons);
    connect(m_text, &QLineEdit::textChanged, this,
            [this](const QString& text) { m_set->setEnabled(!text.trimmed().isEmpty()); });
    connect(buttons, &QDialogButtonBox::accepted, this, &MarkDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    retranslate();
    m_text->setFocus();
}

void MarkDialog::accept()
{
    const QString text = m_text->text().simplified();
    if (!text.isEmpty()) {
        m_done(text);
        QDialog::accept();
    }
}

void MarkDialog::retranslate()
{
    const QString time = microseconds::localTime(m_at).toString(generalinformation::kSecondsFormat);
    setWindowTitle(tr("Mark"));
    m_label->setText(tr("&What is to be noted at %1").arg(time));
    m_text->setAccessibleName(tr("Text of the mark"));
    m_set->setText(tr("Set"));
    m_cancel->setText(tr("Cancel"));
}

void MarkDialog::changeEvent(QEvent* event)
{
    QDialog::changeEvent(event);
    if (event->type() == QEvent::LanguageChange) {
        retranslate();
    }
}
