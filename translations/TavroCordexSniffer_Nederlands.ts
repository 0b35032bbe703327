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
    <name>ActionsPanel</name>
    <message>
        <source>LDB Actions</source>
        <translation>LDB-acties</translation>
    </message>
    <message>
        <source>Selected LDB</source>
        <translation>Geselecteerde LDB</translation>
    </message>
    <message>
        <source>&amp;FIM
Reset</source>
        <translation>&amp;FIM-
reset</translation>
    </message>
    <message>
        <source>Reset the FIMs of the ticked LDB</source>
        <translation>Reset de FIM&apos;s van de aangevinkte LDB</translation>
    </message>
    <message>
        <source>FIM reset of the selected LDB</source>
        <translation>FIM-reset van de geselecteerde LDB</translation>
    </message>
    <message>
        <source>LD&amp;B
Reset</source>
        <translation>LD&amp;B-
reset</translation>
    </message>
    <message>
        <source>Restart the ticked LDB</source>
        <translation>Herstart de aangevinkte LDB</translation>
    </message>
    <message>
        <source>LDB reset of the selected LDB</source>
        <translation>LDB-reset van de geselecteerde LDB</translation>
    </message>
    <message>
        <source>Ser&amp;vice
Mode</source>
        <translation>Ser&amp;vice-
modus</translation>
    </message>
    <message>
        <source>Put the ticked LDB into service mode; an LDB reset ends it</source>
        <translation>Zet de aangevinkte LDB in servicemodus; een LDB-reset beëindigt die</translation>
    </message>
    <message>
        <source>Service mode of the selected LDB</source>
        <translation>Servicemodus van de geselecteerde LDB</translation>
    </message>
    <message>
        <source>FIM
&amp;Tracking</source>
        <translation>FIM-
&amp;tracking</translation>
    </message>
    <message>
        <source>Count the FIMs of the ticked LDB and find where its loop is broken</source>
        <translation>Tel de FIM&apos;s van de aangevinkte LDB en zoek waar de lus onderbroken is</translation>
    </message>
    <message>
        <source>FIM tracking of the selected LDB</source>
        <translation>FIM-tracking van de geselecteerde LDB</translation>
    </message>
    <message>
        <source>All LDB&apos;s</source>
        <translation>Alle LDB&apos;s</translation>
    </message>
    <message>
        <source>FIM
Reset</source>
        <translation>FIM-
reset</translation>
    </message>
    <message>
        <source>Reset the FIMs of every LDB on the bus, at once</source>
        <translation>Reset de FIM&apos;s van alle LDB&apos;s op de bus tegelijk</translation>
    </message>
    <message>
        <source>FIM reset of all LDB&apos;s</source>
        <translation>FIM-reset van alle LDB&apos;s</translation>
    </message>
    <message>
        <source>LDB
Reset</source>
        <translation>LDB-
reset</translation>
    </message>
    <message>
        <source>Restart every LDB on the bus, at once</source>
        <translation>Herstart alle LDB&apos;s op de bus tegelijk</translation>
    </message>
    <message>
        <source>LDB reset of all LDB&apos;s</source>
        <translation>LDB-reset van alle LDB&apos;s</translation>
    </message>
    <message>
        <source>Service
Mode</source>
        <translation>Service-
modus</translation>
    </message>
    <message>
        <source>Put every LDB on the bus into service mode, at once</source>
        <translation>Zet alle LDB&apos;s op de bus tegelijk in servicemodus</translation>
    </message>
    <message>
        <source>Service mode of all LDB&apos;s</source>
        <translation>Servicemodus van alle LDB&apos;s</translation>
    </message>
    <message>
        <source>FIM reset</source>
        <translation>FIM-reset</translation>
    </message>
    <message>
        <source>LDB reset</source>
        <translation>LDB-reset</translation>
    </message>
    <message>
        <source>Factory reset</source>
        <translation>Fabrieksreset</translation>
    </message>
    <message>
        <source>Service mode</source>
        <translation>Servicemodus</translation>
    </message>
    <message>
        <source>The connection ended. Not sent to the LDB&apos;s: %1.</source>
        <translation>De verbinding werd beëindigd. Niet naar de LDB&apos;s verzonden: %1.</translation>
    </message>
    <message>
        <source>Sent to all LDB&apos;s: %1.</source>
        <translation>Naar alle LDB&apos;s verzonden: %1.</translation>
    </message>
    <message>
        <source>The connection ended. Not sent to LDB %1: %2.</source>
        <translation>De verbinding werd beëindigd. Niet naar LDB %1 verzonden: %2.</translation>
    </message>
    <message>
        <source>LDB %1 did not answer: %2.</source>
        <translation>LDB %1 heeft niet geantwoord: %2.</translation>
    </message>
    <message>
        <source>LDB %1 refused: %2.</source>
        <translation>LDB %1 heeft geweigerd: %2.</translation>
    </message>
    <message>
        <source>LDB %1 accepted: %2.</source>
        <translation>LDB %1 heeft aanvaard: %2.</translation>
    </message>
    <message>
        <source>Attention</source>
        <translation>Let op</translation>
    </message>
    <message numerus="yes">
        <source>Reset the FIM&apos;s of all %n LDB(s)?</source>
        <translation>
            <numerusform>De FIM&apos;s van %n LDB resetten?</numerusform>
            <numerusform>De FIM&apos;s van alle %n LDB&apos;s resetten?</numerusform>
        </translation>
    </message>
    <message>
        <source>The loops are without sound while their FIM&apos;s are reset. Remembered faults are forgotten.</source>
        <translation>De lussen zijn zonder geluid terwijl hun FIM&apos;s worden gereset. Onthouden fouten worden vergeten.</translation>
    </message>
    <message numerus="yes">
        <source>Restart all %n LDB(s)?</source>
        <translation>
            <numerusform>%n LDB opnieuw starten?</numerusform>
            <numerusform>Alle %n LDB&apos;s opnieuw starten?</numerusform>
        </translation>
    </message>
    <message>
        <source>All loops are without sound until their LDB&apos;s have booted and measured. Service mode ends.</source>
        <translation>Alle lussen zijn zonder geluid tot hun LDB&apos;s zijn opgestart en hebben gemeten. De servicemodus eindigt.</translation>
    </message>
    <message numerus="yes">
        <source>Put all %n LDB(s) into service mode?</source>
        <translation>
            <numerusform>%n LDB in servicemodus zetten?</numerusform>
            <numerusform>Alle %n LDB&apos;s in servicemodus zetten?</numerusform>
        </translation>
    </message>
    <message>
        <source>None of them watches its loop any more, and loops may be without sound, until each LDB is reset. Faults are not reported.</source>
        <translation>Geen ervan bewaakt haar lus nog, en lussen kunnen zonder geluid zijn, tot elke LDB is gereset. Fouten worden niet gemeld.</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuleren</translation>
    </message>
    <message>
        <source>Not seen in it: %1</source>
        <translation>Niet daarin gezien: %1</translation>
    </message>
    <message>
        <source>Not answered since: %1</source>
        <translation>Sindsdien niet geantwoord: %1</translation>
    </message>
    <message>
        <source>Not in it: %1</source>
        <translation>Niet daarin: %1</translation>
    </message>
    <message>
        <source>The connection ended before all had been looked at.</source>
        <translation>De verbinding eindigde voordat alle waren bekeken.</translation>
    </message>
    <message>
        <source>Information</source>
        <translation>Informatie</translation>
    </message>
    <message>
        <source>Not answering now: %1.</source>
        <translation>Antwoorden nu niet: %1.</translation>
    </message>
    <message>
        <source>In service mode: %1 of %2 LDB&apos;s.</source>
        <translation>In servicemodus: %1 van %2 LDB&apos;s.</translation>
    </message>
    <message>
        <source>Seen in a FIM reset: %1 of %2 LDB&apos;s.</source>
        <translation>Gezien in een FIM-reset: %1 van %2 LDB&apos;s.</translation>
    </message>
    <message>
        <source>Answered since the LDB reset: %1 of %2 LDB&apos;s.</source>
        <translation>Geantwoord sinds de LDB-reset: %1 van %2 LDB&apos;s.</translation>
    </message>
</context>
<context>
    <name>ClosingQuestion</name>
    <message>
        <source>Attention</source>
        <translation>Let op</translation>
    </message>
    <message>
        <source>Close the program all the same?</source>
        <translation>Het programma toch sluiten?</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Sluiten</translation>
    </message>
    <message>
        <source>Stay</source>
        <translation>Blijven</translation>
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
    <message>
        <source>%1 ago</source>
        <translation>%1 geleden</translation>
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
        <translation>Prim. poort</translation>
    </message>
    <message>
        <source>Secondary Port</source>
        <translation>Secund. poort</translation>
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
    <message>
        <source>Dismiss LDB %1</source>
        <translation>LDB %1 verwijderen</translation>
    </message>
    <message>
        <source>Dismiss all lost LDBs</source>
        <translation>Alle verloren LDB&apos;s verwijderen</translation>
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
    <message>
        <source>The ID is no address</source>
        <translation>De ID is geen adres</translation>
    </message>
</context>
<context>
    <name>DisconnectSecondaryPortDialog</name>
    <message>
        <source>Disconnect the secondary port</source>
        <translation>Maak de secundaire poort los</translation>
    </message>
    <message>
        <source>Disconnect the secondary port when locating earth leakage.</source>
        <translation>Maak de secundaire poort los bij het zoeken van een aardlek.</translation>
    </message>
    <message>
        <source>Front panel of the LDB with its ports</source>
        <translation>Frontpaneel van de LDB met zijn poorten</translation>
    </message>
</context>
<context>
    <name>EventBar</name>
    <message>
        <source>All LDBs</source>
        <translation>Alle LDB&apos;s</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 van %2</translation>
    </message>
    <message>
        <source>Set a mark with a line of text at the moment that is shown (M)</source>
        <translation>Een markering met een regel tekst zetten op het getoonde moment (M)</translation>
    </message>
    <message>
        <source>All kinds</source>
        <translation>Alle soorten</translation>
    </message>
    <message>
        <source>All times</source>
        <translation>Alle tijden</translation>
    </message>
    <message>
        <source>Last hour</source>
        <translation>Laatste uur</translation>
    </message>
    <message>
        <source>Last 24 hours</source>
        <translation>Laatste 24 uur</translation>
    </message>
    <message>
        <source>Last 7 days</source>
        <translation>Laatste 7 dagen</translation>
    </message>
    <message>
        <source>From ... to ...</source>
        <translation>Van ... tot ...</translation>
    </message>
    <message>
        <source>Text of the events</source>
        <translation>Tekst</translation>
    </message>
    <message>
        <source>Show only events with these words. Esc shows all again.</source>
        <translation>Alleen gebeurtenissen met deze woorden tonen. Esc toont weer alles.</translation>
    </message>
    <message>
        <source>Filter of the events by text</source>
        <translation>Gebeurtenissen filteren op tekst</translation>
    </message>
    <message>
        <source>LDB whose events are shown</source>
        <translation>LDB waarvan de gebeurtenissen getoond worden</translation>
    </message>
    <message>
        <source>Kind of the events that are shown</source>
        <translation>Soort van de getoonde gebeurtenissen</translation>
    </message>
    <message>
        <source>Time of the events that are shown</source>
        <translation>Tijd van de getoonde gebeurtenissen</translation>
    </message>
    <message>
        <source>Events from this time on</source>
        <translation>Gebeurtenissen vanaf deze tijd</translation>
    </message>
    <message>
        <source>Events up to this time</source>
        <translation>Gebeurtenissen tot deze tijd</translation>
    </message>
    <message>
        <source>Mark...</source>
        <translation>Markering...</translation>
    </message>
    <message>
        <source>Export...</source>
        <translation>Exporteren...</translation>
    </message>
    <message>
        <source>Write the events that are listed to a CSV file</source>
        <translation>De gebeurtenissen in de lijst naar een CSV-bestand schrijven</translation>
    </message>
</context>
<context>
    <name>EventDesk</name>
    <message>
        <source>Events</source>
        <translation>Gebeurtenissen</translation>
    </message>
    <message>
        <source>Show or hide what has happened: faults, losses, actions, marks (Ctrl+E)</source>
        <translation>Tonen of verbergen wat er gebeurd is: fouten, verliezen, acties, markeringen (Ctrl+E)</translation>
    </message>
    <message>
        <source>This recording is only read: no mark can be set in it.</source>
        <translation>Deze opname wordt alleen gelezen: er kan geen markering in gezet worden.</translation>
    </message>
    <message>
        <source>Recording is turned off: no mark can be set.</source>
        <translation>De opname staat uit: er kan geen markering gezet worden.</translation>
    </message>
    <message>
        <source>Nothing has been recorded yet: start the bus first.</source>
        <translation>Er is nog niets opgenomen: start eerst de bus.</translation>
    </message>
    <message>
        <source>Export Events</source>
        <translation>Gebeurtenissen exporteren</translation>
    </message>
    <message>
        <source>Events exported to %1</source>
        <translation>Gebeurtenissen geëxporteerd naar %1</translation>
    </message>
    <message>
        <source>The events could not be exported to %1</source>
        <translation>De gebeurtenissen konden niet geëxporteerd worden naar %1</translation>
    </message>
</context>
<context>
    <name>EventKinds</name>
    <message>
        <source>Faults</source>
        <translation>Fouten</translation>
    </message>
    <message>
        <source>Losses and scans</source>
        <translation>Verliezen en scans</translation>
    </message>
    <message>
        <source>Modes</source>
        <translation>Modi</translation>
    </message>
    <message>
        <source>Actions and settings</source>
        <translation>Acties en instellingen</translation>
    </message>
    <message>
        <source>Fault finding</source>
        <translation>Fout zoeken</translation>
    </message>
    <message>
        <source>Marks</source>
        <translation>Markeringen</translation>
    </message>
    <message>
        <source>Bus and recording</source>
        <translation>Bus en opname</translation>
    </message>
</context>
<context>
    <name>EventList</name>
    <message>
        <source>Events</source>
        <translation>Gebeurtenissen</translation>
    </message>
    <message>
        <source>, older ones left out</source>
        <translation>, oudere weggelaten</translation>
    </message>
    <message>
        <source>Before: %1</source>
        <translation>Vroeger: %1</translation>
    </message>
    <message>
        <source>After: %1</source>
        <translation>Nadien: %1</translation>
    </message>
</context>
<context>
    <name>EventModel</name>
    <message>
        <source>not ended</source>
        <translation>niet beëindigd</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Tijd</translation>
    </message>
    <message>
        <source>LDB</source>
        <translation>LDB</translation>
    </message>
    <message>
        <source>Duration</source>
        <translation>Duur</translation>
    </message>
    <message>
        <source>Event</source>
        <translation>Gebeurtenis</translation>
    </message>
</context>
<context>
    <name>Evidence</name>
    <message>
        <source>LDB %1 lost</source>
        <translation>LDB %1 verloren</translation>
    </message>
    <message>
        <source>LDB %1: %2</source>
        <translation>LDB %1: %2</translation>
    </message>
    <message>
        <source>the connection to %1 was lost</source>
        <translation>de verbinding met %1 is verbroken</translation>
    </message>
    <message>
        <source>No Recording</source>
        <translation>Geen opname</translation>
    </message>
    <message>
        <source>There is no recording that can be read in %1.</source>
        <translation>In %1 staat geen opname die gelezen kan worden.</translation>
    </message>
    <message>
        <source>Nothing has been recorded yet.</source>
        <translation>Er is nog niets opgenomen.</translation>
    </message>
    <message>
        <source>%1 could not be opened.</source>
        <translation>%1 kon niet worden geopend.</translation>
    </message>
    <message>
        <source>Evidence is being written. The file will be missing.</source>
        <translation>Er worden gegevens weggeschreven. Het bestand zal ontbreken.</translation>
    </message>
    <message>
        <source>Report of the &amp;Visit...</source>
        <translation>&amp;Verslag van het bezoek...</translation>
    </message>
    <message>
        <source>Take Evidence &amp;Home...</source>
        <translation>Bewijs &amp;meenemen...</translation>
    </message>
    <message>
        <source>Save a &amp;Copy of This Visit...</source>
        <translation>Een &amp;kopie van dit bezoek opslaan...</translation>
    </message>
    <message>
        <source>&amp;Recording...</source>
        <translation>&amp;Opname...</translation>
    </message>
</context>
<context>
    <name>EvidenceForm</name>
    <message>
        <source>All LDBs</source>
        <translation>Alle LDB&apos;s</translation>
    </message>
    <message>
        <source>LDB %1</source>
        <translation>LDB %1</translation>
    </message>
    <message>
        <source>This &amp;visit: since today&apos;s first start, %1</source>
        <translation>Dit be&amp;zoek: sinds de eerste start van vandaag, %1</translation>
    </message>
    <message>
        <source>This &amp;visit: since today&apos;s first start</source>
        <translation>Dit be&amp;zoek: sinds de eerste start van vandaag</translation>
    </message>
    <message>
        <source>The end of the span is before its begin.</source>
        <translation>Het einde van de periode ligt vóór het begin.</translation>
    </message>
    <message>
        <source>Take Evidence Home</source>
        <translation>Bewijs meenemen</translation>
    </message>
    <message>
        <source>Where the Copy Goes</source>
        <translation>Waar de kopie komt</translation>
    </message>
    <message>
        <source>Writing %1</source>
        <translation>%1 wordt geschreven</translation>
    </message>
    <message>
        <source>Saved: %1</source>
        <translation>Opgeslagen: %1</translation>
    </message>
    <message>
        <source>Stopped: %1 is not complete, or was not written.</source>
        <translation>Gestopt: %1 is niet volledig, of is niet geschreven.</translation>
    </message>
    <message>
        <source>Not saved: %1</source>
        <translation>Niet opgeslagen: %1</translation>
    </message>
    <message>
        <source>%1 could not be written.</source>
        <translation>%1 kon niet worden geschreven.</translation>
    </message>
    <message>
        <source>What</source>
        <translation>Wat</translation>
    </message>
    <message>
        <source>&amp;Log (CSV), as the logger would have written it</source>
        <translation>&amp;Logbestand (CSV), zoals de logger het geschreven zou hebben</translation>
    </message>
    <message>
        <source>Of:</source>
        <translation>Van:</translation>
    </message>
    <message>
        <source>every:</source>
        <translation>elke:</translation>
    </message>
    <message>
        <source>s</source>
        <translation>s</translation>
    </message>
    <message>
        <source>Seconds between two records of an LDB; at 0 every record is written</source>
        <translation>Seconden tussen twee records van een LDB; bij 0 wordt elk record geschreven</translation>
    </message>
    <message>
        <source>&amp;Events (CSV)</source>
        <translation>&amp;Gebeurtenissen (CSV)</translation>
    </message>
    <message>
        <source>Every &amp;byte on the bus, for Wireshark (pcapng)</source>
        <translation>Elke &amp;byte op de bus, voor Wireshark (pcapng)</translation>
    </message>
    <message>
        <source>&amp;Copy of the recording of these days, to look back in this program</source>
        <translation>&amp;Kopie van de opname van deze dagen, om in dit programma terug te kijken</translation>
    </message>
    <message>
        <source>When</source>
        <translation>Wanneer</translation>
    </message>
    <message>
        <source>The last &amp;hour</source>
        <translation>Het laatste &amp;uur</translation>
    </message>
    <message>
        <source>&amp;Today</source>
        <translation>&amp;Vandaag</translation>
    </message>
    <message>
        <source>&amp;From, to:</source>
        <translation>V&amp;an, tot:</translation>
    </message>
    <message>
        <source>From</source>
        <translation>Van</translation>
    </message>
    <message>
        <source>To</source>
        <translation>Tot</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>Voortgang</translation>
    </message>
    <message>
        <source>&amp;Save...</source>
        <translation>&amp;Opslaan...</translation>
    </message>
    <message>
        <source>Sto&amp;p</source>
        <translation>Sto&amp;ppen</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Sluiten</translation>
    </message>
