#pragma once

#include "importexport/importexportdevicesettings.h"
#include "importexport/importplan.h"
#include "serial/link/seriallink.h"
#include "tests/support/sandbox.h"
#include "tests/support/testbus.h"
#include "tests/support/testcase.h"

#include <functional>
#include <memory>

using Status = ImportExportDeviceSettings::ImportExportStatus;

inline const QByteArray kNak("\x15");
inline const QByteArray kSilence("");

// The values of a line that `TestBus::record` does not have already.
inline const QByteArray kValues(";1;1;5;0;1;0;1;30;LDB 1.07\n");

inline QByteArray hex(const char* text)
{
    return QByteArray(text).toHex().toUpper();
}

inline QByteArray line(const char* id, const char* name)
{
    return QByteArray(id) + ";" + name + kValues;
}

/// What `line(...)` must write into an LDB.
inline QList<QByteArray> writesOf(const QByteArray& hexId, const char* name)
{
    const QByteArray start = "FE" + hexId + "73";
    return {start + "6302" + hex(name), start + "631415", start + "63170500", start + "63031E00",
            start + "7806"};
}

/// A bus, a link on it, and one operation that records its statuses.
class Operation
{
public:
    explicit Operation(const QStringList& hexIds, const QByteArray& tuning = {})
        : bus((sandbox.writeTuning(tuning), hexIds))
    {
        useNewJob();
    }
    void useNewJob()
    {
        job = std::make_unique<ImportExportDeviceSettings>(&link);
        QObject::connect(job.get(), &ImportExportDeviceSettings::statusChanged, job.get(),
                         [this](Status status) { statuses.append(status); });
        QObject::connect(job.get(), &ImportExportDeviceSettings::stopped, job.get(),
                         [this] { isStopped = true; });
        QObject::connect(job.get(), &ImportExportDeviceSettings::importPlanned, job.get(), [this] {
            isPlanned = true;
            plan = job->plan();
            if (onPlan) {
                onPlan();
            }
        });
    }
    bool connectLink() { return bus.scan(link); }
    bool runExport(const QString& path)
    {
        job->exportDeviceSettings(path);
        return waitForEnd();
    }
    bool runImport(const QByteArray& content)
    {
        job->importDeviceSettings(fileWith(content));
        return waitForEnd();
    }
    QString fileWith(const QByteArray& content) const
    {
        sandbox.writeFile("in.csv", content);
        return sandbox.path("in.csv");
    }
    bool waitForEnd()
    {
        return waitUntil([this] { return statuses.size() > 1; });
    }
    /// What was posted has been sent by now: one command goes out between every few polls.
    bool settle()
    {
        const int polls = bus.requests().size();
        return waitUntil([&] { return bus.requests().size() > polls + 80; });
    }

    Sandbox sandbox;
    TestBus bus;
    SerialLink link{bus.ports()};
    QList<Status> statuses;
    bool isStopped = false;
    bool isPlanned = false;
    ImportPlan plan; ///< at first
    /// What becomes of the plan of an import; by default the user says yes.
    std::function<void()> onPlan = [this] {
        job->write();
    };
    std::unique_ptr<ImportExportDeviceSettings> job;
};

inline bool isRequest(const QByteArray& body, const char* hexId, const char* request)
{
    return body.mid(2, 2) == hexId && body.mid(4).startsWith(request);
}
