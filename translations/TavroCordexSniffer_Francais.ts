<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr_FR" sourcelanguage="en_GB">
<context>
    <name>AboutDialog</name>
    <message>
        <source>About %1</source>
        <translation>À propos de %1</translation>
    </message>
    <message>
        <source>The %1 application has been developed with the framework Qt 5.5.0
Qt is licenced under the LGPL licence (2.1)</source>
        <translation>L&apos;application %1 a été développée avec le framework Qt 5.5.0
Qt est distribué sous la licence LGPL (2.1)</translation>
    </message>
    <message>
        <source>The %1 application is based in part on the work of the Qwt project.
The Qwt source code can be found at https://qwt.sourceforge.io</source>
        <translation>L&apos;application %1 repose en partie sur les travaux du projet Qwt.
Le code source de Qwt se trouve sur https://qwt.sourceforge.io</translation>
    </message>
    <message>
        <source>A copy of the licenses can be found in the application licenses folder. Contact your distributor for source code access related to the LGPL licenses.</source>
        <translation>Une copie des licences se trouve dans le dossier des licences de l&apos;application. Contactez votre distributeur pour accéder au code source couvert par les licences LGPL.</translation>
    </message>
    <message>
        <source>Copyright %1. All rights reserved.</source>
        <translation>Copyright %1. Tous droits réservés.</translation>
    </message>
    <message>
        <source>THIS PROGRAM IS PROVIDED BY %1 AS IT IS, WITHOUT WARRANTY OF ANY KIND, EXPRESSED OR IMPLIED, INCLUDING THE WARRANTIES OF MERCHANTABILITY AND OF FITNESS FOR A PARTICULAR PURPOSE. %1 IS NOT LIABLE FOR ANY DAMAGE ARISING FROM ITS USE.</source>
        <translation>CE PROGRAMME EST FOURNI PAR %1 EN L&apos;ÉTAT, SANS GARANTIE D&apos;AUCUNE SORTE, EXPRESSE OU IMPLICITE, Y COMPRIS LES GARANTIES DE QUALITÉ MARCHANDE ET D&apos;ADÉQUATION À UN USAGE PARTICULIER. %1 N&apos;EST PAS RESPONSABLE DES DOMMAGES RÉSULTANT DE SON UTILISATION.</translation>
    </message>
</context>
<context>
    <name>GeneralInformation</name>
    <message>
        <source>Short</source>
        <translation>Court-circuit</translation>
    </message>
    <message>
        <source>Short(memory)</source>
        <translation>Court-circuit(mémoire)</translation>
    </message>
