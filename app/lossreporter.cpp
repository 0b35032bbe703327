#include "app/lossreporter.h"

#include "app/messagebox.h"

#include <QCoreApplication>

namespace {

BoxText lossText(const QStringList& hexIds)
{
    QStringList lines;
    for (const QString& hexId : hexIds) {
        lines.append(
            QCoreApplication::translate("LossReporter", "The LDB with ID: %1 is disconnected!")
                .arg(hexId));
    }
    return {QCoreApplication::translate("LossReporter", "Error"), lines.join(QLatin1Char('\n')),
            QString()};
}

} // namespace

LossReporter::LossReporter(QWidget* window)
    : m_window(window)
{
}

void LossReporter::report(const QString& hexId)
{
    if (m_box == nullptr) {
        m_lostLdbs.clear();
        m_box = new MessageBox(
            QMessageBox::Critical, [this] { return lossText(m_lostLdbs); }, m_window);
        m_box->setObjectName(QStringLiteral("lossBox"));
    }
    // An LDB that comes and goes while the user is away must not fill the box with itself.
    if (!m_lostLdbs.contains(hexId)) {
        m_lostLdbs.append(hexId);
    }
    m_box->refresh();
    m_box->open();
}
