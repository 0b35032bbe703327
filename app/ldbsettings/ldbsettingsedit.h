#pragma once

#include "importexport/settingswriter.h"

#include <set>

/// The state of editing one LDB's settings: the record last received, which is the undo copy, and
/// the values in the editor, of which those the user touched survive the arrival of a new record.
class LdbSettingsEdit
{
public:
    /// Forgets record and edits, as for an LDB that has not answered yet.
    void clear() { *this = {}; }

    bool hasRecord() const { return m_hasRecord; }
    const LdbSettings& record() const { return m_record; }
    /// What the editor shows.
    const LdbSettings& values() const { return m_values; }
    /// What Save writes: the edits, made on the record.
    SettingsChange change() const;

    /// Whether "Enable Open Detection" is ticked. It is so by the record's delay, and by the user
    /// also with a delay of 0.
    bool openDetection() const { return m_openDetection; }

    /// A record of the LDB has come: it becomes the undo copy and fills what was not touched. A
    /// touched field that it has otherwise than the record before is overtaken.
    void receive(const LdbSettings& record);

    /// `values()` are being written. Until the record has been read again, a field that is put back
    /// to the former record's value is an edit as well: the LDB is about to have another one.
    void beginSave() { m_isSaving = true; }
    /// Records from here on were read after the writing, also when the one read for the Save never
    /// comes.
    void endSave() { m_isSaving = false; }

    /// The record that a Save has read before it writes: overtaken is now what it leaves alone.
    void receiveBeforeSave(const LdbSettings& record);

    /// What a Save has written has its replies. Until the record is read again, what the LDB has
    /// accepted counts as known: a further Save must not take it for somebody else's.
    void noteWritten(const SettingsOutcome& outcome);

    /// The record read after a Save. A complete Save ends the edits that it wrote, whatever the
    /// LDB made of them; what an incomplete one did not bring into the LDB stays an edit. Values
    /// edited after the Save stay in both cases.
    void receiveAfterSave(const LdbSettings& record, const LdbSettings& written, bool isComplete);

    /// The user gave this field the value that it has in `values`. A field that is back at the
    /// record's value is no edit. For the delay: while open detection is on.
    void edit(LdbField field, const LdbSettings& values);

    /// Off makes the delay 0; on again brings the former delay back, or the factory default where
    /// there was none.
    void setOpenDetection(bool on);

    /// Back to the record; nothing without one.
    void undo();

    /// Factory defaults, as edits; name and number of FIMs keep their values.
    void setDefaults();

    /// Whether the field differs from the LDB's record.
    bool isChanged(LdbField field) const;
    int changeCount() const;
    /// Whether somebody else has changed this edited field in the LDB since the edit.
    bool isOvertaken(LdbField field) const { return m_overtaken.count(field) > 0; }

private:
    void markOvertaken(const LdbSettings& record);
    void take(const LdbSettings& record);
    void touchIfChanged(LdbField field);
    void takeDelay();

    bool m_hasRecord = false;
    LdbSettings m_record;
    LdbSettings m_basis; ///< the record, with what the LDB has accepted since
    LdbSettings m_values;
    std::set<LdbField> m_touched;
    std::set<LdbField> m_overtaken; ///< some of those
    bool m_isSaving = false;
    bool m_openDetection = false;
    quint16 m_formerDelay = 0; ///< for when open detection is switched on again
};
