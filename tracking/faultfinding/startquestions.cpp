#include "tracking/faultfinding/startquestions.h"

#include "app/shared/constants.h"
#include "tracking/faultfinding/trackingtexts.h"
#include "ui_disconnectsecondaryportdialog.h"

#include <QCoreApplication>
#include <QIcon>
#include <QMessageBox>
#include <QPixmap>
#include <QPushButton>

namespace {

constexpr QSize kPictureSize{540, 330}; // leaves room for the text on a 768-line screen

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(FimTracking)
};

} // namespace

DisconnectSecondaryPortDialog::DisconnectSecondaryPortDialog(QWidget* parent)
    : QDialog(parent)
    , m_ui(std::make_unique<Ui::DisconnectSecondaryPortDialog>())
{
    m_ui->setupUi(this);
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    const QPixmap picture = QIcon(constants::kFrontPanelResource).pixmap(kPictureSize);
    m_ui->pictureLabel->setPixmap(picture);
    m_ui->pictureLabel->setVisible(!picture.isNull());
}

DisconnectSecondaryPortDialog::~DisconnectSecondaryPortDialog() = default;

StartQuestions::StartQuestions(QWidget* window)
    : QObject(window)
    , m_window(window)
{
}

void StartQuestions::ask()
{
    showStartConfirmationDialog();
}

void StartQuestions::withdraw()
{
    if (m_question) {
        m_question->disconnect(this);
        m_question->close();
    }
}

void StartQuestions::openQuestion(QDialog* question)
{
    m_question = question;
    question->setAttribute(Qt::WA_DeleteOnClose);
    question->open();
}

void StartQuestions::showStartConfirmationDialog()
{
    auto* box = new QMessageBox(
        QMessageBox::Question, Texts::tr("Attention"),
        Texts::tr("This action will start a factory reset. \nAre you sure you want to do this?"),
        QMessageBox::Yes | QMessageBox::No, m_window);
    box->setObjectName(QStringLiteral("startConfirmationBox"));
    box->setDefaultButton(QMessageBox::No);
    connect(box, &QDialog::finished, this, [this](int result) {
        if (result == QMessageBox::Yes) {
            showTrackingModeSelectionDialog();
        } else {
            emit answered(TrackingMode::Cancelled);
        }
    });
    openQuestion(box);
}

void StartQuestions::showTrackingModeSelectionDialog()
{
    auto* box = new QMessageBox(QMessageBox::Question, Texts::tr("Attention"),
                                Texts::tr("Select the type of action you want to execute.\n "),
                                QMessageBox::NoButton, m_window);
    box->setObjectName(QStringLiteral("trackingModeBox"));
    const auto* commissioning =
        box->addButton(trackingtexts::mode(TrackingMode::Commissioning), QMessageBox::AcceptRole);
    const auto* faultFinding =
        box->addButton(trackingtexts::mode(TrackingMode::FaultFinding), QMessageBox::AcceptRole);
    QPushButton* cancelButton = box->addButton(Texts::tr("Cancel"), QMessageBox::RejectRole);
    box->setEscapeButton(cancelButton);
    box->setDefaultButton(cancelButton);
    connect(box, &QDialog::finished, this, [this, box, commissioning, faultFinding] {
        const QAbstractButton* clicked = box->clickedButton();
        if (clicked == commissioning) {
            emit answered(TrackingMode::Commissioning);
        } else if (clicked == faultFinding) {
            showDisconnectSecondaryPortDialog();
        } else {
            emit answered(TrackingMode::Cancelled);
        }
    });
    openQuestion(box);
}

void StartQuestions::showDisconnectSecondaryPortDialog()
{
    auto* dialog = new DisconnectSecondaryPortDialog(m_window);
    connect(dialog, &QDialog::finished, this,
            [this] { emit answered(TrackingMode::FaultFinding); });
    openQuestion(dialog);
}
