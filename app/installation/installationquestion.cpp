#include "app/installation/installationquestion.h"

#include <QEvent>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include <utility>

namespace {

constexpr int kWidth = 520; // pixels

QString lineOf(const Installation& installation)
{
    const QString count =
        InstallationQuestion::tr("%n LDBs", nullptr, static_cast<int>(installation.ldbs.size()));
    const bool hasPlace = !installation.place.isEmpty() && !installation.name.isEmpty();
    return hasPlace
               ? QStringLiteral("%1, %2 (%3)").arg(installation.title(), installation.place, count)
               : QStringLiteral("%1 (%2)").arg(installation.title(), count);
}

} // namespace

InstallationQuestion::InstallationQuestion(Text text,
                                           const std::vector<Installation>& installations,
                                           const QString& proposed, QWidget* parent)
    : QDialog(parent)
    , m_composeText(std::move(text))
    , m_text(new QLabel)
    , m_list(new QListWidget)
    , m_choose(new QPushButton)
    , m_new(new QPushButton)
{
    setObjectName(QStringLiteral("installationQuestion"));
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowFlags(Qt::Dialog | Qt::WindowTitleHint | Qt::WindowCloseButtonHint);
    m_list->setObjectName(QStringLiteral("installationQuestionList"));
    m_choose->setObjectName(QStringLiteral("chooseInstallationButton"));
    m_new->setObjectName(QStringLiteral("newInstallationButton"));
    m_text->setObjectName(QStringLiteral("installationQuestionLabel"));
    m_text->setTextFormat(Qt::PlainText);
    m_text->setWordWrap(true);
    m_text->setMinimumWidth(kWidth);
    for (const Installation& installation : installations) {
        auto* item = new QListWidgetItem(lineOf(installation), m_list);
        item->setData(Qt::UserRole, installation.id);
        if (installation.id == proposed) {
            m_list->setCurrentItem(item);
        }
    }
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(m_choose);
    buttons->addWidget(m_new);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_text);
    layout->addWidget(m_list);
    layout->addLayout(buttons);
    const auto enable = [this] {
        m_choose->setEnabled(!m_list->selectedItems().isEmpty());
    };
    enable();
    // Enter must not choose an installation that nobody has proposed or selected.
    QPushButton* first = m_choose->isEnabled() ? m_choose : m_new;
    first->setDefault(true);
    first->setFocus();
    connect(m_list, &QListWidget::itemSelectionChanged, this, enable);
    connect(m_choose, &QPushButton::clicked, this, [this] {
        answer(m_list->selectedItems().constFirst()->data(Qt::UserRole).toString());
    });
    connect(m_new, &QPushButton::clicked, this, [this] { answer({}); });
    retranslate();
}

void InstallationQuestion::answer(const QString& id)
{
    close();
    emit answered(id);
}

void InstallationQuestion::retranslate()
{
    setWindowTitle(tr("Another installation?"));
    m_text->setText(m_composeText());
    m_list->setAccessibleName(tr("Installations"));
    m_choose->setText(tr("Use the Selected One"));
    m_new->setText(tr("New Installation"));
}

void InstallationQuestion::changeEvent(QEvent* event)
{
    QDialog::changeEvent(event);
    if (event->type() == QEvent::LanguageChange) {
        retranslate();
    }
}