</context>
<context>
    <name>EvidenceWriter</name>
    <message>
        <source>Another installation is in use now.</source>
        <translation>Er is nu een andere installatie in gebruik.</translation>
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
    <message>
        <source>Fim Tracking</source>
        <translation>FIM-tracking</translation>
    </message>
    <message>
        <source>Phase of the run</source>
        <translation>Fase van de run</translation>
    </message>
    <message>
        <source>Copies the report of the finished run as text</source>
        <translation>Kopieert het rapport van de voltooide run als tekst</translation>
    </message>
    <message>
        <source>&amp;Copy Report</source>
        <translation>Rapport &amp;kopiëren</translation>
    </message>
    <message>
        <source>Zoom In</source>
        <translation>Inzoomen</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>Start</translation>
    </message>
    <message>
        <source>Seconds left for the factory reset</source>
        <translation>Resterende seconden voor de fabrieksreset</translation>
    </message>
    <message>
        <source>LDB: %1</source>
        <translation>LDB: %1</translation>
    </message>
    <message>
        <source>Primary port</source>
        <translation>Primaire poort</translation>
    </message>
    <message>
        <source>Secondary port</source>
        <translation>Secundaire poort</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Stop</translation>
    </message>
    <message>
        <source>This action will start a factory reset. 
Are you sure you want to do this?</source>
        <translation>Deze actie start een fabrieksreset. 
Weet u zeker dat u dit wilt doen?</translation>
    </message>
    <message>
        <source>Select the type of action you want to execute.
 </source>
        <translation>Selecteer het soort actie dat u wilt uitvoeren.
 </translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuleren</translation>
    </message>
    <message>
        <source>Name: %1</source>
        <translation>Naam: %1</translation>
    </message>
    <message>
        <source>Mode: %1</source>
        <translation>Modus: %1</translation>
    </message>
    <message>
        <source>Loop: %1</source>
        <translation>Lus: %1</translation>
    </message>
    <message>
        <source>Earth: %1</source>
        <translation>Aarde: %1</translation>
    </message>
    <message>
        <source>Factory Reset Countdown</source>
        <translation>Aftellen fabrieksreset</translation>
    </message>
    <message>
        <source>Factory reset started</source>
        <translation>Fabrieksreset gestart</translation>
    </message>
    <message>
        <source>The report has been copied.</source>
        <translation>Het rapport is gekopieerd.</translation>
    </message>
    <message>
        <source>Zoom Out</source>
        <translation>Uitzoomen</translation>
    </message>
    <message>
        <source>factory reset</source>
        <translation>fabrieksreset</translation>
    </message>
    <message>
        <source>LDB reset</source>
        <translation>LDB-reset</translation>
    </message>
    <message>
        <source>audio mute</source>
        <translation>audiodemping</translation>
    </message>
    <message>
        <source>confirmation</source>
        <translation>bevestiging</translation>
    </message>
    <message>
        <source>waiting for the factory reset</source>
        <translation>wachten op de fabrieksreset</translation>
    </message>
    <message>
        <source>rebooting</source>
        <translation>herstarten</translation>
    </message>
    <message>
        <source>counting</source>
        <translation>tellen</translation>
    </message>
    <message>
        <source>finished</source>
        <translation>voltooid</translation>
    </message>
    <message>
        <source>idle</source>
        <translation>inactief</translation>
    </message>
    <message>
        <source>stopped</source>
        <translation>gestopt</translation>
    </message>
    <message>
        <source>The factory reset failed.</source>
        <translation>De fabrieksreset is mislukt.</translation>
    </message>
    <message>
        <source>The LDB refused the factory reset.</source>
        <translation>De LDB heeft de fabrieksreset geweigerd.</translation>
    </message>
    <message>
        <source>The LDB is disconnected.</source>
        <translation>De LDB is niet verbonden.</translation>
    </message>
    <message>
        <source>The connection was lost.</source>
        <translation>De verbinding werd verbroken.</translation>
    </message>
    <message>
        <source>%1 s left</source>
        <translation>nog %1 s</translation>
    </message>
    <message>
        <source>%1 s gone</source>
        <translation>%1 s verstreken</translation>
    </message>
    <message>
        <source>Answer the question to go on.</source>
        <translation>Beantwoord de vraag om verder te gaan.</translation>
    </message>
    <message>
        <source>The LDB has been asked for a factory reset.</source>
        <translation>De LDB is om een fabrieksreset gevraagd.</translation>
    </message>
    <message>
        <source>Press Start to begin a run.</source>
        <translation>Druk op Start om een run te beginnen.</translation>
    </message>
    <message>
        <source>not tracked</source>
        <translation>niet gevolgd</translation>
    </message>
    <message>
        <source>ends in %1 s unless a FIM starts up</source>
        <translation>eindigt over %1 s tenzij er een FIM opstart</translation>
    </message>
    <message>
        <source>The LDB refused the command: %1</source>
        <translation>De LDB heeft de opdracht geweigerd: %1</translation>
    </message>
    <message>
        <source>The LDB did not answer the command: %1</source>
        <translation>De LDB heeft niet geantwoord op de opdracht: %1</translation>
    </message>
    <message>
        <source>FIM count %1</source>
        <translation>Aantal FIM&apos;s %1</translation>
    </message>
    <message>
        <source>FIM tracking report</source>
        <translation>FIM-trackingrapport</translation>
    </message>
    <message>
        <source>Tracking mode: %1</source>
        <translation>Trackingmodus: %1</translation>
    </message>
    <message>
        <source>Time: %1</source>
        <translation>Tijd: %1</translation>
    </message>
    <message>
        <source>Primary side: </source>
        <translation>Primaire zijde: </translation>
    </message>
    <message>
        <source>Secondary side: </source>
        <translation>Secundaire zijde: </translation>
    </message>
    <message>
        <source>Result: %1</source>
        <translation>Resultaat: %1</translation>
    </message>
    <message>
        <source>Writes the FIM&apos;s counted as the number of FIM&apos;s into the LDB</source>
        <translation>Schrijft de getelde FIM&apos;s als aantal FIM&apos;s in de LDB</translation>
    </message>
    <message>
        <source>&amp;Take Over</source>
        <translation>&amp;Overnemen</translation>
    </message>
    <message>
        <source>There is no connection to the LDB.</source>
        <translation>Er is geen verbinding met de LDB.</translation>
    </message>
    <message>
        <source>Reading the settings of the LDB, to keep them</source>
        <translation>De instellingen van de LDB worden gelezen, om ze te bewaren</translation>
    </message>
    <message>
        <source>Writing the number of FIM&apos;s</source>
        <translation>Het aantal FIM&apos;s wordt geschreven</translation>
    </message>
    <message>
        <source>The number of FIM&apos;s in the LDB is now %1.</source>
        <translation>Het aantal FIM&apos;s in de LDB is nu %1.</translation>
    </message>
    <message>
        <source>The number of FIM&apos;s: %1</source>
        <translation>Het aantal FIM&apos;s: %1</translation>
    </message>
    <message>
        <source>The settings in the LDB go back to defaults, and the loop is without sound for about two minutes. The settings are kept before, and can be restored after the run.</source>
        <translation>De instellingen in de LDB gaan terug naar de standaardwaarden, en de lus is ongeveer twee minuten zonder geluid. De instellingen worden eerst bewaard, en kunnen na de meting worden hersteld.</translation>
    </message>
    <message>
        <source>Start all the same</source>
        <translation>Toch starten</translation>
    </message>
    <message>
        <source>There is no connection to the LDB. Close this window, and start the connection again.</source>
        <translation>Er is geen verbinding met de LDB. Sluit dit venster, en start de verbinding opnieuw.</translation>
    </message>
    <message>
        <source>The settings of the LDB cannot be read. After the run they will be the defaults, and the former ones are lost.</source>
        <translation>De instellingen van de LDB kunnen niet worden gelezen. Na de meting zijn het de standaardwaarden, en de vorige zijn verloren.</translation>
    </message>
    <message>
        <source>What the run changes cannot be kept on the disk: %1
If the program or the computer stops during the run, the settings of the LDB are lost, and it stays muted.</source>
        <translation>Wat de meting verandert, kan niet op de schijf worden bewaard: %1
Als het programma of de computer tijdens de meting stopt, zijn de instellingen van de LDB verloren, en blijft zij gedempt.</translation>
    </message>
    <message>
        <source>FIM&apos;s counted: %1   configured: %2</source>
        <translation>FIM&apos;s geteld: %1   ingesteld: %2</translation>
    </message>
    <message>
        <source>FIM&apos;s counted: %1   configured: not known</source>
        <translation>FIM&apos;s geteld: %1   ingesteld: niet bekend</translation>
    </message>
    <message>
        <source>The number of FIM&apos;s is being written.</source>
        <translation>Het aantal FIM&apos;s wordt geschreven.</translation>
    </message>
    <message>
        <source>There is no report before a run has come to its end.</source>
        <translation>Er is geen rapport voordat een zoekactie is afgelopen.</translation>
    </message>
    <message>
        <source>There is nothing to zoom into before the counting begins.</source>
        <translation>Er is niets om op in te zoomen voordat het tellen begint.</translation>
    </message>
    <message>
        <source>Attention</source>
        <translation>Let op</translation>
    </message>
</context>
<context>
    <name>FormerList</name>
    <message>
        <source>Before a Save</source>
        <translation>Vóór opslaan</translation>
    </message>
    <message>
        <source>Before a Write</source>
        <translation>Vóór schrijven</translation>
    </message>
    <message>
        <source>Before the import of %1</source>
        <translation>Vóór de import van %1</translation>
    </message>
    <message>
        <source>Before settings were put back</source>
        <translation>Voordat instellingen werden teruggezet</translation>
    </message>
    <message numerus="yes">
        <source>%n LDB(s)</source>
        <translation>
            <numerusform>%n LDB</numerusform>
            <numerusform>%n LDB&apos;s</numerusform>
        </translation>
    </message>
    <message>
        <source>Former Settings</source>
        <translation>Vroegere instellingen</translation>
    </message>
    <message>
        <source>Compare</source>
        <translation>Vergelijken</translation>
    </message>
    <message>
        <source>Put Back...</source>
        <translation>Terugzetten...</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Sluiten</translation>
    </message>
    <message>
        <source>Date and time</source>
        <translation>Datum en tijd</translation>
    </message>
    <message>
        <source>Occasion</source>
        <translation>Aanleiding</translation>
    </message>
    <message>
        <source>LDB&apos;s</source>
        <translation>LDB&apos;s</translation>
    </message>
    <message>
        <source>Kept in %1</source>
        <translation>Bewaard in %1</translation>
    </message>
</context>
<context>
    <name>FormerSettings</name>
    <message>
        <source>The folder %1 cannot be made.</source>
        <translation>De map %1 kan niet worden gemaakt.</translation>
    </message>
    <message>
        <source>The file %1 cannot be written: %2.</source>
        <translation>Het bestand %1 kan niet worden geschreven: %2.</translation>
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
        <translation>Kortsluiting(geh.)</translation>
    </message>
    <message>
        <source>Not heard yet</source>
        <translation>Nog niet gehoord</translation>
    </message>
</context>
<context>
    <name>GoToDialog</name>
    <message>
        <source>Go to a Time</source>
        <translation>Naar een tijdstip</translation>
    </message>
    <message>
        <source>&amp;Moment to show:</source>
        <translation>Te tonen &amp;moment:</translation>
    </message>
</context>
<context>
    <name>Hindrance</name>
    <message>
        <source>Nothing is monitored: click Start first.</source>
        <translation>Er wordt niets bewaakt: klik eerst op Start.</translation>
    </message>
    <message>
        <source>The bus is being scanned: wait until all LDB&apos;s are found.</source>
        <translation>De bus wordt doorzocht: wacht tot alle LDB&apos;s zijn gevonden.</translation>
    </message>
    <message>
        <source>No LDB is selected.</source>
        <translation>Er is geen LDB geselecteerd.</translation>
    </message>
    <message>
        <source>The selected LDB is not connected.</source>
        <translation>De geselecteerde LDB is niet verbonden.</translation>
    </message>
    <message>
        <source>Settings are being saved: wait until the LDB has them.</source>
        <translation>Er worden instellingen opgeslagen: wacht tot de LDB ze heeft.</translation>
    </message>
    <message>
        <source>Settings are being exported or imported: wait for the end.</source>
        <translation>Er worden instellingen geëxporteerd of geïmporteerd: wacht tot dat klaar is.</translation>
    </message>
    <message>
        <source>The selected LDB is in service mode: end it with LDB Reset first.</source>
        <translation>De geselecteerde LDB is in servicemodus: beëindig die eerst met LDB-reset.</translation>
    </message>
    <message>
        <source>What fault finding has changed is being put back: wait until it is done.</source>
        <translation>Wat het fout zoeken heeft gewijzigd, wordt teruggezet: wacht tot dat klaar is.</translation>
    </message>
    <message>
        <source>It is not certain yet which installation answers.</source>
        <translation>Het is nog niet zeker welke installatie antwoordt.</translation>
    </message>
    <message>
        <source>Fault finding is under way: wait for its end, or stop it.</source>
        <translation>Er wordt naar fouten gezocht: wacht tot het klaar is, of stop het.</translation>
    </message>
    <message>
        <source>You are looking back: go back to live first (Esc).</source>
        <translation>U kijkt terug: ga eerst terug naar nu (Esc).</translation>
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
    <message numerus="yes">
        <source>Done: %1 of %n LDB(s)</source>
        <translation>
            <numerusform>Klaar: %1 van %n LDB</numerusform>
            <numerusform>Klaar: %1 van %n LDB&apos;s</numerusform>
        </translation>
    </message>
    <message>
        <source>none</source>
        <translation>geen</translation>
    </message>
    <message>
        <source>Nothing was written.</source>
        <translation>Er is niets geschreven.</translation>
    </message>
    <message>
        <source>Done: %1</source>
        <translation>Klaar: %1</translation>
    </message>
    <message>
        <source>Not begun: %1</source>
        <translation>Niet begonnen: %1</translation>
    </message>
</context>
<context>
    <name>InstallationControl</name>
    <message>
        <source>A damaged file of an installation was moved aside: %1</source>
        <translation>Een beschadigd bestand van een installatie is opzijgezet: %1</translation>
    </message>
</context>
<context>
    <name>InstallationDesk</name>
    <message>
        <source>Installation</source>
        <translation>Installatie</translation>
    </message>
    <message>
        <source>The connection to %1 is back.</source>
        <translation>De verbinding met %1 is terug.</translation>
    </message>
    <message>
        <source>What answers at %1 has the LDBs of the installation &quot;%2&quot;. Is it that one?</source>
        <translation>Wat aan %1 antwoordt, heeft de LDB&apos;s van de installatie &quot;%2&quot;. Is het die?</translation>
    </message>
    <message>
        <source>Which port?</source>
        <translation>Welke poort?</translation>
    </message>
    <message>
        <source>The connection to %1 was lost. Several adapters of its kind are there now. Which one is it?</source>
        <translation>De verbinding met %1 ging verloren. Er zijn nu meerdere adapters van dat type. Welke is het?</translation>
    </message>
    <message>
        <source>Wait On</source>
        <translation>Blijven wachten</translation>
    </message>
    <message>
        <source>What answers at %1 does not look like the installation &quot;%2&quot;: most of its LDBs are silent, or have other names. Which installation is it? If it is that one, select it: its silent LDBs are then shown as lost. Until you have said so, nothing is written to the LDBs.</source>
        <translation>Wat op %1 antwoordt, lijkt niet op de installatie &quot;%2&quot;: de meeste van haar LDB&apos;s zwijgen, of hebben andere namen. Welke installatie is het? Is het toch deze, selecteer haar dan: haar zwijgende LDB&apos;s worden als verloren getoond. Zolang u dat niet hebt gezegd, wordt er niets naar de LDB&apos;s geschreven.</translation>
    </message>
