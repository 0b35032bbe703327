<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="nl_NL" sourcelanguage="en_GB">
<context>
    <name>AboutDialog</name>
    <message>
        <source>About %1</source>
        <translation>Over %1</translation>
    </message>
    <message>
        <source>The %1 application has been developed with the framework Qt 5.5.0
Qt is licenced under the LGPL licence (2.1)</source>
        <translation>De toepassing %1 is ontwikkeld met het framework Qt 5.5.0
Qt valt onder de LGPL-licentie (2.1)</translation>
    </message>
    <message>
        <source>The %1 application is based in part on the work of the Qwt project.
The Qwt source code can be found at https://qwt.sourceforge.io</source>
        <translation>De toepassing %1 is deels gebaseerd op het werk van het Qwt-project.
De broncode van Qwt is te vinden op https://qwt.sourceforge.io</translation>
    </message>
    <message>
        <source>A copy of the licenses can be found in the application licenses folder. Contact your distributor for source code access related to the LGPL licenses.</source>
        <translation>Een kopie van de licenties staat in de map met licenties van de toepassing. Neem contact op met uw leverancier voor toegang tot de broncode die onder de LGPL-licenties valt.</translation>
    </message>
    <message>
        <source>Copyright %1. All rights reserved.</source>
        <translation>Copyright %1. Alle rechten voorbehouden.</translation>
    </message>
    <message>
        <source>THIS PROGRAM IS PROVIDED BY %1 AS IT IS, WITHOUT WARRANTY OF ANY KIND, EXPRESSED OR IMPLIED, INCLUDING THE WARRANTIES OF MERCHANTABILITY AND OF FITNESS FOR A PARTICULAR PURPOSE. %1 IS NOT LIABLE FOR ANY DAMAGE ARISING FROM ITS USE.</source>
        <translation>DIT PROGRAMMA WORDT DOOR %1 GELEVERD ZOALS HET IS, ZONDER ENIGE GARANTIE, UITDRUKKELIJK OF STILZWIJGEND, WAARONDER DE GARANTIES VAN VERKOOPBAARHEID EN GESCHIKTHEID VOOR EEN BEPAALD DOEL. %1 IS NIET AANSPRAKELIJK VOOR SCHADE DIE UIT HET GEBRUIK ERVAN VOORTVLOEIT.</translation>
    </message>
</context>
<context>
    <name>DeviceDetailTable</name>
    <message>
        <source>ID</source>
        <translation>ID</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Naam</translation>
    </message>
    <message>
        <source>Mode</source>
        <translation>Modus</translation>
    </message>
    <message>
        <source>Loop</source>
        <translation>Lus</translation>
    </message>
    <message>
        <source>Primary Port</source>
        <translation>Primaire poort</translation>
    </message>
    <message>
        <source>Secondary Port</source>
        <translation>Secundaire poort</translation>
    </message>
    <message>
        <source>Earth</source>
        <translation>Aarde</translation>
    </message>
    <message>
        <source>Amplifier</source>
        <translation>Versterker</translation>
    </message>
</context>
<context>
    <name>DeviceOverviewTable</name>
    <message>
        <source>ID</source>
        <translation>ID</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Naam</translation>
    </message>
    <message>
        <source>Mode</source>
        <translation>Modus</translation>
    </message>
    <message>
        <source>Loop</source>
        <translation>Lus</translation>
    </message>
    <message>
        <source>Primary Port</source>
        <translation>Primaire poort</translation>
    </message>
    <message>
        <source>Secondary Port</source>
        <translation>Secundaire poort</translation>
    </message>
    <message>
        <source>Earth</source>
        <translation>Aarde</translation>
    </message>
    <message>
        <source>Amplifier</source>
        <translation>Versterker</translation>
    </message>
    <message>
        <source>%1, selected</source>
        <translation>%1, geselecteerd</translation>
    </message>
