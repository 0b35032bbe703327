#include "app/preferences/aboutdialog.h"

#include "app/shared/constants.h"

#include <QLabel>
#include <QVBoxLayout>

namespace {

// Wide enough that no paragraph becomes a column.
constexpr int kTextWidth = 600;

} // namespace

AboutDialog::AboutDialog(QWidget* parent)
    : QDialog(parent)
{
    setWindowTitle(tr("About %1").arg(constants::kApplicationDisplayName));
    setWindowFlags(Qt::Dialog | Qt::WindowTitleHint | Qt::WindowCloseButtonHint);
    setModal(true);
    if (parent != nullptr) {
        setPalette(parent->palette());
    }
    const QStringList paragraphs{
        tr("The %1 application has been developed with the framework Qt 5.5.0\n"
           "Qt is licenced under the LGPL licence (2.1)")
            .arg(constants::kApplicationDisplayName),
        tr("The %1 application is based in part on the work of the Qwt project.\n"
           "The Qwt source code can be found at https://qwt.sourceforge.io")
            .arg(constants::kApplicationDisplayName),
        tr("A copy of the licenses can be found in the application licenses folder. Contact your "
           "distributor for source code access related to the LGPL licenses."),
        tr("Copyright %1. All rights reserved.").arg(constants::kOrganisationName),
        tr("THIS PROGRAM IS PROVIDED BY %1 AS IT IS, WITHOUT WARRANTY OF ANY KIND, EXPRESSED OR "
           "IMPLIED, INCLUDING THE WARRANTIES OF MERCHANTABILITY AND OF FITNESS FOR A PARTICULAR "
           "PURPOSE. %1 IS NOT LIABLE FOR ANY DAMAGE ARISING FROM ITS USE.")
            .arg(constants::kOrganisationName),
    };
    auto* layout = new QVBoxLayout(this);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    for (const QString& paragraph : paragraphs) {
        auto* label = new QLabel(paragraph, this);
        label->setTextFormat(Qt::PlainText);
        label->setWordWrap(true);
        label->setTextInteractionFlags(Qt::TextSelectableByMouse);
        label->setFixedWidth(kTextWidth);
        layout->addWidget(label);
    }
}
