#pragma once

#include "serial/ldb/ldbsettings.h"
#include "serial/ldb/ldbstatus.h"
#include "serial/wire/framecodec.h"
#include "simulator/bus/bussimulator.h"

#include <QtTest>

/// A simulated bus with three boards (0A, 0B and C7) and a clock that stands still unless a test
/// moves it.
class BoardsAlone
{
public:
    explicit BoardsAlone(quint32 seed = 1)
        : m_bus(scenario(), seed, 0)
    {
    }

    qint64 now = 0; ///< ms

    static Scenario scenario()
    {
        const ScenarioReading reading = readScenario(R"({"ldbs": [
            {"address": "0A", "name": "Pump house", "fims": 6},
            {"address": "0B", "fims": 4},
            {"address": "C7", "fims": 9}]})");
        return reading.scenario.value_or(Scenario());
    }

    HeardRequest hear(const QByteArray& body)
    {
        return m_bus.hear(framecodec::createCommand(body), now);
    }
    HeardRequest hearRaw(const QByteArray& frame) { return m_bus.hear(frame, now); }

    /// The bytes of the answer; empty for silence.
    QByteArray ask(const QByteArray& body)
    {
        const HeardRequest hearing = hear(body);
        return hearing.answer ? hearing.answer->bytes : QByteArray();
    }

    LdbStatus status(const QByteArray& hexId = "0A")
    {
        QByteArray answer = ask("FE" + hexId + "737803");
        return framecodec::responseValidation(answer) ? decodeLdbStatus(answer).status
                                                      : LdbStatus::disconnected();
    }
    LdbState state(const QByteArray& hexId = "0A") { return status(hexId).state; }
    QByteArray settingsRecord(const QByteArray& hexId = "0A")
    {
        return ask("FE" + hexId + "737201");
    }

    /// What the trainer's command says, empty when all is well.
    QString command(const char* text)
    {
        const CommandParsing parsing = parseSimulatorCommand(QLatin1String(text));
        return parsing.command ? m_bus.execute(*parsing.command, now) : parsing.error;
    }
    /// Steps with a comma between them: commands of the trainer, and requests to 0A, which are
    /// told by their digits. What is wrong with the first that fails, or nothing.
    QString prepare(const QString& steps)
    {
        for (const QString& step : steps.split(QStringLiteral(", "), Qt::SkipEmptyParts)) {
            const bool isRequest = step.startsWith(QLatin1Char('7'));
            const QString error = !isRequest ? command(qPrintable(step))
                                  : ask("FE0A" + step.toLatin1()) != "\x06" ? step
                                                                            : QString();
            if (!error.isEmpty()) {
                return error;
            }
        }
        return {};
    }

private:
    BusSimulator m_bus;
};