</context>
<context>
    <name>InstallationForm</name>
    <message>
        <source>Installation</source>
        <translation>Installatie</translation>
    </message>
    <message>
        <source>%1 (in use)</source>
        <translation>%1 (in gebruik)</translation>
    </message>
    <message numerus="yes">
        <source>LDBs remembered: %n</source>
        <translation>
            <numerusform>Onthouden LDB&apos;s: %n</numerusform>
            <numerusform>Onthouden LDB&apos;s: %n</numerusform>
        </translation>
    </message>
    <message>
        <source>Export Installation</source>
        <translation>Installatie exporteren</translation>
    </message>
    <message>
        <source>Import Installation</source>
        <translation>Installatie importeren</translation>
    </message>
    <message>
        <source>Installations</source>
        <translation>Installaties</translation>
    </message>
    <message>
        <source>&amp;Name:</source>
        <translation>&amp;Naam:</translation>
    </message>
    <message>
        <source>&amp;Place:</source>
        <translation>&amp;Plaats:</translation>
    </message>
    <message>
        <source>N&amp;otes:</source>
        <translation>N&amp;otities:</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>Adres</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Naam</translation>
    </message>
    <message>
        <source>LDBs remembered</source>
        <translation>Onthouden LDB&apos;s</translation>
    </message>
    <message>
        <source>Forget LDB</source>
        <translation>LDB vergeten</translation>
    </message>
    <message>
        <source>Take the selected LDBs out of what is remembered; one that answers is remembered again</source>
        <translation>Haal de geselecteerde LDB&apos;s uit wat onthouden is; een die antwoordt, wordt weer onthouden</translation>
    </message>
    <message>
        <source>New</source>
        <translation>Nieuw</translation>
    </message>
    <message>
        <source>Make an installation, to be used later</source>
        <translation>Maak een installatie voor later</translation>
    </message>
    <message>
        <source>Import...</source>
        <translation>Importeren...</translation>
    </message>
    <message>
        <source>Take an installation from a colleague&apos;s file</source>
        <translation>Neem een installatie uit het bestand van een collega over</translation>
    </message>
    <message>
        <source>Export...</source>
        <translation>Exporteren...</translation>
    </message>
    <message>
        <source>Write this installation into a file for a colleague</source>
        <translation>Schrijf deze installatie in een bestand voor een collega</translation>
    </message>
    <message>
        <source>Use This One</source>
        <translation>Deze gebruiken</translation>
    </message>
    <message>
        <source>This is the installation at the port; while it is monitored, it is scanned anew</source>
        <translation>Dit is de installatie aan de poort; terwijl ze bewaakt wordt, wordt ze opnieuw afgezocht</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Sluiten</translation>
    </message>
</context>
<context>
    <name>InstallationQuestion</name>
    <message numerus="yes">
        <source>%n LDBs</source>
        <translation>
            <numerusform>%n LDB</numerusform>
            <numerusform>%n LDB&apos;s</numerusform>
        </translation>
    </message>
    <message>
        <source>Another installation?</source>
        <translation>Een andere installatie?</translation>
    </message>
    <message>
        <source>Installations</source>
        <translation>Installaties</translation>
    </message>
    <message>
        <source>Use the Selected One</source>
        <translation>De geselecteerde gebruiken</translation>
    </message>
    <message>
        <source>New Installation</source>
        <translation>Nieuwe installatie</translation>
    </message>
</context>
<context>
    <name>Installations</name>
    <message>
        <source>The file %1 cannot be written: %2.</source>
        <translation>Het bestand %1 kan niet worden geschreven: %2.</translation>
    </message>
    <message>
        <source>The folder %1 cannot be made.</source>
        <translation>De map %1 kan niet worden gemaakt.</translation>
    </message>
    <message>
        <source>The file %1 cannot be read: %2.</source>
        <translation>Het bestand %1 kan niet worden gelezen: %2.</translation>
    </message>
    <message>
        <source>The file %1 holds no installation.</source>
        <translation>Het bestand %1 bevat geen installatie.</translation>
    </message>
</context>
<context>
    <name>KeptLdbs</name>
    <message>
        <source>The folder %1 cannot be made.</source>
        <translation>De map %1 kan niet worden gemaakt.</translation>
    </message>
    <message>
        <source>The file %1 is in use.</source>
        <translation>Het bestand %1 is in gebruik.</translation>
    </message>
    <message>
        <source>The file %1 cannot be written: %2.</source>
        <translation>Het bestand %1 kan niet worden geschreven: %2.</translation>
    </message>
    <message>
        <source>The file %1 cannot be read: %2.</source>
        <translation>Het bestand %1 kan niet worden gelezen: %2.</translation>
    </message>
    <message>
        <source>The file %1 is damaged. A copy of it is %2.</source>
        <translation>Het bestand %1 is beschadigd. Een kopie ervan is %2.</translation>
    </message>
    <message>
        <source>The file %1 cannot be read.</source>
        <translation>Het bestand %1 kan niet worden gelezen.</translation>
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
    <name>LampPanel</name>
    <message>
        <source>No LDB</source>
        <translation>Geen LDB</translation>
    </message>
    <message>
        <source>Not monitored</source>
        <translation>Niet bewaakt</translation>
    </message>
</context>
<context>
    <name>LdbFields</name>
    <message>
        <source>no name</source>
        <translation>geen naam</translation>
    </message>
    <message>
        <source>on</source>
        <translation>aan</translation>
    </message>
    <message>
        <source>off</source>
        <translation>uit</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Naam</translation>
    </message>
    <message>
        <source>Number of FIM&apos;s</source>
        <translation>Aantal FIM&apos;s</translation>
    </message>
    <message>
        <source>Open Detection Delay</source>
        <translation>Vertraging onderbrekingsdetectie</translation>
    </message>
    <message>
        <source>General Fault Output</source>
        <translation>Algemene storingsuitgang</translation>
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
        <source>Start in Service Mode</source>
        <translation>Starten in servicemodus</translation>
    </message>
    <message>
        <source>Amplifier Detection</source>
        <translation>Versterkerdetectie</translation>
    </message>
    <message>
        <source>Audio Mute</source>
        <translation>Audio dempen</translation>
    </message>
</context>
<context>
    <name>LdbSettingsEditor</name>
    <message>
        <source>Firmware ID:</source>
        <translation>Firmware-ID:</translation>
    </message>
    <message>
        <source>&amp;Name:</source>
        <translation>&amp;Naam:</translation>
    </message>
    <message>
        <source>Nu&amp;mber of FIM&apos;s:</source>
        <translation>Aantal FI&amp;M&apos;s:</translation>
    </message>
    <message>
        <source>Enable Open Detection</source>
        <translation>Onderbrekingsdetectie inschakelen</translation>
    </message>
    <message>
        <source>Open Detection Dela&amp;y:</source>
        <translation>Ve&amp;rtraging onderbreking:</translation>
    </message>
    <message>
        <source>Enable General Fault Output</source>
        <translation>Algemene storingsuitgang inschakelen</translation>
    </message>
    <message>
        <source>Enable Earth Leakage Detection</source>
        <translation>Aardlekdetectie inschakelen</translation>
    </message>
    <message>
        <source>Enable Earth Wire Open Detection</source>
        <translation>Detectie aarddraadbreuk inschakelen</translation>
    </message>
    <message>
        <source>Start in Service Mode</source>
        <translation>Starten in servicemodus</translation>
    </message>
    <message>
        <source>Enable Amplifier Detection</source>
        <translation>Versterkerdetectie inschakelen</translation>
    </message>
    <message>
        <source>Audio Mute</source>
        <translation>Audio dempen</translation>
    </message>
    <message>
        <source>S&amp;ave</source>
        <translation>O&amp;pslaan</translation>
    </message>
    <message>
        <source>Und&amp;o</source>
        <translation>&amp;Ongedaan maken</translation>
    </message>
    <message>
        <source>Defa&amp;ult</source>
        <translation>Stan&amp;daard</translation>
    </message>
    <message>
        <source>The settings of LDB %1 are saved.</source>
        <translation>De instellingen van LDB %1 zijn opgeslagen.</translation>
    </message>
    <message numerus="yes">
        <source>The name does not fit into %n byte(s).</source>
        <translation>
            <numerusform>De naam past niet in %n byte.</numerusform>
            <numerusform>De naam past niet in %n bytes.</numerusform>
        </translation>
    </message>
    <message>
        <source>Saving the settings of LDB %1</source>
        <translation>Instellingen van LDB %1 worden opgeslagen</translation>
    </message>
    <message>
        <source>Changed. The LDB has: %1</source>
        <translation>Gewijzigd. De LDB heeft: %1</translation>
    </message>
    <message>
        <source>No LDB selected</source>
        <translation>Geen LDB geselecteerd</translation>
    </message>
    <message>
        <source>Waiting for the settings of LDB %1</source>
        <translation>Wachten op de instellingen van LDB %1</translation>
    </message>
    <message numerus="yes">
        <source>%n unsaved change(s), in bold</source>
        <translation>
            <numerusform>%n niet-opgeslagen wijziging, vet</numerusform>
            <numerusform>%n niet-opgeslagen wijzigingen, vet</numerusform>
        </translation>
    </message>
    <message>
        <source>LDB %1: %2</source>
        <translation>LDB %1: %2</translation>
    </message>
    <message>
        <source>LDB %1 did not answer: its settings are not known</source>
        <translation>LDB %1 heeft niet geantwoord: de instellingen zijn niet bekend</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Fout</translation>
    </message>
    <message>
        <source>Not all settings of LDB %1 are saved.</source>
        <translation>Niet alle instellingen van LDB %1 zijn opgeslagen.</translation>
    </message>
    <message>
        <source>Attention</source>
        <translation>Let op</translation>
    </message>
    <message>
        <source>LDB %1 is gone. These changes were not saved:</source>
        <translation>LDB %1 is weg. Deze wijzigingen zijn niet opgeslagen:</translation>
    </message>
    <message>
        <source>LDB %1 is not connected: this was read last</source>
        <translation>LDB %1 is niet verbonden: dit is het laatst gelezen</translation>
    </message>
    <message>
        <source>LDB %1 is not connected: its settings are not known</source>
        <translation>LDB %1 is niet verbonden: de instellingen zijn niet bekend</translation>
    </message>
    <message>
        <source>Changed by somebody else meanwhile. The LDB has: %1</source>
        <translation>Intussen door iemand anders gewijzigd. De LDB heeft: %1</translation>
    </message>
    <message>
        <source>Not saved: %1</source>
        <translation>Niet opgeslagen: %1</translation>
    </message>
    <message>
        <source>Changed by somebody else meanwhile: %1 (%2)</source>
        <translation>Intussen door iemand anders gewijzigd: %1 (%2)</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>The former settings of LDB %1 could not be kept.</source>
        <translation>De vroegere instellingen van LDB %1 konden niet worden bewaard.</translation>
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
        <translation>Open(geh.)</translation>
    </message>
    <message>
        <source>Short</source>
        <translation>Kortsluiting</translation>
    </message>
    <message>
        <source>Short + Open(memory)</source>
        <translation>Kortsluiting + Open(geh.)</translation>
    </message>
    <message>
        <source>Short(memory)</source>
        <translation>Kortsluiting(geh.)</translation>
    </message>
    <message>
        <source>Short(memory) + Open</source>
        <translation>Kortsluiting(geh.) + Open</translation>
    </message>
    <message>
        <source>Short(memory) + Open(memory)</source>
        <translation>Kortsluiting(geh.) + Open(geh.)</translation>
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
        <translation>Open(geh.) + DC-lek</translation>
    </message>
    <message>
        <source>Short + DC Leakage</source>
        <translation>Kortsluiting + DC-lek</translation>
    </message>
    <message>
        <source>Short + Open(memory) + DC Leakage</source>
        <translation>Kortsluiting + Open(geh.) + DC-lek</translation>
    </message>
    <message>
        <source>Short(memory) + DC Leakage</source>
        <translation>Kortsluiting(geh.) + DC-lek</translation>
    </message>
    <message>
        <source>Short(memory) + Open + DC Leakage</source>
        <translation>Kortsluiting(geh.) + Open + DC-lek</translation>
    </message>
    <message>
        <source>Short(memory) + Open(memory) + DC Leakage</source>
        <translation>Kortsluiting(geh.) + Open(geh.) + DC-lek</translation>
    </message>
    <message>
        <source>DC Leakage(memory)</source>
        <translation>DC-lek(geh.)</translation>
    </message>
    <message>
        <source>Open + DC Leakage(memory)</source>
        <translation>Open + DC-lek(geh.)</translation>
    </message>
    <message>
        <source>Open(memory) + DC Leakage(memory)</source>
        <translation>Open(geh.) + DC-lek(geh.)</translation>
    </message>
    <message>
        <source>Short + DC Leakage(memory)</source>
        <translation>Kortsluiting + DC-lek(geh.)</translation>
    </message>
    <message>
        <source>Short + Open(memory) + DC Leakage(memory)</source>
        <translation>Kortsluiting + Open(geh.) + DC-lek(geh.)</translation>
    </message>
    <message>
        <source>Short(memory) + DC Leakage(memory)</source>
        <translation>Kortsluiting(geh.) + DC-lek(geh.)</translation>
    </message>
    <message>
        <source>Short(memory)+ Open + DC Leakage(memory)</source>
        <translation>Kortsluiting(geh.)+ Open + DC-lek(geh.)</translation>
    </message>
    <message>
        <source>Short(memory) + Open(memory) + DC Leakage(memory)</source>
        <translation>Kortsluiting(geh.) + Open(geh.) + DC-lek(geh.)</translation>
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
        <translation>Lek + Open(geh.)</translation>
    </message>
    <message>
        <source>Leakage(memory)</source>
        <translation>Lek(geh.)</translation>
    </message>
    <message>
        <source>Leakage(memory) + Open</source>
        <translation>Lek(geh.) + Open</translation>
    </message>
    <message>
        <source>Leakage(memory) + Open(memory)</source>
        <translation>Lek(geh.) + Open(geh.)</translation>
    </message>
    <message>
        <source>Polling</source>
        <translation>Pollen</translation>
    </message>
    <message>
        <source>Reconnected</source>
        <translation>Weer aanwezig</translation>
    </message>
    <message>
        <source>Not Supported</source>
        <translation>Niet voorzien</translation>
    </message>
    <message>
        <source>Unknown</source>
        <translation>Onbekend</translation>
    </message>
</context>
<context>
    <name>LdbTransfer</name>
    <message>
        <source>LDB %1 (address %2): %3</source>
        <translation>LDB %1 (adres %2): %3</translation>
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
        <source>The file cannot be written: %1</source>
        <translation>Het bestand kan niet worden geschreven: %1</translation>
    </message>
    <message>
        <source>the connection ended before its answer</source>
        <translation>de verbinding werd beëindigd vóór het antwoord</translation>
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
        <source>the name has characters that the file cannot hold</source>
        <translation>de naam bevat tekens die het bestand niet kan bevatten</translation>
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
        <source>no line in the file</source>
        <translation>geen regel in het bestand</translation>
    </message>
    <message>
        <source>no LDB with this address is connected</source>
        <translation>er is geen LDB met dit adres verbonden</translation>
    </message>
    <message>
        <source>the connection ended before it was written</source>
        <translation>de verbinding werd beëindigd voordat het geschreven was</translation>
    </message>
    <message>
        <source>Line %1: ID %2 (read as %2 hexadecimal, address %3): %4</source>
        <translation>Regel %1: ID %2 (gelezen als %2 hexadecimaal, adres %3): %4</translation>
    </message>
    <message>
        <source>this LDB is lost</source>
        <translation>deze LDB is verloren</translation>
    </message>
    <message>
        <source>no LDB can have this address</source>
        <translation>geen LDB kan dit adres hebben</translation>
    </message>
    <message>
        <source>its present settings could not be read</source>
        <translation>haar huidige instellingen konden niet worden gelezen</translation>
    </message>
    <message>
        <source>Line %1: ID %2: %3</source>
        <translation>Regel %1: ID %2: %3</translation>
    </message>
    <message>
        <source>Line %1: ID %2 (read as %2 decimal, address %3): %4</source>
        <translation>Regel %1: ID %2 (gelezen als %2 decimaal, adres %3): %4</translation>
    </message>
    <message>
        <source>its settings have changed since they were shown</source>
        <translation>haar instellingen zijn veranderd sinds ze werden getoond</translation>
    </message>
    <message>
        <source>was left out of what was confirmed: not written</source>
        <translation>hoorde niet bij wat is bevestigd: niet geschreven</translation>
    </message>
</context>
<context>
    <name>LdbWork</name>
    <message>
        <source>Settings are being saved. The LDB may be left with a part of them.</source>
        <translation>Instellingen worden opgeslagen. De LDB kan met een deel ervan achterblijven.</translation>
    </message>
    <message>
        <source>Fault finding is under way. The loop may be left without sound.</source>
        <translation>Er wordt naar fouten gezocht. De lus kan zonder geluid achterblijven.</translation>
    </message>
    <message>
        <source>What LDB %1 had before the fault finding is being put back. Its loop may be left without sound.</source>
        <translation>Wat LDB %1 vóór het foutzoeken had, wordt teruggezet. De lus kan zonder geluid blijven.</translation>
    </message>
</context>
<context>
    <name>LeaveQuestion</name>
    <message>
        <source>Attention</source>
        <translation>Let op</translation>
    </message>
    <message numerus="yes">
        <source>LDB %1 has %n unsaved change(s).</source>
        <translation>
            <numerusform>LDB %1 heeft %n niet-opgeslagen wijziging.</numerusform>
            <numerusform>LDB %1 heeft %n niet-opgeslagen wijzigingen.</numerusform>
        </translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Opslaan</translation>
    </message>
    <message>
        <source>They cannot be saved now. %1</source>
        <translation>Ze kunnen nu niet worden opgeslagen. %1</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>Niet opslaan</translation>
    </message>
    <message>
        <source>Stay</source>
        <translation>Blijven</translation>
    </message>
