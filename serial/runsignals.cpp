#include "serial/runsignals.h"

#include "serial/serialprocessor.h"

RunSignals::RunSignals(const SerialProcessor& processor)
{
    const auto* from = &processor;
    using Processor = SerialProcessor;
    connect(from, &Processor::stopped, this, &RunSignals::stopped);
    connect(from, &Processor::ldbListInitializationStateChange, this,
            &RunSignals::ldbListInitializationStateChange);
    connect(from, &Processor::ldbListInitializationProgress, this,
            &RunSignals::ldbListInitializationProgress);
    connect(from, &Processor::ldbListChanged, this, &RunSignals::ldbListChanged);
    connect(from, &Processor::ldbStateUpdated, this, &RunSignals::ldbStateUpdated);
    connect(from, &Processor::generalInformationUpdated, this,
            &RunSignals::generalInformationUpdated);
    connect(from, &Processor::externalCommandsInQueueUpdated, this,
            &RunSignals::externalCommandsInQueueUpdated);
    connect(from, &Processor::portFailed, this, &RunSignals::portFailed);
    connect(from, &Processor::communicationFailed, this, &RunSignals::communicationFailed);
    connect(from, &Processor::ldbDisconnected, this, &RunSignals::ldbDisconnected);
}
