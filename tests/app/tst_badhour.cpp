#include "tests/app/livewindow.h"
#include "tests/support/testprogram.h"
#include "views/lamps/statusindicators.h"

#include <random>

using namespace generalinformation;

namespace {

const QStringList kSite{QStringLiteral("01"), QStringLiteral("07"), QStringLiteral("0A"),
                        QStringLiteral("5B"), QStringLiteral("A4"), QStringLiteral("FD")};
/// An answer takes so long at most from the LDB to the screen, ms.
constexpr qint64 kOnItsWay = 150;
/// A few rounds of so few LDBs: what an LDB has been saying for longer must be on the screen.
constexpr qint64 kFewRounds = 30000;

/// An LDB as it is, and what it said last.
struct Ldb
{
    struct Told
    {
        QByteArray body;
        qint64 at = 0;
    };

    QByteArray body = TestBus::status();
    bool isPresent = true;
    std::vector<Told> told; ///< the two last

    void tell(qint64 now)
    {
        told.push_back({body, now});
        if (told.size() > 2) {
            told.erase(told.begin());
        }
    }
};

} // namespace

/// An hour on a site on which everything goes wrong: at every second, each cell shows what its LDB
/// said last, or that it is not live. SNIFFER_BAD_HOUR gives another length in minutes.
class TestBadHour : public UnpaintedWindow
{
    Q_OBJECT
private slots:
    void nothingOldLooksLive();

private:
    void begin();
    void setPresent(const QStringList& hexIds, bool isPresent);
    QString happen();
    void check();
    void checkRow(const QModelIndex& idCell);
    void checkLamps();
    bool isMonitored() const;
    QByteArray randomStatus();
    int below(int end) { return static_cast<int>(m_chance() % static_cast<unsigned>(end)); }
    static qint64 now() { return VirtualTime::current()->now(); }

    std::mt19937 m_chance{20260304};
    QMap<QString, Ldb> m_ldbs;
    QStringList m_differences;
    int m_live = 0;    ///< rows times seconds
    int m_notLive = 0; ///< the same
    int m_lost = 0;    ///< the same
};

QByteArray TestBadHour::randomStatus()
{
    static const QList<QByteArray> kStates{"0A", "14", "1E", "FE", "FD"};
    QByteArray body = TestBus::status();
    const auto put = [&body](int position, const QByteArray& digits) {
        body.replace(position, digits.size(), digits);
    };
    put(10, kStates.at(below(kStates.size())));
    put(13, QByteArray::number(below(3)));
    put(15, QByteArray::number(below(2)));
    put(17, QByteArray::number(below(3)));
    put(21, below(4) == 0 ? "1" : "0");
    put(25, QByteArray::number(below(4)));
    put(26, QByteArray::number(0x1000 + below(0xE000), 16).toUpper());
    put(42, QByteArray::number(0x1000 + below(0x6000), 16).toUpper());
    return body;
}

void TestBadHour::begin()
{
    makeBus(kSite);
    for (const QString& hexId : kSite) {
        m_ldbs.insert(hexId, Ldb());
    }
    m_bus->setScript([this](const QByteArray& body) -> std::optional<QByteArray> {
        const auto ldb = m_ldbs.find(QString::fromLatin1(body.mid(2, 2)));
        if (ldb == m_ldbs.end() || !ldb->isPresent || body.mid(4) != "737803") {
            return std::nullopt;
        }
        ldb->tell(now());
        return TestBus::framed(ldb->body);
    });
    makeWindow();
    click("startButton");
}

void TestBadHour::setPresent(const QStringList& hexIds, bool isPresent)
{
    QStringList present;
    for (auto ldb = m_ldbs.begin(); ldb != m_ldbs.end(); ++ldb) {
        if (hexIds.contains(ldb.key())) {
            ldb->isPresent = isPresent;
        }
        if (ldb->isPresent) {
            present.append(ldb.key());
        }
    }
    m_bus->setPresent(present);
}

/// Something does; gives what.
QString TestBadHour::happen()
{
    auto* startButton = button("startButton");
    const QString& hexId = kSite.at(below(kSite.size()));
    Ldb& ldb = m_ldbs[hexId];
    const int what = below(20);
    if (what < 9) {
        ldb.body = randomStatus();
        return QStringLiteral("flip of ") + hexId;
    }
    if (what < 12) {
        setPresent({hexId}, !ldb.isPresent);
        return hexId + (ldb.isPresent ? QStringLiteral(" back") : QStringLiteral(" gone"));
    }
    if (what < 13) {
        // Nobody answers any more, and the port knows nothing of it.
        setPresent(kSite, !ldb.isPresent);
        return ldb.isPresent ? QStringLiteral("all back") : QStringLiteral("silence");
    }
    if (what < 15) {
        m_bus->cut();
        VirtualTime::current()->advance(below(5000));
        m_bus->restore();
        return QStringLiteral("cut");
    }
    if (what < 18) {
        startButton->click();
        return QStringLiteral("Start or Stop");
    }
    if (what < 19) {
        click("reloadDevicesButton");
        return QStringLiteral("reload");
    }
    click("dismissLostButton");
    return QStringLiteral("dismissal");
}

void TestBadHour::check()
{
    const QAbstractItemModel* model = overview()->model();
    for (int row = 0; row < model->rowCount(); ++row) {
        checkRow(model->index(row, overview::IdColumn));
    }
    checkLamps();
    const bool isOff = !button("startButton")->isChecked();
    if (isOff && isMonitored()) {
        m_differences.append(QStringLiteral("%1 s: the strip").arg(now() / 1000));
    }
}