</context>
<context>
    <name>LdbStatus</name>
    <message>
        <source>Booting</source>
        <translation>Démarrage</translation>
    </message>
    <message>
        <source>Quiescent</source>
        <translation>Repos</translation>
    </message>
    <message>
        <source>Measuring</source>
        <translation>Mesure</translation>
    </message>
    <message>
        <source>Service mode</source>
        <translation>Mode maintenance</translation>
    </message>
    <message>
        <source>Fim reset executing</source>
        <translation>Réinitialisation Fim en cours</translation>
    </message>
    <message>
        <source>Fim reset failed</source>
        <translation>Échec de la réinitialisation Fim</translation>
    </message>
    <message>
        <source>Fim reset done</source>
        <translation>Réinitialisation Fim terminée</translation>
    </message>
    <message>
        <source>Factory reset executing</source>
        <translation>Réinitialisation d&apos;usine en cours</translation>
    </message>
    <message>
        <source>Factory reset failed</source>
        <translation>Échec de la réinitialisation d&apos;usine</translation>
    </message>
    <message>
        <source>Factory reset done</source>
        <translation>Réinitialisation d&apos;usine terminée</translation>
    </message>
    <message>
        <source>Check Settings</source>
        <translation>Vérifier les paramètres</translation>
    </message>
    <message>
        <source>Fault</source>
        <translation>Défaut</translation>
    </message>
    <message>
        <source>Disconnected</source>
        <translation>Déconnecté</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>Ok</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Ouvert</translation>
    </message>
    <message>
        <source>Open(memory)</source>
        <translation>Ouvert(mémoire)</translation>
    </message>
    <message>
        <source>Short</source>
        <translation>Court-circuit</translation>
    </message>
    <message>
        <source>Short + Open(memory)</source>
        <translation>Court-circuit + Ouvert(mémoire)</translation>
    </message>
    <message>
        <source>Short(memory)</source>
        <translation>Court-circuit(mémoire)</translation>
    </message>
    <message>
        <source>Short(memory) + Open</source>
        <translation>Court-circuit(mémoire) + Ouvert</translation>
    </message>
    <message>
        <source>Short(memory) + Open(memory)</source>
        <translation>Court-circuit(mémoire) + Ouvert(mémoire)</translation>
    </message>
    <message>
        <source>DC Leakage</source>
        <translation>Fuite CC</translation>
    </message>
    <message>
        <source>Open + DC Leakage</source>
        <translation>Ouvert + Fuite CC</translation>
    </message>
    <message>
        <source>Open(memory) + DC Leakage</source>
        <translation>Ouvert(mémoire) + Fuite CC</translation>
    </message>
    <message>
        <source>Short + DC Leakage</source>
        <translation>Court-circuit + Fuite CC</translation>
    </message>
    <message>
        <source>Short + Open(memory) + DC Leakage</source>
        <translation>Court-circuit + Ouvert(mémoire) + Fuite CC</translation>
    </message>
    <message>
        <source>Short(memory) + DC Leakage</source>
        <translation>Court-circuit(mémoire) + Fuite CC</translation>
    </message>
    <message>
        <source>Short(memory) + Open + DC Leakage</source>
        <translation>Court-circuit(mémoire) + Ouvert + Fuite CC</translation>
    </message>
    <message>
        <source>Short(memory) + Open(memory) + DC Leakage</source>
        <translation>Court-circuit(mémoire) + Ouvert(mémoire) + Fuite CC</translation>
    </message>
    <message>
        <source>DC Leakage(memory)</source>
        <translation>Fuite CC(mémoire)</translation>
    </message>
    <message>
        <source>Open + DC Leakage(memory)</source>
        <translation>Ouvert + Fuite CC(mémoire)</translation>
    </message>
    <message>
        <source>Open(memory) + DC Leakage(memory)</source>
        <translation>Ouvert(mémoire) + Fuite CC(mémoire)</translation>
    </message>
    <message>
        <source>Short + DC Leakage(memory)</source>
        <translation>Court-circuit + Fuite CC(mémoire)</translation>
    </message>
    <message>
        <source>Short + Open(memory) + DC Leakage(memory)</source>
        <translation>Court-circuit + Ouvert(mémoire) + Fuite CC(mémoire)</translation>
    </message>
    <message>
        <source>Short(memory) + DC Leakage(memory)</source>
        <translation>Court-circuit(mémoire) + Fuite CC(mémoire)</translation>
    </message>
    <message>
        <source>Short(memory)+ Open + DC Leakage(memory)</source>
        <translation>Court-circuit(mémoire)+ Ouvert + Fuite CC(mémoire)</translation>
    </message>
    <message>
        <source>Short(memory) + Open(memory) + DC Leakage(memory)</source>
        <translation>Court-circuit(mémoire) + Ouvert(mémoire) + Fuite CC(mémoire)</translation>
    </message>
    <message>
        <source>Leakage</source>
        <translation>Fuite</translation>
    </message>
    <message>
        <source>Leakage + Open</source>
        <translation>Fuite + Ouvert</translation>
    </message>
    <message>
        <source>Leakage + Open(memory)</source>
        <translation>Fuite + Ouvert(mémoire)</translation>
    </message>
    <message>
        <source>Leakage(memory)</source>
        <translation>Fuite(mémoire)</translation>
    </message>
    <message>
        <source>Leakage(memory) + Open</source>
        <translation>Fuite(mémoire) + Ouvert</translation>
    </message>
    <message>
        <source>Leakage(memory) + Open(memory)</source>
        <translation>Fuite(mémoire) + Ouvert(mémoire)</translation>
    </message>
    <message>
        <source>Polling</source>
        <translation>Interrogation</translation>
    </message>
    <message>
        <source>Reconnected</source>
        <translation>Reconnecté</translation>
    </message>
    <message>
        <source>Not Supported</source>
        <translation>Non pris en charge</translation>
    </message>
    <message>
        <source>Unknown</source>
        <translation>Inconnu</translation>
    </message>
</context>
<context>
    <name>SettingsMenu</name>
    <message>
        <source>Settings</source>
        <translation>Paramètres</translation>
    </message>
    <message>
        <source>Serial Port</source>
        <translation>Port série</translation>
    </message>
    <message>
        <source>Language:</source>
        <translation>Langue&#xa0;:</translation>
    </message>
    <message>
        <source>Sounds</source>
        <translation>Sons</translation>
    </message>
    <message>
        <source>Enable Sound Warnings</source>
        <translation>Activer les avertissements sonores</translation>
    </message>
    <message>
        <source>About</source>
        <translation>À propos</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Unknown COM port</source>
        <translation>Port COM inconnu</translation>
    </message>
    <message>
        <source>No ComPorts found</source>
        <translation>Aucun port COM trouvé</translation>
    </message>
    <message>
        <source>No language file found</source>
        <translation>Aucun fichier de langue trouvé</translation>
    </message>
    <message>
        <source>Description: %1</source>
        <translation>Description&#xa0;: %1</translation>
    </message>
    <message>
        <source>Manufacturer: %1</source>
        <translation>Fabricant&#xa0;: %1</translation>
    </message>
    <message>
        <source>Serial number: %1</source>
        <translation>Numéro de série&#xa0;: %1</translation>
    </message>
    <message>
        <source>Location: %1</source>
        <translation>Emplacement&#xa0;: %1</translation>
    </message>
    <message>
        <source>Vendor Identifier: %1</source>
        <translation>Identifiant du fabricant&#xa0;: %1</translation>
    </message>
    <message>
        <source>Product Identifier: %1</source>
        <translation>Identifiant du produit&#xa0;: %1</translation>
    </message>
</context>
</TS>