</context>
<context>
    <name>LineQuality</name>
    <message>
        <source>%1 exchanges: %2 good, %3 damaged, %4 silent, %5 not believed</source>
        <translation>%1 uitwisselingen: %2 goed, %3 beschadigd, %4 stil, %5 niet geloofd</translation>
    </message>
    <message>
        <source>Damage on LDBs %1 alone: look at their connections.</source>
        <translation>Schade alleen bij de LDB&apos;s %1: kijk naar hun aansluitingen.</translation>
    </message>
    <message>
        <source>Silence of LDBs %1 alone: look at them and their connections.</source>
        <translation>Alleen de LDB&apos;s %1 zwijgen: kijk naar deze en hun aansluitingen.</translation>
    </message>
    <message>
        <source>Damage on LDB %1 alone: look at its connection.</source>
        <translation>Schade alleen bij LDB %1: kijk naar zijn aansluiting.</translation>
    </message>
    <message>
        <source>Silence of LDB %1 alone: look at it and its connection.</source>
        <translation>Alleen LDB %1 zwijgt: kijk ernaar en naar zijn aansluiting.</translation>
    </message>
    <message>
        <source>Damage on all LDBs, and far more on %1: look at the connection there first, then at the adapter and the trunk.</source>
        <translation>Schade bij alle LDB&apos;s, en veel meer bij %1: kijk eerst naar de aansluiting daar, dan naar de adapter en de hoofdkabel.</translation>
    </message>
    <message>
        <source>Silence of all LDBs, and far more of %1: look there first, then at the adapter and the trunk.</source>
        <translation>Alle LDB&apos;s zwijgen soms, en %1 veel meer: kijk daar eerst, dan naar de adapter en de hoofdkabel.</translation>
    </message>
    <message>
        <source>Damage on all LDBs alike: look at the adapter and the trunk.</source>
        <translation>Schade bij alle LDB&apos;s in gelijke mate: kijk naar de adapter en de hoofdkabel.</translation>
    </message>
    <message>
        <source>Silence of all LDBs alike: look at the adapter and the trunk.</source>
        <translation>Alle LDB&apos;s zwijgen in gelijke mate: kijk naar de adapter en de hoofdkabel.</translation>
    </message>
    <message>
        <source>Damage on several LDBs, more on some than on others: no one place can be named.</source>
        <translation>Schade bij meerdere LDB&apos;s, bij de ene meer dan bij de andere: er is niet één plaats te noemen.</translation>
    </message>
    <message>
        <source>Silence of several LDBs, more of some than of others: no one place can be named.</source>
        <translation>Meerdere LDB&apos;s zwijgen, de ene meer dan de andere: er is niet één plaats te noemen.</translation>
    </message>
    <message>
        <source>Damage on LDB %1. There is no other one to compare it with, so the place cannot be named.</source>
        <translation>Schade bij LDB %1. Er is geen andere om mee te vergelijken, dus de plaats is niet te noemen.</translation>
    </message>
    <message>
        <source>Silence of LDB %1. There is no other one to compare it with, so the place cannot be named.</source>
        <translation>LDB %1 zwijgt. Er is geen andere om mee te vergelijken, dus de plaats is niet te noemen.</translation>
    </message>
    <message>
        <source>Too few exchanges to say anything of the line.</source>
        <translation>Te weinig uitwisselingen om iets over de lijn te zeggen.</translation>
    </message>
    <message>
        <source>Answers came at unusual times, and were not believed.</source>
        <translation>Er kwamen antwoorden op ongewone tijden; die zijn niet geloofd.</translation>
    </message>
    <message>
        <source>The line is good: no more than one exchange in a thousand was not.</source>
        <translation>De lijn is goed: niet meer dan één op de duizend uitwisselingen was het niet.</translation>
    </message>
    <message>
        <source>Nothing stands out.</source>
        <translation>Niets valt op.</translation>
    </message>
</context>
<context>
    <name>LinkNotices</name>
    <message>
        <source>Another program is using this port.</source>
        <translation>Een ander programma gebruikt deze poort.</translation>
    </message>
    <message>
        <source>To use this port, you must be in the group &quot;%1&quot;; a new membership counts from the next login.</source>
        <translation>Om deze poort te gebruiken moet u lid zijn van de groep &quot;%1&quot;; een nieuw lidmaatschap geldt vanaf de volgende aanmelding.</translation>
    </message>
    <message>
        <source>The LDB with ID: %1 is disconnected!</source>
        <translation>De LDB met ID: %1 is niet verbonden!</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Fout</translation>
    </message>
    <message>
        <source>Cannot establish the serial communication, check the serial port settings!</source>
        <translation>De seriële communicatie kan niet tot stand worden gebracht, controleer de instellingen van de seriële poort!</translation>
    </message>
    <message>
        <source>Port %1: %2</source>
        <translation>Poort %1: %2</translation>
    </message>
    <message>
        <source>Port %1: no reason is known.</source>
        <translation>Poort %1: er is geen reden bekend.</translation>
    </message>
    <message>
        <source>There is no port %1. Plug the adapter in, or choose another port in the settings dialog.</source>
        <translation>Er is geen poort %1. Steek de adapter in, of kies een andere poort in het instellingenvenster.</translation>
    </message>
    <message>
        <source>Port %1 is gone: the adapter was unplugged. Plug it in and start again.</source>
        <translation>Poort %1 is weg: de adapter is losgekoppeld. Steek hem in en start opnieuw.</translation>
    </message>
    <message>
        <source>The connection to port %1 broke off. Check the adapter and its cable, and start again.</source>
        <translation>De verbinding met poort %1 is verbroken. Controleer de adapter en zijn kabel, en start opnieuw.</translation>
    </message>
    <message>
        <source>The program waits for the port, and goes on by itself when it is back.</source>
        <translation>Het programma wacht op de poort en gaat vanzelf verder als ze terug is.</translation>
    </message>
    <message>
        <source>Port %1 is gone: the adapter was unplugged. Plug it in.</source>
        <translation>Poort %1 is weg: de adapter is losgetrokken. Steek hem weer in.</translation>
    </message>
    <message>
        <source>The connection to port %1 broke off. Check the adapter and its cable.</source>
        <translation>De verbinding met poort %1 brak af. Controleer de adapter en zijn kabel.</translation>
    </message>
    <message>
        <source>No serial port is chosen. Choose one in the settings dialog: the button with the gear, at the top left.</source>
        <translation>Er is geen seriële poort gekozen. Kies er een in het instellingenvenster: de knop met het tandwiel, linksboven.</translation>
    </message>
</context>
<context>
    <name>LogPanel</name>
    <message>
        <source>Log file</source>
        <translation>Logbestand</translation>
    </message>
    <message>
        <source>Bro&amp;wse...</source>
        <translation>Bla&amp;deren...</translation>
    </message>
    <message>
        <source>Choose the log file</source>
        <translation>Logbestand kiezen</translation>
    </message>
    <message>
        <source>Log Ever&amp;y</source>
        <translation>Log el&amp;ke</translation>
    </message>
    <message>
        <source>Seconds between two records of an LDB; at 0 every record is written</source>
        <translation>Seconden tussen twee records van een LDB; bij 0 wordt elk record geschreven</translation>
    </message>
    <message>
        <source>s</source>
        <translation>s</translation>
    </message>
    <message>
        <source>Log the ticked LDB only</source>
        <translation>Alleen de aangevinkte LDB loggen</translation>
    </message>
    <message>
        <source>Sele&amp;cted</source>
        <translation>Gesele&amp;cteerd</translation>
    </message>
    <message>
        <source>Log all LDBs</source>
        <translation>Alle LDB&apos;s loggen</translation>
    </message>
    <message>
        <source>&amp;All</source>
        <translation>&amp;Alle</translation>
    </message>
    <message>
        <source>Start or stop writing the log file</source>
        <translation>Start of stop het schrijven van het logbestand</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>Start</translation>
    </message>
    <message>
        <source>Log to File</source>
        <translation>Logbestand</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Stop</translation>
    </message>
    <message>
        <source>Log File</source>
        <translation>Logbestand</translation>
    </message>
    <message>
        <source>The log file %1 cannot be opened: %2</source>
        <translation>Het logbestand %1 kan niet worden geopend: %2</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Fout</translation>
    </message>
    <message>
        <source>Logging has stopped!</source>
        <translation>Het loggen is gestopt!</translation>
    </message>
    <message>
        <source>LDB %1</source>
        <translation>LDB %1</translation>
    </message>
    <message>
        <source>LDB %1 (%2)</source>
        <translation>LDB %1 (%2)</translation>
    </message>
    <message>
        <source>Waiting for the bus since %1.</source>
        <translation>Wacht op de bus sinds %1.</translation>
    </message>
    <message>
        <source>No record came from %1 to %2.</source>
        <translation>Van %1 tot %2 kwam er niets binnen.</translation>
    </message>
    <message>
        <source>A log is being written: stop it first.</source>
        <translation>Er wordt een logbestand geschreven: stop dat eerst.</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>Serial port, language and sounds</source>
        <translation>Seriële poort, taal en geluid</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Instellingen</translation>
    </message>
    <message>
        <source>Start or stop the conversation with the bus</source>
        <translation>Start of stop de communicatie met de bus</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>Start</translation>
    </message>
    <message>
        <source>Search the bus for LDBs again</source>
        <translation>Doorzoek de bus opnieuw naar LDB&apos;s</translation>
    </message>
    <message>
        <source>&amp;Reload Devices</source>
        <translation>Apparaten &amp;herladen</translation>
    </message>
    <message>
        <source>Write the settings of all LDBs to a file</source>
        <translation>Schrijf de instellingen van alle LDB&apos;s naar een bestand</translation>
    </message>
    <message>
        <source>&amp;Export Settings</source>
        <translation>Instellingen &amp;exporteren</translation>
    </message>
    <message>
        <source>Write the settings in a file to the LDBs</source>
        <translation>Schrijf de instellingen uit een bestand naar de LDB&apos;s</translation>
    </message>
    <message>
        <source>&amp;Import Settings</source>
        <translation>Instellingen &amp;importeren</translation>
    </message>
    <message>
        <source>&amp;Status</source>
        <translation>&amp;Status</translation>
    </message>
    <message>
        <source>OPEN/SHORT/LEAK</source>
        <translation>OPEN/KORTSLUITING/LEK</translation>
    </message>
    <message>
        <source>&amp;OPEN/SHORT/LEAK</source>
        <translation>&amp;OPEN/KORTSLUITING/LEK</translation>
    </message>
    <message>
        <source>LDBs with a loop or amplifier fault</source>
        <translation>LDB&apos;s met een lus- of versterkerfout</translation>
    </message>
    <message>
        <source>SERVICE MODE</source>
        <translation>SERVICEMODUS</translation>
    </message>
    <message>
        <source>SERVICE &amp;MODE</source>
        <translation>SERVICE&amp;MODUS</translation>
    </message>
    <message>
        <source>LDBs in service mode</source>
        <translation>LDB&apos;s in servicemodus</translation>
    </message>
    <message>
        <source>EARTH FAULT</source>
        <translation>AARDFOUT</translation>
    </message>
    <message>
        <source>E&amp;ARTH FAULT</source>
        <translation>AA&amp;RDFOUT</translation>
    </message>
    <message>
        <source>LDBs with an earth fault</source>
        <translation>LDB&apos;s met een aardfout</translation>
    </message>
    <message>
        <source>SETTIN&amp;GS</source>
        <translation>I&amp;NSTELLINGEN</translation>
    </message>
    <message>
        <source>LDBs whose settings need a check</source>
        <translation>LDB&apos;s waarvan de instellingen gecontroleerd moeten worden</translation>
    </message>
    <message>
        <source>L&amp;DB Settings</source>
        <translation>&amp;LDB-instellingen</translation>
    </message>
    <message>
        <source>&amp;Log to File</source>
        <translation>Lo&amp;gbestand</translation>
    </message>
    <message>
        <source>Global Status:</source>
        <translation>Algemene status:</translation>
    </message>
    <message>
        <source>Overview of all LDBs</source>
        <translation>Overzicht van alle LDB&apos;s</translation>
    </message>
    <message>
        <source>Plot</source>
        <translation>Grafiek</translation>
    </message>
    <message>
        <source>Zoom In</source>
        <translation>Inzoomen</translation>
    </message>
    <message>
        <source>Zoom with the wheel and move with the mouse</source>
        <translation>Zoom met het wiel en verschuif met de muis</translation>
    </message>
    <message>
        <source>Details of the selected LDB</source>
        <translation>Details van de geselecteerde LDB</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Stop</translation>
    </message>
    <message>
        <source>Zoom Out</source>
        <translation>Uitzoomen</translation>
    </message>
    <message numerus="yes">
        <source>Available LDB&apos;s: %n.</source>
        <translation>
            <numerusform>Beschikbare LDB&apos;s: %n.</numerusform>
            <numerusform>Beschikbare LDB&apos;s: %n.</numerusform>
        </translation>
    </message>
    <message>
        <source>Loading LDB device list...</source>
        <translation>LDB-lijst wordt geladen...</translation>
    </message>
    <message>
        <source>Serial communication failed.</source>
        <translation>Seriële communicatie mislukt.</translation>
    </message>
    <message>
        <source>Serial commands in queue: </source>
        <translation>Seriële opdrachten in wachtrij: </translation>
    </message>
    <message>
        <source>Scanning for connected LDB&apos;s...  LDB&apos;s Checked %1, LDB&apos;s Found %2</source>
        <translation>Zoeken naar verbonden LDB&apos;s...  LDB&apos;s gecontroleerd %1, LDB&apos;s gevonden %2</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>Voortgang</translation>
    </message>
    <message>
        <source>Open the manual (F1)</source>
        <translation>Handleiding openen, in het Engels (F1)</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Help</translation>
    </message>
    <message>
        <source>End the export or import behind the LDB under way</source>
        <translation>De export of import beëindigen na de LDB die bezig is</translation>
    </message>
    <message>
        <source>Stop Export or Import</source>
        <translation>Export of import stoppen</translation>
    </message>
    <message>
        <source>LOST/FA&amp;ULT</source>
        <translation>VERLOREN/FO&amp;UT</translation>
    </message>
    <message>
        <source>LDBs that are lost, in fault, or whose factory reset has failed</source>
        <translation>LDB&apos;s die verloren of in storing zijn, of waarvan de fabrieksreset is mislukt</translation>
    </message>
    <message>
        <source>%1 of %2 answer, %3 lost.</source>
        <translation>%1 van %2 antwoorden, %3 verloren.</translation>
    </message>
    <message>
        <source>Settings of all LDB&apos;s</source>
        <translation>Instellingen van alle LDB&apos;s</translation>
    </message>
    <message>
        <source>Show, compare and change the settings of all LDBs in a table</source>
        <translation>Toon, vergelijk en wijzig de instellingen van alle LDB&apos;s in een tabel</translation>
    </message>
    <message>
        <source>All Settings...</source>
        <translation>Instellingen...</translation>
    </message>
    <message>
        <source>What was recorded: take it home</source>
        <translation>Wat is opgenomen: neem het mee</translation>
    </message>
    <message>
        <source>Evidence</source>
        <translation>Bewijs</translation>
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
    <message>
        <source>%1 ago</source>
        <translation>%1 geleden</translation>
    </message>
    <message>
        <source>LDB %1</source>
        <translation>LDB %1</translation>
    </message>
</context>
<context>
    <name>ManualWindow</name>
    <message>
        <source>Error</source>
        <translation>Fout</translation>
    </message>
    <message>
        <source>The manual was not found in the folder %1.</source>
        <translation>De handleiding is niet gevonden in de map %1.</translation>
    </message>
    <message>
        <source>Manual - %1</source>
        <translation>Handleiding - %1</translation>
    </message>
    <message>
        <source>Manual</source>
        <translation>Handleiding</translation>
    </message>
    <message>
        <source>&amp;Contents</source>
        <translation>&amp;Inhoud</translation>
    </message>
    <message>
        <source>&amp;Back</source>
        <translation>&amp;Terug</translation>
    </message>
    <message>
        <source>&amp;Forward</source>
        <translation>&amp;Vooruit</translation>
    </message>
</context>
<context>
    <name>MarkDialog</name>
    <message>
        <source>Mark</source>
        <translation>Markering</translation>
    </message>
    <message>
        <source>&amp;What is to be noted at %1</source>
        <translation>&amp;Wat moet er bij %1 genoteerd worden</translation>
    </message>
    <message>
        <source>Text of the mark</source>
        <translation>Tekst van de markering</translation>
    </message>
    <message>
        <source>Set</source>
        <translation>Instellen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuleren</translation>
    </message>
</context>
<context>
    <name>Monitoring</name>
    <message>
        <source>%1 d</source>
        <translation>%1 d</translation>
    </message>
    <message>
        <source>%1 h</source>
        <translation>%1 u</translation>
    </message>
    <message>
        <source>%1 min</source>
        <translation>%1 min</translation>
    </message>
    <message>
        <source>%1 s</source>
        <translation>%1 s</translation>
    </message>
</context>
<context>
    <name>MonitoringStrip</name>
    <message>
        <source>Dismiss Lost LDBs</source>
        <translation>Verloren LDB&apos;s verwijderen</translation>
    </message>
    <message>
        <source>Only LDB %1 is polled.</source>
        <translation>Alleen LDB %1 wordt gepolld.</translation>
    </message>
    <message numerus="yes">
        <source>Monitored: %n LDBs answer.</source>
        <translation>
            <numerusform>Bewaakt: %n LDB antwoordt.</numerusform>
            <numerusform>Bewaakt: %n LDB&apos;s antwoorden.</numerusform>
        </translation>
    </message>
    <message>
        <source>Monitored: %1 of %2 LDBs answer, %3 lost.</source>
        <translation>Bewaakt: %1 van %2 LDB&apos;s antwoorden, %3 verloren.</translation>
    </message>
    <message>
        <source>Not monitored: click Start.</source>
        <translation>Niet bewaakt: klik op Start.</translation>
    </message>
    <message>
        <source>stopped</source>
        <translation>gestopt</translation>
    </message>
    <message>
        <source>no LDB was found</source>
        <translation>er is geen LDB gevonden</translation>
    </message>
    <message>
        <source>%1 cannot be opened</source>
        <translation>%1 kan niet worden geopend</translation>
    </message>
    <message>
        <source>the connection to %1 was lost</source>
        <translation>de verbinding met %1 is verbroken</translation>
    </message>
    <message>
        <source>the bus is being scanned</source>
        <translation>de bus wordt gescand</translation>
    </message>
    <message>
        <source>no LDB answers</source>
        <translation>geen LDB antwoordt</translation>
    </message>
    <message>
        <source>Not monitored since %1: %2</source>
        <translation>Niet bewaakt sinds %1: %2</translation>
    </message>
    <message>
        <source>Not monitored: %1</source>
        <translation>Niet bewaakt: %1</translation>
    </message>
    <message>
        <source>%1; waiting for it to come back</source>
        <translation>%1; wachten tot ze terug is</translation>
    </message>
    <message>
        <source>End Waiting</source>
        <translation>Niet meer wachten</translation>
    </message>
    <message>
        <source>Do not go on by itself when the port is back</source>
        <translation>Niet vanzelf verdergaan als de poort terug is</translation>
    </message>
    <message>
        <source>Monitored: %1 of %2 LDBs answer, %3 lost, %4 not heard yet.</source>
        <translation>Bewaakt: %1 van %2 LDB&apos;s antwoorden, %3 verloren, %4 nog niet gehoord.</translation>
    </message>
    <message>
        <source>no serial port is chosen</source>
        <translation>er is geen seriële poort gekozen</translation>
    </message>
    <message>
        <source>it was not recorded</source>
        <translation>dit is niet opgenomen</translation>
    </message>
    <message>
        <source>Take the lost LDBs out of the list; one that answers comes back</source>
        <translation>De verloren LDB&apos;s uit de lijst nemen; een die antwoordt, komt terug</translation>
    </message>
