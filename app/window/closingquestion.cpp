#include "app/window/closingquestion.h"

#include "app/notices/notices.h"

ClosingQuestion::ClosingQuestion(Notices* notices, QWidget* window)
    : QObject(window)
    , m_notices(notices)
    , m_window(window)
{
}

bool ClosingQuestion::mayClose()
{
    std::vector<Text> reasons;
    for (const UnderWay& source : m_sources) {
        const std::vector<Text> found = source();
        reasons.insert(reasons.end(), found.begin(), found.end());
    }
    if (m_isAnswered || reasons.empty()) {
        return true;
    }
    open(reasons);
    return false;
}

void ClosingQuestion::open(const std::vector<Text>& reasons)
{
    const QString name = QStringLiteral("closeBox");
    if (m_notices->isOpen(name)) {
        return;
    }
    auto* box = new MessageBox(
        QMessageBox::Warning,
        [reasons] {
            QStringList lines;
            for (const Text& reason : reasons) {
                lines.append(reason());
            }
            return BoxText{tr("Attention"),
                           tr("Close the program all the same?"),
                           lines.join(QLatin1Char('\n')),
                           {tr("Close"), tr("Stay")}};
        },
        m_window);
    box->setObjectName(name);
    connect(box, &QDialog::finished, this, [this, box] {
        if (box->choice() == 0) {
            m_isAnswered = true;
            m_window->close();
            m_isAnswered = false; // if something else has kept it open, it is asked anew
        }
    });
    box->open();
}
