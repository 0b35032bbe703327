#include "app/preferences/settingsmenu.h"

#include "app/shared/usersettings.h"
#include "ui_settingsmenu.h"

#include <QCompleter>
#include <QEvent>
#include <QFile>
#include <QLabel>
#include <QShowEvent>
#include <QVBoxLayout>

namespace {

// Marks the item that stands in a list without entries; its text is never stored.
constexpr int kPlaceholderRole = Qt::UserRole + 1;

// Wide enough that no paragraph becomes a column.
constexpr int kAboutWidth = 600;

constexpr Qt::GlobalColor kBackground = Qt::lightGray;
constexpr Qt::GlobalColor kForeground = Qt::black;

void store(const QString& key, const QVariant& value)
{
    QSettings settings = userSettings();
    settings.setValue(key, value);
    settings.sync();
    if (settings.status() != QSettings::NoError) {
        qWarning("%s cannot be stored in %s", qPrintable(key), qPrintable(settings.fileName()));
    }
}

QString storedPort()
{
    return userSettings().value(constants::kComPortKey, QString()).toString();
}

QString storedLanguage()
{
    return userSettings().value(constants::kLanguageKey, constants::kDefaultLanguage).toString();
}

void addPlaceholder(QComboBox* box, const QString& text)
{
    box->addItem(QIcon(), text);
    box->setItemData(0, true, kPlaceholderRole);
}

/// The text of the placeholder; null when the list has entries.
QString placeholderText(const QComboBox* box)
{
    const int index = box->findData(true, kPlaceholderRole);
    return index < 0 ? QString() : box->itemText(index);
}

void retranslatePlaceholder(QComboBox* box, const QString& text)
{
    const int index = box->findData(true, kPlaceholderRole);
    if (index < 0) {
        return;
    }
    const QString shown = box->currentText();
    const bool isShown = shown == box->itemText(index);
    box->setItemText(index, text);
    // A new text of the current item would take the place of what has been typed over it.
    if (box->isEditable() && !isShown) {
        box->setEditText(shown);
    }
}

QIcon flagOf(const QString& language)
{
    const QString flag = QStringLiteral("%1/%2.png").arg(constants::kIconsResourceFolder, language);
    return QIcon(QFile::exists(flag) ? flag : constants::kDefaultIconResource);
}

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
        label->setFixedWidth(kAboutWidth);
        layout->addWidget(label);
    }
}

SettingsMenu::SettingsMenu(QWidget* parent, SettingsSources sources)
    : QDialog(parent)
    , m_ui(std::make_unique<Ui::SettingsMenu>())
    , m_sources(std::move(sources))
    , m_languages(m_sources.translationsFolder, this)
{
    // Before the form, so that its texts come up in the right language at once.
    m_languages.load(storedLanguage());
    m_ui->setupUi(this);
    initGui();
    initConnections();
    updatePortLabels();
}

SettingsMenu::~SettingsMenu() = default;

void SettingsMenu::initGui()
{
    QPalette colours = palette();
    colours.setColor(QPalette::Window, kBackground);
    // A dark desktop's white text would not read on the fixed background.
    colours.setColor(QPalette::WindowText, kForeground);
    setPalette(colours);
    setWindowModality(Qt::ApplicationModal);
    setWindowFlags(Qt::Dialog | Qt::WindowTitleHint | Qt::WindowCloseButtonHint);

    // A popup, not the inline kind: that one would turn a typed COM1 into the COM12 of the list.
    QCompleter* completer = m_ui->portComboBox->completer();
    completer->setCompletionMode(QCompleter::PopupCompletion);
    completer->setCaseSensitivity(Qt::CaseSensitive);
}

void SettingsMenu::initConnections()
{
    QComboBox* ports = m_ui->portComboBox;
    connect(ports, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            &SettingsMenu::showPortInfo);
    // Typing leaves the index where it was.
    connect(ports, &QComboBox::editTextChanged, this,
            [this, ports](const QString& text) { showPortInfo(ports->findText(text)); });
}

QString SettingsMenu::getComPort() const
{
    const QString port = storedPort();
    return port.isEmpty() ? tr("Unknown COM port") : port;
}

void SettingsMenu::on_okButton_clicked()
{
    storePort();
    store(constants::kAudioWarningsKey, m_ui->soundWarningsCheckBox->isChecked());
    store(constants::kKnownStartKey, m_ui->knownStartCheckBox->isChecked());
    storeLanguage();
    accept();
}

