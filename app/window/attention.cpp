#include "app/window/attention.h"

#include "serial/ldb/generalinformation.h"
#include "tracking/faultfinding/alarmsound.h"
#include "views/lamps/lampcondition.h"

#include <QApplication>
#include <QThread>
#include <QWidget>

namespace {

enum Fault : unsigned
{
    EarthFault = 1,
    LoopFault = 2,
    LostFault = 4,
    ModeFault = 8,
};

unsigned faultsOf(const QList<QStringList>& dataList)
{
    const LampLevels levels = lampLevels(dataList);
    unsigned faults = 0;
    if (levels.of(Lamp::B) == FaultLevel::Major) {
        faults |= EarthFault;
    }
    if (levels.of(Lamp::C) == FaultLevel::Major) {
        faults |= LoopFault;
    }
    if (isOut(dataList)) {
        faults |= generalinformation::isLost(dataList) ? LostFault : ModeFault;
    }
    return faults;
}

} // namespace

bool KnownFaults::update(const QString& hexId, const QList<QStringList>& dataList)
{
    unsigned& known = m_faults[hexId];
    const unsigned faults = faultsOf(dataList);
    const bool isNew = (faults & ~known) != 0;
    known = faults;
    return isNew;
}

Attention::Attention(QWidget* window)
    : QObject(window)
    , m_window(window)
    , m_sound(new AlarmSound(this))
{
}

void Attention::processData(const QString& hexId, const QList<QStringList>& dataList)
{
    Q_ASSERT(QThread::currentThread() == thread());
    if (!m_faults.update(hexId, dataList)) {
        return;
    }
    emit faultTold(hexId, dataList);
    if (isUserElsewhere()) {
        QApplication::alert(m_window);
        m_sound->soundOnce();
        emit called();
    }
}

bool Attention::isUserElsewhere() const
{
    // A box of the program over the window counts as the window.
    return m_window->isMinimized() || QApplication::activeWindow() == nullptr;
}
