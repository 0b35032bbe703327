<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en_GB" sourcelanguage="en_GB">
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
</TS>