void SettingsMenu::on_cancelButton_clicked()
{
    reject();
}

void SettingsMenu::on_aboutButton_clicked()
{
    AboutDialog(this).exec();
}

void SettingsMenu::on_installationButton_clicked()
{
    reject();
    emit installationWanted();
}

void SettingsMenu::on_recordingButton_clicked()
{
    reject();
    emit recordingWanted();
}

void SettingsMenu::showPortInfo(int index)
{
    QComboBox* ports = m_ui->portComboBox;
    if (index >= 0 && ports->itemData(index, kPlaceholderRole).toBool()) {
        return;
    }
    m_portInfo = ports->itemData(index).toStringList();
    updatePortLabels();
}

void SettingsMenu::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange) {
        retranslate();
    }
    QDialog::changeEvent(event);
}

void SettingsMenu::showEvent(QShowEvent* event)
{
    // A spontaneous one comes from the desktop, after minimising: what is typed stays.
    if (!event->spontaneous()) {
        loadChoices();
    }
    QDialog::showEvent(event);
}

void SettingsMenu::retranslate()
{
    m_ui->retranslateUi(this);
    retranslatePlaceholder(m_ui->portComboBox, tr("No ComPorts found"));
    retranslatePlaceholder(m_ui->languageComboBox, tr("No language file found"));
    updatePortLabels();
}

void SettingsMenu::loadChoices()
{
    fillPorts();
    fillLanguages();
    m_ui->soundWarningsCheckBox->setChecked(
        userSettings().value(constants::kAudioWarningsKey, false).toBool());
    m_ui->knownStartCheckBox->setChecked(
        userSettings().value(constants::kKnownStartKey, true).toBool());
}

void SettingsMenu::fillPorts()
{
    QComboBox* box = m_ui->portComboBox;
    box->clear();
    const QList<PortDetails> ports = orderedByNumber(m_sources.ports());
    for (const PortDetails& port : ports) {
        box->addItem(port.name, portInfoTexts(port));
    }
    if (ports.isEmpty()) {
        addPlaceholder(box, tr("No ComPorts found"));
    }
    const QString stored = storedPort();
    if (stored.isEmpty()) {
        return;
    }
    box->setCurrentIndex(box->findText(stored));
    // A port whose adapter is unplugged stays chosen.
    box->setEditText(stored);
}

void SettingsMenu::fillLanguages()
{
    QComboBox* box = m_ui->languageComboBox;
    box->clear();
    const QStringList languages = m_languages.available();
    for (const QString& language : languages) {
        box->addItem(flagOf(language), language);
    }
    if (languages.isEmpty()) {
        addPlaceholder(box, tr("No language file found"));
        return;
    }
    // A stored language whose file is gone leaves nothing chosen, so that OK keeps it.
    box->setCurrentIndex(box->findText(storedLanguage()));
}

void SettingsMenu::storePort()
{
    const QComboBox* box = m_ui->portComboBox;
    const QString port = box->currentText().trimmed();
    if (port.isEmpty() || port == placeholderText(box) || port == getComPort()) {
        return;
    }
    store(constants::kComPortKey, port);
    emit comPortUpdated(port);
}

void SettingsMenu::storeLanguage()
{
    const QComboBox* box = m_ui->languageComboBox;
    const QString language = box->currentText();
    if (language.isEmpty() || language == placeholderText(box)) {
        return;
    }
    store(constants::kLanguageKey, language);
    m_languages.load(language);
}

void SettingsMenu::updatePortLabels()
{
    m_ui->descriptionLabel->setText(tr("Description: %1").arg(m_portInfo.value(0)));
    m_ui->manufacturerLabel->setText(tr("Manufacturer: %1").arg(m_portInfo.value(1)));
    m_ui->serialNumberLabel->setText(tr("Serial number: %1").arg(m_portInfo.value(2)));
    m_ui->locationLabel->setText(tr("Location: %1").arg(m_portInfo.value(3)));
    m_ui->vendorIdentifierLabel->setText(tr("Vendor Identifier: %1").arg(m_portInfo.value(4)));
    m_ui->productIdentifierLabel->setText(tr("Product Identifier: %1").arg(m_portInfo.value(5)));
}