</context>
<context>
    <name>DeviceSettingsFile</name>
    <message numerus="yes">
        <source>%n field(s) instead of %1</source>
        <translation>
            <numerusform>%n veld in plaats van %1</numerusform>
            <numerusform>%n velden in plaats van %1</numerusform>
        </translation>
    </message>
    <message>
        <source>It is not clear which fields belong to the name</source>
        <translation>Het is niet duidelijk welke velden bij de naam horen</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is neither 0 nor 1</source>
        <translation>&quot;%1&quot; is geen 0 en geen 1</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no number from 0 to %2</source>
        <translation>&quot;%1&quot; is geen getal van 0 tot en met %2</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is 1, but &quot;%2&quot; is 0</source>
        <translation>&quot;%1&quot; is 1, maar &quot;%2&quot; is 0</translation>
    </message>
    <message>
        <source>The name stands in quotation marks</source>
        <translation>De naam staat tussen aanhalingstekens</translation>
    </message>
    <message>
        <source>The name has characters that cannot be read</source>
        <translation>De naam bevat tekens die niet gelezen kunnen worden</translation>
    </message>
    <message numerus="yes">
        <source>The name does not fit into %n byte(s)</source>
        <translation>
            <numerusform>De naam past niet in %n byte</numerusform>
            <numerusform>De naam past niet in %n bytes</numerusform>
        </translation>
    </message>
    <message>
        <source>The ID has more than one line</source>
        <translation>Het ID heeft meer dan één regel</translation>
    </message>
    <message>
        <source>ID</source>
        <translation>ID</translation>
    </message>
    <message>
        <source>Device Name</source>
        <translation>Apparaatnaam</translation>
    </message>
    <message>
        <source>General Fault Output</source>
        <translation>Algemene storingsuitgang</translation>
    </message>
    <message>
        <source>Open Detection</source>
        <translation>Onderbrekingsdetectie</translation>
    </message>
    <message>
        <source>Open Detection Delay</source>
        <translation>Vertraging onderbrekingsdetectie</translation>
    </message>
    <message>
        <source>Earth Leakage Detection</source>
        <translation>Aardlekdetectie</translation>
    </message>
    <message>
        <source>Earth Wire Open Detection</source>
        <translation>Detectie aarddraad onderbroken</translation>
    </message>
    <message>
        <source>Start In Service Mode</source>
        <translation>Starten in servicemodus</translation>
    </message>
    <message>
        <source>Amplifier Detection</source>
        <translation>Versterkerdetectie</translation>
    </message>
    <message>
        <source>Number of FIM&apos;s</source>
        <translation>Aantal FIM&apos;s</translation>
    </message>
    <message>
        <source>Firmware Id</source>
        <translation>Firmware-ID</translation>
    </message>
</context>
<context>
    <name>FileLogger</name>
    <message>
        <source>Device Id</source>
        <translation>Apparaat-ID</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Naam</translation>
    </message>
    <message>
        <source>Mode</source>
        <translation>Modus</translation>
    </message>
    <message>
        <source>Loop</source>
        <translation>Lus</translation>
    </message>
    <message>
        <source>Primary Port (V)</source>
        <translation>Primaire poort (V)</translation>
    </message>
    <message>
        <source>Primary Port (mA)</source>
        <translation>Primaire poort (mA)</translation>
    </message>
    <message>
        <source>Secondary Port (V)</source>
        <translation>Secundaire poort (V)</translation>
    </message>
    <message>
        <source>Secondary Port (mA)</source>
        <translation>Secundaire poort (mA)</translation>
    </message>
    <message>
        <source>Earth</source>
        <translation>Aarde</translation>
    </message>
    <message>
        <source>Amplifier</source>
        <translation>Versterker</translation>
    </message>
    <message>
        <source>Timestamp</source>
        <translation>Tijdstip</translation>
    </message>
    <message>
        <source>No file name is given.</source>
        <translation>Er is geen bestandsnaam opgegeven.</translation>
    </message>
    <message>
        <source>The file has been removed.</source>
        <translation>Het bestand is verwijderd.</translation>
    </message>
</context>
<context>
    <name>FimTracking</name>
    <message>
        <source>Earth Leakage Detected!
</source>
        <translation>Aardlek gedetecteerd!
</translation>
    </message>
    <message>
        <source>Loop DC Leakage Detected!
</source>
        <translation>DC-lek in de lus gedetecteerd!
