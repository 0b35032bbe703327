#pragma once

#include "app/settingstable/settingstablemodel.h"
#include "app/settingstable/tablereading.h"
#include "app/settingstable/tablewriting.h"
#include "serial/link/seriallink.h"
#include "tests/support/sandbox.h"
#include "tests/support/testbus.h"
#include "tests/support/testcase.h"

#include <memory>

/// The table of settings without its window, on a bus.
class TableRig
{
public:
    explicit TableRig(const QStringList& hexIds, const LineOptions& options = {})
        : bus(hexIds, options)
        , ldbs(hexIds)
    {
    }

    bool readAll()
    {
        reading.read(ldbs);
        return waitUntil([this] { return !reading.isOn(); }, kLong);
    }
    bool write(const std::vector<LdbChange>& changes)
    {
        return writing.write(changes) && waitUntil([this] { return !writing.isOn(); }, kLong);
    }
    void edit(const QString& hexId, LdbField field, const QVariant& value)
    {
        LdbSettings values;
        QVERIFY(setFieldVariant(field, value, values));
        model.edit({{hexId, field, values}}, "edit");
    }
    const TableRow& row(const QString& hexId) const { return *model.find(hexId); }
    QString shown(const QString& hexId, LdbField field) const
    {
        for (int number = 0; number < model.rowCount(); ++number) {
            if (model.index(number, 0).data().toString() == hexId) {
                return model.index(number, SettingsTableModel::columnOf(field)).data().toString();
            }
        }
        return {};
    }
    /// What the board has.
    LdbSettings boards(const QString& hexId)
    {
        return decodeLdbSettings(bus.settingsOf(hexId)).value();
    }

    static constexpr int kLong = 600000; ///< ms

    Sandbox sandbox;
    TestBus bus;
    QStringList ldbs;
    SerialLink link{bus.ports()};
    SettingsTableModel model;
    TableReading reading{&link, bus.ports().wallTime, &model};
    std::unique_ptr<SettingsBatch> batch;
    TableWriting writing{[this](std::vector<LdbChange> changes) {
                             batch = std::make_unique<SettingsBatch>(&link, std::move(changes));
                             batch->start();
                             return batch.get();
                         },
                         bus.ports().wallTime, &model};
};
