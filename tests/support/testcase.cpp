#include "tests/support/testcase.h"

#include "tests/support/virtualtime.h"

#include <QDeadlineTimer>
#include <QMutex>
#include <QMutexLocker>
#include <QStringList>
#include <QTimer>

namespace {

// Messages come from any thread, so what they leave behind is guarded.
QMutex guard;
QList<ExpectWarning*> expectations;
QStringList unexpected;
QtMessageHandler previousHandler = nullptr;

// The offscreen platform says this of every window; it tells nothing about the program.
bool isPlatformNoise(const QString& message)
{
    return message.startsWith(QLatin1String("This plugin does not support"));
}

void recordMessage(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    if ((type == QtWarningMsg || type == QtCriticalMsg) && !isPlatformNoise(message)) {
        const QMutexLocker lock(&guard);
        for (ExpectWarning* expectation : qAsConst(expectations)) {
            if (expectation->matches(message)) {
                return;
            }
        }
        unexpected.append(message);
    }
    previousHandler(type, context, message);
}

} // namespace

void TestCase::init()
{
    m_sandbox.emplace();
    const QMutexLocker lock(&guard);
    unexpected.clear();
    previousHandler = qInstallMessageHandler(recordMessage);
}

void TestCase::cleanup()
{
    m_sandbox.reset();
    qInstallMessageHandler(previousHandler);
    const QMutexLocker lock(&guard);
    const QStringList messages = unexpected;
    unexpected.clear();
    if (!messages.isEmpty() && !QTest::currentTestFailed()) {
        QFAIL(qPrintable(QStringLiteral("unexpected: ") + messages.join(QLatin1Char('\n'))));
    }
}

ExpectWarning::ExpectWarning(const char* pattern, Need need)
    : m_pattern(QString::fromLatin1(pattern))
    , m_seen(need == Need::MayCome)
{
    const QMutexLocker lock(&guard);
    expectations.append(this);
}

ExpectWarning::~ExpectWarning()
{
    const QMutexLocker lock(&guard);
    expectations.removeAll(this);
    if (!m_seen) {
        unexpected.append(QStringLiteral("no warning matched ") + m_pattern.pattern());
    }
}

bool ExpectWarning::matches(const QString& message)
{
    const bool matched = m_pattern.match(message).hasMatch();
    m_seen = m_seen || matched;
    return matched;
}

bool waitUntil(const std::function<bool()>& condition, int timeoutMs)
{
    if (auto* time = qobject_cast<VirtualTime*>(QAbstractEventDispatcher::instance())) {
        return time->advanceUntil(condition, timeoutMs);
    }
    const QDeadlineTimer deadline(timeoutMs);
    QTimer wakeUp; // the condition may come true without an event in this thread
    constexpr int kLookEveryMs = 10;
    wakeUp.start(kLookEveryMs);
    while (!condition()) {
        if (deadline.hasExpired()) {
            return false;
        }
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    return true;
}

int trials(int usual, int all)
{
    return qEnvironmentVariableIsSet("SNIFFER_ALL_TRIALS") ? all : usual;
}
