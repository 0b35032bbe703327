#include "app/settingstable/tablereading.h"

#include "app/settingstable/settingstablemodel.h"

#include <QThread>

TableReading::TableReading(SerialLink* link, std::function<qint64()> wallTime,
                           SettingsTableModel* model, QObject* parent)
    : QObject(parent)
    , m_link(link)
    , m_wallTime(std::move(wallTime))
    , m_model(model)
{
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
        emit progressChanged(left, total, m_remaining.at(m_wallTime(), left, total).value_or(-1));
    });
    connect(m_reader.get(), &SettingsReader::finished, this, &TableReading::end);
    m_remaining.begin(m_wallTime());
    emit changed();
    emit progressChanged(hexIds.size(), hexIds.size(), -1);
    m_reader->start();
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
