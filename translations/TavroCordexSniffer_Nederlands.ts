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
</TS>