</translation>
    </message>
    <message>
        <source>Primary Side approximately at FIM: %1</source>
        <translation>Primaire zijde ongeveer bij FIM: %1</translation>
    </message>
    <message>
        <source>Secondary Side approximately at FIM: %1</source>
        <translation>Secundaire zijde ongeveer bij FIM: %1</translation>
    </message>
    <message>
        <source>Earth Leakage Detected: approximately at FIM: %1</source>
        <translation>Aardlek gedetecteerd: ongeveer bij FIM: %1</translation>
    </message>
    <message>
        <source>Loop DC Leakage Detected: approximately at FIM: %1</source>
        <translation>DC-lek in de lus gedetecteerd: ongeveer bij FIM: %1</translation>
    </message>
    <message>
        <source>Commissioning</source>
        <translation>Inbedrijfstelling</translation>
    </message>
    <message>
        <source>Fault Finding</source>
        <translation>Fout zoeken</translation>
    </message>
    <message>
        <source>Timeout: Open Detected</source>
        <translation>Time-out: onderbreking gedetecteerd</translation>
    </message>
    <message>
        <source>Timeout: Short Detected</source>
        <translation>Time-out: kortsluiting gedetecteerd</translation>
    </message>
    <message>
        <source>Timeout: Side Connected</source>
        <translation>Time-out: zijde verbonden</translation>
    </message>
    <message>
        <source>Primary side open detected.</source>
        <translation>Onderbreking aan primaire zijde gedetecteerd.</translation>
    </message>
    <message>
        <source>Secondary side open detected.</source>
        <translation>Onderbreking aan secundaire zijde gedetecteerd.</translation>
    </message>
    <message>
        <source>Primary side short detected.</source>
        <translation>Kortsluiting aan primaire zijde gedetecteerd.</translation>
    </message>
    <message>
        <source>Secondary side short detected.</source>
        <translation>Kortsluiting aan secundaire zijde gedetecteerd.</translation>
    </message>
    <message>
        <source>Primary side is connected.</source>
        <translation>Primaire zijde is verbonden.</translation>
    </message>
    <message>
        <source>Secondary side is connected.</source>
        <translation>Secundaire zijde is verbonden.</translation>
    </message>
    <message>
        <source>Loop is connected</source>
        <translation>Lus is verbonden</translation>
    </message>
    <message>
        <source>Primary side open detected</source>
        <translation>Onderbreking aan primaire zijde gedetecteerd</translation>
    </message>
    <message>
        <source>Primary side short detected</source>
        <translation>Kortsluiting aan primaire zijde gedetecteerd</translation>
    </message>
    <message>
        <source>Secondary side open detected</source>
        <translation>Onderbreking aan secundaire zijde gedetecteerd</translation>
    </message>
    <message>
        <source>Both sides open detected</source>
        <translation>Onderbreking aan beide zijden gedetecteerd</translation>
    </message>
    <message>
        <source>Primary side short detected and Secondary side open detected.</source>
        <translation>Kortsluiting aan primaire zijde en onderbreking aan secundaire zijde gedetecteerd.</translation>
    </message>
    <message>
        <source>Secondary side short detected</source>
        <translation>Kortsluiting aan secundaire zijde gedetecteerd</translation>
    </message>
    <message>
        <source>Primary side open detected and Secondary side short detected.</source>
        <translation>Onderbreking aan primaire zijde en kortsluiting aan secundaire zijde gedetecteerd.</translation>
    </message>
    <message>
        <source>Both sides short detected</source>
        <translation>Kortsluiting aan beide zijden gedetecteerd</translation>
    </message>
    <message numerus="yes">
        <source>Total FIM Count: %n</source>
        <translation>
            <numerusform>Totaal aantal FIM&apos;s: %n</numerusform>
            <numerusform>Totaal aantal FIM&apos;s: %n</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>GeneralInformation</name>
    <message>
        <source>Short</source>
        <translation>Kortsluiting</translation>
    </message>
    <message>
        <source>Short(memory)</source>
        <translation>Kortsluiting(geheugen)</translation>
    </message>
</context>
<context>
    <name>ImportExportDeviceSettings</name>
    <message numerus="yes">
        <source>and %n more</source>
        <translation>
            <numerusform>en nog %n</numerusform>
            <numerusform>en nog %n</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>LampCauses</name>
    <message>
        <source>Amplifier: %1</source>
        <translation>Versterker: %1</translation>
    </message>
</context>
<context>
    <name>LampPages</name>
    <message>
        <source>No LDB</source>
        <translation>Geen LDB</translation>
    </message>
