#include "tests/app/screenset.h"
#include "tests/support/sandbox.h"
#include "tests/support/testprogram.h"
#include "views/header/proxymodelhierachicalheader.h"

#include <QtWidgets>

#include <cstdlib>

namespace {

/// The usual text of 10 points at 96 dots an inch.
constexpr int kTextPixels = 13;
constexpr QSize kRoom(1280, 660);

QString nameOf(const QWidget* widget)
{
    const QString name = widget->objectName();
    return QStringLiteral("%1 %2").arg(QString::fromLatin1(widget->metaObject()->className()),
                                       name.isEmpty() && widget->parentWidget() != nullptr
                                           ? QStringLiteral("in ") +
                                                 widget->parentWidget()->objectName()
                                           : name);
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
        const bool isField = qobject_cast<const QAbstractSpinBox*>(widget) != nullptr ||
                             qobject_cast<const QComboBox*>(widget) != nullptr ||
                             qobject_cast<const QTabBar*>(widget) != nullptr;
        if (textOf(widget).isEmpty() && !isField) {
            continue;
        }
        const QSize need = needOf(widget);
        if (need.width() > widget->width() || need.height() > widget->height()) {
            faults.append(QStringLiteral("%1 needs %2x%3, has %4x%5")
                              .arg(nameOf(widget))
                              .arg(need.width())
                              .arg(need.height())
                              .arg(widget->width())
                              .arg(widget->height()));
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

QStringList overlaps(const QWidget* window)
{
    QStringList faults;
    const QList<QWidget*> shown = shownWidgets(window);
    for (const QWidget* a : shown) {
        for (const QWidget* b : shown) {
            if (a < b && a->parentWidget() == b->parentWidget() && !textOf(a).isEmpty() &&
                a->geometry().intersects(b->geometry())) {
                faults.append(nameOf(a) + " overlaps " + nameOf(b));
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
            faults.append(QStringLiteral("header \"%1\" needs %2, has %3")
                              .arg(index.data().toString())
                              .arg(need)
                              .arg(width));
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
                const bool isCut = need.width() > view->columnWidth(column) ||
                                   (view->wordWrap() && need.height() > view->rowHeight(row));
                if (isCut) {
                    faults.append(QStringLiteral("%1: \"%2\" needs %3x%4, has %5x%6")
                                      .arg(nameOf(view), index.data().toString())
                                      .arg(need.width())
                                      .arg(need.height())
                                      .arg(view->columnWidth(column))
                                      .arg(view->rowHeight(row)));
                }
            }
        }
    }
    return faults;
}

QStringList cutStatus(const QWidget* window)
{
    QStringList faults;
    for (const auto* bar : window->findChildren<QStatusBar*>()) {
        int room = bar->width();
        for (const auto* part :
             bar->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
            if (part->isVisible()) {
                room = std::min(room, part->x());
            }
        }
        const int need = bar->fontMetrics().horizontalAdvance(bar->currentMessage());
        if (need > room - bar->fontMetrics().averageCharWidth()) {
            faults.append(QStringLiteral("status message needs %1 of %2").arg(need).arg(room));
        }
    }
    return faults;
}

QStringList mnemonicFaults(const QWidget* window)
{
    QStringList texts;
    QStringList faults;
    for (const QWidget* widget : shownWidgets(window)) {
        const auto* label = qobject_cast<const QLabel*>(widget);
        if (label == nullptr || label->buddy() != nullptr) {
            texts.append(textOf(widget));
        }
        if (label != nullptr && label->buddy() != nullptr &&
            QKeySequence::mnemonic(label->text()).isEmpty()) {
            faults.append(nameOf(label) + " has no mnemonic");
        }
        if (const auto* tabs = qobject_cast<const QTabBar*>(widget)) {
            for (int tab = 0; tab < tabs->count(); ++tab) {
                texts.append(tabs->tabText(tab));
            }
        }
    }
    QMap<QString, QString> textOfKey;
    for (const QString& text : texts) {
        const QString key = QKeySequence::mnemonic(text).toString();
        if (!key.isEmpty() && textOfKey.contains(key)) {
            faults.append(QStringLiteral("%1: %2, %3").arg(key, text, textOfKey.value(key)));
        }
        textOfKey.insert(key, text);
    }
    return faults;
}

bool isControl(const QWidget* widget)
{
    const auto isOne = [](const QWidget* of, const std::vector<const char*>& classes) {
        return std::any_of(classes.begin(), classes.end(),
                           [of](const char* name) { return of != nullptr && of->inherits(name); });
    };
    const std::vector<const char*> compound{"QAbstractSpinBox", "QComboBox", "QTabBar",
                                            "QLineEdit"};
    return !isOne(widget->parentWidget(), compound) && !isOne(widget, {"QHeaderView"}) &&
           (isOne(widget, compound) || widget->cursor().shape() == Qt::PointingHandCursor ||
            isOne(widget, {"QAbstractButton", "QAbstractItemView", "QwtLegendLabel"}));
}

/// What Tab goes through, in its order; disabled controls may be enabled some time.
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
            widget->objectName().endsWith("TextLabel") ||
            (qobject_cast<const QToolBox*>(widget->parentWidget()) != nullptr &&
             !QKeySequence::mnemonic(textOf(widget)).isEmpty());
        if (isControl(widget) && !chain.contains(widget) && !hasOtherWay) {
            faults.append(nameOf(widget) + " is out of the keyboard's reach");
        }
    }
    for (int i = 0; i < chain.size(); ++i) {
        QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(chain.at(i));
        if (interface == nullptr || interface->text(QAccessible::Name).isEmpty()) {
            faults.append(nameOf(chain.at(i)) + " has no accessible name");
        }
        const QWidget* former = i == 0 ? nullptr : chain.at(i - 1);
        if (former == nullptr || former->parentWidget() != chain.at(i)->parentWidget()) {
            continue;
        }
        const QRect before = former->geometry();
        const QRect after = chain.at(i)->geometry();
        const bool isSameRow = after.top() <= before.bottom() && after.bottom() >= before.top();
        if (isSameRow ? after.left() < before.left() : after.top() < before.top()) {
            faults.append(nameOf(former) + QStringLiteral(" comes before ") + nameOf(chain.at(i)));
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
    void nothingIsWrong_data()
    {
        addColumns<QString, QString>("language", "screen");
        for (const char* language : {"English", "Nederlands", "Francais"}) {
            for (const QString& screen : ScreenSet::names()) {
                QTest::addRow("%s %s", language, qPrintable(screen)) << language << screen;
            }
        }
    }

    void nothingIsWrong()
    {
        QFETCH(QString, language);
        QFETCH(QString, screen);
        QTranslator translator;
        QVERIFY(translator.load(QStringLiteral("TavroCordexSniffer_") + language,
                                QStringLiteral(TRANSLATIONS_FOLDER)));
        QCoreApplication::installTranslator(&translator);
        const QFont formerFont = QApplication::font();
        QFont font = formerFont;
        font.setPixelSize(kTextPixels);
        QApplication::setFont(font);
        const auto restore = qScopeGuard([formerFont] { QApplication::setFont(formerFont); });

        ScreenSet screens(VirtualTime::current());
        QWidget* window = screens.open(screen);
        QVERIFY(window != nullptr);
        QCOMPARE(window->size(), window->size().boundedTo(kRoom));
        const QStringList faults = cutTexts(window) + overlaps(window) + cutCells(window) +
                                   cutStatus(window) + mnemonicFaults(window) +
                                   keyboardFaults(window);
        QVERIFY2(faults.isEmpty(), qPrintable(faults.join('\n')));
    }

    void readableInEveryPalette_data()
    {
        addColumns<QPalette, QString>("palette", "screen");
        for (const QString& screen : ScreenSet::names()) {
            QTest::addRow("light %s", qPrintable(screen)) << QApplication::palette() << screen;
            QTest::addRow("dark %s", qPrintable(screen)) << darkPalette() << screen;
        }
    }

    void readableInEveryPalette()
    {
        QFETCH(QPalette, palette);
        QFETCH(QString, screen);
        const QPalette formerPalette = QApplication::palette();
        QApplication::setPalette(palette);
        const auto restore =
            qScopeGuard([formerPalette] { QApplication::setPalette(formerPalette); });
        ScreenSet screens(VirtualTime::current());
        const QStringList faults = unreadableTexts(screens.open(screen));
        QVERIFY2(faults.isEmpty(), qPrintable(faults.join('\n')));
    }
};

REGISTER_TEST(TestScreens, InVirtualTime<QApplication>)

#include "tst_screens.moc"
