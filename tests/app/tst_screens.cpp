#include "tests/app/screenset.h"
#include "tests/support/sandbox.h"
#include "tests/support/testcase.h"
#include "tests/support/virtualtime.h"
#include "views/proxymodelhierachicalheader.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QScopeGuard>
#include <QStyledItemDelegate>
#include <QTabBar>
#include <QTableView>
#include <QToolBox>
#include <QTranslator>

#include <algorithm>
#include <cstdlib>

namespace {

VirtualTime* virtualTime = nullptr;

/// The usual text of 10 points at 96 dots an inch.
constexpr int kTextPixels = 13;
constexpr QSize kRoom(1366, 700);
/// Between what follows each other in a sum of faults.
const QString kSumSign = QStringLiteral(" + ");

QString nameOf(const QWidget* widget)
{
    const QString outer =
        widget->parentWidget() == nullptr ? QString() : widget->parentWidget()->objectName();
    return QStringLiteral("%1 \"%2\" in \"%3\"")
        .arg(QString::fromLatin1(widget->metaObject()->className()), widget->objectName(), outer);
}

/// What there is too little room for.
QString misfit(const QString& what, QSize need, QSize room)
{
    return QStringLiteral("%1 needs %2x%3, has %4x%5")
        .arg(what)
        .arg(need.width())
        .arg(need.height())
        .arg(room.width())
        .arg(room.height());
}

bool isAny(const QObject* object, std::initializer_list<const char*> classes)
{
    return std::any_of(classes.begin(), classes.end(),
                       [object](const char* name) { return object->inherits(name); });
}

QList<QWidget*> shownWidgets(const QWidget* window)
{
    QList<QWidget*> shown;
    for (auto* widget : window->findChildren<QWidget*>()) {
        if (widget->isVisible() && widget->window() == window) {
            shown.append(widget);
        }
    }
    return shown;
}

/// The text of a widget that has one of its own; none for those without.
QString textOf(const QWidget* widget)
{
    if (const auto* label = qobject_cast<const QLabel*>(widget)) {
        return label->text();
    }
    if (const auto* button = qobject_cast<const QAbstractButton*>(widget)) {
        return button->text();
    }
    if (const auto* group = qobject_cast<const QGroupBox*>(widget)) {
        return group->title();
    }
    return {};
}

QSize needOf(const QWidget* widget)
{
    const auto* label = qobject_cast<const QLabel*>(widget);
    if (label != nullptr && label->wordWrap()) {
        return {label->minimumSizeHint().width(), label->heightForWidth(label->width())};
    }
    if (qobject_cast<const QGroupBox*>(widget) != nullptr) {
        return {widget->minimumSizeHint().width(), 0};
    }
    return widget->sizeHint();
}

// --- Each gives what is wrong on a window ---

QStringList cutTexts(const QWidget* window)
{
    QStringList faults;
    for (const QWidget* widget : shownWidgets(window)) {
        const bool isField = isAny(widget, {"QAbstractSpinBox", "QComboBox", "QTabBar"});
        if (textOf(widget).isEmpty() && !isField) {
            continue;
        }
        const QSize need = needOf(widget);
        if (need.width() > widget->width() || need.height() > widget->height()) {
            faults.append(misfit(nameOf(widget), need, widget->size()));
        }
        for (const QWidget* outer = widget->parentWidget(); outer != nullptr && widget != window;
             outer = outer->parentWidget()) {
            const QRect inside(widget->mapTo(outer, QPoint()), widget->size());
            if (inside.left() < 0 || inside.right() >= outer->width()) {
                faults.append(nameOf(widget) + QStringLiteral(" is cut by ") + nameOf(outer));
            }
            if (outer == window) {
                break;
            }
        }
    }
    return faults;
}

/// Of a header with cells over several columns.
QStringList cutHeaders(const QTableView* view)
{
    const auto* tree = qobject_cast<const QAbstractItemModel*>(
        view->model()
            ->data(QModelIndex(), ProxyModelHierachicalHeader::HorizontalHeaderRole)
            .value<QObject*>());
    if (tree == nullptr) {
        return {};
    }
    QStringList faults;
    const QHeaderView* header = view->horizontalHeader();
    QFont bold = header->font();
    bold.setBold(true);
    const int margin = header->style()->pixelMetric(QStyle::PM_HeaderMargin);
    const int mark = header->style()->pixelMetric(QStyle::PM_HeaderMarkSize);
    int column = 0;
    for (int cell = 0; cell < tree->columnCount(); ++cell) {
        const QModelIndex index = tree->index(0, cell);
        int need = QFontMetrics(bold).horizontalAdvance(index.data().toString()) + 2 * margin;
        need += header->sortIndicatorSection() == column ? mark + margin : 0;
        int width = 0;
        bool isShown = false;
        for (int leaf = 0; leaf < std::max(1, tree->columnCount(index)); ++leaf, ++column) {
            width += header->sectionSize(column);
            isShown = isShown || !header->isSectionHidden(column);
        }
        if (isShown && need > width) {
            faults.append(misfit(index.data().toString(), {need, 0}, {width, 0}));
        }
    }
    return faults;
}

QStringList cutCells(const QWidget* window)
{
    QStringList faults;
    for (const auto* view : window->findChildren<QTableView*>()) {
        faults += cutHeaders(view);
        const auto* delegate = static_cast<const QStyledItemDelegate*>(view->itemDelegate());
        for (int column = 0; column < view->model()->columnCount(); ++column) {
            if (view->isColumnHidden(column)) {
                continue;
            }
            for (int row = 0; row < view->model()->rowCount(); ++row) {
                const QModelIndex index = view->model()->index(row, column);
                QStyleOptionViewItem option;
                option.initFrom(view);
                option.font = view->font();
                option.fontMetrics = view->fontMetrics();
                option.rect = view->visualRect(index);
                if (view->wordWrap()) {
                    option.features |= QStyleOptionViewItem::WrapText;
                }
                const QSize need = delegate->sizeHint(option, index);
                // Of a sum that is cut in one line the tool tip and the details show the rest.
                const bool isCut = view->wordWrap()
                                       ? need.height() > view->rowHeight(row)
                                       : need.width() > view->columnWidth(column) - 1 &&
                                             !index.data().toString().contains(kSumSign);
                if (isCut) {
                    faults.append(misfit(index.data().toString(), need,
                                         {view->columnWidth(column), view->rowHeight(row)}));
                }
            }
        }
    }
    return faults;
}

bool isControl(const QWidget* widget)
{
    const bool isInner =
        widget->parentWidget() != nullptr &&
        isAny(widget->parentWidget(), {"QAbstractSpinBox", "QComboBox", "QTabBar"});
    return !isInner && !widget->inherits("QHeaderView") &&
           (isAny(widget, {"QAbstractButton", "QLineEdit", "QAbstractSpinBox", "QComboBox",
                           "QAbstractItemView", "QTabBar", "QwtLegendLabel"}) ||
            widget->cursor().shape() == Qt::PointingHandCursor);
}

/// What Tab goes through; disabled controls may be enabled some time.
QList<QWidget*> tabChain(QWidget* window)
{
    QList<QWidget*> chain;
    for (QWidget* widget = window->nextInFocusChain(); widget != window;
         widget = widget->nextInFocusChain()) {
        if ((widget->focusPolicy() & Qt::TabFocus) != 0 && widget->isVisible() &&
            widget->window() == window && isControl(widget)) {
            chain.append(widget);
        }
    }
    return chain;
}

QStringList keyboardFaults(QWidget* window)
{
    QStringList faults;
    const QList<QWidget*> chain = tabChain(window);
    for (QWidget* widget : shownWidgets(window)) {
        // A lamp's text does what its lamp does; a tool box's tabs take no focus by themselves.
        const bool hasOtherWay =
            widget->objectName().endsWith(QStringLiteral("TextLabel")) ||
            (qobject_cast<const QToolBox*>(widget->parentWidget()) != nullptr &&
             !QKeySequence::mnemonic(textOf(widget)).isEmpty());
        if (isControl(widget) && !chain.contains(widget) && !hasOtherWay) {
            faults.append(nameOf(widget) + QStringLiteral(" is out of the keyboard's reach"));
        }
    }
    for (QWidget* widget : chain) {
        QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(widget);
        if (interface == nullptr || interface->text(QAccessible::Name).isEmpty()) {
            faults.append(nameOf(widget) + QStringLiteral(" has no accessible name"));
        }
    }
    return faults;
}

/// Texts that hardly differ from the ground they stand on.
QStringList unreadableTexts(QWidget* window)
{
    constexpr int kLeastContrast = 80; // of 255
    QStringList faults;
    const QImage picture = window->grab().toImage();
    for (const QWidget* widget : shownWidgets(window)) {
        const auto* label = qobject_cast<const QLabel*>(widget);
        const bool hasText = label != nullptr && !label->text().isEmpty();
        if (!widget->isEnabled() || !(hasText || widget->inherits("QwtScaleWidget"))) {
            continue;
        }
        const QPoint margin = widget->mapTo(window, QPoint(widget->width() / 2, 0));
        const QColor ground = picture.pixelColor(margin * picture.devicePixelRatio());
        const QColor text = widget->palette().color(widget->foregroundRole());
        if (std::abs(qGray(ground.rgb()) - qGray(text.rgb())) < kLeastContrast) {
            faults.append(
                QStringLiteral("%1: %2 on %3").arg(nameOf(widget), text.name(), ground.name()));
        }
    }
    return faults;
}

QPalette darkPalette()
{
    constexpr QRgb kGround = qRgb(53, 53, 53);
    QPalette palette{QColor(kGround), QColor(kGround)};
    palette.setColor(QPalette::Base, QColor(qRgb(35, 35, 35)));
    palette.setColor(QPalette::AlternateBase, QColor(kGround));
    for (const QPalette::ColorRole role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(role, Qt::white);
    }
    return palette;
}

} // namespace

