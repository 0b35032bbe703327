#include "app/settingstable/tablereading.h"

#include "app/settingstable/settingstablemodel.h"
#include "serial/link/seriallink.h"

#include <QThread>

#include <algorithm>

namespace {

constexpr double kMicrosecondsPerMillisecond = 1000;
/// The polling asks for names in each round as long as that takes no longer, µs.
constexpr qint64 kLongRound = 5000000;

} // namespace

TableReading::TableReading(SerialLink* link, std::function<qint64()> wallTime,
                           SettingsTableModel* model, QObject* parent)
    : QObject(parent)
    , m_link(link)
    , m_wallTime(std::move(wallTime))
    , m_model(model)
{
    const auto forget = [this] {
        m_askedForName.clear();
    };
    connect(link, &SerialLink::started, this, forget);
    connect(link, &SerialLink::ldbListInitializationStateChange, this, forget);
    connect(link, &SerialLink::exchanged, this, &TableReading::takeExchange);
}

TableReading::~TableReading() = default;

void TableReading::read(const QStringList& hexIds)
{
    Q_ASSERT(QThread::currentThread() == thread());
    if (isOn() || hexIds.isEmpty()) {
        return;
    }
    m_model->awaitReading(hexIds);
    m_reader = std::make_unique<SettingsReader>(m_link, hexIds,
                                                SettingsReader::Extent::SettingsAndFirmware);
    connect(m_reader.get(), &SettingsReader::ldbRead, this, [this](const LdbReading& reading) {
        m_model->takeReading(reading, QDateTime::fromMSecsSinceEpoch(m_wallTime()));
    });
    connect(m_reader.get(), &SettingsReader::progressChanged, this, [this](int left, int total) {
        const auto remaining = m_remaining.at(m_wallTime(), left, total, unnamed());
        emit progressChanged(left, total, remaining.value_or(-1));
    });
    connect(m_reader.get(), &SettingsReader::finished, this, &TableReading::end);
    m_remaining.begin(m_wallTime());
    emit changed();
    emit progressChanged(hexIds.size(), hexIds.size(), -1);
    m_reader->start();
}

void TableReading::takeExchange(const Exchange& exchange)
{
    // With the pauses before the next question, which are part of what the name takes.
    if (m_name) {
        m_remaining.addName(static_cast<double>(exchange.sentAt - m_name->sentAt) /
                            kMicrosecondsPerMillisecond);
        m_name.reset();
    }
    if (exchange.kind == ExchangeKind::Name && !m_askedForName.contains(exchange.hexId)) {
        m_askedForName.insert(exchange.hexId);
        m_name = exchange;
    }
    if (exchange.outcome == ExchangeOutcome::Believed) {
        m_flights[exchange.kind] = exchange.flight;
    }
}

std::optional<int> TableReading::unnamed() const
{
    const QStringList connected = m_link->connectedLdbs();
    qint64 turn = 0;
    for (const ExchangeKind kind :
         {ExchangeKind::Status, ExchangeKind::Name, ExchangeKind::Firmware}) {
        const auto flight = m_flights.find(kind);
        turn += flight == m_flights.end() ? 0 : flight->second;
    }
    if (turn * connected.size() <= kLongRound) {
        return std::nullopt;
    }
    return static_cast<int>(
        std::count_if(connected.begin(), connected.end(),
                      [this](const QString& hexId) { return !m_askedForName.contains(hexId); }));
}

void TableReading::stop()
{
    if (isOn()) {
        m_reader->stop();
    }
}

void TableReading::end()
{
    m_reader.release()->deleteLater(); // it is the sender
    m_model->endReading();
    emit changed();
}
