<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en_GB" sourcelanguage="en_GB">
<context>
    <name>ActionsPanel</name>
    <message numerus="yes">
        <source>Reset the FIM&apos;s of all %n LDB(s)?</source>
        <translation>
            <numerusform>Reset the FIM&apos;s of %n LDB?</numerusform>
            <numerusform>Reset the FIM&apos;s of all %n LDB&apos;s?</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Restart all %n LDB(s)?</source>
        <translation>
            <numerusform>Restart %n LDB?</numerusform>
            <numerusform>Restart all %n LDB&apos;s?</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Put all %n LDB(s) into service mode?</source>
        <translation>
            <numerusform>Put %n LDB into service mode?</numerusform>
            <numerusform>Put all %n LDB&apos;s into service mode?</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>DeviceSettingsFile</name>
    <message numerus="yes">
        <source>%n field(s) instead of %1</source>
        <translation>
            <numerusform>%n field instead of %1</numerusform>
            <numerusform>%n fields instead of %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>The name does not fit into %n byte(s)</source>
        <translation>
            <numerusform>The name does not fit into %n byte</numerusform>
            <numerusform>The name does not fit into %n bytes</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>FimTracking</name>
    <message numerus="yes">
        <source>Total FIM Count: %n</source>
        <translation>
            <numerusform>Total FIM Count: %n</numerusform>
            <numerusform>Total FIM Count: %n</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>FormerList</name>
    <message numerus="yes">
        <source>%n LDB(s)</source>
        <translation>
            <numerusform>%n LDB</numerusform>
            <numerusform>%n LDB&apos;s</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ImportExportDeviceSettings</name>
    <message numerus="yes">
        <source>and %n more</source>
        <translation>
            <numerusform>and %n more</numerusform>
            <numerusform>and %n more</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Done: %1 of %n LDB(s)</source>
        <translation>
            <numerusform>Done: %1 of %n LDB</numerusform>
            <numerusform>Done: %1 of %n LDBs</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>InstallationForm</name>
    <message numerus="yes">
        <source>LDBs remembered: %n</source>
        <translation>
            <numerusform>LDBs remembered: %n</numerusform>
            <numerusform>LDBs remembered: %n</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>InstallationQuestion</name>
    <message numerus="yes">
        <source>%n LDBs</source>
        <translation>
            <numerusform>%n LDB</numerusform>
            <numerusform>%n LDBs</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>LdbSettingsEditor</name>
    <message numerus="yes">
        <source>The name does not fit into %n byte(s).</source>
        <translation>
            <numerusform>The name does not fit into %n byte.</numerusform>
            <numerusform>The name does not fit into %n bytes.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n unsaved change(s), in bold</source>
        <translation>
            <numerusform>%n unsaved change, in bold</numerusform>
            <numerusform>%n unsaved changes, in bold</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>LeaveQuestion</name>
    <message numerus="yes">
        <source>LDB %1 has %n unsaved change(s).</source>
        <translation>
            <numerusform>LDB %1 has %n unsaved change.</numerusform>
            <numerusform>LDB %1 has %n unsaved changes.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message numerus="yes">
        <source>Available LDB&apos;s: %n.</source>
        <translation>
            <numerusform>Available LDB&apos;s: %n.</numerusform>
            <numerusform>Available LDB&apos;s: %n.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>MonitoringStrip</name>
    <message numerus="yes">
        <source>Monitored: %n LDBs answer.</source>
        <translation>
            <numerusform>Monitored: %n LDB answers.</numerusform>
            <numerusform>Monitored: %n LDBs answer.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>OverviewBar</name>
    <message numerus="yes">
        <source>%n faults hidden</source>
        <translation>
            <numerusform>%n fault hidden</numerusform>
            <numerusform>%n faults hidden</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>RecordedEvent</name>
    <message numerus="yes">
        <source>%1: %n times in %2</source>
        <translation>
            <numerusform>%1: %n time in %2</numerusform>
            <numerusform>%1: %n times in %2</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Not recorded: %n exchanges in %1</source>
        <translation>
            <numerusform>Not recorded: %n exchange in %1</numerusform>
            <numerusform>Not recorded: %n exchanges in %1</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>RecordedWork</name>
    <message numerus="yes">
        <source>%1: %n FIM&apos;s counted</source>
        <translation>
            <numerusform>%1: %n FIM counted</numerusform>
            <numerusform>%1: %n FIM&apos;s counted</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1: %n FIM&apos;s counted, connected</source>
        <translation>
            <numerusform>%1: %n FIM counted, connected</numerusform>
            <numerusform>%1: %n FIM&apos;s counted, connected</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>SetValueDialog</name>
    <message numerus="yes">
        <source>Set for %n LDB(s)</source>
        <translation>
            <numerusform>Set for %n LDB</numerusform>
            <numerusform>Set for %n LDB&apos;s</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>SettingsTable</name>
    <message numerus="yes">
        <source>%n to write</source>
        <translation>
            <numerusform>%n to write</numerusform>
            <numerusform>%n to write</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>SettingsTableWindow</name>
    <message numerus="yes">
        <source>%n LDB(s)</source>
        <translation>
            <numerusform>%n LDB</numerusform>
            <numerusform>%n LDB&apos;s</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n to write</source>
        <translation>
            <numerusform>%n to write</numerusform>
            <numerusform>%n to write</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Reading: %n left</source>
        <translation>
            <numerusform>Reading: %n left</numerusform>
            <numerusform>Reading: %n left</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Reading: %n left, about %1 s</source>
        <translation>
            <numerusform>Reading: %n left, about %1 s</numerusform>
            <numerusform>Reading: %n left, about %1 s</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Writing: %n left</source>
        <translation>
            <numerusform>Writing: %n left</numerusform>
            <numerusform>Writing: %n left</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>The table of settings has %n change(s) that are not written.</source>
        <translation>
            <numerusform>The table of settings has %n change that is not written.</numerusform>
            <numerusform>The table of settings has %n changes that are not written.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>SettingsTransfer</name>
    <message numerus="yes">
        <source>The settings of %n LDB(s) are written.</source>
        <translation>
            <numerusform>The settings of %n LDB are written.</numerusform>
            <numerusform>The settings of %n LDB&apos;s are written.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Written: %n LDB(s)</source>
        <translation>
            <numerusform>Written: %n LDB</numerusform>
            <numerusform>Written: %n LDB&apos;s</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>TableImport</name>
    <message numerus="yes">
        <source>%n left out...</source>
        <translation>
            <numerusform>%n left out...</numerusform>
            <numerusform>%n left out...</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>VisitReport</name>
    <message numerus="yes">
        <source>%1, %n times</source>
        <translation>
            <numerusform>%1, %n time</numerusform>
            <numerusform>%1, %n times</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n LDB&apos;s were found.</source>
        <translation>
            <numerusform>%n LDB was found.</numerusform>
            <numerusform>%n LDB&apos;s were found.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n exchanges from %1 to %2 are not recorded.</source>
        <translation>
            <numerusform>%n exchange from %1 to %2 is not recorded.</numerusform>
            <numerusform>%n exchanges from %1 to %2 are not recorded.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n LDB&apos;s answered every question at once.</source>
        <translation>
            <numerusform>%n LDB answered every question at once.</numerusform>
            <numerusform>%n LDB&apos;s answered every question at once.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>WritePreview</name>
    <message numerus="yes">
        <source>%n change(s)</source>
        <translation>
            <numerusform>%n change</numerusform>
            <numerusform>%n changes</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n LDB(s)</source>
        <translation>
            <numerusform>%n LDB</numerusform>
            <numerusform>%n LDB&apos;s</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Write %n LDB(s)</source>
        <translation>
            <numerusform>Write %n LDB</numerusform>
            <numerusform>Write %n LDB&apos;s</numerusform>
        </translation>
    </message>
</context>
</TS>