</context>
<context>
    <name>LdbStatus</name>
    <message>
        <source>Booting</source>
        <translation>Opstarten</translation>
    </message>
    <message>
        <source>Quiescent</source>
        <translation>Rust</translation>
    </message>
    <message>
        <source>Measuring</source>
        <translation>Meten</translation>
    </message>
    <message>
        <source>Service mode</source>
        <translation>Servicemodus</translation>
    </message>
    <message>
        <source>Fim reset executing</source>
        <translation>Fim-reset bezig</translation>
    </message>
    <message>
        <source>Fim reset failed</source>
        <translation>Fim-reset mislukt</translation>
    </message>
    <message>
        <source>Fim reset done</source>
        <translation>Fim-reset gereed</translation>
    </message>
    <message>
        <source>Factory reset executing</source>
        <translation>Fabrieksreset bezig</translation>
    </message>
    <message>
        <source>Factory reset failed</source>
        <translation>Fabrieksreset mislukt</translation>
    </message>
    <message>
        <source>Factory reset done</source>
        <translation>Fabrieksreset gereed</translation>
    </message>
    <message>
        <source>Check Settings</source>
        <translation>Controleer instellingen</translation>
    </message>
    <message>
        <source>Fault</source>
        <translation>Storing</translation>
    </message>
    <message>
        <source>Disconnected</source>
        <translation>Niet verbonden</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>Ok</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Open</translation>
    </message>
    <message>
        <source>Open(memory)</source>
        <translation>Open(geheugen)</translation>
    </message>
    <message>
        <source>Short</source>
        <translation>Kortsluiting</translation>
    </message>
    <message>
        <source>Short + Open(memory)</source>
        <translation>Kortsluiting + Open(geheugen)</translation>
    </message>
    <message>
        <source>Short(memory)</source>
        <translation>Kortsluiting(geheugen)</translation>
    </message>
    <message>
        <source>Short(memory) + Open</source>
        <translation>Kortsluiting(geheugen) + Open</translation>
    </message>
    <message>
        <source>Short(memory) + Open(memory)</source>
        <translation>Kortsluiting(geheugen) + Open(geheugen)</translation>
    </message>
    <message>
        <source>DC Leakage</source>
        <translation>DC-lek</translation>
    </message>
    <message>
        <source>Open + DC Leakage</source>
        <translation>Open + DC-lek</translation>
    </message>
    <message>
        <source>Open(memory) + DC Leakage</source>
        <translation>Open(geheugen) + DC-lek</translation>
    </message>
    <message>
        <source>Short + DC Leakage</source>
        <translation>Kortsluiting + DC-lek</translation>
    </message>
    <message>
        <source>Short + Open(memory) + DC Leakage</source>
        <translation>Kortsluiting + Open(geheugen) + DC-lek</translation>
    </message>
    <message>
        <source>Short(memory) + DC Leakage</source>
        <translation>Kortsluiting(geheugen) + DC-lek</translation>
    </message>
    <message>
        <source>Short(memory) + Open + DC Leakage</source>
        <translation>Kortsluiting(geheugen) + Open + DC-lek</translation>
    </message>
    <message>
        <source>Short(memory) + Open(memory) + DC Leakage</source>
        <translation>Kortsluiting(geheugen) + Open(geheugen) + DC-lek</translation>
    </message>
    <message>
        <source>DC Leakage(memory)</source>
        <translation>DC-lek(geheugen)</translation>
    </message>
    <message>
        <source>Open + DC Leakage(memory)</source>
        <translation>Open + DC-lek(geheugen)</translation>
    </message>
    <message>
        <source>Open(memory) + DC Leakage(memory)</source>
        <translation>Open(geheugen) + DC-lek(geheugen)</translation>
    </message>
    <message>
        <source>Short + DC Leakage(memory)</source>
        <translation>Kortsluiting + DC-lek(geheugen)</translation>
    </message>
    <message>
        <source>Short + Open(memory) + DC Leakage(memory)</source>
        <translation>Kortsluiting + Open(geheugen) + DC-lek(geheugen)</translation>
    </message>
    <message>
        <source>Short(memory) + DC Leakage(memory)</source>
        <translation>Kortsluiting(geheugen) + DC-lek(geheugen)</translation>
    </message>
    <message>
        <source>Short(memory)+ Open + DC Leakage(memory)</source>
        <translation>Kortsluiting(geheugen)+ Open + DC-lek(geheugen)</translation>
    </message>
    <message>
        <source>Short(memory) + Open(memory) + DC Leakage(memory)</source>
        <translation>Kortsluiting(geheugen) + Open(geheugen) + DC-lek(geheugen)</translation>
    </message>
    <message>
        <source>Leakage</source>
        <translation>Lek</translation>
    </message>
    <message>
        <source>Leakage + Open</source>
        <translation>Lek + Open</translation>
    </message>
    <message>
        <source>Leakage + Open(memory)</source>
        <translation>Lek + Open(geheugen)</translation>
    </message>
    <message>
        <source>Leakage(memory)</source>
        <translation>Lek(geheugen)</translation>
    </message>
    <message>
        <source>Leakage(memory) + Open</source>
        <translation>Lek(geheugen) + Open</translation>
    </message>
    <message>
        <source>Leakage(memory) + Open(memory)</source>
        <translation>Lek(geheugen) + Open(geheugen)</translation>
    </message>
    <message>
        <source>Polling</source>
        <translation>Pollen</translation>
    </message>
    <message>
        <source>Reconnected</source>
        <translation>Opnieuw verbonden</translation>
    </message>
    <message>
        <source>Not Supported</source>
        <translation>Niet ondersteund</translation>
    </message>
    <message>
        <source>Unknown</source>
        <translation>Onbekend</translation>
    </message>