</context>
<context>
    <name>MuteMarks</name>
    <message>
        <source>The audio of this LDB is muted.</source>
        <translation>De audio van deze LDB is gedempt.</translation>
    </message>
</context>
<context>
    <name>OverviewBar</name>
    <message>
        <source>%1 of %2</source>
        <translation>%1 van %2</translation>
    </message>
    <message numerus="yes">
        <source>%n faults hidden</source>
        <translation>
            <numerusform>%n fout verborgen</numerusform>
            <numerusform>%n fouten verborgen</numerusform>
        </translation>
    </message>
    <message>
        <source>Filter (Ctrl+F)</source>
        <translation>Filter (Ctrl+F)</translation>
    </message>
    <message>
        <source>Show only LDBs with these words in their id, name, mode or conditions. Esc shows all again.</source>
        <translation>Alleen LDB&apos;s tonen met deze woorden in hun id, naam, modus of toestanden. Esc toont alle weer.</translation>
    </message>
    <message>
        <source>Filter of the overview</source>
        <translation>Filter van het overzicht</translation>
    </message>
    <message>
        <source>Only faults</source>
        <translation>Alleen fouten</translation>
    </message>
    <message>
        <source>Show only LDBs that are lost, in fault, or named behind one of the lamps</source>
        <translation>Alleen LDB&apos;s tonen die verloren zijn, in fout zijn of achter een van de lampen genoemd worden</translation>
    </message>
    <message>
        <source>Faults first</source>
        <translation>Fouten eerst</translation>
    </message>
    <message>
        <source>Lost and faulty LDBs stand at the top, whatever is sorted by</source>
        <translation>Verloren en foute LDB&apos;s staan bovenaan, waarop ook gesorteerd wordt</translation>
    </message>
    <message>
        <source>LDBs that are shown, of all. The selected one is always shown.</source>
        <translation>LDB&apos;s die getoond worden, van alle. De geselecteerde wordt altijd getoond.</translation>
    </message>
    <message>
        <source>The filter hides LDBs that are lost or faulty: click to show all</source>
        <translation>Het filter verbergt LDB&apos;s die verloren of fout zijn: klik om alle te tonen</translation>
    </message>
</context>
<context>
    <name>OverviewQuality</name>
    <message>
        <source>The line in the last 15 minutes: %1</source>
        <translation>De lijn in de laatste 15 minuten: %1</translation>
    </message>
</context>
<context>
    <name>Plot</name>
    <message>
        <source>Follow</source>
        <translation>Volgen</translation>
    </message>
    <message>
        <source>Shows the newest values again and goes along with them</source>
        <translation>Toont weer de nieuwste waarden en gaat ermee mee</translation>
    </message>
</context>
<context>
    <name>PlotExport</name>
    <message>
        <source>%1 to %2</source>
        <translation>%1 tot %2</translation>
    </message>
    <message>
        <source>The picture cannot be made.</source>
        <translation>De afbeelding kan niet worden gemaakt.</translation>
    </message>
</context>
<context>
    <name>PlotMenu</name>
    <message>
        <source>Attention</source>
        <translation>Let op</translation>
    </message>
    <message>
        <source>%1 cannot be written: %2</source>
        <translation>%1 kan niet worden geschreven: %2</translation>
    </message>
    <message>
        <source>Follow</source>
        <translation>Volgen</translation>
    </message>
    <message>
        <source>Set Mark A Here</source>
        <translation>Markering A hier zetten</translation>
    </message>
    <message>
        <source>Set Mark B Here</source>
        <translation>Markering B hier zetten</translation>
    </message>
    <message>
        <source>Remove the Marks</source>
        <translation>Markeringen verwijderen</translation>
    </message>
    <message>
        <source>Save the Values</source>
        <translation>Waarden opslaan</translation>
    </message>
    <message>
        <source>Save the Picture</source>
        <translation>Afbeelding opslaan</translation>
    </message>
    <message>
        <source>Save the Picture (PNG)...</source>
        <translation>Afbeelding opslaan (PNG)...</translation>
    </message>
    <message>
        <source>Save the Picture (SVG)...</source>
        <translation>Afbeelding opslaan (SVG)...</translation>
    </message>
    <message>
        <source>Save the Values Shown (CSV)...</source>
        <translation>Getoonde waarden opslaan (CSV)...</translation>
    </message>
</context>
<context>
    <name>PlotReading</name>
    <message>
        <source>%1 to %2</source>
        <translation>%1 tot %2</translation>
    </message>
</context>
<context>
    <name>PortPlot</name>
    <message>
        <source>mA</source>
        <translation>mA</translation>
    </message>
</context>
<context>
    <name>PutBack</name>
    <message>
        <source>no name</source>
        <translation>geen naam</translation>
    </message>
    <message>
        <source>%1: before %2, now %3</source>
        <translation>%1: eerst %2, nu %3</translation>
    </message>
    <message>
        <source>LDB %1 (%2) has other settings than before the fault finding of %3.</source>
        <translation>LDB %1 (%2) heeft andere instellingen dan vóór het fout zoeken van %3.</translation>
    </message>
    <message>
        <source>The former settings of LDB %1 are not restored: %2</source>
        <translation>De vorige instellingen van LDB %1 zijn niet hersteld: %2</translation>
    </message>
    <message>
        <source>Restore the former settings</source>
        <translation>Vorige instellingen herstellen</translation>
    </message>
    <message>
        <source>Leave them</source>
        <translation>Zo laten</translation>
    </message>
    <message>
        <source>Later</source>
        <translation>Later</translation>
    </message>
    <message>
        <source>Before fault finding, on %1, LDB %2 was called %3. Now it is called %4. Is it the same LDB?</source>
        <translation>Vóór het fout zoeken, op %1, heette LDB %2 %3. Nu heet zij %4. Is het dezelfde LDB?</translation>
    </message>
    <message>
        <source>Before fault finding, on %1, LDB %2 was called %3. Now LDB %4 has this name. Is it the same LDB?</source>
        <translation>Vóór het fout zoeken, op %1, heette LDB %2 %3. Nu heeft LDB %4 deze naam. Is het dezelfde LDB?</translation>
    </message>
    <message>
        <source>Fault finding</source>
        <translation>Fout zoeken</translation>
    </message>
    <message>
        <source>If it is, its audio mute becomes what it was, and its settings are compared.</source>
        <translation>Zo ja, dan wordt haar audiodemping wat die was, en worden haar instellingen vergeleken.</translation>
    </message>
    <message>
        <source>The same LDB</source>
        <translation>Dezelfde LDB</translation>
    </message>
    <message>
        <source>Forget it</source>
        <translation>Vergeten</translation>
    </message>
    <message>
        <source>Another LDB</source>
        <translation>Een andere LDB</translation>
    </message>
    <message>
        <source>Attention</source>
        <translation>Let op</translation>
    </message>
    <message>
        <source>The audio mute of LDB %1 could not be ended.
The audio of this LDB stays muted.</source>
        <translation>De audiodemping van LDB %1 kon niet worden beëindigd.
De audio van deze LDB blijft gedempt.</translation>
    </message>
    <message>
        <source>The program remembers it, and ends the mute as soon as the LDB takes it.</source>
        <translation>Het programma onthoudt het, en beëindigt de demping zodra de LDB het aanneemt.</translation>
    </message>
    <message>
        <source>LDB %1 is muted again, as it was before the fault finding.</source>
        <translation>LDB %1 is weer gedempt, zoals vóór het fout zoeken.</translation>
    </message>
    <message>
        <source>The audio mute of LDB %1 from the fault finding has ended.</source>
        <translation>De audiodemping van LDB %1 door het fout zoeken is beëindigd.</translation>
    </message>
    <message>
        <source>LDB %1 has its former settings again.</source>
        <translation>LDB %1 heeft haar vorige instellingen weer.</translation>
    </message>
    <message>
        <source>LDB %1 keeps its settings; the former ones are forgotten.</source>
        <translation>LDB %1 houdt haar instellingen; de vorige zijn vergeten.</translation>
    </message>
    <message>
        <source>What was put back into LDB %1 will be put back again: %2</source>
        <translation>Wat in LDB %1 is teruggezet, wordt opnieuw teruggezet: %2</translation>
    </message>
    <message>
        <source>What was kept of LDB&apos;s before fault finding cannot be read.</source>
        <translation>Wat van LDB&apos;s vóór het foutzoeken is bewaard, kan niet worden gelezen.</translation>
    </message>
    <message>
        <source>%1
An LDB whose fault finding was broken off may still be muted, or have default settings.</source>
        <translation>%1
Een LDB waarvan het foutzoeken is afgebroken, kan nog gedempt zijn of standaardinstellingen hebben.</translation>
    </message>
    <message>
        <source>Nothing was restored: LDB %1 is now called %2.</source>
        <translation>Er is niets hersteld: LDB %1 heet nu %2.</translation>
    </message>
</context>
<context>
    <name>QualityDisplay</name>
    <message>
        <source>Line quality</source>
        <translation>Lijnkwaliteit</translation>
    </message>
    <message>
        <source>Shows how well the exchanges with each LDB go, and went</source>
        <translation>Toont hoe goed de uitwisselingen met elke LDB gaan en gingen</translation>
    </message>
</context>
<context>
    <name>QualityModel</name>
    <message>
        <source>Bus</source>
        <translation>Bus</translation>
    </message>
    <message>
        <source>LDB</source>
        <translation>LDB</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Naam</translation>
    </message>
    <message>
        <source>How often the LDB was asked</source>
        <translation>Hoe vaak de LDB is gevraagd</translation>
    </message>
    <message>
        <source>Exchanges</source>
        <translation>Vragen</translation>
    </message>
    <message>
        <source>Share of exchanges with a sound answer</source>
        <translation>Deel van de uitwisselingen met een gaaf antwoord</translation>
    </message>
    <message>
        <source>Good</source>
        <translation>Goed</translation>
    </message>
    <message>
        <source>Share of exchanges with a damaged answer</source>
        <translation>Deel van de uitwisselingen met een beschadigd antwoord</translation>
    </message>
    <message>
        <source>Damaged</source>
        <translation>Beschadigd</translation>
    </message>
    <message>
        <source>Share of exchanges without an answer</source>
        <translation>Deel van de uitwisselingen zonder antwoord</translation>
    </message>
    <message>
        <source>Silent</source>
        <translation>Stil</translation>
    </message>
    <message>
        <source>Share of sound answers that may be those to another question, as they came at an unusual time</source>
        <translation>Deel van de gave antwoorden die bij een andere vraag kunnen horen, want ze kwamen op een ongewone tijd</translation>
    </message>
    <message>
        <source>Not believed</source>
        <translation>Niet geloofd</translation>
    </message>
    <message>
        <source>Half of the answers came within this time</source>
        <translation>De helft van de antwoorden kwam binnen deze tijd</translation>
    </message>
    <message>
        <source>Answer time
(median)</source>
        <translation>Antwoordtijd
(mediaan)</translation>
    </message>
    <message>
        <source>95 of 100 answers came within this time</source>
        <translation>95 van de 100 antwoorden kwamen binnen deze tijd</translation>
    </message>
    <message>
        <source>Answer time
(95 %)</source>
        <translation>Antwoordtijd
(95 %)</translation>
    </message>
    <message>
        <source>How much was bad, over time: the higher a bar, the more</source>
        <translation>Hoeveel er slecht was, in de tijd: hoe hoger een staafje, hoe meer</translation>
    </message>
    <message>
        <source>Over time</source>
        <translation>In de tijd</translation>
    </message>
</context>
<context>
    <name>QualityWindow</name>
    <message>
        <source>Recorded: up to %1.</source>
        <translation>Opgenomen: tot %1.</translation>
    </message>
    <message>
        <source>Nothing is recorded: what was counted within the last hour is shown, without answer times.</source>
        <translation>Er wordt niets opgenomen: te zien is wat in het laatste uur is geteld, zonder antwoordtijden.</translation>
    </message>
    <message>
        <source>Reading the recording...</source>
        <translation>De opname wordt gelezen...</translation>
    </message>
    <message>
        <source>Answer times with ≈ are of an evenly spread sample.</source>
        <translation>Antwoordtijden met ≈ komen uit een gelijkmatig verdeelde steekproef.</translation>
    </message>
    <message>
        <source>Line quality</source>
        <translation>Lijnkwaliteit</translation>
    </message>
    <message>
        <source>Now (5 minutes)</source>
        <translation>Nu (5 minuten)</translation>
    </message>
    <message>
        <source>Last hour</source>
        <translation>Laatste uur</translation>
    </message>
    <message>
        <source>Last day</source>
        <translation>Laatste dag</translation>
    </message>
    <message>
        <source>Last week</source>
        <translation>Laatste week</translation>
    </message>
    <message>
        <source>How far back</source>
        <translation>Hoe ver terug</translation>
    </message>
    <message>
        <source>How far back the quality of the line is looked at</source>
        <translation>Hoe ver terug naar de kwaliteit van de lijn wordt gekeken</translation>
    </message>
    <message>
        <source>Line quality, worst first</source>
        <translation>Lijnkwaliteit, de slechtste eerst</translation>
    </message>
    <message>
        <source>Small bars in the overview</source>
        <translation>Staafjes in het overzicht</translation>
    </message>
    <message>
        <source>Shows at each name how well the LDB&apos;s exchanges of the last 15 minutes went</source>
        <translation>Toont bij elke naam hoe goed de uitwisselingen van de LDB in de laatste 15 minuten gingen</translation>
    </message>
</context>
<context>
    <name>RecordedBand</name>
    <message>
        <source>nothing was recorded since %1</source>
        <translation>sinds %1 is niets opgenomen</translation>
    </message>
    <message>
        <source>the bus was being scanned</source>
        <translation>de bus werd gescand</translation>
    </message>
    <message>
        <source>no LDB answered</source>
        <translation>geen LDB antwoordde</translation>
    </message>
    <message>
        <source>not monitored since %1</source>
        <translation>niet bewaakt sinds %1</translation>
    </message>
    <message>
        <source>not monitored yet</source>
        <translation>nog niet bewaakt</translation>
    </message>
    <message>
        <source>Recorded: %1 %2 (%3)</source>
        <translation>Opgenomen: %1 %2 (%3)</translation>
    </message>
    <message>
        <source>Pause (Space)</source>
        <translation>Pauze (spatie)</translation>
    </message>
    <message>
        <source>Play (Space)</source>
        <translation>Afspelen (spatie)</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pauze</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Afspelen</translation>
    </message>
    <message>
        <source>Back to Live</source>
        <translation>Terug naar nu</translation>
    </message>
    <message>
        <source>Show what is now (Esc)</source>
        <translation>Tonen wat er nu is (Esc)</translation>
    </message>
    <message>
        <source>now: %1</source>
        <translation>nu: %1</translation>
    </message>
    <message>
        <source>%1; back to live</source>
        <translation>%1; terug naar nu</translation>
    </message>
