#include "app/ldbsettings/leavequestion.h"

#include "app/notices/notices.h"

#include <QCoreApplication>

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(LeaveQuestion)
};

const QString kName = QStringLiteral("unsavedSettingsBox");

BoxText composed(const QString& hexId, int changes, Hindrance hindrance)
{
    BoxText text{Texts::tr("Attention"),
                 Texts::tr("LDB %1 has %n unsaved change(s).", nullptr, changes).arg(hexId)};
    if (hindrance == Hindrance::None) {
        text.choices.append(Texts::tr("Save"));
    } else {
        text.details = Texts::tr("They cannot be saved now. %1").arg(hindranceText(hindrance));
    }
    text.choices.append({Texts::tr("Discard"), Texts::tr("Stay")});
    return text;
}

} // namespace

void leavequestion::ask(Notices* notices, const QObject* context, const QString& hexId, int changes,
                        Hindrance hindrance, const std::function<void(Answer)>& answered)
{
    if (notices->isOpen(kName)) {
        answered(Answer::Stay); // the question that is open decides of another way to leave
        return;
    }
    const MessageBox* box = notices->box(
        QMessageBox::Question,
        [hexId, changes, hindrance] { return composed(hexId, changes, hindrance); }, kName);
    const bool isSaveOffered = hindrance == Hindrance::None;
    QObject::connect(box, &QDialog::finished, context, [box, isSaveOffered, answered] {
        const int choice = box->choice() + (isSaveOffered ? 0 : 1);
        answered(box->choice() < 0 ? Answer::Stay : static_cast<Answer>(choice));
    });
}