class TestScreens : public TestCase
{
    Q_OBJECT
private slots:
    void nothingIsWrong_data();
    void nothingIsWrong();
    void readableInEveryPalette_data();
    void readableInEveryPalette();
};

void TestScreens::nothingIsWrong_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("screen");
    for (const char* language : {"English", "Nederlands", "Francais"}) {
        for (const QString& screen : ScreenSet::names()) {
            QTest::addRow("%s %s", language, qPrintable(screen))
                << QString::fromLatin1(language) << screen;
        }
    }
}

void TestScreens::nothingIsWrong()
{
    QFETCH(QString, language);
    QFETCH(QString, screen);
    const Sandbox sandbox;
    QTranslator translator;
    QVERIFY(translator.load(QStringLiteral("TavroCordexSniffer_") + language,
                            QStringLiteral(TRANSLATIONS_FOLDER)));
    QCoreApplication::installTranslator(&translator);
    const QFont formerFont = QApplication::font();
    QFont font = formerFont;
    font.setPixelSize(kTextPixels);
    QApplication::setFont(font);
    const auto restore = qScopeGuard([formerFont] { QApplication::setFont(formerFont); });

    ScreenSet screens(virtualTime);
    QWidget* window = screens.open(screen);
    QVERIFY(window != nullptr);
    QCOMPARE(window->size(), window->size().boundedTo(kRoom));
    const QStringList faults = cutTexts(window) + cutCells(window) + keyboardFaults(window);
    QVERIFY2(faults.isEmpty(), qPrintable(faults.join(QLatin1Char('\n'))));
}

void TestScreens::readableInEveryPalette_data()
{
    QTest::addColumn<QPalette>("palette");
    QTest::addColumn<QString>("screen");
    for (const QString& screen : ScreenSet::names()) {
        QTest::addRow("light %s", qPrintable(screen)) << QApplication::palette() << screen;
        QTest::addRow("dark %s", qPrintable(screen)) << darkPalette() << screen;
    }
}

void TestScreens::readableInEveryPalette()
{
    QFETCH(QPalette, palette);
    QFETCH(QString, screen);
    const Sandbox sandbox;
    const QPalette formerPalette = QApplication::palette();
    QApplication::setPalette(palette);
    const auto restore = qScopeGuard([formerPalette] { QApplication::setPalette(formerPalette); });
    ScreenSet screens(virtualTime);
    const QStringList faults = unreadableTexts(screens.open(screen));
    QVERIFY2(faults.isEmpty(), qPrintable(faults.join(QLatin1Char('\n'))));
}

int main(int argc, char* argv[])
{
    virtualTime = VirtualTime::install();
    const QApplication application(argc, argv);
    TestScreens test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_screens.moc"