</context>
<context>
    <name>RecordedEvent</name>
    <message>
        <source>Loop open</source>
        <translation>Lus open</translation>
    </message>
    <message>
        <source>Loop short</source>
        <translation>Kortsluiting in de lus</translation>
    </message>
    <message>
        <source>Loop DC leakage</source>
        <translation>DC-lek in de lus</translation>
    </message>
    <message>
        <source>Earth wire open</source>
        <translation>Aarddraad onderbroken</translation>
    </message>
    <message>
        <source>Earth leakage</source>
        <translation>Aardlek</translation>
    </message>
    <message>
        <source>Amplifier disconnected</source>
        <translation>Versterker losgekoppeld</translation>
    </message>
    <message>
        <source>Primary port short</source>
        <translation>Kortsluiting op primaire poort</translation>
    </message>
    <message>
        <source>Secondary port short</source>
        <translation>Kortsluiting op secundaire poort</translation>
    </message>
    <message>
        <source>Lost</source>
        <translation>Verloren</translation>
    </message>
    <message numerus="yes">
        <source>%1: %n times in %2</source>
        <translation>
            <numerusform>%1: %n keer in %2</numerusform>
            <numerusform>%1: %n keer in %2</numerusform>
        </translation>
    </message>
    <message>
        <source>%1, still there</source>
        <translation>%1, nog aanwezig</translation>
    </message>
    <message>
        <source>%1, gone now</source>
        <translation>%1, nu weg</translation>
    </message>
    <message>
        <source>missing: %1</source>
        <translation>ontbreekt: %1</translation>
    </message>
    <message>
        <source>new: %1</source>
        <translation>nieuw: %1</translation>
    </message>
    <message>
        <source>The scan differs from the last one: %1</source>
        <translation>De scan verschilt van de vorige: %1</translation>
    </message>
    <message>
        <source>%1 gone</source>
        <translation>%1 weg</translation>
    </message>
    <message>
        <source>%1 gone after %2</source>
        <translation>%1 weg na %2</translation>
    </message>
    <message>
        <source>%1 came and went</source>
        <translation>%1 kwam en ging</translation>
    </message>
    <message>
        <source>Mode %1, before %2</source>
        <translation>Modus %1, eerder %2</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Terug</translation>
    </message>
    <message>
        <source>Back after %1</source>
        <translation>Terug na %1</translation>
    </message>
    <message>
        <source>Started on %1</source>
        <translation>Gestart op %1</translation>
    </message>
    <message>
        <source>Stopped</source>
        <translation>Gestopt</translation>
    </message>
    <message>
        <source>Stopped after %1</source>
        <translation>Gestopt na %1</translation>
    </message>
    <message>
        <source>Port lost: %1</source>
        <translation>Poort weg: %1</translation>
    </message>
    <message>
        <source>Port back</source>
        <translation>Poort terug</translation>
    </message>
    <message>
        <source>Port back after %1</source>
        <translation>Poort terug na %1</translation>
    </message>
    <message numerus="yes">
        <source>Not recorded: %n exchanges in %1</source>
        <translation>
            <numerusform>Niet opgenomen: %n uitwisseling in %1</numerusform>
            <numerusform>Niet opgenomen: %n uitwisselingen in %1</numerusform>
        </translation>
    </message>
    <message>
        <source>The computer&apos;s clock was set</source>
        <translation>De klok van de computer is verzet</translation>
    </message>
    <message>
        <source>Name &quot;%1&quot;, before &quot;%2&quot;</source>
        <translation>Naam &quot;%1&quot;, eerder &quot;%2&quot;</translation>
    </message>
    <message>
        <source>%1 s</source>
        <translation>%1 s</translation>
    </message>
    <message>
        <source>%1 min %2 s</source>
        <translation>%1 min %2 s</translation>
    </message>
    <message>
        <source>%1 h %2 min</source>
        <translation>%1 u %2 min</translation>
    </message>
    <message>
        <source>%1 d %2 h</source>
        <translation>%1 d %2 u</translation>
    </message>
    <message>
        <source>Mode %1</source>
        <translation>Modus %1</translation>
    </message>
    <message>
        <source>%1, still lost</source>
        <translation>%1, nog steeds verloren</translation>
    </message>
    <message>
        <source>%1, back now</source>
        <translation>%1, nu terug</translation>
    </message>
    <message>
        <source>%1, there already</source>
        <translation>%1, was er al</translation>
    </message>
    <message>
        <source>%1 gone meanwhile</source>
        <translation>%1 intussen verdwenen</translation>
    </message>
    <message>
        <source>%1 gone after %2 at most</source>
        <translation>%1 verdwenen na hoogstens %2</translation>
    </message>
    <message>
        <source>%1 in memory, there already</source>
        <translation>%1 in geheugen, was er al</translation>
    </message>
</context>
<context>
    <name>RecordedWork</name>
    <message>
        <source>open</source>
        <translation>open</translation>
    </message>
    <message>
        <source>short</source>
        <translation>kortsluiting</translation>
    </message>
    <message>
        <source>connected</source>
        <translation>verbonden</translation>
    </message>
    <message>
        <source>%1: not tracked</source>
        <translation>%1: niet gevolgd</translation>
    </message>
    <message numerus="yes">
        <source>%1: %n FIM&apos;s counted</source>
        <translation>
            <numerusform>%1: %n FIM geteld</numerusform>
            <numerusform>%1: %n FIM&apos;s geteld</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1: %n FIM&apos;s counted, connected</source>
        <translation>
            <numerusform>%1: %n FIM geteld, verbonden</numerusform>
            <numerusform>%1: %n FIM&apos;s geteld, verbonden</numerusform>
        </translation>
    </message>
    <message>
        <source>%1: %2, approximately at FIM %3</source>
        <translation>%1: %2, ongeveer bij FIM %3</translation>
    </message>
    <message>
        <source>%1: %2 -&gt; %3, %4</source>
        <translation>%1: %2 -&gt; %3, %4</translation>
    </message>
    <message>
        <source>verified</source>
        <translation>gecontroleerd</translation>
    </message>
    <message>
        <source>accepted, not verified</source>
        <translation>aanvaard, niet gecontroleerd</translation>
    </message>
    <message>
        <source>refused by the LDB</source>
        <translation>geweigerd door de LDB</translation>
    </message>
    <message>
        <source>not answered, not verified</source>
        <translation>niet beantwoord, niet gecontroleerd</translation>
    </message>
    <message>
        <source>the LDB has another value</source>
        <translation>de LDB heeft een andere waarde</translation>
    </message>
    <message>
        <source>left alone</source>
        <translation>met rust gelaten</translation>
    </message>
    <message>
        <source>not sent</source>
        <translation>niet verzonden</translation>
    </message>
    <message>
        <source>Commissioning</source>
        <translation>Inbedrijfstelling</translation>
    </message>
    <message>
        <source>Fault finding</source>
        <translation>Fout zoeken</translation>
    </message>
    <message>
        <source>Primary side</source>
        <translation>Primaire zijde</translation>
    </message>
    <message>
        <source>Secondary side</source>
        <translation>Secundaire zijde</translation>
    </message>
    <message>
        <source>primary side approximately at FIM %1</source>
        <translation>primaire zijde ongeveer bij FIM %1</translation>
    </message>
    <message>
        <source>secondary side approximately at FIM %1</source>
        <translation>secundaire zijde ongeveer bij FIM %1</translation>
    </message>
    <message>
        <source>Earth leakage</source>
        <translation>Aardlek</translation>
    </message>
    <message>
        <source>Loop DC leakage</source>
        <translation>DC-lek in de lus</translation>
    </message>
</context>
<context>
    <name>RecordingExport</name>
    <message>
        <source>Time</source>
        <translation>Tijd</translation>
    </message>
    <message>
        <source>LDB</source>
        <translation>LDB</translation>
    </message>
    <message>
        <source>Event</source>
        <translation>Gebeurtenis</translation>
    </message>
    <message>
        <source>Before</source>
        <translation>Vooraf</translation>
    </message>
    <message>
        <source>After</source>
        <translation>Daarna</translation>
    </message>
    <message>
        <source>Duration [s]</source>
        <translation>Duur [s]</translation>
    </message>
</context>
<context>
    <name>RecordingForm</name>
    <message>
        <source>Folder for Recordings</source>
        <translation>Map voor opnamen</translation>
    </message>
    <message>
        <source>Recording</source>
        <translation>Opname</translation>
    </message>
    <message>
        <source>Which days are kept could not be stored. The days may be deleted when they are old.</source>
        <translation>Welke dagen worden bewaard, kon niet worden opgeslagen. De dagen kunnen worden verwijderd wanneer ze oud zijn.</translation>
    </message>
    <message>
        <source>&amp;Record everything while the bus is monitored</source>
        <translation>Alles &amp;opnemen zolang de bus wordt bewaakt</translation>
    </message>
    <message>
        <source>&amp;Folder:</source>
        <translation>&amp;Map:</translation>
    </message>
    <message>
        <source>With what is remembered of the installation</source>
        <translation>Naast wat van de installatie is onthouden</translation>
    </message>
    <message>
        <source>Recordings lie in it under the installation; what was recorded before stays where it is</source>
        <translation>Opnamen liggen erin onder de installatie; wat eerder is opgenomen, blijft waar het is</translation>
    </message>
    <message>
        <source>Browse...</source>
        <translation>Bladeren...</translation>
    </message>
    <message>
        <source>Keep for &amp;days:</source>
        <translation>&amp;Dagen bewaren:</translation>
    </message>
    <message>
        <source>What is older is deleted by whole days</source>
        <translation>Wat ouder is, wordt per hele dag verwijderd</translation>
    </message>
    <message>
        <source>Keep at &amp;most:</source>
        <translation>&amp;Hoogstens bewaren:</translation>
    </message>
    <message>
        <source> GB</source>
        <extracomment>gigabytes</extracomment>
        <translation> GB</translation>
    </message>
    <message>
        <source>For each installation. When there is more, the oldest days are deleted</source>
        <translation>Per installatie. Is er meer, dan worden de oudste dagen verwijderd</translation>
    </message>
    <message>
        <source>Days re&amp;corded; those ticked are kept whatever their age and size:</source>
        <translation>Op&amp;genomen dagen; de aangevinkte worden bewaard, hoe oud en groot ook:</translation>
    </message>
    <message>
        <source>Keep Day</source>
        <translation>Dag bewaren</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Grootte</translation>
    </message>
    <message>
        <source>Days recorded</source>
        <translation>Opgenomen dagen</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuleren</translation>
    </message>
</context>
<context>
    <name>RecordingIndicator</name>
    <message>
        <source>Recording is off</source>
        <translation>Opname staat uit</translation>
    </message>
    <message>
        <source>Nothing is recorded: it is turned off in the settings.</source>
        <translation>Er wordt niets opgenomen: dat staat uit in de instellingen.</translation>
    </message>
    <message>
        <source>Not recorded!</source>
        <translation>Niet opgenomen!</translation>
    </message>
    <message>
        <source>Recording</source>
        <translation>Opname loopt</translation>
    </message>
    <message>
        <source>Everything on the bus is recorded. Click to open the folder.
%1</source>
        <translation>Alles op de bus wordt opgenomen. Klik om de map te openen.
%1</translation>
    </message>
    <message>
        <source>Not recording</source>
        <translation>Geen opname</translation>
    </message>
    <message>
        <source>What happens on the bus is recorded as soon as it is monitored. Click to open the folder.
%1</source>
        <translation>Wat op de bus gebeurt, wordt opgenomen zodra deze wordt bewaakt. Klik om de map te openen.
%1</translation>
    </message>
</context>
<context>
    <name>RecordingNotice</name>
    <message>
        <source>Recording goes on.</source>
        <translation>De opname gaat door.</translation>
    </message>
    <message>
        <source>Nothing is recorded: the disk is full. Recording goes on as soon as there is room.</source>
        <translation>Er wordt niets opgenomen: de schijf is vol. De opname gaat door zodra er ruimte is.</translation>
    </message>
    <message>
        <source>Nothing is recorded: the file cannot be written. Recording goes on as soon as it can.</source>
        <translation>Er wordt niets opgenomen: het bestand kan niet worden geschreven. De opname gaat door zodra dat kan.</translation>
    </message>
    <message>
        <source>The recording has been removed. A new one has been begun.</source>
        <translation>De opname is verwijderd. Er is een nieuwe begonnen.</translation>
    </message>
    <message>
        <source>The recording is damaged. Recording goes on in another file.</source>
        <translation>De opname is beschadigd. De opname gaat door in een ander bestand.</translation>
    </message>
    <message>
        <source>The recording is of a later version of this program. Recording goes on in another file.</source>
        <translation>De opname is van een latere versie van dit programma. De opname gaat door in een ander bestand.</translation>
    </message>
    <message>
        <source>Another window records into the same file. This one records into a file of its own.</source>
        <translation>Een ander venster neemt op in hetzelfde bestand. Dit venster neemt op in een eigen bestand.</translation>
    </message>
    <message>
        <source>The computer&apos;s clock has been set back. Recording goes on in another file.</source>
        <translation>De klok van de computer is teruggezet. De opname gaat door in een ander bestand.</translation>
    </message>
    <message>
        <source>The recording cannot be read.</source>
        <translation>De opname kan niet worden gelezen.</translation>
    </message>
    <message>
        <source>The recording is damaged. What can be read of it is shown.</source>
        <translation>De opname is beschadigd. Wat ervan kan worden gelezen, wordt getoond.</translation>
    </message>
    <message>
        <source>The recording is of a later version of this program. It cannot be read.</source>
        <translation>De opname is van een latere versie van dit programma. Ze kan niet worden gelezen.</translation>
    </message>
    <message>
        <source>The recording was not closed and cannot be written to. Its last seconds are not shown.</source>
        <translation>De opname is niet afgesloten en kan niet worden beschreven. De laatste seconden ervan worden niet getoond.</translation>
    </message>
</context>
<context>
    <name>ReportMaker</name>
    <message>
        <source>The document cannot be made.</source>
        <translation>Het document kan niet worden gemaakt.</translation>
    </message>
</context>
<context>
    <name>ReportWindow</name>
    <message>
        <source>Printed.</source>
        <translation>Afgedrukt.</translation>
    </message>
    <message>
        <source>It could not be printed.</source>
        <translation>Het kon niet worden afgedrukt.</translation>
    </message>
    <message>
        <source>The end of the span is before its begin.</source>
        <translation>Het einde van de periode ligt voor het begin.</translation>
    </message>
    <message>
        <source>Reading the recording...</source>
        <translation>Opname wordt gelezen...</translation>
    </message>
    <message>
        <source>Making the pages...</source>
        <translation>Pagina&apos;s worden gemaakt...</translation>
    </message>
    <message>
        <source>Save the Report as PDF</source>
        <translation>Verslag opslaan als PDF</translation>
    </message>
    <message>
        <source>Save the Report as HTML</source>
        <translation>Verslag opslaan als HTML</translation>
    </message>
    <message>
        <source>Writing %1</source>
        <translation>%1 wordt geschreven</translation>
    </message>
    <message>
        <source>Saved: %1</source>
        <translation>Opgeslagen: %1</translation>
    </message>
    <message>
        <source>Not saved: %1</source>
        <translation>Niet opgeslagen: %1</translation>
    </message>
    <message>
        <source>Report of the Visit</source>
        <translation>Verslag van het bezoek</translation>
    </message>
    <message>
        <source>%1 could not be written.</source>
        <translation>%1 kon niet worden geschreven.</translation>
    </message>
    <message>
        <source>Printing...</source>
        <translation>Bezig met afdrukken...</translation>
    </message>
    <message>
        <source>&amp;Time:</source>
        <translation>&amp;Tijd:</translation>
    </message>
    <message>
        <source>F&amp;rom:</source>
        <translation>&amp;Van:</translation>
    </message>
    <message>
        <source>T&amp;o:</source>
        <translation>T&amp;ot:</translation>
    </message>
    <message>
        <source>&amp;Engineer:</source>
        <translation>T&amp;echnicus:</translation>
    </message>
    <message>
        <source>&amp;Customer&apos;s reference:</source>
        <translation>&amp;Kenmerk van de klant:</translation>
    </message>
    <message>
        <source>Re&amp;marks:</source>
        <translation>Op&amp;merkingen:</translation>
    </message>
    <message>
        <source>&amp;Paper:</source>
        <translation>&amp;Papier:</translation>
    </message>
    <message>
        <source>Today</source>
        <translation>Vandaag</translation>
    </message>
    <message>
        <source>From, to</source>
        <translation>Van, tot</translation>
    </message>
    <message>
        <source>&amp;Settings of all LDB&apos;s as an appendix</source>
        <translation>In&amp;stellingen van alle LDB&apos;s als bijlage</translation>
    </message>
    <message>
        <source>Those that were read in this time. &quot;Settings of all LDB&apos;s&quot; reads them all</source>
        <translation>Die in deze tijd zijn gelezen. &quot;Instellingen van alle LDB&apos;s&quot; leest ze allemaal</translation>
    </message>
    <message>
        <source>Re&amp;fresh</source>
        <translation>Ver&amp;nieuwen</translation>
    </message>
    <message>
        <source>Reads the recording again (F5)</source>
        <translation>Leest de opname opnieuw (F5)</translation>
    </message>
    <message>
        <source>Save as P&amp;DF...</source>
        <translation>Opslaan als P&amp;DF...</translation>
    </message>
    <message>
        <source>Save as &amp;HTML...</source>
        <translation>Opslaan als &amp;HTML...</translation>
    </message>
    <message>
        <source>Pri&amp;nt...</source>
        <translation>&amp;Afdrukken...</translation>
    </message>
    <message>
        <source>Pages of the report</source>
        <translation>Pagina&apos;s van het verslag</translation>
    </message>
    <message>
        <source>This visit, since %1</source>
        <translation>Dit bezoek, sinds %1</translation>
    </message>
    <message>
        <source>This visit</source>
        <translation>Dit bezoek</translation>
    </message>
    <message>
        <source>This visit began with today&apos;s first start of the bus</source>
        <translation>Dit bezoek is begonnen met de eerste start van de bus vandaag</translation>
    </message>
</context>
<context>
    <name>RunFindings</name>
    <message>
        <source>Attention</source>
        <translation>Let op</translation>
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
    <name>SetValueDialog</name>
    <message numerus="yes">
        <source>Set for %n LDB(s)</source>
        <translation>
            <numerusform>Instellen voor %n LDB</numerusform>
            <numerusform>Instellen voor %n LDB&apos;s</numerusform>
        </translation>
    </message>
    <message>
        <source>Set</source>
        <translation>Instellen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuleren</translation>
    </message>
</context>
<context>
    <name>SettingsFields</name>
    <message>
        <source>The settings have not been read yet.</source>
        <translation>De instellingen zijn nog niet gelezen.</translation>
    </message>
    <message>
        <source>Tick Enable Open Detection first.</source>
        <translation>Vink eerst Onderbrekingsdetectie inschakelen aan.</translation>
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
        <source>Serial &amp;Port</source>
        <translation>Seriële &amp;poort</translation>
    </message>
    <message>
        <source>&amp;Language:</source>
        <translation>&amp;Taal:</translation>
    </message>
    <message>
        <source>Sounds</source>
        <translation>Geluid</translation>
    </message>
    <message>
        <source>Enable &amp;Sound Warnings</source>
        <translation>&amp;Geluidswaarschuwingen inschakelen</translation>
    </message>
    <message>
        <source>&amp;About</source>
        <translation>&amp;Over</translation>
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
    <message>
        <source>Installation</source>
        <translation>Installatie</translation>
    </message>
    <message>
        <source>Begin with the LDBs that are remembered; without it, each start scans the whole bus</source>
        <translation>Begin met de LDB&apos;s die onthouden zijn; zonder dit zoekt elke start de hele bus af</translation>
    </message>
    <message>
        <source>Start with the LDBs &amp;remembered</source>
        <translation>Starten &amp;met de onthouden LDB&apos;s</translation>
    </message>
    <message>
        <source>Name, place, notes and LDBs of the installations that are remembered</source>
        <translation>Naam, plaats, notities en LDB&apos;s van de onthouden installaties</translation>
    </message>
    <message>
        <source>&amp;Installation...</source>
        <translation>&amp;Installatie...</translation>
    </message>
    <message>
        <source>Whether what happens on the bus is recorded, where, and how long it is kept</source>
        <translation>Of wat op de bus gebeurt wordt opgenomen, waar, en hoe lang het wordt bewaard</translation>
    </message>
    <message>
        <source>Re&amp;cording...</source>
        <translation>Op&amp;name...</translation>
    </message>