</context>
<context>
    <name>MainWindowPlot</name>
    <message>
        <source>V</source>
        <translation>V</translation>
    </message>
    <message>
        <source>mA</source>
        <translation>mA</translation>
    </message>
</context>
<context>
    <name>SerialLink</name>
    <message>
        <source>The former connection has not ended yet.</source>
        <translation>De vorige verbinding is nog niet beëindigd.</translation>
    </message>
</context>
<context>
    <name>SettingsExport</name>
    <message>
        <source>No LDB&apos;s are connected.</source>
        <translation>Er zijn geen LDB&apos;s verbonden.</translation>
    </message>
    <message>
        <source>The file cannot be opened: %1</source>
        <translation>Het bestand kan niet worden geopend: %1</translation>
    </message>
    <message>
        <source>The file cannot be written: %1</source>
        <translation>Het bestand kan niet worden geschreven: %1</translation>
    </message>
    <message>
        <source>not connected</source>
        <translation>niet verbonden</translation>
    </message>
    <message>
        <source>no answer</source>
        <translation>geen antwoord</translation>
    </message>
    <message>
        <source>no valid settings received</source>
        <translation>geen geldige instellingen ontvangen</translation>
    </message>
    <message>
        <source>no valid firmware id received</source>
        <translation>geen geldige firmware-ID ontvangen</translation>
    </message>
    <message>
        <source>the name has characters that the file cannot hold</source>
        <translation>de naam bevat tekens die het bestand niet kan bevatten</translation>
    </message>
    <message>
        <source>the connection ended before its answer</source>
        <translation>de verbinding werd beëindigd vóór het antwoord</translation>
    </message>
    <message>
        <source>LDB %1 (address %2): %3</source>
        <translation>LDB %1 (adres %2): %3</translation>
    </message>
</context>
<context>
    <name>SettingsImport</name>
    <message>
        <source>the 0/1 columns</source>
        <translation>de 0/1-kolommen</translation>
    </message>
    <message>
        <source>storing the settings</source>
        <translation>opslaan van de instellingen</translation>
    </message>
    <message>
        <source>No LDB&apos;s are connected.</source>
        <translation>Er zijn geen LDB&apos;s verbonden.</translation>
    </message>
    <message>
        <source>The file cannot be opened: %1</source>
        <translation>Het bestand kan niet worden geopend: %1</translation>
    </message>
    <message>
        <source>The file cannot be read: %1</source>
        <translation>Het bestand kan niet worden gelezen: %1</translation>
    </message>
    <message>
        <source>The file is too long for a settings file.</source>
        <translation>Het bestand is te lang voor een instellingenbestand.</translation>
    </message>
    <message>
        <source>no LDB with this address is connected</source>
        <translation>er is geen LDB met dit adres verbonden</translation>
    </message>
    <message>
        <source>LDB %1 (address %2): no line in the file</source>
        <translation>LDB %1 (adres %2): geen regel in het bestand</translation>
    </message>
    <message>
        <source>%1 refused</source>
        <translation>%1 geweigerd</translation>
    </message>
    <message>
        <source>%1 unanswered</source>
        <translation>%1 niet beantwoord</translation>
    </message>
    <message>
        <source>the connection ended before it was written</source>
        <translation>de verbinding werd beëindigd voordat het geschreven was</translation>
    </message>
    <message>
        <source>Line %1: ID %2 (read as %2 hexadecimal, address %3): %4</source>
        <translation>Regel %1: ID %2 (gelezen als %2 hexadecimaal, adres %3): %4</translation>
    </message>
