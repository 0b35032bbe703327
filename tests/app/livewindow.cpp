#include "tests/app/livewindow.h"

#include "tests/tracking/plotinspection.h"
#include "views/lamps/statusindicators.h"

#include <qwt_plot_curve.h>

#include <algorithm>

void LiveWindow::cleanup()
{
    m_window.reset();
    m_bus.reset();
    TestCase::cleanup();
}

QString LiveWindow::setLogPath() const
{
    QString path = m_sandbox->path("log.csv");
    child<QLineEdit>("logFilePathText")->setText(path);
    return path;
}

void LiveWindow::makeBus(const QStringList& ldbs)
{
    m_bus = std::make_unique<TestBus>(ldbs);
    userSettings().setValue(constants::kComPortKey, m_bus->portName());
}

void LiveWindow::makeWindow()
{
    m_window = std::make_unique<MainWindow>(m_bus->ports());
    m_window->show();
}

void LiveWindow::open(const QStringList& ldbs)
{
    makeBus(ldbs);
    makeWindow();
}

void LiveWindow::startWindow(int ldbs)
{
    makeWindow();
    click("startButton");
    WAIT_COMPARE(rows(), ldbs);
}

void LiveWindow::start(const QStringList& ldbs)
{
    makeBus(ldbs);
    startWindow(ldbs.size());
    VirtualTime::current()->advance(4000);
    QVERIFY(!areLampsHatched());
}

QModelIndex LiveWindow::cell(const QString& hexId, int column) const
{
    const QAbstractItemModel* model = overview()->model();
    for (int row = 0; row < model->rowCount(); ++row) {
        if (model->index(row, overview::IdColumn).data().toString() == hexId) {
            return model->index(row, column);
        }
    }
    return {};
}

QString LiveWindow::text(const QString& hexId, int column) const
{
    return cell(hexId, column).data().toString();
}

bool LiveWindow::isLive(const QString& hexId) const
{
    return cell(hexId, overview::TickColumn).data(overview::LiveRole).toBool();
}

QStringList LiveWindow::liveRows() const
{
    QStringList live;
    for (const QString& hexId : kLdbs) {
        if (isLive(hexId)) {
            live.append(hexId);
        }
    }
    return live;
}

QString LiveWindow::age(const QString& hexId) const
{
    return cell(hexId, overview::ModeColumn).data(overview::AgeRole).toString();
}

QColor LiveWindow::loopTextColour() const
{
    return cell(kLdbs.at(1), overview::LoopColumn).data(Qt::ForegroundRole).value<QBrush>().color();
}

void LiveWindow::clickRow(const QString& hexId) const
{
    QTest::mouseClick(overview()->viewport(), Qt::LeftButton, Qt::NoModifier,
                      overview()->visualRect(cell(hexId, overview::NameColumn)).center());
}

QString LiveWindow::detail(int row, int column) const
{
    const auto* table = child<QTableView>("deviceDetailTableView");
    return table->model()->index(row, column).data().toString();
}

int LiveWindow::detailsHeight() const
{
    return child<QTableView>("deviceDetailTableView")->verticalHeader()->length();
}

bool LiveWindow::areLampsHatched() const
{
    for (const char* lamp : {"lampALabel", "lampBLabel", "lampCLabel", "lampDLabel"}) {
        static const QImage hatched = lampimage::drawUnknown().toImage();
        if (child<QLabel>(lamp)->pixmap(Qt::ReturnByValue).toImage() != hatched) {
            return false;
        }
    }
    return true;
}

QStringList LiveWindow::causes() const
{
    QStringList texts;
    const auto* list = child<QListWidget>("lampCausesOut");
    for (int row = 0; row < list->count(); ++row) {
        texts.append(list->item(row)->text());
    }
    return texts;
}

QColor LiveWindow::curveColour(const char* name) const
{
    return plotinspection::curveOf(*child<QWidget>("plotContainer"), name)->pen().color();
}

QString LiveWindow::clock()
{
    return QDateTime::fromMSecsSinceEpoch(VirtualTime::kWallStart + VirtualTime::current()->now())
        .toString(QStringLiteral("hh:mm:ss"));
}

void LiveWindow::closeBoxes() const
{
    for (MessageBox* box : boxes()) {
        box->close();
    }
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

QDialog* LiveWindow::dialog(const QString& name) const
{
    const auto dialogs = m_window->findChildren<QDialog*>(name);
    const auto open = std::find_if(dialogs.begin(), dialogs.end(),
                                   [](const QDialog* dialog) { return dialog->isVisible(); });
    return open == dialogs.end() ? nullptr : *open;
}

void LiveWindow::press(const QDialog* dialog, const QString& text)
{
    for (auto* candidate : dialog->findChildren<QPushButton*>()) {
        if (candidate->text().remove(QLatin1Char('&')) == text) {
            candidate->click();
            return;
        }
    }
    QFAIL(qPrintable("no button " + text));
}

bool LiveWindow::answer(const QString& name, const QString& text) const
{
    constexpr int kWholeRun = 1500000; // ms, of fault finding
    if (!waitUntil([&] { return dialog(name) != nullptr; }, kWholeRun)) {
        return false;
    }
    press(dialog(name), text);
    return true;
}

bool LiveWindow::beginRun() const
{
    click("fimTrackingButton");
    return answer("startConfirmationBox", "Yes") && answer("trackingModeBox", "Commissioning");
}

LdbSettings LiveWindow::inLdb(const QString& hexId) const
{
    return *decodeLdbSettings(m_bus->settingsOf(hexId));
}

void UnpaintedWindow::init()
{
    LiveWindow::init();
    qApp->installEventFilter(this);
}

bool UnpaintedWindow::eventFilter(QObject* /*watched*/, QEvent* event)
{
    return event->type() == QEvent::UpdateRequest;
}