</context>
<context>
    <name>SettingsTable</name>
    <message>
        <source>written</source>
        <translation>geschreven</translation>
    </message>
    <message>
        <source>refused</source>
        <translation>geweigerd</translation>
    </message>
    <message>
        <source>not answered</source>
        <translation>niet beantwoord</translation>
    </message>
    <message>
        <source>differs</source>
        <translation>wijkt af</translation>
    </message>
    <message>
        <source>left alone</source>
        <translation>met rust gelaten</translation>
    </message>
    <message>
        <source>not sent</source>
        <translation>niet verzonden</translation>
    </message>
    <message>
        <source>To be written: %1</source>
        <translation>Te schrijven: %1</translation>
    </message>
    <message>
        <source>What the LDB has is not known: it was not read back.</source>
        <translation>Wat de LDB heeft is niet bekend: het is niet teruggelezen.</translation>
    </message>
    <message>
        <source>The LDB has: %1</source>
        <translation>De LDB heeft: %1</translation>
    </message>
    <message>
        <source>The last Write: %1</source>
        <translation>Laatste keer schrijven: %1</translation>
    </message>
    <message>
        <source>Most LDB&apos;s have: %1</source>
        <translation>De meeste LDB&apos;s hebben: %1</translation>
    </message>
    <message>
        <source>Factory default: %1</source>
        <translation>Fabriekswaarde: %1</translation>
    </message>
    <message>
        <source>not connected</source>
        <translation>niet verbonden</translation>
    </message>
    <message>
        <source>not read</source>
        <translation>niet gelezen</translation>
    </message>
    <message>
        <source>waits to be read</source>
        <translation>wacht op lezen</translation>
    </message>
    <message>
        <source>did not answer</source>
        <translation>heeft niet geantwoord</translation>
    </message>
    <message>
        <source>the connection ended before it was read</source>
        <translation>de verbinding eindigde voordat zij was gelezen</translation>
    </message>
    <message>
        <source>changed since it was shown: nothing was written</source>
        <translation>gewijzigd sinds het tonen: er is niets geschreven</translation>
    </message>
    <message numerus="yes">
        <source>%n to write</source>
        <translation>
            <numerusform>%n te schrijven</numerusform>
            <numerusform>%n te schrijven</numerusform>
        </translation>
    </message>
    <message>
        <source>&quot;%1&quot; cannot be the value of %2 of LDB %3. Nothing was pasted.</source>
        <translation>&quot;%1&quot; kan niet de waarde van %2 van LDB %3 zijn. Er is niets geplakt.</translation>
    </message>
    <message>
        <source>What is to be pasted is larger than the table from the selected cell on. Nothing was pasted.</source>
        <translation>Wat geplakt moet worden is groter dan de tabel vanaf de geselecteerde cel. Er is niets geplakt.</translation>
    </message>
    <message>
        <source>The IDs of the file are read as decimal.</source>
        <translation>De ID&apos;s van het bestand worden als decimaal gelezen.</translation>
    </message>
    <message>
        <source>The IDs of the file are read as hexadecimal.</source>
        <translation>De ID&apos;s van het bestand worden als hexadecimaal gelezen.</translation>
    </message>
    <message>
        <source>The names fit better as hexadecimal: then %1 are those of the LDB&apos;s, now %2.</source>
        <translation>De namen passen beter als hexadecimaal: dan zijn er %1 die van de LDB&apos;s, nu %2.</translation>
    </message>
    <message>
        <source>The names fit better as decimal: then %1 are those of the LDB&apos;s, now %2.</source>
        <translation>De namen passen beter als decimaal: dan zijn er %1 die van de LDB&apos;s, nu %2.</translation>
    </message>
</context>
<context>
    <name>SettingsTableModel</name>
    <message>
        <source>Address %1</source>
        <translation>Adres %1</translation>
    </message>
    <message>
        <source>LDB</source>
        <translation>LDB</translation>
    </message>
    <message>
        <source>Firmware ID</source>
        <translation>Firmware-ID</translation>
    </message>
    <message>
        <source>Read at</source>
        <translation>Gelezen om</translation>
    </message>
    <message>
        <source>State</source>
        <translation>Toestand</translation>
    </message>
    <message>
        <source>%1 of LDB %2</source>
        <translation>%1 van LDB %2</translation>
    </message>
</context>
<context>
    <name>SettingsTableWindow</name>
    <message>
        <source>Read All</source>
        <translation>Alles lezen</translation>
    </message>
    <message>
        <source>Read the settings of all LDB&apos;s</source>
        <translation>Lees de instellingen van alle LDB&apos;s</translation>
    </message>
    <message>
        <source>Read Selected</source>
        <translation>Selectie lezen</translation>
    </message>
    <message>
        <source>Read the LDB&apos;s of the selected cells again</source>
        <translation>Lees de LDB&apos;s van de geselecteerde cellen opnieuw</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Stop</translation>
    </message>
    <message>
        <source>End the reading, or the writing behind the LDB under way</source>
        <translation>Beëindig het lezen, of het schrijven na de LDB die bezig is</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Ongedaan maken</translation>
    </message>
    <message>
        <source>Take the last change of the table back</source>
        <translation>Maak de laatste wijziging van de tabel ongedaan</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Opnieuw</translation>
    </message>
    <message>
        <source>Make the change again that was taken back</source>
        <translation>Voer de ongedaan gemaakte wijziging opnieuw uit</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Kopiëren</translation>
    </message>
    <message>
        <source>Copy the selected cells for a spreadsheet</source>
        <translation>Kopieer de geselecteerde cellen voor een rekenblad</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Plakken</translation>
    </message>
    <message>
        <source>Put cells of a spreadsheet in, from the first selected cell on</source>
        <translation>Voeg cellen van een rekenblad in vanaf de eerste geselecteerde cel</translation>
    </message>
    <message>
        <source>Set...</source>
        <translation>Instellen...</translation>
    </message>
    <message>
        <source>Give the selected LDB&apos;s one value</source>
        <translation>Geef de geselecteerde LDB&apos;s één waarde</translation>
    </message>
    <message>
        <source>Import...</source>
        <translation>Importeren...</translation>
    </message>
    <message>
        <source>Take the values of a file as changes</source>
        <translation>Neem de waarden van een bestand over als wijzigingen</translation>
    </message>
    <message>
        <source>Export...</source>
        <translation>Exporteren...</translation>
    </message>
    <message>
        <source>Write what the table shows, with its changes, into a file</source>
        <translation>Schrijf wat de tabel toont, met de wijzigingen, in een bestand</translation>
    </message>
    <message>
        <source>Former Settings...</source>
        <translation>Vroegere instellingen...</translation>
    </message>
    <message>
        <source>Compare with what the LDB&apos;s had before, or put it back</source>
        <translation>Vergelijk met wat de LDB&apos;s eerder hadden, of zet dat terug</translation>
    </message>
    <message>
        <source>Go On Writing</source>
        <translation>Verder schrijven</translation>
    </message>
    <message>
        <source>Write what was confirmed before the connection ended</source>
        <translation>Schrijf wat bevestigd was voordat de verbinding eindigde</translation>
    </message>
    <message>
        <source>Write...</source>
        <translation>Schrijven...</translation>
    </message>
    <message>
        <source>Show what would be written; nothing is sent before you confirm it</source>
        <translation>Toon wat zou worden geschreven; er wordt niets verzonden voordat u het bevestigt</translation>
    </message>
    <message>
        <source>These are left out:</source>
        <translation>Deze worden weggelaten:</translation>
    </message>
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
            <numerusform>%n te schrijven</numerusform>
            <numerusform>%n te schrijven</numerusform>
        </translation>
    </message>
    <message>
        <source>Settings of all LDB&apos;s</source>
        <translation>Instellingen van alle LDB&apos;s</translation>
    </message>
    <message>
        <source>Tools</source>
        <translation>Gereedschap</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Zoeken</translation>
    </message>
    <message>
        <source>What the values are compared with</source>
        <translation>Waarmee de waarden worden vergeleken</translation>
    </message>
    <message>
        <source>Compare with most others</source>
        <translation>Vergelijken met de meeste andere</translation>
    </message>
    <message>
        <source>Compare with factory defaults</source>
        <translation>Vergelijken met fabriekswaarden</translation>
    </message>
    <message>
        <source>Compare with a file...</source>
        <translation>Vergelijken met een bestand...</translation>
    </message>
    <message>
        <source>Which LDB&apos;s are shown</source>
        <translation>Welke LDB&apos;s worden getoond</translation>
    </message>
    <message>
        <source>All LDB&apos;s</source>
        <translation>Alle LDB&apos;s</translation>
    </message>
    <message>
        <source>Only differing</source>
        <translation>Alleen afwijkende</translation>
    </message>
    <message>
        <source>Only changed</source>
        <translation>Alleen gewijzigde</translation>
    </message>
    <message>
        <source>Select File</source>
        <translation>Bestand selecteren</translation>
    </message>
    <message>
        <source>The file cannot be written.</source>
        <translation>Het bestand kan niet worden geschreven.</translation>
    </message>
    <message numerus="yes">
        <source>Reading: %n left</source>
        <translation>
            <numerusform>Lezen: nog %n</numerusform>
            <numerusform>Lezen: nog %n</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Reading: %n left, about %1 s</source>
        <translation>
            <numerusform>Lezen: nog %n, ongeveer %1 s</numerusform>
            <numerusform>Lezen: nog %n, ongeveer %1 s</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Writing: %n left</source>
        <translation>
            <numerusform>Schrijven: nog %n</numerusform>
            <numerusform>Schrijven: nog %n</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>The table of settings has %n change(s) that are not written.</source>
        <translation>
            <numerusform>De tabel met instellingen heeft %n wijziging die niet is geschreven.</numerusform>
            <numerusform>De tabel met instellingen heeft %n wijzigingen die niet zijn geschreven.</numerusform>
        </translation>
    </message>
    <message>
        <source>Select cells of the setting that is to be set.</source>
        <translation>Selecteer cellen van de instelling die moet worden ingesteld.</translation>
    </message>
    <message>
        <source>Read as hexadecimal</source>
        <translation>Als hexadecimaal lezen</translation>
    </message>
    <message>
        <source>Read as decimal</source>
        <translation>Als decimaal lezen</translation>
    </message>
    <message>
        <source>Compared with &quot;%1&quot;. %2</source>
        <translation>Vergeleken met &quot;%1&quot;. %2</translation>
    </message>
    <message>
        <source>Compared with: %1</source>
        <translation>Vergeleken met: %1</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Sluiten</translation>
    </message>
    <message>
        <source>Nothing was written, as the former settings could not be kept.</source>
        <translation>Er is niets geschreven, omdat de vroegere instellingen niet konden worden bewaard.</translation>
    </message>
    <message>
        <source>Nothing was written, as the LDB&apos;s cannot be written to now.</source>
        <translation>Er is niets geschreven, omdat er nu niet naar de LDB&apos;s kan worden geschreven.</translation>
    </message>
    <message>
        <source>Put back</source>
        <translation>Terugzetten</translation>
    </message>
    <message>
        <source>Attention</source>
        <translation>Let op</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>Weggooien</translation>
    </message>
    <message>
        <source>Keep</source>
        <translation>Laten staan</translation>
    </message>
    <message>
        <source>Stay</source>
        <translation>Blijven</translation>
    </message>
    <message>
        <source>Names have characters that the file cannot hold.</source>
        <translation>Namen hebben tekens die het bestand niet kan bevatten.</translation>
    </message>
    <message numerus="yes">
        <source>%1 of %n LDB(s) shown</source>
        <translation>
            <numerusform>%1 van %n LDB getoond</numerusform>
            <numerusform>%1 van %n LDB&apos;s getoond</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>SettingsTransfer</name>
    <message>
        <source>Select File</source>
        <translation>Bestand selecteren</translation>
    </message>
    <message>
        <source>Exporting LDB settings</source>
        <translation>LDB-instellingen worden geëxporteerd</translation>
    </message>
    <message>
        <source>Exporting LDB settings finished</source>
        <translation>Exporteren van LDB-instellingen voltooid</translation>
    </message>
    <message>
        <source>Exporting LDB settings failed</source>
        <translation>Exporteren van LDB-instellingen mislukt</translation>
    </message>
    <message>
        <source>Importing LDB settings</source>
        <translation>LDB-instellingen worden geïmporteerd</translation>
    </message>
    <message>
        <source>Importing LDB settings finished</source>
        <translation>Importeren van LDB-instellingen voltooid</translation>
    </message>
    <message>
        <source>Importing LDB settings failed</source>
        <translation>Importeren van LDB-instellingen mislukt</translation>
    </message>
    <message>
        <source>Importing LDB settings failed, not all LDB&apos;s are connected</source>
        <translation>Importeren van LDB-instellingen mislukt, niet alle LDB&apos;s zijn verbonden</translation>
    </message>
    <message>
        <source>Importing LDB settings failed, settings are missing for connected LDB&apos;s</source>
        <translation>Importeren van LDB-instellingen mislukt, instellingen van verbonden LDB&apos;s ontbreken</translation>
    </message>
    <message>
        <source>Information</source>
        <translation>Informatie</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Fout</translation>
    </message>
    <message>
        <source>%1!</source>
        <translation>%1!</translation>
    </message>
    <message>
        <source>Importing LDB settings failed, not all LDB&apos;s&apos; are connected!</source>
        <translation>Importeren van LDB-instellingen mislukt, niet alle LDB&apos;s zijn verbonden!</translation>
    </message>
    <message>
        <source>The transfer stops behind the LDB under way.</source>
        <translation>De overdracht stopt na de LDB die bezig is.</translation>
    </message>
    <message>
        <source>Nothing was imported.</source>
        <translation>Er is niets geïmporteerd.</translation>
    </message>
    <message>
        <source>Importing LDB settings was stopped.</source>
        <translation>Importeren van LDB-instellingen is gestopt.</translation>
    </message>
    <message>
        <source>Exporting LDB settings was stopped.</source>
        <translation>Exporteren van LDB-instellingen is gestopt.</translation>
    </message>
    <message>
        <source>Attention</source>
        <translation>Let op</translation>
    </message>
    <message>
        <source>An import is under way. The LDB being written may be left with a part of its settings.</source>
        <translation>Er is een import bezig. De LDB die wordt geschreven kan met een deel van haar instellingen achterblijven.</translation>
    </message>
    <message>
        <source>An export is under way. LDB&apos;s not read yet will be missing in the file.</source>
        <translation>Er is een export bezig. LDB&apos;s die nog niet zijn gelezen zullen in het bestand ontbreken.</translation>
    </message>
    <message>
        <source>Nothing has been imported yet.</source>
        <translation>Er is nog niets geïmporteerd.</translation>
    </message>
    <message>
        <source>Writing LDB settings</source>
        <translation>LDB-instellingen worden geschreven</translation>
    </message>
    <message>
        <source>LDB %1: %2</source>
        <translation>LDB %1: %2</translation>
    </message>
    <message numerus="yes">
        <source>The settings of %n LDB(s) are written.</source>
        <translation>
            <numerusform>De instellingen van %n LDB zijn geschreven.</numerusform>
            <numerusform>De instellingen van %n LDB&apos;s zijn geschreven.</numerusform>
        </translation>
    </message>
    <message>
        <source>Not all settings are written.</source>
        <translation>Niet alle instellingen zijn geschreven.</translation>
    </message>
    <message numerus="yes">
        <source>Written: %n LDB(s)</source>
        <translation>
            <numerusform>Geschreven: %n LDB</numerusform>
            <numerusform>Geschreven: %n LDB&apos;s</numerusform>
        </translation>
    </message>
    <message>
        <source>Not begun: %1</source>
        <translation>Niet begonnen: %1</translation>
    </message>
    <message>
        <source>Settings are being written. The LDB being written may be left with a part of them.</source>
        <translation>Er worden instellingen geschreven. De LDB die wordt geschreven kan met een deel ervan achterblijven.</translation>
    </message>
</context>
<context>
    <name>SettingsWriter</name>
    <message>
        <source>storing</source>
        <translation>opslaan in de LDB</translation>
    </message>
    <message>
        <source>the connection ended before it was written</source>
        <translation>de verbinding werd beëindigd voordat het geschreven was</translation>
    </message>
    <message>
        <source>not written: %1</source>
        <translation>niet geschreven: %1</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>the connection ended before everything was written</source>
        <translation>de verbinding eindigde voordat alles geschreven was</translation>
    </message>
    <message>
        <source>the settings could not be read again</source>
        <translation>de instellingen konden niet opnieuw worden gelezen</translation>
    </message>
    <message>
        <source>the LDB reports other values than written: %1</source>
        <translation>de LDB meldt andere waarden dan geschreven: %1</translation>
    </message>
    <message>
        <source>no answer</source>
        <translation>geen antwoord</translation>
    </message>
    <message>
        <source>not sent</source>
        <translation>niet verzonden</translation>
    </message>
    <message>
        <source>refused</source>
        <translation>geweigerd</translation>
    </message>
    <message>
        <source>changed by somebody else meanwhile</source>
        <translation>intussen door iemand anders gewijzigd</translation>
    </message>
    <message>
        <source>the LDB reports another value than written</source>
        <translation>de LDB meldt een andere waarde dan geschreven</translation>
    </message>
    <message>
        <source>nothing was written, as the settings could not be read just before (%1)</source>
        <translation>er is niets geschreven, omdat de instellingen vlak daarvoor niet konden worden gelezen (%1)</translation>
    </message>
    <message>
        <source>not written, as somebody else has changed it meanwhile: %1</source>
        <translation>niet geschreven, omdat iemand anders het intussen heeft gewijzigd: %1</translation>
    </message>
    <message>
        <source>the LDB has another name than before</source>
        <translation>de LDB heeft een andere naam dan voorheen</translation>
    </message>
    <message>
        <source>nothing was written, as the LDB is now called &quot;%1&quot;: it may be another one</source>
        <translation>er is niets geschreven, omdat de LDB nu &quot;%1&quot; heet: het kan een andere zijn</translation>
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
    <message>
        <source>%1: not known</source>
        <translation>%1: onbekend</translation>
    </message>
    <message>
        <source>Not all LDBs are monitored.</source>
        <translation>Niet alle LDB&apos;s worden bewaakt.</translation>
    </message>