</context>
<context>
    <name>SettingsMenu</name>
    <message>
        <source>Settings</source>
        <translation>Instellingen</translation>
    </message>
    <message>
        <source>Serial Port</source>
        <translation>Seriële poort</translation>
    </message>
    <message>
        <source>Language:</source>
        <translation>Taal:</translation>
    </message>
    <message>
        <source>Sounds</source>
        <translation>Geluid</translation>
    </message>
    <message>
        <source>Enable Sound Warnings</source>
        <translation>Geluidswaarschuwingen inschakelen</translation>
    </message>
    <message>
        <source>About</source>
        <translation>Over</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuleren</translation>
    </message>
    <message>
        <source>Unknown COM port</source>
        <translation>Onbekende COM-poort</translation>
    </message>
    <message>
        <source>No ComPorts found</source>
        <translation>Geen COM-poorten gevonden</translation>
    </message>
    <message>
        <source>No language file found</source>
        <translation>Geen taalbestand gevonden</translation>
    </message>
    <message>
        <source>Description: %1</source>
        <translation>Omschrijving: %1</translation>
    </message>
    <message>
        <source>Manufacturer: %1</source>
        <translation>Fabrikant: %1</translation>
    </message>
    <message>
        <source>Serial number: %1</source>
        <translation>Serienummer: %1</translation>
    </message>
    <message>
        <source>Location: %1</source>
        <translation>Locatie: %1</translation>
    </message>
    <message>
        <source>Vendor Identifier: %1</source>
        <translation>Fabrikant-ID: %1</translation>
    </message>
    <message>
        <source>Product Identifier: %1</source>
        <translation>Product-ID: %1</translation>
    </message>
</context>
<context>
    <name>StatusIndicators</name>
    <message>
        <source>SERVICE MODE</source>
        <translation>SERVICEMODUS</translation>
    </message>
    <message>
        <source>EARTH FAULT</source>
        <translation>AARDFOUT</translation>
    </message>
    <message>
        <source>OPEN/SHORT/LEAK</source>
        <translation>OPEN/KORTSLUITING/LEK</translation>
    </message>
    <message>
        <source>SETTINGS</source>
        <translation>INSTELLINGEN</translation>
    </message>
    <message>
        <source>%1: off</source>
        <translation>%1: uit</translation>
    </message>
    <message>
        <source>%1: blinking slowly</source>
        <translation>%1: knippert langzaam</translation>
    </message>
    <message>
        <source>%1: blinking fast</source>
        <translation>%1: knippert snel</translation>
    </message>
    <message>
        <source>No round over all LDBs has been completed yet.</source>
        <translation>Er is nog geen volledige ronde langs alle LDB&apos;s geweest.</translation>
    </message>
    <message>
        <source>No LDB is in service mode.</source>
        <translation>Geen enkele LDB staat in servicemodus.</translation>
    </message>
    <message>
        <source>At least one LDB is in service mode.</source>
        <translation>Ten minste één LDB staat in servicemodus.</translation>
    </message>
    <message>
        <source>No LDB reports an earth fault.</source>
        <translation>Geen enkele LDB meldt een aardfout.</translation>
    </message>
    <message>
        <source>At least one LDB has an earth fault now.</source>
        <translation>Ten minste één LDB heeft nu een aardfout.</translation>
    </message>
    <message>
        <source>At least one LDB remembers an earth fault that has gone.</source>
        <translation>Ten minste één LDB onthoudt een verdwenen aardfout.</translation>
    </message>
    <message>
        <source>No LDB reports a fault of its loop or its amplifier.</source>
        <translation>Geen enkele LDB meldt een fout van zijn lus of zijn versterker.</translation>
    </message>
    <message>
        <source>At least one LDB has an open, a short, DC leakage or a disconnected amplifier now.</source>
        <translation>Ten minste één LDB heeft nu een onderbreking, een kortsluiting, een DC-lek of een niet-verbonden versterker.</translation>
    </message>
    <message>
        <source>At least one LDB remembers a loop fault that has gone, or has its amplifier back.</source>
        <translation>Ten minste één LDB onthoudt een verdwenen lusfout of heeft zijn versterker terug.</translation>
    </message>
    <message>
        <source>No LDB asks for its settings to be checked.</source>
        <translation>Geen enkele LDB vraagt om controle van de instellingen.</translation>
    </message>
    <message>
        <source>At least one LDB asks for its settings to be checked.</source>
        <translation>Ten minste één LDB vraagt om controle van de instellingen.</translation>
    </message>
</context>
</TS>
