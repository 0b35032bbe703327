#include "app/help/manualwindow.h"

#include "app/help/manualbrowser.h"
#include "app/notices/messagebox.h"
#include "app/shared/constants.h"

#include <QApplication>
#include <QDir>
#include <QEvent>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QToolButton>
#include <QUrl>
#include <QVBoxLayout>

#include <utility>

namespace {

constexpr QSize kWindowSize{980, 660}; // fits on a 1366 x 768 screen
const QString kFirstPage = QStringLiteral("index.md");

const QString kMissingBoxName = QStringLiteral("manualMissingBox");

QString firstPageOf(const QString& folder)
{
    return QDir(folder).filePath(kFirstPage);
}

QToolButton* makeButton(const char* name)
{
    auto* button = new QToolButton;
    button->setObjectName(QLatin1String(name));
    return button;
}

ManualWindow* openManual()
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget* window : windows) {
        auto* found = qobject_cast<ManualWindow*>(window);
        if (found != nullptr && found->isVisible()) {
            return found;
        }
    }
    return nullptr;
}

} // namespace

ManualWindow::ManualWindow(const QString& folder, QWidget* parent)
    : QDialog(parent, Qt::Window)
    , m_folder(folder)
    , m_browser(new ManualBrowser)
    , m_contentsButton(makeButton("manualContentsButton"))
    , m_backButton(makeButton("manualBackButton"))
    , m_forwardButton(makeButton("manualForwardButton"))
{
    setAttribute(Qt::WA_DeleteOnClose);
    m_browser->setObjectName(QStringLiteral("manualBrowser"));
    auto* buttons = new QHBoxLayout;
    for (QToolButton* button : {m_contentsButton, m_backButton, m_forwardButton}) {
        buttons->addWidget(button);
    }
    buttons->addStretch();
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(buttons);
    layout->addWidget(m_browser);

    connect(m_contentsButton, &QToolButton::clicked, this, &ManualWindow::showFirstPage);
    connect(m_backButton, &QToolButton::clicked, m_browser, &QTextBrowser::backward);
    connect(m_forwardButton, &QToolButton::clicked, m_browser, &QTextBrowser::forward);
    connect(m_browser, &QTextBrowser::backwardAvailable, m_backButton, &QWidget::setEnabled);
    connect(m_browser, &QTextBrowser::forwardAvailable, m_forwardButton, &QWidget::setEnabled);
    m_backButton->setEnabled(false);
    m_forwardButton->setEnabled(false);

    retranslate();
    resize(kWindowSize);
    showFirstPage();
    m_browser->setFocus();
}

QString ManualWindow::defaultFolder()
{
    return QDir(QCoreApplication::applicationDirPath()).filePath(constants::kManualFolder);
}

void ManualWindow::showIndex(QWidget* asker, const QString& folder)
{
    QWidget* window = asker->window();
    auto* open = openManual();
    if (open != nullptr && (open == window || open->parentWidget() == window)) {
        open->showFirstPage();
        open->raise();
        open->activateWindow();
        return;
    }
    if (!QFileInfo::exists(firstPageOf(folder))) {
        if (window->objectName() == kMissingBoxName) {
            return; // asked in the very box that says so
        }
        const auto missing = [folder = QDir::toNativeSeparators(folder)] {
            return BoxText{tr("Error"),
                           tr("The manual was not found in the folder %1.").arg(folder)};
        };
        MessageBox::tell(window, QMessageBox::Warning, missing, kMissingBoxName);
        return;
    }
    if (open != nullptr) {
        open->close(); // it would be out of reach if the asker's window is a modal one
    }
    (new ManualWindow(folder, window))->show();
}

void ManualWindow::showFirstPage()
{
    m_browser->setSource(QUrl::fromLocalFile(firstPageOf(m_folder)));
}

void ManualWindow::retranslate()
{
    setWindowTitle(tr("Manual - %1").arg(constants::kApplicationDisplayName));
    m_browser->setAccessibleName(tr("Manual"));
    m_contentsButton->setText(tr("&Contents"));
    m_backButton->setText(tr("&Back"));
    m_forwardButton->setText(tr("&Forward"));
}

void ManualWindow::changeEvent(QEvent* event)
{
    QDialog::changeEvent(event);
    if (event->type() == QEvent::LanguageChange) {
        retranslate();
    }
}

HelpKey::HelpKey(QString folder, QObject* parent)
    : QObject(parent)
    , m_folder(std::move(folder))
{
    QCoreApplication::instance()->installEventFilter(this);
}

bool HelpKey::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress || !watched->isWidgetType() ||
        QApplication::activePopupWidget() != nullptr ||
        !static_cast<QKeyEvent*>(event)->matches(QKeySequence::HelpContents)) {
        return QObject::eventFilter(watched, event);
    }
    ManualWindow::showIndex(static_cast<QWidget*>(watched), m_folder);
    return true;
}
