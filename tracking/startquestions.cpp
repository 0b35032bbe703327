#include "tracking/startquestions.h"

#include "tracking/disconnectsecondaryportdialog.h"

#include <QCoreApplication>
#include <QMessageBox>
#include <QPushButton>

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(FimTracking)
};

} // namespace

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
    const auto* commissioning = box->addButton(Texts::tr("Commissioning"), QMessageBox::AcceptRole);
    const auto* faultFinding = box->addButton(Texts::tr("Fault Finding"), QMessageBox::AcceptRole);
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
