#include "tracking/disconnectsecondaryportdialog.h"

#include "app/shared/constants.h"
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
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    const QPixmap picture = QIcon(constants::kFrontPanelResource).pixmap(kPictureSize);
    m_ui->pictureLabel->setPixmap(picture);
    m_ui->pictureLabel->setVisible(!picture.isNull());
}

DisconnectSecondaryPortDialog::~DisconnectSecondaryPortDialog() = default;