bool TestBadHour::isMonitored() const
{
    return strip().startsWith("Monitored");
}

void TestBadHour::checkRow(const QModelIndex& idCell)
{
    const QString hexId = idCell.data().toString();
    const Ldb& ldb = m_ldbs[hexId];
    const auto shown = [&idCell](int row) {
        return idCell.siblingAtColumn(overview::columnOf(row)).data().toString();
    };
    const bool isLive =
        idCell.siblingAtColumn(overview::TickColumn).data(overview::LiveRole).toBool();
    const bool isLost = shown(ModeRow) == ldbStateText(LdbState::Disconnected);
    const auto differs = [&](const QString& how) {
        m_differences.append(QStringLiteral("%1 s, %2: %3").arg(now() / 1000).arg(hexId, how));
    };
    if (isLost) {
        ++m_lost;
        for (int row = LoopRow; row <= AmplifierRow; ++row) {
            if (shown(row) != kNoValue) {
                differs(QStringLiteral("lost, and a value: ") + shown(row));
            }
        }
        return;
    }
    if (!isLive) {
        ++m_notLive;
        return;
    }
    ++m_live;
    if (!isMonitored()) {
        differs(QStringLiteral("live, and not monitored"));
    }
    const auto says = [&](const QByteArray& body) {
        const auto rows = buildRows(hexId, {}, decodeLdbStatus(body).status, {}, {});
        for (int row = ModeRow; row <= AmplifierRow; ++row) {
            if (shown(row) != generalinformation::text(rows, static_cast<Row>(row))) {
                return false;
            }
        }
        return true;
    };
    const bool isLast = !ldb.told.empty() && says(ldb.told.back().body);
    const bool isOnItsWay = ldb.told.size() > 1 && now() - ldb.told.back().at < kOnItsWay &&
                            says(ldb.told.front().body);
    if (!isLast && !isOnItsWay) {
        differs(QStringLiteral("not what it said last: ") + shown(ModeRow));
    } else if (now() - ldb.told.back().at > kFewRounds) {
        differs(QStringLiteral("live, and silent for long"));
    }
}

/// A dark lamp says that nobody has said for some rounds what would light it.
void TestBadHour::checkLamps()
{
    const auto isDark = [this](const char* lamp) {
        const auto* label = child<QLabel>(lamp);
        return label->accessibleName().endsWith(": off");
    };
    static const QImage hatched = lampimage::drawUnknown().toImage();
    for (const char* lamp : {"lampALabel", "lampBLabel", "lampCLabel", "lampDLabel"}) {
        if (!isMonitored() && child<QLabel>(lamp)->pixmap(Qt::ReturnByValue).toImage() != hatched) {
            m_differences.append(
                QStringLiteral("%1 s: a lamp, and not monitored").arg(now() / 1000));
        }
    }
    const bool isEarthDark = isDark("lampBLabel");
    const bool isServiceDark = isDark("lampALabel");
    for (auto ldb = m_ldbs.cbegin(); ldb != m_ldbs.cend(); ++ldb) {
        const auto& told = ldb->told;
        if (told.size() < 2 || told.front().body != told.back().body || !ldb->isPresent ||
            now() - told.back().at > kFewRounds / 2) {
            continue;
        }
        const LdbStatus status = decodeLdbStatus(told.back().body).status;
        const bool hasEarthFault = (status.earthByte1 & 1U) != 0;
        // It said so twice, but the round in which it did may not be over.
        if (told.back().at - told.front().at < 100 || now() - told.back().at < 5000) {
            continue;
        }
        if ((isEarthDark && hasEarthFault) ||
            (isServiceDark && status.state == LdbState::ServiceMode)) {
            m_differences.append(QStringLiteral("%1 s: a dark lamp, and %2 lights it")
                                     .arg(now() / 1000)
                                     .arg(ldb.key()));
        }
    }
}

void TestBadHour::nothingOldLooksLive()
{
    bool isGiven = false;
    const int given = qEnvironmentVariableIntValue("SNIFFER_BAD_HOUR", &isGiven);
    const int seconds = (isGiven ? given : trials(20, 60)) * 60;
    const ExpectWarning warning("^Port ", ExpectWarning::Need::MayCome);
    begin();
    QString last;
    QMap<QString, int> happened;
    for (int second = 0; second < seconds; ++second) {
        if (below(15) == 0) {
            last = happen();
            ++happened[last.section(QLatin1Char(' '), 0, 0)];
        }
        // The user looks away for some time and comes back.
        auto* startButton = button("startButton");
        if (!startButton->isChecked() && below(20) == 0) {
            startButton->click();
        }
        VirtualTime::current()->advance(1000);
        closeBoxes();
        check();
        if (m_differences.size() > 20) {
            break;
        }
    }
    QVERIFY2(m_differences.isEmpty(), qPrintable(m_differences.join(QLatin1Char('\n'))));
    // It was a bad time, and there was something to compare.
    QVERIFY(happened.contains("cut") && happened.size() > 5);
    QVERIFY2(m_live > seconds && m_notLive > seconds / 4 && m_lost > seconds / 10,
             qPrintable(QStringLiteral("%1 live, %2 not live, %3 lost")
                            .arg(m_live)
                            .arg(m_notLive)
                            .arg(m_lost)));
    qInfo("%d s: %d live, %d not live, %d lost row-seconds", seconds, m_live, m_notLive, m_lost);
}

REGISTER_TEST(TestBadHour, InVirtualTime<QApplication>)

#include "tst_badhour.moc"