</context>
<context>
    <name>TableHeads</name>
    <message>
        <source>Name</source>
        <translation>Naam</translation>
    </message>
    <message>
        <source>Number of FIM&apos;s</source>
        <translation>Aantal FIM&apos;s</translation>
    </message>
    <message>
        <source>Open Detection Delay</source>
        <translation>Vertraging onderbr.-detectie</translation>
    </message>
    <message>
        <source>General Fault Output</source>
        <translation>Alg. storings-uitgang</translation>
    </message>
    <message>
        <source>Earth Leakage Detection</source>
        <translation>Aardlek-detectie</translation>
    </message>
    <message>
        <source>Earth Wire Open Detection</source>
        <translation>Detectie aarddraad onderbr.</translation>
    </message>
    <message>
        <source>Start in Service Mode</source>
        <translation>Start in service-modus</translation>
    </message>
    <message>
        <source>Amplifier Detection</source>
        <translation>Versterker-detectie</translation>
    </message>
    <message>
        <source>Audio Mute</source>
        <translation>Audio dempen</translation>
    </message>
</context>
<context>
    <name>TableImport</name>
    <message>
        <source>Import of %1</source>
        <translation>Import van %1</translation>
    </message>
    <message>
        <source>Import of &quot;%1&quot;: nothing has been written yet. %2</source>
        <translation>Import van &quot;%1&quot;: er is nog niets geschreven. %2</translation>
    </message>
    <message>
        <source>Read as hexadecimal</source>
        <translation>Als hexadecimaal lezen</translation>
    </message>
    <message>
        <source>Read as decimal</source>
        <translation>Als decimaal lezen</translation>
    </message>
    <message numerus="yes">
        <source>%n left out...</source>
        <translation>
            <numerusform>%n weggelaten...</numerusform>
            <numerusform>%n weggelaten...</numerusform>
        </translation>
    </message>
    <message>
        <source>Discard the Import</source>
        <translation>Import weggooien</translation>
    </message>
    <message>
        <source>LDB %1 has not been read yet.</source>
        <translation>LDB %1 is nog niet gelezen.</translation>
    </message>
    <message>
        <source>LDB %1: what fault finding has changed is being put back.</source>
        <translation>LDB %1: wat het zoeken naar fouten heeft gewijzigd wordt teruggezet.</translation>
    </message>
    <message>
        <source>Import of &quot;%1&quot;: what is not written is still a change of the table.</source>
        <translation>Import van &quot;%1&quot;: wat niet is geschreven, is nog een wijziging van de tabel.</translation>
    </message>
    <message>
        <source>Discard the Rest</source>
        <translation>De rest weggooien</translation>
    </message>
</context>
<context>
    <name>TimeBar</name>
    <message>
        <source>Live</source>
        <translation>Nu</translation>
    </message>
    <message>
        <source>Nothing is recorded yet.</source>
        <translation>Er is nog niets opgenomen.</translation>
    </message>
    <message>
        <source>Back to what is now (Esc)</source>
        <translation>Terug naar wat er nu is (Esc)</translation>
    </message>
    <message>
        <source>LDB %1:</source>
        <translation>LDB %1:</translation>
    </message>
    <message>
        <source>Recorded time</source>
        <translation>Opgenomen tijd</translation>
    </message>
</context>
<context>
    <name>VisitReport</name>
    <message>
        <source>Page %1 of %2</source>
        <translation>Pagina %1 van %2</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Open</translation>
    </message>
    <message>
        <source>Short</source>
        <translation>Kortsluiting</translation>
    </message>
    <message>
        <source>Connected</source>
        <translation>Verbonden</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>Loop</source>
        <translation>Lus</translation>
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
        <source>Primary side</source>
        <translation>Primaire zijde</translation>
    </message>
    <message>
        <source>Secondary side</source>
        <translation>Secundaire zijde</translation>
    </message>
    <message>
        <source>The bus was not monitored from %1 to %2 (%3).</source>
        <translation>De bus werd niet bewaakt van %1 tot %2 (%3).</translation>
    </message>
    <message>
        <source>%1, came and went between two looks</source>
        <translation>%1, kwam en ging tussen twee waarnemingen</translation>
    </message>
    <message numerus="yes">
        <source>%1, %n times</source>
        <translation>
            <numerusform>%1, %n keer</numerusform>
            <numerusform>%1, %n keer</numerusform>
        </translation>
    </message>
    <message>
        <source>not known</source>
        <translation>niet bekend</translation>
    </message>
    <message>
        <source>before %1</source>
        <translation>voor %1</translation>
    </message>
    <message>
        <source>still there</source>
        <translation>nog aanwezig</translation>
    </message>
    <message>
        <source>%1 at least</source>
        <translation>minstens %1</translation>
    </message>
    <message>
        <source>%1 at most</source>
        <translation>hoogstens %1</translation>
    </message>
    <message>
        <source>a save</source>
        <translation>opslaan</translation>
    </message>
    <message>
        <source>a writing of the table</source>
        <translation>schrijven van de tabel</translation>
    </message>
    <message>
        <source>an import</source>
        <translation>een import</translation>
    </message>
    <message>
        <source>a put back</source>
        <translation>terugzetten</translation>
    </message>
    <message>
        <source>not tracked</source>
        <translation>niet gevolgd</translation>
    </message>
    <message>
        <source>not ended</source>
        <translation>niet beëindigd</translation>
    </message>
    <message>
        <source>%1, approximately at FIM %2</source>
        <translation>%1, ongeveer bij FIM %2</translation>
    </message>
    <message>
        <source>Nothing is recorded of this time.</source>
        <translation>Van deze tijd is niets opgenomen.</translation>
    </message>
    <message numerus="yes">
        <source>%n LDB&apos;s were found.</source>
        <translation>
            <numerusform>%n LDB is gevonden.</numerusform>
            <numerusform>%n LDB&apos;s zijn gevonden.</numerusform>
        </translation>
    </message>
    <message>
        <source>LDB&apos;s that remember a fault that has gone (%1): %2.</source>
        <translation>LDB&apos;s die een verdwenen fout onthouden (%1): %2.</translation>
    </message>
    <message>
        <source>LDB&apos;s in service mode (%1): %2.</source>
        <translation>LDB&apos;s in servicemodus (%1): %2.</translation>
    </message>
    <message>
        <source>LDB&apos;s whose settings are to be checked (%1): %2.</source>
        <translation>LDB&apos;s waarvan de instellingen gecontroleerd moeten worden (%1): %2.</translation>
    </message>
    <message>
        <source>Remembered of this installation, and not found: %1.</source>
        <translation>Bekend van deze installatie en niet gevonden: %1.</translation>
    </message>
    <message>
        <source>Found, and never heard: %1.</source>
        <translation>Gevonden en nooit gehoord: %1.</translation>
    </message>
    <message>
        <source>Lost, and therefore without values: %1.</source>
        <translation>Verloren, en daarom zonder waarden: %1.</translation>
    </message>
    <message>
        <source>Last heard before this time: %1.</source>
        <translation>Laatst gehoord voor deze tijd: %1.</translation>
    </message>
    <message>
        <source>Last heard more than 5 minutes before the end: %1.</source>
        <translation>Laatst gehoord meer dan 5 minuten voor het einde: %1.</translation>
    </message>
    <message>
        <source>In the list for a time only: %1.</source>
        <translation>Slechts tijdelijk in de lijst: %1.</translation>
    </message>
    <message>
        <source>Without a confirmed firmware ID: %1.</source>
        <translation>Zonder bevestigde firmware-ID: %1.</translation>
    </message>
    <message>
        <source>Settings not read in this time: %1.</source>
        <translation>Instellingen in deze tijd niet gelezen: %1.</translation>
    </message>
    <message numerus="yes">
        <source>%n exchanges from %1 to %2 are not recorded.</source>
        <translation>
            <numerusform>%n uitwisseling van %1 tot %2 is niet opgenomen.</numerusform>
            <numerusform>%n uitwisselingen van %1 tot %2 zijn niet opgenomen.</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 ms, at most %2 ms</source>
        <translation>%1 ms, hoogstens %2 ms</translation>
    </message>
    <message>
        <source>Line quality: nothing was asked.</source>
        <translation>Lijnkwaliteit: er werd niets gevraagd.</translation>
    </message>
    <message>
        <source>Line quality: good. Of %1 questions %2 were answered well.</source>
        <translation>Lijnkwaliteit: goed. Van %1 vragen is %2 goed beantwoord.</translation>
    </message>
    <message>
        <source>Line quality: not good. Of %1 questions %2 were answered well.</source>
        <translation>Lijnkwaliteit: niet goed. Van %1 vragen is %2 goed beantwoord.</translation>
    </message>
    <message>
        <source>Primary current</source>
        <translation>Primaire stroom</translation>
    </message>
    <message>
        <source>Secondary current</source>
        <translation>Secundaire stroom</translation>
    </message>
    <message>
        <source>Report of the visit</source>
        <translation>Verslag van het bezoek</translation>
    </message>
    <message>
        <source>en</source>
        <comment>code of this language</comment>
        <translation>nl</translation>
    </message>
    <message>
        <source>Place and date</source>
        <translation>Plaats en datum</translation>
    </message>
    <message>
        <source>Engineer</source>
        <translation>Technicus</translation>
    </message>
    <message>
        <source>Customer</source>
        <translation>Klant</translation>
    </message>
    <message>
        <source>Installation</source>
        <translation>Installatie</translation>
    </message>
    <message>
        <source>Place</source>
        <translation>Plaats</translation>
    </message>
    <message>
        <source>Customer&apos;s reference</source>
        <translation>Kenmerk van de klant</translation>
    </message>
    <message>
        <source>Begun</source>
        <translation>Begonnen</translation>
    </message>
    <message>
        <source>Ended</source>
        <translation>Beëindigd</translation>
    </message>
    <message>
        <source>Program</source>
        <translation>Programma</translation>
    </message>
    <message>
        <source>Port</source>
        <translation>Poort</translation>
    </message>
    <message>
        <source>Remarks</source>
        <translation>Opmerkingen</translation>
    </message>
    <message>
        <source>Summary</source>
        <translation>Samenvatting</translation>
    </message>
    <message>
        <source>LDB&apos;s</source>
        <translation>LDB&apos;s</translation>
    </message>
    <message>
        <source>Not heard</source>
        <translation>Niet gehoord</translation>
    </message>
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
        <source>Firmware</source>
        <translation>Firmware</translation>
    </message>
    <message>
        <source>As of</source>
        <translation>Stand van</translation>
    </message>
    <message>
        <source>Faults</source>
        <translation>Fouten</translation>
    </message>
    <message>
        <source>No fault was recorded.</source>
        <translation>Er is geen fout opgenomen.</translation>
    </message>
    <message>
        <source>Fault</source>
        <translation>Fout</translation>
    </message>
    <message>
        <source>Begin</source>
        <translation>Begin</translation>
    </message>
    <message>
        <source>End</source>
        <translation>Einde</translation>
    </message>
    <message>
        <source>Duration</source>
        <translation>Duur</translation>
    </message>
    <message>
        <source>Fault finding</source>
        <translation>Fout zoeken</translation>
    </message>
    <message>
        <source>No run of fault finding or commissioning was recorded.</source>
        <translation>Er is geen foutzoeking of inbedrijfstelling opgenomen.</translation>
    </message>
    <message>
        <source>LDB %1: %2</source>
        <translation>LDB %1: %2</translation>
    </message>
    <message>
        <source>Commissioning</source>
        <translation>Inbedrijfstelling</translation>
    </message>
    <message>
        <source>Side</source>
        <translation>Zijde</translation>
    </message>
    <message>
        <source>Result</source>
        <translation>Resultaat</translation>
    </message>
    <message>
        <source>FIM&apos;s counted</source>
        <translation>FIM&apos;s geteld</translation>
    </message>
    <message>
        <source>Last run, %1</source>
        <translation>Vorige keer, %1</translation>
    </message>
    <message>
        <source>Last run: none recorded</source>
        <translation>Vorige keer: niet opgenomen</translation>
    </message>
    <message>
        <source>The currents of both sides during the run.</source>
        <translation>De stromen van beide zijden tijdens het zoeken.</translation>
    </message>
    <message>
        <source>Changed settings</source>
        <translation>Gewijzigde instellingen</translation>
    </message>
    <message>
        <source>No change of a setting was recorded.</source>
        <translation>Er is geen wijziging van een instelling opgenomen.</translation>
    </message>
    <message>
        <source>Setting</source>
        <translation>Instelling</translation>
    </message>
    <message>
        <source>Old</source>
        <translation>Oud</translation>
    </message>
    <message>
        <source>New</source>
        <translation>Nieuw</translation>
    </message>
    <message>
        <source>When</source>
        <translation>Wanneer</translation>
    </message>
    <message>
        <source>Read back</source>
        <translation>Teruggelezen</translation>
    </message>
    <message>
        <source>%1: before %2, the former settings of %3 were kept.</source>
        <translation>%1: voor %2 zijn de vorige instellingen bewaard van %3.</translation>
    </message>
    <message>
        <source>Marks of the engineer</source>
        <translation>Markeringen van de technicus</translation>
    </message>
    <message>
        <source>No mark was made.</source>
        <translation>Er is geen markering gemaakt.</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Tijd</translation>
    </message>
    <message>
        <source>LDB</source>
        <translation>LDB</translation>
    </message>
    <message>
        <source>Mark</source>
        <translation>Markering</translation>
    </message>
    <message>
        <source>Other events</source>
        <translation>Andere gebeurtenissen</translation>
    </message>
    <message>
        <source>No other event was recorded.</source>
        <translation>Er is geen andere gebeurtenis opgenomen.</translation>
    </message>
    <message>
        <source>Event</source>
        <translation>Gebeurtenis</translation>
    </message>
    <message>
        <source>Line quality</source>
        <translation>Lijnkwaliteit</translation>
    </message>
    <message numerus="yes">
        <source>%n LDB&apos;s answered every question at once.</source>
        <translation>
            <numerusform>%n LDB heeft elke vraag meteen beantwoord.</numerusform>
            <numerusform>%n LDB&apos;s hebben elke vraag meteen beantwoord.</numerusform>
        </translation>
    </message>
    <message>
        <source>Questions</source>
        <translation>Vragen</translation>
    </message>
    <message>
        <source>Answered well</source>
        <translation>Goed beantwoord</translation>
    </message>
    <message>
        <source>Damaged</source>
        <translation>Beschadigd</translation>
    </message>
    <message>
        <source>Not answered</source>
        <translation>Niet beantwoord</translation>
    </message>
    <message>
        <source>Not believed</source>
        <translation>Niet geloofd</translation>
    </message>
    <message>
        <source>Answer after</source>
        <translation>Antwoord na</translation>
    </message>
    <message>
        <source>Not looked at, or not answered</source>
        <translation>Niet bekeken of niet beantwoord</translation>
    </message>
    <message>
        <source>Every LDB was looked at and answered, and nothing of this time is missing in the recording.</source>
        <translation>Elke LDB is bekeken en heeft geantwoord, en van deze tijd ontbreekt niets in de opname.</translation>
    </message>
    <message>
        <source>Appendix: settings of all LDB&apos;s</source>
        <translation>Bijlage: instellingen van alle LDB&apos;s</translation>
    </message>
    <message>
        <source>Read</source>
        <translation>Gelezen</translation>
    </message>
    <message>
        <source>not read</source>
        <translation>niet gelezen</translation>
    </message>
    <message>
        <source>FIM&apos;s configured</source>
        <translation>FIM&apos;s ingesteld</translation>
    </message>
    <message>
        <source>Both sides</source>
        <translation>Beide zijden</translation>
    </message>
    <message>
        <source>No LDB had a fault at the end.</source>
        <translation>Aan het einde had geen LDB een fout.</translation>
    </message>
    <message>
        <source>LDB&apos;s with a fault at the end (%1): %2.</source>
        <translation>LDB&apos;s met een fout aan het einde (%1): %2.</translation>
    </message>
    <message>
        <source>No LDB was lost at the end.</source>
        <translation>Aan het einde was geen LDB verloren.</translation>
    </message>
    <message>
        <source>LDB&apos;s lost at the end (%1): %2.</source>
        <translation>Verloren LDB&apos;s aan het einde (%1): %2.</translation>
    </message>
</context>
<context>
    <name>WorkNotes</name>
    <message>
        <source>Fault finding ended without a result</source>
        <translation>Foutzoeken eindigde zonder resultaat</translation>
    </message>
</context>
<context>
    <name>WritePreview</name>
    <message>
        <source>Write Settings</source>
        <translation>Instellingen schrijven</translation>
    </message>
    <message>
        <source>Nothing has been written yet. To be written: %1 in %2.</source>
        <translation>Er is nog niets geschreven. Te schrijven: %1 in %2.</translation>
    </message>
    <message numerus="yes">
        <source>%n change(s)</source>
        <translation>
            <numerusform>%n wijziging</numerusform>
            <numerusform>%n wijzigingen</numerusform>
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
            <numerusform>%n LDB schrijven</numerusform>
            <numerusform>%n LDB&apos;s schrijven</numerusform>
        </translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuleren</translation>
    </message>
    <message>
        <source>Not written: %1</source>
        <translation>Niet geschreven: %1</translation>
    </message>
    <message>
        <source>What is not written, and why</source>
        <translation>Wat niet wordt geschreven, en waarom</translation>
    </message>
    <message>
        <source>LDB</source>
        <translation>LDB</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Naam</translation>
    </message>
    <message>
        <source>Setting</source>
        <translation>Instelling</translation>
    </message>
    <message>
        <source>Change</source>
        <translation>Wijziging</translation>
    </message>
    <message>
        <source>What is written</source>
        <translation>Wat wordt geschreven</translation>
    </message>
</context>
</TS>
