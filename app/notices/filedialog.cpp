#include "app/notices/filedialog.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>

#include <utility>

namespace filedialog {

namespace {

QFileDialog* make(QWidget* parent, const QString& title, std::function<void(const QString&)> chosen,
                  const QString& suffix)
{
    auto* dialog = new QFileDialog(parent, title, QString(), QStringLiteral("(*.%1)").arg(suffix));
    // Where no folder has been chosen yet it would open in the working directory: of an installed
    // program one that only holds the tuning file and does not let users write.
    if (dialog->directory() == QDir::current()) {
        dialog->setDirectory(QDir::home());
    }
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    QObject::connect(dialog, &QFileDialog::fileSelected, parent, std::move(chosen));
    return dialog;
}

} // namespace

void save(QWidget* parent, const QString& title, const QString& proposedPath, bool mayExist,
          std::function<void(const QString&)> chosen, const QString& suffix)
{
    QFileDialog* dialog = make(parent, title, std::move(chosen), suffix);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setDefaultSuffix(suffix);
    dialog->setOption(QFileDialog::DontConfirmOverwrite, mayExist);
    if (!proposedPath.isEmpty()) {
        const QFileInfo proposed(proposedPath);
        dialog->setDirectory(proposed.absolutePath());
        dialog->selectFile(proposed.fileName());
    }
    dialog->open();
}

void load(QWidget* parent, const QString& title, std::function<void(const QString&)> chosen,
          const QString& suffix)
{
    QFileDialog* dialog = make(parent, title, std::move(chosen), suffix);
    dialog->setAcceptMode(QFileDialog::AcceptOpen);
    dialog->setFileMode(QFileDialog::ExistingFile);
    dialog->open();
}

QString namePart(QString text)
{
    for (const QChar c : QStringLiteral("/\\:*?\"<>|")) {
        text.replace(c, QLatin1Char('-'));
    }
    return text.trimmed();
}

} // namespace filedialog
