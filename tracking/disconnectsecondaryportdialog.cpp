#include "tracking/disconnectsecondaryportdialog.h"

#include "app/shared/constants.h"
#include "ui_disconnectsecondaryportdialog.h"

#include <QPixmap>

namespace {

constexpr QSize kPictureLimit{720, 420}; // leaves room for the text on a 768-line screen

} // namespace

DisconnectSecondaryPortDialog::DisconnectSecondaryPortDialog(QWidget* parent)
    : QDialog(parent)
    , m_ui(std::make_unique<Ui::DisconnectSecondaryPortDialog>())
{
    m_ui->setupUi(this);
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    QPixmap picture(constants::kFrontPanelResource);
    if (picture.width() > kPictureLimit.width() || picture.height() > kPictureLimit.height()) {
        picture = picture.scaled(kPictureLimit, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    }
    m_ui->pictureLabel->setPixmap(picture);
    m_ui->pictureLabel->setVisible(!picture.isNull());
}

DisconnectSecondaryPortDialog::~DisconnectSecondaryPortDialog() = default;
