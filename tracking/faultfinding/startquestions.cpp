#include "tracking/faultfinding/startquestions.h"

#include "app/notices/messagebox.h"
#include "app/shared/constants.h"
#include "tracking/faultfinding/fimtracking.h"
#include "tracking/faultfinding/trackingtexts.h"
#include "ui_disconnectsecondaryportdialog.h"

#include <QIcon>
#include <QPixmap>

namespace {

constexpr QSize kPictureSize{540, 330}; // leaves room for the text on a 768-line screen

} // namespace

DisconnectSecondaryPortDialog::DisconnectSecondaryPortDialog(QWidget* parent)
    : QDialog(parent)
    , m_ui(std::make_unique<Ui::DisconnectSecondaryPortDialog>())
{
    m_ui->setupUi(this);
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    const QPixmap picture = QIcon(constants::kFrontPanelResource).pixmap(kPictureSize);
    m_ui->pictureLabel->setPixmap(picture);
    m_ui->pictureLabel->setVisible(!picture.isNull());
}

DisconnectSecondaryPortDialog::~DisconnectSecondaryPortDialog() = default;

void StartQuestions::ask()
{
    const auto texts = [] {
        return BoxText{
            FimTracking::tr("Attention"),
            FimTracking::tr("This action will start a factory reset. \nAre you sure you want "
                            "to do this?"),
            FimTracking::tr("The settings in the LDB go back to defaults, and the loop is without "
                            "sound for about two minutes. The settings are kept before, and can be "
                            "restored after the run.")};
    };
    auto* box =
        new MessageBox(QMessageBox::Question, texts, m_window, QMessageBox::Yes | QMessageBox::No);
    box->setDefaultButton(QMessageBox::No);
    connect(box, &QDialog::finished, this, [this](int result) {
        if (result == QMessageBox::Yes) {
            showTrackingModeSelectionDialog();
        } else {
            emit answered(TrackingMode::Cancelled);
        }
    });
    openQuestion(box, "startConfirmationBox");
}

void StartQuestions::withdraw()
{
    if (m_question) {
        m_question->disconnect(this);
        m_question->close();
    }
}

void StartQuestions::openQuestion(QDialog* question, const char* name)
{
    m_question = question;
    question->setObjectName(QLatin1String(name));
    question->open();
}

void StartQuestions::showTrackingModeSelectionDialog()
{
    const auto texts = [] {
        return BoxText{FimTracking::tr("Attention"),
                       FimTracking::tr("Select the type of action you want to execute.\n "),
                       QString(),
                       {trackingtexts::mode(TrackingMode::Commissioning),
                        trackingtexts::mode(TrackingMode::FaultFinding),
                        FimTracking::tr("Cancel")}};
    };
    auto* box = new MessageBox(QMessageBox::Question, texts, m_window);
    connect(box, &QDialog::finished, this, [this, box] {
        switch (box->choice()) {
        case 0:
            emit answered(TrackingMode::Commissioning);
            break;
        case 1:
            showDisconnectSecondaryPortDialog();
            break;
        default:
            emit answered(TrackingMode::Cancelled);
            break;
        }
    });
    openQuestion(box, "trackingModeBox");
}

void StartQuestions::showDisconnectSecondaryPortDialog()
{
    auto* dialog = new DisconnectSecondaryPortDialog(m_window);
    connect(dialog, &QDialog::finished, this, [this](int result) {
        emit answered(result == QDialog::Accepted ? TrackingMode::FaultFinding
                                                  : TrackingMode::Cancelled);
    });
    openQuestion(dialog, "disconnectSecondaryPortDialog");
}

void StartQuestions::askWithoutWayBack(FormerState::Lack lack, const QString& reason)
{
    const auto texts = [lack, reason] {
        return BoxText{FimTracking::tr("Attention"),
                       trackingtexts::noWayBack(lack, reason),
                       QString(),
                       {FimTracking::tr("Start all the same"), FimTracking::tr("Cancel")}};
    };
    auto* box = new MessageBox(QMessageBox::Warning, texts, m_window);
    connect(box, &QDialog::finished, this,
            [this, box] { emit answeredWithoutWayBack(box->choice() == 0); });
    openQuestion(box, "noWayBackBox");
}
