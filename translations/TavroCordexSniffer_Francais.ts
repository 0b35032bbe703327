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
    <name>ActionsPanel</name>
    <message>
        <source>LDB Actions</source>
        <translation>Actions LDB</translation>
    </message>
    <message>
        <source>Selected LDB</source>
        <translation>LDB sélectionné</translation>
    </message>
    <message>
        <source>&amp;FIM
Reset</source>
        <translation>Réinit.
&amp;FIM</translation>
    </message>
    <message>
        <source>Reset the FIMs of the ticked LDB</source>
        <translation>Réinitialiser les FIM du LDB coché</translation>
    </message>
    <message>
        <source>FIM reset of the selected LDB</source>
        <translation>Réinitialisation FIM du LDB sélectionné</translation>
    </message>
    <message>
        <source>LD&amp;B
Reset</source>
        <translation>Réinit.
LD&amp;B</translation>
    </message>
    <message>
        <source>Restart the ticked LDB</source>
        <translation>Redémarrer le LDB coché</translation>
    </message>
    <message>
        <source>LDB reset of the selected LDB</source>
        <translation>Réinitialisation LDB du LDB sélectionné</translation>
    </message>
    <message>
        <source>Ser&amp;vice
Mode</source>
        <translation>&amp;Mode
maintenance</translation>
    </message>
    <message>
        <source>Put the ticked LDB into service mode; an LDB reset ends it</source>
        <translation>Mettre le LDB coché en mode maintenance&#xa0;; une réinitialisation du LDB y met fin</translation>
    </message>
    <message>
        <source>Service mode of the selected LDB</source>
        <translation>Mode maintenance du LDB sélectionné</translation>
    </message>
    <message>
        <source>FIM
&amp;Tracking</source>
        <translation>&amp;Suivi
FIM</translation>
    </message>
    <message>
        <source>Count the FIMs of the ticked LDB and find where its loop is broken</source>
        <translation>Compter les FIM du LDB coché et localiser le défaut de sa boucle</translation>
    </message>
    <message>
        <source>FIM tracking of the selected LDB</source>
        <translation>Suivi FIM du LDB sélectionné</translation>
    </message>
    <message>
        <source>All LDB&apos;s</source>
        <translation>Tous les LDB</translation>
    </message>
    <message>
        <source>FIM
Reset</source>
        <translation>Réinit.
FIM</translation>
    </message>
    <message>
        <source>Reset the FIMs of every LDB on the bus, at once</source>
        <translation>Réinitialiser les FIM de tous les LDB du bus, en une fois</translation>
    </message>
    <message>
        <source>FIM reset of all LDB&apos;s</source>
        <translation>Réinitialisation FIM de tous les LDB</translation>
    </message>
    <message>
        <source>LDB
Reset</source>
        <translation>Réinit.
LDB</translation>
    </message>
    <message>
        <source>Restart every LDB on the bus, at once</source>
        <translation>Redémarrer tous les LDB du bus, en une fois</translation>
    </message>
    <message>
        <source>LDB reset of all LDB&apos;s</source>
        <translation>Réinitialisation LDB de tous les LDB</translation>
    </message>
    <message>
        <source>Service
Mode</source>
        <translation>Mode
maintenance</translation>
    </message>
    <message>
        <source>Put every LDB on the bus into service mode, at once</source>
        <translation>Mettre tous les LDB du bus en mode maintenance, en une fois</translation>
    </message>
    <message>
        <source>Service mode of all LDB&apos;s</source>
        <translation>Mode maintenance de tous les LDB</translation>
    </message>
    <message>
        <source>FIM reset</source>
        <translation>Réinitialisation FIM</translation>
    </message>
    <message>
        <source>LDB reset</source>
        <translation>Réinitialisation LDB</translation>
    </message>
    <message>
        <source>Factory reset</source>
        <translation>Réinitialisation d&apos;usine</translation>
    </message>
    <message>
        <source>Service mode</source>
        <translation>Mode maintenance</translation>
    </message>
    <message>
        <source>The connection ended. Not sent to the LDB&apos;s: %1.</source>
        <translation>La connexion s&apos;est terminée. Non envoyé aux LDB&#xa0;: %1.</translation>
    </message>
    <message>
        <source>Sent to all LDB&apos;s: %1.</source>
        <translation>Envoyé à tous les LDB&#xa0;: %1.</translation>
    </message>
    <message>
        <source>The connection ended. Not sent to LDB %1: %2.</source>
        <translation>La connexion s&apos;est terminée. Non envoyé au LDB %1&#xa0;: %2.</translation>
    </message>
    <message>
        <source>LDB %1 did not answer: %2.</source>
        <translation>LDB %1 n&apos;a pas répondu&#xa0;: %2.</translation>
    </message>
    <message>
        <source>LDB %1 refused: %2.</source>
        <translation>LDB %1 a refusé&#xa0;: %2.</translation>
    </message>
    <message>
        <source>LDB %1 accepted: %2.</source>
        <translation>LDB %1 a accepté&#xa0;: %2.</translation>
    </message>
    <message>
        <source>Attention</source>
        <translation>Attention</translation>
    </message>
    <message numerus="yes">
        <source>Reset the FIM&apos;s of all %n LDB(s)?</source>
        <translation>
            <numerusform>Réinitialiser les FIM de %n LDB&#xa0;?</numerusform>
            <numerusform>Réinitialiser les FIM des %n LDB&#xa0;?</numerusform>
        </translation>
    </message>
    <message>
        <source>The loops are without sound while their FIM&apos;s are reset. Remembered faults are forgotten.</source>
        <translation>Les boucles sont sans son pendant la réinitialisation de leurs FIM. Les défauts mémorisés sont oubliés.</translation>
    </message>
    <message numerus="yes">
        <source>Restart all %n LDB(s)?</source>
        <translation>
            <numerusform>Redémarrer %n LDB&#xa0;?</numerusform>
            <numerusform>Redémarrer les %n LDB&#xa0;?</numerusform>
        </translation>
    </message>
    <message>
        <source>All loops are without sound until their LDB&apos;s have booted and measured. Service mode ends.</source>
        <translation>Toutes les boucles sont sans son jusqu&apos;à ce que leurs LDB aient démarré et mesuré. Le mode maintenance prend fin.</translation>
    </message>
    <message numerus="yes">
        <source>Put all %n LDB(s) into service mode?</source>
        <translation>
            <numerusform>Mettre %n LDB en mode maintenance&#xa0;?</numerusform>
            <numerusform>Mettre les %n LDB en mode maintenance&#xa0;?</numerusform>
        </translation>
    </message>
    <message>
        <source>None of them watches its loop any more, and loops may be without sound, until each LDB is reset. Faults are not reported.</source>
        <translation>Aucun ne surveille plus sa boucle, et des boucles peuvent être sans son, jusqu&apos;à la réinitialisation de chaque LDB. Les défauts ne sont pas signalés.</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Not seen in it: %1</source>
        <translation>Pas vus dans cet état&#xa0;: %1</translation>
    </message>
    <message>
        <source>Not answered since: %1</source>
        <translation>N&apos;ont pas répondu depuis&#xa0;: %1</translation>
    </message>
    <message>
        <source>Not in it: %1</source>
        <translation>Ne sont pas dans ce mode&#xa0;: %1</translation>
    </message>
    <message>
        <source>The connection ended before all had been looked at.</source>
        <translation>La connexion s&apos;est terminée avant que tous aient été examinés.</translation>
    </message>
    <message>
        <source>Information</source>
        <translation>Information</translation>
    </message>
    <message>
        <source>Not answering now: %1.</source>
        <translation>Ne répondent pas actuellement&#xa0;: %1.</translation>
    </message>
    <message>
        <source>In service mode: %1 of %2 LDB&apos;s.</source>
        <translation>En mode maintenance&#xa0;: %1 LDB sur %2.</translation>
    </message>
    <message>
        <source>Seen in a FIM reset: %1 of %2 LDB&apos;s.</source>
        <translation>Vus en réinitialisation FIM&#xa0;: %1 LDB sur %2.</translation>
    </message>
    <message>
        <source>Answered since the LDB reset: %1 of %2 LDB&apos;s.</source>
        <translation>Ont répondu depuis la réinitialisation LDB&#xa0;: %1 LDB sur %2.</translation>
    </message>
</context>
<context>
    <name>ClosingQuestion</name>
    <message>
        <source>Attention</source>
        <translation>Attention</translation>
    </message>
    <message>
        <source>Close the program all the same?</source>
        <translation>Fermer le programme malgré tout&#xa0;?</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
    <message>
        <source>Stay</source>
        <translation>Rester</translation>
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
        <translation>Nom</translation>
    </message>
    <message>
        <source>Mode</source>
        <translation>Mode</translation>
    </message>
    <message>
        <source>Loop</source>
        <translation>Boucle</translation>
    </message>
    <message>
        <source>Primary Port</source>
        <translation>Port primaire</translation>
    </message>
    <message>
        <source>Secondary Port</source>
        <translation>Port secondaire</translation>
    </message>
    <message>
        <source>Earth</source>
        <translation>Terre</translation>
    </message>
    <message>
        <source>Amplifier</source>
        <translation>Amplificateur</translation>
    </message>
    <message>
        <source>%1 ago</source>
        <translation>il y a %1</translation>
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
        <translation>Nom</translation>
    </message>
    <message>
        <source>Mode</source>
        <translation>Mode</translation>
    </message>
    <message>
        <source>Loop</source>
        <translation>Boucle</translation>
    </message>
    <message>
        <source>Primary Port</source>
        <translation>Port primaire</translation>
    </message>
    <message>
        <source>Secondary Port</source>
        <translation>Port secondaire</translation>
    </message>
    <message>
        <source>Earth</source>
        <translation>Terre</translation>
    </message>
    <message>
        <source>Amplifier</source>
        <translation>Amplificateur</translation>
    </message>
    <message>
        <source>%1, selected</source>
        <translation>%1, sélectionné</translation>
    </message>
    <message>
        <source>Dismiss LDB %1</source>
        <translation>Retirer le LDB %1</translation>
    </message>
    <message>
        <source>Dismiss all lost LDBs</source>
        <translation>Retirer tous les LDB perdus</translation>
    </message>
</context>
<context>
    <name>DeviceSettingsFile</name>
    <message numerus="yes">
        <source>%n field(s) instead of %1</source>
        <translation>
            <numerusform>%n champ au lieu de %1</numerusform>
            <numerusform>%n champs au lieu de %1</numerusform>
        </translation>
    </message>
    <message>
        <source>It is not clear which fields belong to the name</source>
        <translation>Impossible de déterminer quels champs appartiennent au nom</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is neither 0 nor 1</source>
        <translation>«&#xa0;%1&#xa0;» ne vaut ni 0 ni 1</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no number from 0 to %2</source>
        <translation>«&#xa0;%1&#xa0;» n&apos;est pas un nombre de 0 à %2</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is 1, but &quot;%2&quot; is 0</source>
        <translation>«&#xa0;%1&#xa0;» vaut 1, mais «&#xa0;%2&#xa0;» vaut 0</translation>
    </message>
    <message>
        <source>The name stands in quotation marks</source>
        <translation>Le nom est entre guillemets</translation>
    </message>
    <message>
        <source>The name has characters that cannot be read</source>
        <translation>Le nom contient des caractères illisibles</translation>
    </message>
    <message numerus="yes">
        <source>The name does not fit into %n byte(s)</source>
        <translation>
            <numerusform>Le nom ne tient pas dans %n octet</numerusform>
            <numerusform>Le nom ne tient pas dans %n octets</numerusform>
        </translation>
    </message>
    <message>
        <source>The ID has more than one line</source>
        <translation>L&apos;ID a plus d&apos;une ligne</translation>
    </message>
    <message>
        <source>ID</source>
        <translation>ID</translation>
    </message>
    <message>
        <source>Device Name</source>
        <translation>Nom de l&apos;appareil</translation>
    </message>
    <message>
        <source>General Fault Output</source>
        <translation>Sortie de défaut général</translation>
    </message>
    <message>
        <source>Open Detection</source>
        <translation>Détection de coupure</translation>
    </message>
    <message>
        <source>Open Detection Delay</source>
        <translation>Délai de détection de coupure</translation>
    </message>
    <message>
        <source>Earth Leakage Detection</source>
        <translation>Détection de fuite à la terre</translation>
    </message>
    <message>
        <source>Earth Wire Open Detection</source>
        <translation>Détection de coupure du fil de terre</translation>
    </message>
    <message>
        <source>Start In Service Mode</source>
        <translation>Démarrer en mode maintenance</translation>
    </message>
    <message>
        <source>Amplifier Detection</source>
        <translation>Détection de l&apos;amplificateur</translation>
    </message>
    <message>
        <source>Number of FIM&apos;s</source>
        <translation>Nombre de FIM</translation>
    </message>
    <message>
        <source>Firmware Id</source>
        <translation>ID du micrologiciel</translation>
    </message>
    <message>
        <source>The ID is no address</source>
        <translation>L&apos;ID n&apos;est pas une adresse</translation>
    </message>
</context>
<context>
    <name>DisconnectSecondaryPortDialog</name>
    <message>
        <source>Disconnect the secondary port</source>
        <translation>Déconnectez le port secondaire</translation>
    </message>
    <message>
        <source>Disconnect the secondary port when locating earth leakage.</source>
        <translation>Déconnectez le port secondaire pour localiser une fuite à la terre.</translation>
    </message>
    <message>
        <source>Front panel of the LDB with its ports</source>
        <translation>Face avant du LDB avec ses ports</translation>
    </message>
</context>
<context>
    <name>EventBar</name>
    <message>
        <source>All LDBs</source>
        <translation>Tous les LDB</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 sur %2</translation>
    </message>
    <message>
        <source>Set a mark with a line of text at the moment that is shown (M)</source>
        <translation>Placer un repère avec une ligne de texte au moment affiché (M)</translation>
    </message>
    <message>
        <source>All kinds</source>
        <translation>Tous les types</translation>
    </message>
    <message>
        <source>All times</source>
        <translation>Toutes les heures</translation>
    </message>
    <message>
        <source>Last hour</source>
        <translation>Dernière heure</translation>
    </message>
    <message>
        <source>Last 24 hours</source>
        <translation>Dernières 24 heures</translation>
    </message>
    <message>
        <source>Last 7 days</source>
        <translation>7 derniers jours</translation>
    </message>
    <message>
        <source>From ... to ...</source>
        <translation>De ... à ...</translation>
    </message>
    <message>
        <source>Text of the events</source>
        <translation>Texte</translation>
    </message>
    <message>
        <source>Show only events with these words. Esc shows all again.</source>
        <translation>N&apos;afficher que les événements avec ces mots. Échap affiche tout à nouveau.</translation>
    </message>
    <message>
        <source>Filter of the events by text</source>
        <translation>Filtre des événements par texte</translation>
    </message>
    <message>
        <source>LDB whose events are shown</source>
        <translation>LDB dont les événements sont affichés</translation>
    </message>
    <message>
        <source>Kind of the events that are shown</source>
        <translation>Type des événements affichés</translation>
    </message>
    <message>
        <source>Time of the events that are shown</source>
        <translation>Période des événements affichés</translation>
    </message>
    <message>
        <source>Events from this time on</source>
        <translation>Événements à partir de cette heure</translation>
    </message>
    <message>
        <source>Events up to this time</source>
        <translation>Événements jusqu&apos;à cette heure</translation>
    </message>
    <message>
        <source>Mark...</source>
        <translation>Repère...</translation>
    </message>
    <message>
        <source>Export...</source>
        <translation>Exporter...</translation>
    </message>
    <message>
        <source>Write the events that are listed to a CSV file</source>
        <translation>Écrire les événements de la liste dans un fichier CSV</translation>
    </message>
</context>
<context>
    <name>EventDesk</name>
    <message>
        <source>Events</source>
        <translation>Événements</translation>
    </message>
    <message>
        <source>Show or hide what has happened: faults, losses, actions, marks (Ctrl+E)</source>
        <translation>Afficher ou masquer ce qui s&apos;est passé&#xa0;: défauts, pertes, actions, repères (Ctrl+E)</translation>
    </message>
    <message>
        <source>This recording is only read: no mark can be set in it.</source>
        <translation>Cet enregistrement est en lecture seule&#xa0;: aucun repère ne peut y être placé.</translation>
    </message>
    <message>
        <source>Recording is turned off: no mark can be set.</source>
        <translation>L&apos;enregistrement est désactivé&#xa0;: aucun repère ne peut être placé.</translation>
    </message>
    <message>
        <source>Nothing has been recorded yet: start the bus first.</source>
        <translation>Rien n&apos;a encore été enregistré&#xa0;: démarrez d&apos;abord le bus.</translation>
    </message>
    <message>
        <source>Export Events</source>
        <translation>Exporter les événements</translation>
    </message>
    <message>
        <source>Events exported to %1</source>
        <translation>Événements exportés vers %1</translation>
    </message>
    <message>
        <source>The events could not be exported to %1</source>
        <translation>Les événements n&apos;ont pas pu être exportés vers %1</translation>
    </message>
</context>
<context>
    <name>EventKinds</name>
    <message>
        <source>Faults</source>
        <translation>Défauts</translation>
    </message>
    <message>
        <source>Losses and scans</source>
        <translation>Pertes et scans</translation>
    </message>
    <message>
        <source>Modes</source>
        <translation>Modes</translation>
    </message>
    <message>
        <source>Actions and settings</source>
        <translation>Actions et paramètres</translation>
    </message>
    <message>
        <source>Fault finding</source>
        <translation>Recherche de défaut</translation>
    </message>
    <message>
        <source>Marks</source>
        <translation>Repères</translation>
    </message>
    <message>
        <source>Bus and recording</source>
        <translation>Bus et enregistrement</translation>
    </message>
</context>
<context>
    <name>EventList</name>
    <message>
        <source>Events</source>
        <translation>Événements</translation>
    </message>
    <message>
        <source>, older ones left out</source>
        <translation>, plus anciens omis</translation>
    </message>
    <message>
        <source>Before: %1</source>
        <translation>Avant&#xa0;: %1</translation>
    </message>
    <message>
        <source>After: %1</source>
        <translation>Après&#xa0;: %1</translation>
    </message>
</context>
<context>
    <name>EventModel</name>
    <message>
        <source>not ended</source>
        <translation>non terminé</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Heure</translation>
    </message>
    <message>
        <source>LDB</source>
        <translation>LDB</translation>
    </message>
    <message>
        <source>Duration</source>
        <translation>Durée</translation>
    </message>
    <message>
        <source>Event</source>
        <translation>Événement</translation>
    </message>
</context>
<context>
    <name>Evidence</name>
    <message>
        <source>LDB %1 lost</source>
        <translation>LDB %1 perdu</translation>
    </message>
    <message>
        <source>LDB %1: %2</source>
        <translation>LDB %1 : %2</translation>
    </message>
    <message>
        <source>the connection to %1 was lost</source>
        <translation>la connexion à %1 a été perdue</translation>
    </message>
    <message>
        <source>No Recording</source>
        <translation>Aucun enregistrement</translation>
    </message>
    <message>
        <source>There is no recording that can be read in %1.</source>
        <translation>Il n&apos;y a aucun enregistrement lisible dans %1.</translation>
    </message>
    <message>
        <source>Nothing has been recorded yet.</source>
        <translation>Rien n&apos;a encore été enregistré.</translation>
    </message>
    <message>
        <source>%1 could not be opened.</source>
        <translation>%1 n&apos;a pas pu être ouvert.</translation>
    </message>
    <message>
        <source>Evidence is being written. The file will be missing.</source>
        <translation>Des données sont en cours d&apos;écriture. Le fichier manquera.</translation>
    </message>
    <message>
        <source>Report of the &amp;Visit...</source>
        <translation>Rapport de la &amp;visite...</translation>
    </message>
    <message>
        <source>Take Evidence &amp;Home...</source>
        <translation>&amp;Emporter les preuves...</translation>
    </message>
    <message>
        <source>Save a &amp;Copy of This Visit...</source>
        <translation>&amp;Copier cette visite...</translation>
    </message>
    <message>
        <source>&amp;Recording...</source>
        <translation>En&amp;registrement...</translation>
    </message>
</context>
<context>
    <name>EvidenceForm</name>
    <message>
        <source>All LDBs</source>
        <translation>Tous les LDB</translation>
    </message>
    <message>
        <source>LDB %1</source>
        <translation>LDB %1</translation>
    </message>
    <message>
        <source>This &amp;visit: since today&apos;s first start, %1</source>
        <translation>Cette &amp;visite&#xa0;: depuis le premier démarrage d&apos;aujourd&apos;hui, %1</translation>
    </message>
    <message>
        <source>This &amp;visit: since today&apos;s first start</source>
        <translation>Cette &amp;visite&#xa0;: depuis le premier démarrage d&apos;aujourd&apos;hui</translation>
    </message>
    <message>
        <source>The end of the span is before its begin.</source>
        <translation>La fin de la période est avant son début.</translation>
    </message>
    <message>
        <source>Take Evidence Home</source>
        <translation>Emporter les preuves</translation>
    </message>
    <message>
        <source>Where the Copy Goes</source>
        <translation>Où va la copie</translation>
    </message>
    <message>
        <source>Writing %1</source>
        <translation>Écriture de %1</translation>
    </message>
    <message>
        <source>Saved: %1</source>
        <translation>Enregistré&#xa0;: %1</translation>
    </message>
    <message>
        <source>Stopped: %1 is not complete, or was not written.</source>
        <translation>Arrêté&#xa0;: %1 n&apos;est pas complet, ou n&apos;a pas été écrit.</translation>
    </message>
    <message>
        <source>Not saved: %1</source>
        <translation>Non enregistré&#xa0;: %1</translation>
    </message>
    <message>
        <source>%1 could not be written.</source>
        <translation>%1 n&apos;a pas pu être écrit.</translation>
    </message>
    <message>
        <source>What</source>
        <translation>Quoi</translation>
    </message>
    <message>
        <source>&amp;Log (CSV), as the logger would have written it</source>
        <translation>&amp;Journal (CSV), comme il aurait été écrit au fil du temps</translation>
    </message>
    <message>
        <source>Of:</source>
        <translation>De&#xa0;:</translation>
    </message>
    <message>
        <source>every:</source>
        <translation>toutes les&#xa0;:</translation>
    </message>
    <message>
        <source>s</source>
        <translation>s</translation>
    </message>
    <message>
        <source>Seconds between two records of an LDB; at 0 every record is written</source>
        <translation>Secondes entre deux enregistrements d&apos;un LDB&#xa0;; à 0, chaque enregistrement est écrit</translation>
    </message>
    <message>
        <source>&amp;Events (CSV)</source>
        <translation>Évé&amp;nements (CSV)</translation>
    </message>
    <message>
        <source>Every &amp;byte on the bus, for Wireshark (pcapng)</source>
        <translation>Chaque &amp;octet sur le bus, pour Wireshark (pcapng)</translation>
    </message>
    <message>
        <source>&amp;Copy of the recording of these days, to look back in this program</source>
        <translation>&amp;Copie de l&apos;enregistrement de ces jours, pour revoir dans ce programme</translation>
    </message>
    <message>
        <source>When</source>
        <translation>Quand</translation>
    </message>
    <message>
        <source>The last &amp;hour</source>
        <translation>La dernière &amp;heure</translation>
    </message>
    <message>
        <source>&amp;Today</source>
        <translation>&amp;Aujourd&apos;hui</translation>
    </message>
    <message>
        <source>&amp;From, to:</source>
        <translation>&amp;De, à&#xa0;:</translation>
    </message>
    <message>
        <source>From</source>
        <translation>De</translation>
    </message>
    <message>
        <source>To</source>
        <translation>À</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>Progression</translation>
    </message>
    <message>
        <source>&amp;Save...</source>
        <translation>&amp;Enregistrer...</translation>
    </message>
    <message>
        <source>Sto&amp;p</source>
        <translation>Arrê&amp;ter</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
</context>
<context>
    <name>EvidenceWriter</name>
    <message>
        <source>Another installation is in use now.</source>
        <translation>Une autre installation est utilisée maintenant.</translation>
    </message>
</context>
<context>
    <name>FileLogger</name>
    <message>
        <source>Device Id</source>
        <translation>ID de l&apos;appareil</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Nom</translation>
    </message>
    <message>
        <source>Mode</source>
        <translation>Mode</translation>
    </message>
    <message>
        <source>Loop</source>
        <translation>Boucle</translation>
    </message>
    <message>
        <source>Primary Port (V)</source>
        <translation>Port primaire (V)</translation>
    </message>
    <message>
        <source>Primary Port (mA)</source>
        <translation>Port primaire (mA)</translation>
    </message>
    <message>
        <source>Secondary Port (V)</source>
        <translation>Port secondaire (V)</translation>
    </message>
    <message>
        <source>Secondary Port (mA)</source>
        <translation>Port secondaire (mA)</translation>
    </message>
    <message>
        <source>Earth</source>
        <translation>Terre</translation>
    </message>
    <message>
        <source>Amplifier</source>
        <translation>Amplificateur</translation>
    </message>
    <message>
        <source>Timestamp</source>
        <translation>Horodatage</translation>
    </message>
    <message>
        <source>No file name is given.</source>
        <translation>Aucun nom de fichier n&apos;est indiqué.</translation>
    </message>
    <message>
        <source>The file has been removed.</source>
        <translation>Le fichier a été supprimé.</translation>
    </message>
</context>
<context>
    <name>FimTracking</name>
    <message>
        <source>Earth Leakage Detected!
</source>
        <translation>Fuite à la terre détectée&#xa0;!
</translation>
    </message>
    <message>
        <source>Loop DC Leakage Detected!
</source>
        <translation>Fuite CC de boucle détectée&#xa0;!
</translation>
    </message>
    <message>
        <source>Primary Side approximately at FIM: %1</source>
        <translation>Côté primaire environ au FIM&#xa0;: %1</translation>
    </message>
    <message>
        <source>Secondary Side approximately at FIM: %1</source>
        <translation>Côté secondaire environ au FIM&#xa0;: %1</translation>
    </message>
    <message>
        <source>Earth Leakage Detected: approximately at FIM: %1</source>
        <translation>Fuite à la terre détectée&#xa0;: environ au FIM&#xa0;: %1</translation>
    </message>
    <message>
        <source>Loop DC Leakage Detected: approximately at FIM: %1</source>
        <translation>Fuite CC de boucle détectée&#xa0;: environ au FIM&#xa0;: %1</translation>
    </message>
    <message>
        <source>Commissioning</source>
        <translation>Mise en service</translation>
    </message>
    <message>
        <source>Fault Finding</source>
        <translation>Recherche de défaut</translation>
    </message>
    <message>
        <source>Timeout: Open Detected</source>
        <translation>Délai écoulé&#xa0;: coupure détectée</translation>
    </message>
    <message>
        <source>Timeout: Short Detected</source>
        <translation>Délai écoulé&#xa0;: court-circuit détecté</translation>
    </message>
    <message>
        <source>Timeout: Side Connected</source>
        <translation>Délai écoulé&#xa0;: côté raccordé</translation>
    </message>
    <message>
        <source>Primary side open detected.</source>
        <translation>Coupure détectée côté primaire.</translation>
    </message>
    <message>
        <source>Secondary side open detected.</source>
        <translation>Coupure détectée côté secondaire.</translation>
    </message>
    <message>
        <source>Primary side short detected.</source>
        <translation>Court-circuit détecté côté primaire.</translation>
    </message>
    <message>
        <source>Secondary side short detected.</source>
        <translation>Court-circuit détecté côté secondaire.</translation>
    </message>
    <message>
        <source>Primary side is connected.</source>
        <translation>Le côté primaire est raccordé.</translation>
    </message>
    <message>
        <source>Secondary side is connected.</source>
        <translation>Le côté secondaire est raccordé.</translation>
    </message>
    <message>
        <source>Loop is connected</source>
        <translation>La boucle est raccordée</translation>
    </message>
    <message>
        <source>Primary side open detected</source>
        <translation>Coupure détectée côté primaire</translation>
    </message>
    <message>
        <source>Primary side short detected</source>
        <translation>Court-circuit détecté côté primaire</translation>
    </message>
    <message>
        <source>Secondary side open detected</source>
        <translation>Coupure détectée côté secondaire</translation>
    </message>
    <message>
        <source>Both sides open detected</source>
        <translation>Coupure détectée des deux côtés</translation>
    </message>
    <message>
        <source>Primary side short detected and Secondary side open detected.</source>
        <translation>Court-circuit détecté côté primaire et coupure détectée côté secondaire.</translation>
    </message>
    <message>
        <source>Secondary side short detected</source>
        <translation>Court-circuit détecté côté secondaire</translation>
    </message>
    <message>
        <source>Primary side open detected and Secondary side short detected.</source>
        <translation>Coupure détectée côté primaire et court-circuit détecté côté secondaire.</translation>
    </message>
    <message>
        <source>Both sides short detected</source>
        <translation>Court-circuit détecté des deux côtés</translation>
    </message>
    <message numerus="yes">
        <source>Total FIM Count: %n</source>
        <translation>
            <numerusform>Nombre total de FIM&#xa0;: %n</numerusform>
            <numerusform>Nombre total de FIM&#xa0;: %n</numerusform>
        </translation>
    </message>
    <message>
        <source>Fim Tracking</source>
        <translation>Suivi FIM</translation>
    </message>
    <message>
        <source>Phase of the run</source>
        <translation>Phase de l&apos;exécution</translation>
    </message>
    <message>
        <source>Copies the report of the finished run as text</source>
        <translation>Copie le rapport de l&apos;exécution terminée sous forme de texte</translation>
    </message>
    <message>
        <source>&amp;Copy Report</source>
        <translation>&amp;Copier le rapport</translation>
    </message>
    <message>
        <source>Zoom In</source>
        <translation>Zoom avant</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>Démarrer</translation>
    </message>
    <message>
        <source>Seconds left for the factory reset</source>
        <translation>Secondes restantes pour la réinitialisation d&apos;usine</translation>
    </message>
    <message>
        <source>LDB: %1</source>
        <translation>LDB&#xa0;: %1</translation>
    </message>
    <message>
        <source>Primary port</source>
        <translation>Port primaire</translation>
    </message>
    <message>
        <source>Secondary port</source>
        <translation>Port secondaire</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Arrêter</translation>
    </message>
    <message>
        <source>This action will start a factory reset. 
Are you sure you want to do this?</source>
        <translation>Cette action lance une réinitialisation d&apos;usine. 
Voulez-vous vraiment continuer&#xa0;?</translation>
    </message>
    <message>
        <source>Select the type of action you want to execute.
 </source>
        <translation>Sélectionnez le type d&apos;action à exécuter.
 </translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Name: %1</source>
        <translation>Nom&#xa0;: %1</translation>
    </message>
    <message>
        <source>Mode: %1</source>
        <translation>Mode&#xa0;: %1</translation>
    </message>
    <message>
        <source>Loop: %1</source>
        <translation>Boucle&#xa0;: %1</translation>
    </message>
    <message>
        <source>Earth: %1</source>
        <translation>Terre&#xa0;: %1</translation>
    </message>
    <message>
        <source>Factory Reset Countdown</source>
        <translation>Compte à rebours de la réinitialisation d&apos;usine</translation>
    </message>
    <message>
        <source>Factory reset started</source>
        <translation>Réinitialisation d&apos;usine lancée</translation>
    </message>
    <message>
        <source>The report has been copied.</source>
        <translation>Le rapport a été copié.</translation>
    </message>
    <message>
        <source>Zoom Out</source>
        <translation>Zoom arrière</translation>
    </message>
    <message>
        <source>factory reset</source>
        <translation>réinitialisation d&apos;usine</translation>
    </message>
    <message>
        <source>LDB reset</source>
        <translation>Réinitialisation LDB</translation>
    </message>
    <message>
        <source>audio mute</source>
        <translation>coupure du son</translation>
    </message>
    <message>
        <source>confirmation</source>
        <translation>confirmation</translation>
    </message>
    <message>
        <source>waiting for the factory reset</source>
        <translation>attente de la réinitialisation d&apos;usine</translation>
    </message>
    <message>
        <source>rebooting</source>
        <translation>redémarrage</translation>
    </message>
    <message>
        <source>counting</source>
        <translation>comptage</translation>
    </message>
    <message>
        <source>finished</source>
        <translation>terminé</translation>
    </message>
    <message>
        <source>idle</source>
        <translation>inactif</translation>
    </message>
    <message>
        <source>stopped</source>
        <translation>arrêté</translation>
    </message>
    <message>
        <source>The factory reset failed.</source>
        <translation>La réinitialisation d&apos;usine a échoué.</translation>
    </message>
    <message>
        <source>The LDB refused the factory reset.</source>
        <translation>Le LDB a refusé la réinitialisation d&apos;usine.</translation>
    </message>
    <message>
        <source>The LDB is disconnected.</source>
        <translation>Le LDB est déconnecté.</translation>
    </message>
    <message>
        <source>The connection was lost.</source>
        <translation>La connexion a été perdue.</translation>
    </message>
    <message>
        <source>%1 s left</source>
        <translation>encore %1 s</translation>
    </message>
    <message>
        <source>%1 s gone</source>
        <translation>%1 s écoulées</translation>
    </message>
    <message>
        <source>Answer the question to go on.</source>
        <translation>Répondez à la question pour continuer.</translation>
    </message>
    <message>
        <source>The LDB has been asked for a factory reset.</source>
        <translation>Une réinitialisation d&apos;usine a été demandée au LDB.</translation>
    </message>
    <message>
        <source>Press Start to begin a run.</source>
        <translation>Appuyez sur Démarrer pour lancer une exécution.</translation>
    </message>
    <message>
        <source>not tracked</source>
        <translation>non suivi</translation>
    </message>
    <message>
        <source>ends in %1 s unless a FIM starts up</source>
        <translation>se termine dans %1 s sauf si un FIM démarre</translation>
    </message>
    <message>
        <source>The LDB refused the command: %1</source>
        <translation>Le LDB a refusé la commande&#xa0;: %1</translation>
    </message>
    <message>
        <source>The LDB did not answer the command: %1</source>
        <translation>Le LDB n&apos;a pas répondu à la commande&#xa0;: %1</translation>
    </message>
    <message>
        <source>FIM count %1</source>
        <translation>Nombre de FIM %1</translation>
    </message>
    <message>
        <source>FIM tracking report</source>
        <translation>Rapport de suivi FIM</translation>
    </message>
    <message>
        <source>Tracking mode: %1</source>
        <translation>Mode de suivi&#xa0;: %1</translation>
    </message>
    <message>
        <source>Time: %1</source>
        <translation>Heure&#xa0;: %1</translation>
    </message>
    <message>
        <source>Primary side: </source>
        <translation>Côté primaire&#xa0;: </translation>
    </message>
    <message>
        <source>Secondary side: </source>
        <translation>Côté secondaire&#xa0;: </translation>
    </message>
    <message>
        <source>Result: %1</source>
        <translation>Résultat&#xa0;: %1</translation>
    </message>
    <message>
        <source>Writes the FIM&apos;s counted as the number of FIM&apos;s into the LDB</source>
        <translation>Écrit les FIM comptés comme nombre de FIM dans le LDB</translation>
    </message>
    <message>
        <source>&amp;Take Over</source>
        <translation>&amp;Reprendre</translation>
    </message>
    <message>
        <source>There is no connection to the LDB.</source>
        <translation>Il n&apos;y a pas de liaison avec le LDB.</translation>
    </message>
    <message>
        <source>Reading the settings of the LDB, to keep them</source>
        <translation>Lecture des paramètres du LDB, pour les conserver</translation>
    </message>
    <message>
        <source>Writing the number of FIM&apos;s</source>
        <translation>Écriture du nombre de FIM</translation>
    </message>
    <message>
        <source>The number of FIM&apos;s in the LDB is now %1.</source>
        <translation>Le nombre de FIM dans le LDB est maintenant %1.</translation>
    </message>
    <message>
        <source>The number of FIM&apos;s: %1</source>
        <translation>Le nombre de FIM&#xa0;: %1</translation>
    </message>
    <message>
        <source>The settings in the LDB go back to defaults, and the loop is without sound for about two minutes. The settings are kept before, and can be restored after the run.</source>
        <translation>Les paramètres dans le LDB reviennent aux valeurs par défaut, et la boucle est sans son pendant environ deux minutes. Les paramètres sont d&apos;abord conservés, et peuvent être rétablis après la mesure.</translation>
    </message>
    <message>
        <source>Start all the same</source>
        <translation>Démarrer quand même</translation>
    </message>
    <message>
        <source>There is no connection to the LDB. Close this window, and start the connection again.</source>
        <translation>Il n&apos;y a pas de liaison avec le LDB. Fermez cette fenêtre, et redémarrez la liaison.</translation>
    </message>
    <message>
        <source>The settings of the LDB cannot be read. After the run they will be the defaults, and the former ones are lost.</source>
        <translation>Les paramètres du LDB ne peuvent pas être lus. Après la mesure, ce seront les valeurs par défaut, et les anciens seront perdus.</translation>
    </message>
    <message>
        <source>What the run changes cannot be kept on the disk: %1
If the program or the computer stops during the run, the settings of the LDB are lost, and it stays muted.</source>
        <translation>Ce que la mesure modifie ne peut pas être conservé sur le disque&#xa0;: %1
Si le programme ou l&apos;ordinateur s&apos;arrête pendant la mesure, les paramètres du LDB sont perdus, et son audio reste coupé.</translation>
    </message>
    <message>
        <source>FIM&apos;s counted: %1   configured: %2</source>
        <translation>FIM comptés&#xa0;: %1   configurés&#xa0;: %2</translation>
    </message>
    <message>
        <source>FIM&apos;s counted: %1   configured: not known</source>
        <translation>FIM comptés&#xa0;: %1   configurés&#xa0;: inconnu</translation>
    </message>
    <message>
        <source>The number of FIM&apos;s is being written.</source>
        <translation>Le nombre de FIM est en cours d&apos;écriture.</translation>
    </message>
    <message>
        <source>There is no report before a run has come to its end.</source>
        <translation>Il n&apos;y a pas de rapport avant la fin d&apos;une recherche.</translation>
    </message>
    <message>
        <source>There is nothing to zoom into before the counting begins.</source>
        <translation>Il n&apos;y a rien à agrandir avant le début du comptage.</translation>
    </message>
    <message>
        <source>Attention</source>
        <translation>Attention</translation>
    </message>
</context>
<context>
    <name>FormerList</name>
    <message>
        <source>Before a Save</source>
        <translation>Avant un enregistrement</translation>
    </message>
    <message>
        <source>Before a Write</source>
        <translation>Avant une écriture</translation>
    </message>
    <message>
        <source>Before the import of %1</source>
        <translation>Avant l&apos;importation de %1</translation>
    </message>
    <message>
        <source>Before settings were put back</source>
        <translation>Avant une remise en place</translation>
    </message>
    <message numerus="yes">
        <source>%n LDB(s)</source>
        <translation>
            <numerusform>%n LDB</numerusform>
            <numerusform>%n LDB</numerusform>
        </translation>
    </message>
    <message>
        <source>Former Settings</source>
        <translation>Anciens paramètres</translation>
    </message>
    <message>
        <source>Compare</source>
        <translation>Comparer</translation>
    </message>
    <message>
        <source>Put Back...</source>
        <translation>Remettre...</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
    <message>
        <source>Date and time</source>
        <translation>Date et heure</translation>
    </message>
    <message>
        <source>Occasion</source>
        <translation>Occasion</translation>
    </message>
    <message>
        <source>LDB&apos;s</source>
        <translation>LDB</translation>
    </message>
    <message>
        <source>Kept in %1</source>
        <translation>Conservés dans %1</translation>
    </message>
</context>
<context>
    <name>FormerSettings</name>
    <message>
        <source>The folder %1 cannot be made.</source>
        <translation>Le dossier %1 ne peut pas être créé.</translation>
    </message>
    <message>
        <source>The file %1 cannot be written: %2.</source>
        <translation>Le fichier %1 ne peut pas être écrit : %2.</translation>
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
        <translation>Court-circuit(mém.)</translation>
    </message>
    <message>
        <source>Not heard yet</source>
        <translation>Pas encore entendu</translation>
    </message>
</context>
<context>
    <name>GoToDialog</name>
    <message>
        <source>Go to a Time</source>
        <translation>Aller à un moment</translation>
    </message>
    <message>
        <source>&amp;Moment to show:</source>
        <translation>&amp;Moment à afficher :</translation>
    </message>
</context>
<context>
    <name>Hindrance</name>
    <message>
        <source>Nothing is monitored: click Start first.</source>
        <translation>Rien n’est surveillé&#xa0;: cliquez d’abord sur Démarrer.</translation>
    </message>
    <message>
        <source>The bus is being scanned: wait until all LDB&apos;s are found.</source>
        <translation>Le bus est en cours d’exploration&#xa0;: attendez que tous les LDB soient trouvés.</translation>
    </message>
    <message>
        <source>No LDB is selected.</source>
        <translation>Aucun LDB n’est sélectionné.</translation>
    </message>
    <message>
        <source>The selected LDB is not connected.</source>
        <translation>Le LDB sélectionné n’est pas connecté.</translation>
    </message>
    <message>
        <source>Settings are being saved: wait until the LDB has them.</source>
        <translation>Des paramètres sont en cours d’enregistrement&#xa0;: attendez que le LDB les ait reçus.</translation>
    </message>
    <message>
        <source>Settings are being exported or imported: wait for the end.</source>
        <translation>Des paramètres sont en cours d’exportation ou d’importation&#xa0;: attendez la fin.</translation>
    </message>
    <message>
        <source>The selected LDB is in service mode: end it with LDB Reset first.</source>
        <translation>Le LDB sélectionné est en mode maintenance&#xa0;: quittez-le d’abord avec Réinit. LDB.</translation>
    </message>
    <message>
        <source>What fault finding has changed is being put back: wait until it is done.</source>
        <translation>Ce que la recherche de défaut a modifié est en cours de rétablissement&#xa0;: attendez la fin.</translation>
    </message>
    <message>
        <source>It is not certain yet which installation answers.</source>
        <translation>Il n&apos;est pas encore certain quelle installation répond.</translation>
    </message>
    <message>
        <source>Fault finding is under way: wait for its end, or stop it.</source>
        <translation>Une recherche de défaut est en cours&#xa0;: attendez-en la fin, ou arrêtez-la.</translation>
    </message>
    <message>
        <source>You are looking back: go back to live first (Esc).</source>
        <translation>Vous regardez en arrière : revenez d&apos;abord au direct (Échap).</translation>
    </message>
</context>
<context>
    <name>ImportExportDeviceSettings</name>
    <message numerus="yes">
        <source>and %n more</source>
        <translation>
            <numerusform>et encore %n</numerusform>
            <numerusform>et encore %n</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Done: %1 of %n LDB(s)</source>
        <translation>
            <numerusform>Fait&#xa0;: %1 sur %n LDB</numerusform>
            <numerusform>Fait&#xa0;: %1 sur %n LDB</numerusform>
        </translation>
    </message>
    <message>
        <source>none</source>
        <translation>aucun</translation>
    </message>
    <message>
        <source>Nothing was written.</source>
        <translation>Rien n&apos;a été écrit.</translation>
    </message>
    <message>
        <source>Done: %1</source>
        <translation>Terminé&#xa0;: %1</translation>
    </message>
    <message>
        <source>Not begun: %1</source>
        <translation>Non commencé&#xa0;: %1</translation>
    </message>
</context>
<context>
    <name>InstallationControl</name>
    <message>
        <source>A damaged file of an installation was moved aside: %1</source>
        <translation>Un fichier d&apos;installation endommagé a été mis de côté : %1</translation>
    </message>
</context>
<context>
    <name>InstallationDesk</name>
    <message>
        <source>Installation</source>
        <translation>Installation</translation>
    </message>
    <message>
        <source>The connection to %1 is back.</source>
        <translation>La connexion à %1 est rétablie.</translation>
    </message>
    <message>
        <source>What answers at %1 has the LDBs of the installation &quot;%2&quot;. Is it that one?</source>
        <translation>Ce qui répond sur %1 a les LDB de l&apos;installation « %2 ». Est-ce celle-là ?</translation>
    </message>
    <message>
        <source>Which port?</source>
        <translation>Quel port ?</translation>
    </message>
    <message>
        <source>The connection to %1 was lost. Several adapters of its kind are there now. Which one is it?</source>
        <translation>La connexion à %1 a été perdue. Plusieurs adaptateurs du même type sont présents. Lequel est-ce ?</translation>
    </message>
    <message>
        <source>Wait On</source>
        <translation>Attendre encore</translation>
    </message>
    <message>
        <source>What answers at %1 does not look like the installation &quot;%2&quot;: most of its LDBs are silent, or have other names. Which installation is it? If it is that one, select it: its silent LDBs are then shown as lost. Until you have said so, nothing is written to the LDBs.</source>
        <translation>Ce qui répond sur %1 ne ressemble pas à l&apos;installation « %2 » : la plupart de ses LDB se taisent, ou portent d&apos;autres noms. De quelle installation s&apos;agit-il ? Si c&apos;est bien celle-là, sélectionnez-la : ses LDB silencieux sont alors affichés comme perdus. Tant que vous ne l&apos;avez pas dit, rien n&apos;est écrit dans les LDB.</translation>
    </message>
</context>
<context>
    <name>InstallationForm</name>
    <message>
        <source>Installation</source>
        <translation>Installation</translation>
    </message>
    <message>
        <source>%1 (in use)</source>
        <translation>%1 (utilisée)</translation>
    </message>
    <message numerus="yes">
        <source>LDBs remembered: %n</source>
        <translation>
            <numerusform>LDB mémorisés : %n</numerusform>
            <numerusform>LDB mémorisés : %n</numerusform>
        </translation>
    </message>
    <message>
        <source>Export Installation</source>
        <translation>Exporter l&apos;installation</translation>
    </message>
    <message>
        <source>Import Installation</source>
        <translation>Importer une installation</translation>
    </message>
    <message>
        <source>Installations</source>
        <translation>Installations</translation>
    </message>
    <message>
        <source>&amp;Name:</source>
        <translation>&amp;Nom :</translation>
    </message>
    <message>
        <source>&amp;Place:</source>
        <translation>&amp;Lieu :</translation>
    </message>
    <message>
        <source>N&amp;otes:</source>
        <translation>N&amp;otes :</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>Adresse</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Nom</translation>
    </message>
    <message>
        <source>LDBs remembered</source>
        <translation>LDB mémorisés</translation>
    </message>
    <message>
        <source>Forget LDB</source>
        <translation>Oublier le LDB</translation>
    </message>
    <message>
        <source>Take the selected LDBs out of what is remembered; one that answers is remembered again</source>
        <translation>Retirer les LDB sélectionnés de ce qui est mémorisé ; un LDB qui répond est mémorisé de nouveau</translation>
    </message>
    <message>
        <source>New</source>
        <translation>Nouvelle</translation>
    </message>
    <message>
        <source>Make an installation, to be used later</source>
        <translation>Créer une installation pour plus tard</translation>
    </message>
    <message>
        <source>Import...</source>
        <translation>Importer...</translation>
    </message>
    <message>
        <source>Take an installation from a colleague&apos;s file</source>
        <translation>Prendre une installation du fichier d&apos;un collègue</translation>
    </message>
    <message>
        <source>Export...</source>
        <translation>Exporter...</translation>
    </message>
    <message>
        <source>Write this installation into a file for a colleague</source>
        <translation>Écrire cette installation dans un fichier pour un collègue</translation>
    </message>
    <message>
        <source>Use This One</source>
        <translation>Utiliser celle-ci</translation>
    </message>
    <message>
        <source>This is the installation at the port; while it is monitored, it is scanned anew</source>
        <translation>C&apos;est l&apos;installation au port ; si elle est surveillée, elle est parcourue de nouveau</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
</context>
<context>
    <name>InstallationQuestion</name>
    <message numerus="yes">
        <source>%n LDBs</source>
        <translation>
            <numerusform>%n LDB</numerusform>
            <numerusform>%n LDB</numerusform>
        </translation>
    </message>
    <message>
        <source>Another installation?</source>
        <translation>Une autre installation ?</translation>
    </message>
    <message>
        <source>Installations</source>
        <translation>Installations</translation>
    </message>
    <message>
        <source>Use the Selected One</source>
        <translation>Utiliser la sélection</translation>
    </message>
    <message>
        <source>New Installation</source>
        <translation>Nouvelle installation</translation>
    </message>
</context>
<context>
    <name>Installations</name>
    <message>
        <source>The file %1 cannot be written: %2.</source>
        <translation>Le fichier %1 ne peut pas être écrit : %2.</translation>
    </message>
    <message>
        <source>The folder %1 cannot be made.</source>
        <translation>Le dossier %1 ne peut pas être créé.</translation>
    </message>
    <message>
        <source>The file %1 cannot be read: %2.</source>
        <translation>Le fichier %1 ne peut pas être lu : %2.</translation>
    </message>
    <message>
        <source>The file %1 holds no installation.</source>
        <translation>Le fichier %1 ne contient pas d&apos;installation.</translation>
    </message>
</context>
<context>
    <name>KeptLdbs</name>
    <message>
        <source>The folder %1 cannot be made.</source>
        <translation>Le dossier %1 ne peut pas être créé.</translation>
    </message>
    <message>
        <source>The file %1 is in use.</source>
        <translation>Le fichier %1 est utilisé.</translation>
    </message>
    <message>
        <source>The file %1 cannot be written: %2.</source>
        <translation>Le fichier %1 ne peut pas être écrit&#xa0;: %2.</translation>
    </message>
    <message>
        <source>The file %1 cannot be read: %2.</source>
        <translation>Le fichier %1 ne peut pas être lu : %2.</translation>
    </message>
    <message>
        <source>The file %1 is damaged. A copy of it is %2.</source>
        <translation>Le fichier %1 est endommagé. Une copie en est %2.</translation>
    </message>
    <message>
        <source>The file %1 cannot be read.</source>
        <translation>Le fichier %1 ne peut pas être lu.</translation>
    </message>
</context>
<context>
    <name>LampCauses</name>
    <message>
        <source>Amplifier: %1</source>
        <translation>Amplificateur&#xa0;: %1</translation>
    </message>
</context>
<context>
    <name>LampPanel</name>
    <message>
        <source>No LDB</source>
        <translation>Aucun LDB</translation>
    </message>
    <message>
        <source>Not monitored</source>
        <translation>Non surveillé</translation>
    </message>
</context>
<context>
    <name>LdbFields</name>
    <message>
        <source>no name</source>
        <translation>sans nom</translation>
    </message>
    <message>
        <source>on</source>
        <translation>activé</translation>
    </message>
    <message>
        <source>off</source>
        <translation>désactivé</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Nom</translation>
    </message>
    <message>
        <source>Number of FIM&apos;s</source>
        <translation>Nombre de FIM</translation>
    </message>
    <message>
        <source>Open Detection Delay</source>
        <translation>Délai de détection de coupure</translation>
    </message>
    <message>
        <source>General Fault Output</source>
        <translation>Sortie de défaut général</translation>
    </message>
    <message>
        <source>Earth Leakage Detection</source>
        <translation>Détection de fuite à la terre</translation>
    </message>
    <message>
        <source>Earth Wire Open Detection</source>
        <translation>Détection de coupure du fil de terre</translation>
    </message>
    <message>
        <source>Start in Service Mode</source>
        <translation>Démarrer en mode maintenance</translation>
    </message>
    <message>
        <source>Amplifier Detection</source>
        <translation>Détection de l&apos;amplificateur</translation>
    </message>
    <message>
        <source>Audio Mute</source>
        <translation>Audio coupé</translation>
    </message>
</context>
<context>
    <name>LdbSettingsEditor</name>
    <message>
        <source>Firmware ID:</source>
        <translation>ID du firmware&#xa0;:</translation>
    </message>
    <message>
        <source>&amp;Name:</source>
        <translation>&amp;Nom&#xa0;:</translation>
    </message>
    <message>
        <source>Nu&amp;mber of FIM&apos;s:</source>
        <translation>N&amp;ombre de FIM&#xa0;:</translation>
    </message>
    <message>
        <source>Enable Open Detection</source>
        <translation>Activer la détection de coupure</translation>
    </message>
    <message>
        <source>Open Detection Dela&amp;y:</source>
        <translation>&amp;Délai de détection de coupure&#xa0;:</translation>
    </message>
    <message>
        <source>Enable General Fault Output</source>
        <translation>Activer la sortie de défaut général</translation>
    </message>
    <message>
        <source>Enable Earth Leakage Detection</source>
        <translation>Activer la détection de fuite à la terre</translation>
    </message>
    <message>
        <source>Enable Earth Wire Open Detection</source>
        <translation>Activer la détection de fil de terre coupé</translation>
    </message>
    <message>
        <source>Start in Service Mode</source>
        <translation>Démarrer en mode maintenance</translation>
    </message>
    <message>
        <source>Enable Amplifier Detection</source>
        <translation>Activer la détection d&apos;amplificateur</translation>
    </message>
    <message>
        <source>Audio Mute</source>
        <translation>Audio coupé</translation>
    </message>
    <message>
        <source>S&amp;ave</source>
        <translation>Enre&amp;gistrer</translation>
    </message>
    <message>
        <source>Und&amp;o</source>
        <translation>&amp;Annuler</translation>
    </message>
    <message>
        <source>Defa&amp;ult</source>
        <translation>&amp;Par défaut</translation>
    </message>
    <message>
        <source>The settings of LDB %1 are saved.</source>
        <translation>Les paramètres du LDB %1 sont enregistrés.</translation>
    </message>
    <message numerus="yes">
        <source>The name does not fit into %n byte(s).</source>
        <translation>
            <numerusform>Le nom ne tient pas sur %n octet.</numerusform>
            <numerusform>Le nom ne tient pas sur %n octets.</numerusform>
        </translation>
    </message>
    <message>
        <source>Saving the settings of LDB %1</source>
        <translation>Enregistrement des paramètres du LDB %1</translation>
    </message>
    <message>
        <source>Changed. The LDB has: %1</source>
        <translation>Modifié. Le LDB a&#xa0;: %1</translation>
    </message>
    <message>
        <source>No LDB selected</source>
        <translation>Aucun LDB sélectionné</translation>
    </message>
    <message>
        <source>Waiting for the settings of LDB %1</source>
        <translation>En attente des paramètres du LDB %1</translation>
    </message>
    <message numerus="yes">
        <source>%n unsaved change(s), in bold</source>
        <translation>
            <numerusform>%n modification non enregistrée, en gras</numerusform>
            <numerusform>%n modifications non enregistrées, en gras</numerusform>
        </translation>
    </message>
    <message>
        <source>LDB %1: %2</source>
        <translation>LDB %1&#xa0;: %2</translation>
    </message>
    <message>
        <source>LDB %1 did not answer: its settings are not known</source>
        <translation>Le LDB %1 n’a pas répondu&#xa0;: ses paramètres ne sont pas connus</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Erreur</translation>
    </message>
    <message>
        <source>Not all settings of LDB %1 are saved.</source>
        <translation>Les paramètres du LDB %1 ne sont pas tous enregistrés.</translation>
    </message>
    <message>
        <source>Attention</source>
        <translation>Attention</translation>
    </message>
    <message>
        <source>LDB %1 is gone. These changes were not saved:</source>
        <translation>Le LDB %1 a disparu. Ces modifications n’ont pas été enregistrées&#xa0;:</translation>
    </message>
    <message>
        <source>LDB %1 is not connected: this was read last</source>
        <translation>Le LDB %1 n’est pas connecté&#xa0;: voici les derniers paramètres lus</translation>
    </message>
    <message>
        <source>LDB %1 is not connected: its settings are not known</source>
        <translation>Le LDB %1 n’est pas connecté&#xa0;: ses paramètres ne sont pas connus</translation>
    </message>
    <message>
        <source>Changed by somebody else meanwhile. The LDB has: %1</source>
        <translation>Modifié entre-temps par quelqu’un d’autre. Le LDB a&#xa0;: %1</translation>
    </message>
    <message>
        <source>Not saved: %1</source>
        <translation>Non enregistré&#xa0;: %1</translation>
    </message>
    <message>
        <source>Changed by somebody else meanwhile: %1 (%2)</source>
        <translation>Modifié entre-temps par quelqu’un d’autre&#xa0;: %1 (%2)</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1&#xa0;: %2</translation>
    </message>
    <message>
        <source>The former settings of LDB %1 could not be kept.</source>
        <translation>Les anciens paramètres du LDB %1 n&apos;ont pas pu être conservés.</translation>
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
        <translation>Réinit. Fim en cours</translation>
    </message>
    <message>
        <source>Fim reset failed</source>
        <translation>Échec réinit. Fim</translation>
    </message>
    <message>
        <source>Fim reset done</source>
        <translation>Réinit. Fim terminée</translation>
    </message>
    <message>
        <source>Factory reset executing</source>
        <translation>Réinit. usine en cours</translation>
    </message>
    <message>
        <source>Factory reset failed</source>
        <translation>Échec réinit. usine</translation>
    </message>
    <message>
        <source>Factory reset done</source>
        <translation>Réinit. usine terminée</translation>
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
        <translation>Ouvert(mém.)</translation>
    </message>
    <message>
        <source>Short</source>
        <translation>Court-circuit</translation>
    </message>
    <message>
        <source>Short + Open(memory)</source>
        <translation>Court-circuit + Ouvert(mém.)</translation>
    </message>
    <message>
        <source>Short(memory)</source>
        <translation>Court-circuit(mém.)</translation>
    </message>
    <message>
        <source>Short(memory) + Open</source>
        <translation>Court-circuit(mém.) + Ouvert</translation>
    </message>
    <message>
        <source>Short(memory) + Open(memory)</source>
        <translation>Court-circuit(mém.) + Ouvert(mém.)</translation>
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
        <translation>Ouvert(mém.) + Fuite CC</translation>
    </message>
    <message>
        <source>Short + DC Leakage</source>
        <translation>Court-circuit + Fuite CC</translation>
    </message>
    <message>
        <source>Short + Open(memory) + DC Leakage</source>
        <translation>Court-circuit + Ouvert(mém.) + Fuite CC</translation>
    </message>
    <message>
        <source>Short(memory) + DC Leakage</source>
        <translation>Court-circuit(mém.) + Fuite CC</translation>
    </message>
    <message>
        <source>Short(memory) + Open + DC Leakage</source>
        <translation>Court-circuit(mém.) + Ouvert + Fuite CC</translation>
    </message>
    <message>
        <source>Short(memory) + Open(memory) + DC Leakage</source>
        <translation>Court-circuit(mém.) + Ouvert(mém.) + Fuite CC</translation>
    </message>
    <message>
        <source>DC Leakage(memory)</source>
        <translation>Fuite CC(mém.)</translation>
    </message>
    <message>
        <source>Open + DC Leakage(memory)</source>
        <translation>Ouvert + Fuite CC(mém.)</translation>
    </message>
    <message>
        <source>Open(memory) + DC Leakage(memory)</source>
        <translation>Ouvert(mém.) + Fuite CC(mém.)</translation>
    </message>
    <message>
        <source>Short + DC Leakage(memory)</source>
        <translation>Court-circuit + Fuite CC(mém.)</translation>
    </message>
    <message>
        <source>Short + Open(memory) + DC Leakage(memory)</source>
        <translation>Court-circuit + Ouvert(mém.) + Fuite CC(mém.)</translation>
    </message>
    <message>
        <source>Short(memory) + DC Leakage(memory)</source>
        <translation>Court-circuit(mém.) + Fuite CC(mém.)</translation>
    </message>
    <message>
        <source>Short(memory)+ Open + DC Leakage(memory)</source>
        <translation>Court-circuit(mém.)+ Ouvert + Fuite CC(mém.)</translation>
    </message>
    <message>
        <source>Short(memory) + Open(memory) + DC Leakage(memory)</source>
        <translation>Court-circuit(mém.) + Ouvert(mém.) + Fuite CC(mém.)</translation>
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
        <translation>Fuite + Ouvert(mém.)</translation>
    </message>
    <message>
        <source>Leakage(memory)</source>
        <translation>Fuite(mém.)</translation>
    </message>
    <message>
        <source>Leakage(memory) + Open</source>
        <translation>Fuite(mém.) + Ouvert</translation>
    </message>
    <message>
        <source>Leakage(memory) + Open(memory)</source>
        <translation>Fuite(mém.) + Ouvert(mém.)</translation>
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
        <translation>Non géré</translation>
    </message>
    <message>
        <source>Unknown</source>
        <translation>Inconnu</translation>
    </message>
</context>
<context>
    <name>LdbTransfer</name>
    <message>
        <source>LDB %1 (address %2): %3</source>
        <translation>LDB %1 (adresse %2)&#xa0;: %3</translation>
    </message>
    <message>
        <source>No LDB&apos;s are connected.</source>
        <translation>Aucun LDB n&apos;est connecté.</translation>
    </message>
    <message>
        <source>The file cannot be opened: %1</source>
        <translation>Impossible d&apos;ouvrir le fichier&#xa0;: %1</translation>
    </message>
    <message>
        <source>The file cannot be written: %1</source>
        <translation>Impossible d&apos;écrire le fichier&#xa0;: %1</translation>
    </message>
    <message>
        <source>the connection ended before its answer</source>
        <translation>la connexion s&apos;est terminée avant la réponse</translation>
    </message>
    <message>
        <source>not connected</source>
        <translation>non connecté</translation>
    </message>
    <message>
        <source>no answer</source>
        <translation>pas de réponse</translation>
    </message>
    <message>
        <source>the name has characters that the file cannot hold</source>
        <translation>le nom contient des caractères que le fichier ne peut pas contenir</translation>
    </message>
    <message>
        <source>The file cannot be read: %1</source>
        <translation>Impossible de lire le fichier&#xa0;: %1</translation>
    </message>
    <message>
        <source>The file is too long for a settings file.</source>
        <translation>Le fichier est trop long pour un fichier de paramètres.</translation>
    </message>
    <message>
        <source>no line in the file</source>
        <translation>aucune ligne dans le fichier</translation>
    </message>
    <message>
        <source>no LDB with this address is connected</source>
        <translation>aucun LDB avec cette adresse n&apos;est connecté</translation>
    </message>
    <message>
        <source>the connection ended before it was written</source>
        <translation>la connexion s&apos;est terminée avant l&apos;écriture</translation>
    </message>
    <message>
        <source>Line %1: ID %2 (read as %2 hexadecimal, address %3): %4</source>
        <translation>Ligne %1&#xa0;: ID %2 (lu comme %2 hexadécimal, adresse %3)&#xa0;: %4</translation>
    </message>
    <message>
        <source>this LDB is lost</source>
        <translation>ce LDB est perdu</translation>
    </message>
    <message>
        <source>no LDB can have this address</source>
        <translation>aucun LDB ne peut avoir cette adresse</translation>
    </message>
    <message>
        <source>its present settings could not be read</source>
        <translation>ses paramètres actuels n&apos;ont pas pu être lus</translation>
    </message>
    <message>
        <source>Line %1: ID %2: %3</source>
        <translation>Ligne %1&#xa0;: ID %2&#xa0;: %3</translation>
    </message>
    <message>
        <source>Line %1: ID %2 (read as %2 decimal, address %3): %4</source>
        <translation>Ligne %1&#xa0;: ID %2 (lu comme %2 décimal, adresse %3)&#xa0;: %4</translation>
    </message>
    <message>
        <source>its settings have changed since they were shown</source>
        <translation>ses paramètres ont changé depuis leur affichage</translation>
    </message>
    <message>
        <source>was left out of what was confirmed: not written</source>
        <translation>n&apos;était pas dans ce qui a été confirmé : pas écrit</translation>
    </message>
</context>
<context>
    <name>LdbWork</name>
    <message>
        <source>Settings are being saved. The LDB may be left with a part of them.</source>
        <translation>Des paramètres sont en cours d&apos;enregistrement. Le LDB peut n&apos;en garder qu&apos;une partie.</translation>
    </message>
    <message>
        <source>Fault finding is under way. The loop may be left without sound.</source>
        <translation>Une recherche de défaut est en cours. La boucle peut rester sans son.</translation>
    </message>
    <message>
        <source>What LDB %1 had before the fault finding is being put back. Its loop may be left without sound.</source>
        <translation>Ce que le LDB %1 avait avant la recherche de défaut est en cours de rétablissement. Sa boucle peut rester sans son.</translation>
    </message>
</context>
<context>
    <name>LeaveQuestion</name>
    <message>
        <source>Attention</source>
        <translation>Attention</translation>
    </message>
    <message numerus="yes">
        <source>LDB %1 has %n unsaved change(s).</source>
        <translation>
            <numerusform>Le LDB %1 a %n modification non enregistrée.</numerusform>
            <numerusform>Le LDB %1 a %n modifications non enregistrées.</numerusform>
        </translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Enregistrer</translation>
    </message>
    <message>
        <source>They cannot be saved now. %1</source>
        <translation>Elles ne peuvent pas être enregistrées maintenant. %1</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>Abandonner</translation>
    </message>
    <message>
        <source>Stay</source>
        <translation>Rester</translation>
    </message>
</context>
<context>
    <name>LineQuality</name>
    <message>
        <source>%1 exchanges: %2 good, %3 damaged, %4 silent, %5 not believed</source>
        <translation>%1 échanges : %2 bons, %3 endommagés, %4 muets, %5 non crus</translation>
    </message>
    <message>
        <source>Damage on LDBs %1 alone: look at their connections.</source>
        <translation>Dommages sur les seuls LDB %1 : regardez leurs raccordements.</translation>
    </message>
    <message>
        <source>Silence of LDBs %1 alone: look at them and their connections.</source>
        <translation>Seuls les LDB %1 se taisent : regardez ces LDB et leurs raccordements.</translation>
    </message>
    <message>
        <source>Damage on LDB %1 alone: look at its connection.</source>
        <translation>Dommages sur le seul LDB %1 : regardez son raccordement.</translation>
    </message>
    <message>
        <source>Silence of LDB %1 alone: look at it and its connection.</source>
        <translation>Seul le LDB %1 se tait : regardez ce LDB et son raccordement.</translation>
    </message>
    <message>
        <source>Damage on all LDBs, and far more on %1: look at the connection there first, then at the adapter and the trunk.</source>
        <translation>Dommages sur tous les LDB, et bien plus sur %1 : regardez d&apos;abord le raccordement à cet endroit, puis l&apos;adaptateur et le câble principal.</translation>
    </message>
    <message>
        <source>Silence of all LDBs, and far more of %1: look there first, then at the adapter and the trunk.</source>
        <translation>Tous les LDB se taisent parfois, et %1 bien plus : regardez d&apos;abord là, puis l&apos;adaptateur et le câble principal.</translation>
    </message>
    <message>
        <source>Damage on all LDBs alike: look at the adapter and the trunk.</source>
        <translation>Dommages égaux sur tous les LDB : regardez l&apos;adaptateur et le câble principal.</translation>
    </message>
    <message>
        <source>Silence of all LDBs alike: look at the adapter and the trunk.</source>
        <translation>Tous les LDB se taisent autant : regardez l&apos;adaptateur et le câble principal.</translation>
    </message>
    <message>
        <source>Damage on several LDBs, more on some than on others: no one place can be named.</source>
        <translation>Dommages sur plusieurs LDB, plus sur certains que sur d&apos;autres : aucun endroit précis ne peut être nommé.</translation>
    </message>
    <message>
        <source>Silence of several LDBs, more of some than of others: no one place can be named.</source>
        <translation>Plusieurs LDB se taisent, certains plus que d&apos;autres : aucun endroit précis ne peut être nommé.</translation>
    </message>
    <message>
        <source>Damage on LDB %1. There is no other one to compare it with, so the place cannot be named.</source>
        <translation>Dommages sur le LDB %1. Il n&apos;y en a pas d&apos;autre pour comparer, l&apos;endroit ne peut donc pas être nommé.</translation>
    </message>
    <message>
        <source>Silence of LDB %1. There is no other one to compare it with, so the place cannot be named.</source>
        <translation>Le LDB %1 se tait. Il n&apos;y en a pas d&apos;autre pour comparer, l&apos;endroit ne peut donc pas être nommé.</translation>
    </message>
    <message>
        <source>Too few exchanges to say anything of the line.</source>
        <translation>Trop peu d&apos;échanges pour dire quoi que ce soit de la ligne.</translation>
    </message>
    <message>
        <source>Answers came at unusual times, and were not believed.</source>
        <translation>Des réponses sont venues à des moments inhabituels et n&apos;ont pas été crues.</translation>
    </message>
    <message>
        <source>The line is good: no more than one exchange in a thousand was not.</source>
        <translation>La ligne est bonne : pas plus d&apos;un échange sur mille ne l&apos;était pas.</translation>
    </message>
    <message>
        <source>Nothing stands out.</source>
        <translation>Rien ne ressort.</translation>
    </message>
</context>
<context>
    <name>LinkNotices</name>
    <message>
        <source>Another program is using this port.</source>
        <translation>Un autre programme utilise ce port.</translation>
    </message>
    <message>
        <source>To use this port, you must be in the group &quot;%1&quot;; a new membership counts from the next login.</source>
        <translation>Pour utiliser ce port, vous devez faire partie du groupe «&#xa0;%1&#xa0;»&#xa0;; une nouvelle appartenance prend effet à la prochaine connexion.</translation>
    </message>
    <message>
        <source>The LDB with ID: %1 is disconnected!</source>
        <translation>Le LDB avec l&apos;ID&#xa0;: %1 est déconnecté&#xa0;!</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Erreur</translation>
    </message>
    <message>
        <source>Cannot establish the serial communication, check the serial port settings!</source>
        <translation>Impossible d&apos;établir la communication série, vérifiez les paramètres du port série&#xa0;!</translation>
    </message>
    <message>
        <source>Port %1: %2</source>
        <translation>Port %1&#xa0;: %2</translation>
    </message>
    <message>
        <source>Port %1: no reason is known.</source>
        <translation>Port %1&#xa0;: aucune raison n&apos;est connue.</translation>
    </message>
    <message>
        <source>There is no port %1. Plug the adapter in, or choose another port in the settings dialog.</source>
        <translation>Il n&apos;y a pas de port %1. Branchez l&apos;adaptateur, ou choisissez un autre port dans la fenêtre des paramètres.</translation>
    </message>
    <message>
        <source>Port %1 is gone: the adapter was unplugged. Plug it in and start again.</source>
        <translation>Le port %1 a disparu&#xa0;: l&apos;adaptateur a été débranché. Branchez-le et démarrez à nouveau.</translation>
    </message>
    <message>
        <source>The connection to port %1 broke off. Check the adapter and its cable, and start again.</source>
        <translation>La connexion au port %1 a été rompue. Vérifiez l&apos;adaptateur et son câble, et démarrez à nouveau.</translation>
    </message>
    <message>
        <source>The program waits for the port, and goes on by itself when it is back.</source>
        <translation>Le programme attend le port et continue de lui-même dès son retour.</translation>
    </message>
    <message>
        <source>Port %1 is gone: the adapter was unplugged. Plug it in.</source>
        <translation>Le port %1 a disparu : l&apos;adaptateur a été débranché. Rebranchez-le.</translation>
    </message>
    <message>
        <source>The connection to port %1 broke off. Check the adapter and its cable.</source>
        <translation>La connexion au port %1 s&apos;est interrompue. Vérifiez l&apos;adaptateur et son câble.</translation>
    </message>
    <message>
        <source>No serial port is chosen. Choose one in the settings dialog: the button with the gear, at the top left.</source>
        <translation>Aucun port série n&apos;est choisi. Choisissez-en un dans la fenêtre des paramètres&#xa0;: le bouton avec la roue dentée, en haut à gauche.</translation>
    </message>
</context>
<context>
    <name>LogPanel</name>
    <message>
        <source>Log file</source>
        <translation>Fichier journal</translation>
    </message>
    <message>
        <source>Bro&amp;wse...</source>
        <translation>&amp;Parcourir...</translation>
    </message>
    <message>
        <source>Choose the log file</source>
        <translation>Choisir le fichier journal</translation>
    </message>
    <message>
        <source>Log Ever&amp;y</source>
        <translation>É&amp;crire toutes les</translation>
    </message>
    <message>
        <source>Seconds between two records of an LDB; at 0 every record is written</source>
        <translation>Secondes entre deux enregistrements d&apos;un LDB&#xa0;; à 0, chaque enregistrement est écrit</translation>
    </message>
    <message>
        <source>s</source>
        <translation>s</translation>
    </message>
    <message>
        <source>Log the ticked LDB only</source>
        <translation>Enregistrer uniquement le LDB coché</translation>
    </message>
    <message>
        <source>Sele&amp;cted</source>
        <translation>Sélecti&amp;onné</translation>
    </message>
    <message>
        <source>Log all LDBs</source>
        <translation>Enregistrer tous les LDB</translation>
    </message>
    <message>
        <source>&amp;All</source>
        <translation>To&amp;us</translation>
    </message>
    <message>
        <source>Start or stop writing the log file</source>
        <translation>Démarrer ou arrêter l&apos;écriture du fichier journal</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>Démarrer</translation>
    </message>
    <message>
        <source>Log to File</source>
        <translation>Journal</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Arrêter</translation>
    </message>
    <message>
        <source>Log File</source>
        <translation>Fichier journal</translation>
    </message>
    <message>
        <source>The log file %1 cannot be opened: %2</source>
        <translation>Impossible d&apos;ouvrir le fichier journal %1&#xa0;: %2</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Erreur</translation>
    </message>
    <message>
        <source>Logging has stopped!</source>
        <translation>L&apos;enregistrement s&apos;est arrêté&#xa0;!</translation>
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
        <translation>En attente du bus depuis %1.</translation>
    </message>
    <message>
        <source>No record came from %1 to %2.</source>
        <translation>Rien n&apos;est arrivé de %1 à %2.</translation>
    </message>
    <message>
        <source>A log is being written: stop it first.</source>
        <translation>Un journal est en cours d&apos;écriture&#xa0;: arrêtez-le d&apos;abord.</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>Serial port, language and sounds</source>
        <translation>Port série, langue et sons</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Paramètres</translation>
    </message>
    <message>
        <source>Start or stop the conversation with the bus</source>
        <translation>Démarrer ou arrêter la communication avec le bus</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>Démarrer</translation>
    </message>
    <message>
        <source>Search the bus for LDBs again</source>
        <translation>Rechercher à nouveau les LDB sur le bus</translation>
    </message>
    <message>
        <source>&amp;Reload Devices</source>
        <translation>&amp;Recharger les appareils</translation>
    </message>
    <message>
        <source>Write the settings of all LDBs to a file</source>
        <translation>Écrire les paramètres de tous les LDB dans un fichier</translation>
    </message>
    <message>
        <source>&amp;Export Settings</source>
        <translation>&amp;Exporter les paramètres</translation>
    </message>
    <message>
        <source>Write the settings in a file to the LDBs</source>
        <translation>Écrire les paramètres d&apos;un fichier dans les LDB</translation>
    </message>
    <message>
        <source>&amp;Import Settings</source>
        <translation>&amp;Importer les paramètres</translation>
    </message>
    <message>
        <source>&amp;Status</source>
        <translation>É&amp;tat</translation>
    </message>
    <message>
        <source>OPEN/SHORT/LEAK</source>
        <translation>COUPURE/COURT-CIRCUIT/FUITE</translation>
    </message>
    <message>
        <source>&amp;OPEN/SHORT/LEAK</source>
        <translation>&amp;COUPURE/COURT-CIRCUIT/FUITE</translation>
    </message>
    <message>
        <source>LDBs with a loop or amplifier fault</source>
        <translation>LDB avec un défaut de boucle ou d&apos;amplificateur</translation>
    </message>
    <message>
        <source>SERVICE MODE</source>
        <translation>MODE MAINTENANCE</translation>
    </message>
    <message>
        <source>SERVICE &amp;MODE</source>
        <translation>M&amp;ODE MAINTENANCE</translation>
    </message>
    <message>
        <source>LDBs in service mode</source>
        <translation>LDB en mode maintenance</translation>
    </message>
    <message>
        <source>EARTH FAULT</source>
        <translation>DÉFAUT DE TERRE</translation>
    </message>
    <message>
        <source>E&amp;ARTH FAULT</source>
        <translation>&amp;DÉFAUT DE TERRE</translation>
    </message>
    <message>
        <source>LDBs with an earth fault</source>
        <translation>LDB avec un défaut de terre</translation>
    </message>
    <message>
        <source>SETTIN&amp;GS</source>
        <translation>&amp;PARAMÈTRES</translation>
    </message>
    <message>
        <source>LDBs whose settings need a check</source>
        <translation>LDB dont les paramètres sont à vérifier</translation>
    </message>
    <message>
        <source>L&amp;DB Settings</source>
        <translation>Paramètres &amp;LDB</translation>
    </message>
    <message>
        <source>&amp;Log to File</source>
        <translation>&amp;Journal</translation>
    </message>
    <message>
        <source>Global Status:</source>
        <translation>État global&#xa0;:</translation>
    </message>
    <message>
        <source>Overview of all LDBs</source>
        <translation>Vue d&apos;ensemble de tous les LDB</translation>
    </message>
    <message>
        <source>Plot</source>
        <translation>Graphique</translation>
    </message>
    <message>
        <source>Zoom In</source>
        <translation>Zoom avant</translation>
    </message>
    <message>
        <source>Zoom with the wheel and move with the mouse</source>
        <translation>Zoomer avec la molette et déplacer avec la souris</translation>
    </message>
    <message>
        <source>Details of the selected LDB</source>
        <translation>Détails du LDB sélectionné</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Arrêter</translation>
    </message>
    <message>
        <source>Zoom Out</source>
        <translation>Zoom arrière</translation>
    </message>
    <message numerus="yes">
        <source>Available LDB&apos;s: %n.</source>
        <translation>
            <numerusform>LDB disponible&#xa0;: %n.</numerusform>
            <numerusform>LDB disponibles&#xa0;: %n.</numerusform>
        </translation>
    </message>
    <message>
        <source>Loading LDB device list...</source>
        <translation>Chargement de la liste des LDB...</translation>
    </message>
    <message>
        <source>Serial communication failed.</source>
        <translation>Échec de la communication série.</translation>
    </message>
    <message>
        <source>Serial commands in queue: </source>
        <translation>Commandes série en file d&apos;attente&#xa0;: </translation>
    </message>
    <message>
        <source>Scanning for connected LDB&apos;s...  LDB&apos;s Checked %1, LDB&apos;s Found %2</source>
        <translation>Recherche des LDB connectés...  LDB vérifiés %1, LDB trouvés %2</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>Progression</translation>
    </message>
    <message>
        <source>Open the manual (F1)</source>
        <translation>Ouvrir le manuel, en anglais (F1)</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Aide</translation>
    </message>
    <message>
        <source>End the export or import behind the LDB under way</source>
        <translation>Terminer l&apos;exportation ou l&apos;importation après le LDB en cours</translation>
    </message>
    <message>
        <source>Stop Export or Import</source>
        <translation>Arrêter l&apos;export ou l&apos;import</translation>
    </message>
    <message>
        <source>LOST/FA&amp;ULT</source>
        <translation>PERD&amp;U/DÉFAUT</translation>
    </message>
    <message>
        <source>LDBs that are lost, in fault, or whose factory reset has failed</source>
        <translation>LDB perdus, en défaut, ou dont la réinitialisation d&apos;usine a échoué</translation>
    </message>
    <message>
        <source>%1 of %2 answer, %3 lost.</source>
        <translation>%1 sur %2 répondent, %3 perdus.</translation>
    </message>
    <message>
        <source>Settings of all LDB&apos;s</source>
        <translation>Paramètres de tous les LDB</translation>
    </message>
    <message>
        <source>Show, compare and change the settings of all LDBs in a table</source>
        <translation>Afficher, comparer et modifier les paramètres de tous les LDB dans un tableau</translation>
    </message>
    <message>
        <source>All Settings...</source>
        <translation>Paramètres...</translation>
    </message>
    <message>
        <source>What was recorded: take it home</source>
        <translation>Ce qui a été enregistré&#xa0;: l&apos;emporter</translation>
    </message>
    <message>
        <source>Evidence</source>
        <translation>Preuves</translation>
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
        <translation>il y a %1</translation>
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
        <translation>Erreur</translation>
    </message>
    <message>
        <source>The manual was not found in the folder %1.</source>
        <translation>Le manuel n&apos;a pas été trouvé dans le dossier %1.</translation>
    </message>
    <message>
        <source>Manual - %1</source>
        <translation>Manuel - %1</translation>
    </message>
    <message>
        <source>Manual</source>
        <translation>Manuel</translation>
    </message>
    <message>
        <source>&amp;Contents</source>
        <translation>&amp;Sommaire</translation>
    </message>
    <message>
        <source>&amp;Back</source>
        <translation>&amp;Précédent</translation>
    </message>
    <message>
        <source>&amp;Forward</source>
        <translation>Sui&amp;vant</translation>
    </message>
</context>
<context>
    <name>MarkDialog</name>
    <message>
        <source>Mark</source>
        <translation>Repère</translation>
    </message>
    <message>
        <source>&amp;What is to be noted at %1</source>
        <translation>&amp;Que faut-il noter à %1</translation>
    </message>
    <message>
        <source>Text of the mark</source>
        <translation>Texte du repère</translation>
    </message>
    <message>
        <source>Set</source>
        <translation>Définir</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
</context>
<context>
    <name>Monitoring</name>
    <message>
        <source>%1 d</source>
        <translation>%1 j</translation>
    </message>
    <message>
        <source>%1 h</source>
        <translation>%1 h</translation>
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
        <translation>Retirer les LDB perdus</translation>
    </message>
    <message>
        <source>Only LDB %1 is polled.</source>
        <translation>Seul le LDB %1 est interrogé.</translation>
    </message>
    <message numerus="yes">
        <source>Monitored: %n LDBs answer.</source>
        <translation>
            <numerusform>Surveillé : %n LDB répond.</numerusform>
            <numerusform>Surveillé : %n LDB répondent.</numerusform>
        </translation>
    </message>
    <message>
        <source>Monitored: %1 of %2 LDBs answer, %3 lost.</source>
        <translation>Surveillé : %1 LDB sur %2 répondent, %3 perdus.</translation>
    </message>
    <message>
        <source>Not monitored: click Start.</source>
        <translation>Non surveillé : cliquez sur Démarrer.</translation>
    </message>
    <message>
        <source>stopped</source>
        <translation>arrêté</translation>
    </message>
    <message>
        <source>no LDB was found</source>
        <translation>aucun LDB n&apos;a été trouvé</translation>
    </message>
    <message>
        <source>%1 cannot be opened</source>
        <translation>%1 ne peut pas être ouvert</translation>
    </message>
    <message>
        <source>the connection to %1 was lost</source>
        <translation>la connexion à %1 a été perdue</translation>
    </message>
    <message>
        <source>the bus is being scanned</source>
        <translation>le bus est en cours de balayage</translation>
    </message>
    <message>
        <source>no LDB answers</source>
        <translation>aucun LDB ne répond</translation>
    </message>
    <message>
        <source>Not monitored since %1: %2</source>
        <translation>Non surveillé depuis %1 : %2</translation>
    </message>
    <message>
        <source>Not monitored: %1</source>
        <translation>Non surveillé : %1</translation>
    </message>
    <message>
        <source>%1; waiting for it to come back</source>
        <translation>%1 ; en attente de son retour</translation>
    </message>
    <message>
        <source>End Waiting</source>
        <translation>Ne plus attendre</translation>
    </message>
    <message>
        <source>Do not go on by itself when the port is back</source>
        <translation>Ne pas continuer de lui-même au retour du port</translation>
    </message>
    <message>
        <source>Monitored: %1 of %2 LDBs answer, %3 lost, %4 not heard yet.</source>
        <translation>Surveillance : %1 LDB sur %2 répondent, %3 perdus, %4 pas encore entendus.</translation>
    </message>
    <message>
        <source>no serial port is chosen</source>
        <translation>aucun port série n&apos;est choisi</translation>
    </message>
    <message>
        <source>it was not recorded</source>
        <translation>cela n&apos;a pas été enregistré</translation>
    </message>
    <message>
        <source>Take the lost LDBs out of the list; one that answers comes back</source>
        <translation>Retirer les LDB perdus de la liste ; celui qui répond revient</translation>
    </message>
</context>
<context>
    <name>MuteMarks</name>
    <message>
        <source>The audio of this LDB is muted.</source>
        <translation>L&apos;audio de ce LDB est coupé.</translation>
    </message>
</context>
<context>
    <name>OverviewBar</name>
    <message>
        <source>%1 of %2</source>
        <translation>%1 sur %2</translation>
    </message>
    <message numerus="yes">
        <source>%n faults hidden</source>
        <translation>
            <numerusform>%n défaut masqué</numerusform>
            <numerusform>%n défauts masqués</numerusform>
        </translation>
    </message>
    <message>
        <source>Filter (Ctrl+F)</source>
        <translation>Filtre (Ctrl+F)</translation>
    </message>
    <message>
        <source>Show only LDBs with these words in their id, name, mode or conditions. Esc shows all again.</source>
        <translation>N&apos;afficher que les LDB qui ont ces mots dans leur ID, nom, mode ou états. Échap les affiche tous à nouveau.</translation>
    </message>
    <message>
        <source>Filter of the overview</source>
        <translation>Filtre de la vue d&apos;ensemble</translation>
    </message>
    <message>
        <source>Only faults</source>
        <translation>Défauts seulement</translation>
    </message>
    <message>
        <source>Show only LDBs that are lost, in fault, or named behind one of the lamps</source>
        <translation>N&apos;afficher que les LDB perdus, en défaut ou nommés derrière un des voyants</translation>
    </message>
    <message>
        <source>Faults first</source>
        <translation>Défauts d&apos;abord</translation>
    </message>
    <message>
        <source>Lost and faulty LDBs stand at the top, whatever is sorted by</source>
        <translation>Les LDB perdus ou en défaut sont en tête, quel que soit le tri</translation>
    </message>
    <message>
        <source>LDBs that are shown, of all. The selected one is always shown.</source>
        <translation>LDB affichés, sur le total. Le LDB sélectionné est toujours affiché.</translation>
    </message>
    <message>
        <source>The filter hides LDBs that are lost or faulty: click to show all</source>
        <translation>Le filtre masque des LDB perdus ou en défaut : cliquez pour tout afficher</translation>
    </message>
</context>
<context>
    <name>OverviewQuality</name>
    <message>
        <source>The line in the last 15 minutes: %1</source>
        <translation>La ligne durant les 15 dernières minutes : %1</translation>
    </message>
</context>
<context>
    <name>Plot</name>
    <message>
        <source>Follow</source>
        <translation>Suivre</translation>
    </message>
    <message>
        <source>Shows the newest values again and goes along with them</source>
        <translation>Montre à nouveau les valeurs les plus récentes et les suit</translation>
    </message>
</context>
<context>
    <name>PlotExport</name>
    <message>
        <source>%1 to %2</source>
        <translation>%1 à %2</translation>
    </message>
    <message>
        <source>The picture cannot be made.</source>
        <translation>L&apos;image ne peut pas être créée.</translation>
    </message>
</context>
<context>
    <name>PlotMenu</name>
    <message>
        <source>Attention</source>
        <translation>Attention</translation>
    </message>
    <message>
        <source>%1 cannot be written: %2</source>
        <translation>%1 ne peut pas être écrit : %2</translation>
    </message>
    <message>
        <source>Follow</source>
        <translation>Suivre</translation>
    </message>
    <message>
        <source>Set Mark A Here</source>
        <translation>Placer le repère A ici</translation>
    </message>
    <message>
        <source>Set Mark B Here</source>
        <translation>Placer le repère B ici</translation>
    </message>
    <message>
        <source>Remove the Marks</source>
        <translation>Supprimer les repères</translation>
    </message>
    <message>
        <source>Save the Values</source>
        <translation>Enregistrer les valeurs</translation>
    </message>
    <message>
        <source>Save the Picture</source>
        <translation>Enregistrer l&apos;image</translation>
    </message>
    <message>
        <source>Save the Picture (PNG)...</source>
        <translation>Enregistrer l&apos;image (PNG)...</translation>
    </message>
    <message>
        <source>Save the Picture (SVG)...</source>
        <translation>Enregistrer l&apos;image (SVG)...</translation>
    </message>
    <message>
        <source>Save the Values Shown (CSV)...</source>
        <translation>Enregistrer les valeurs affichées (CSV)...</translation>
    </message>
</context>
<context>
    <name>PlotReading</name>
    <message>
        <source>%1 to %2</source>
        <translation>%1 à %2</translation>
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
        <translation>sans nom</translation>
    </message>
    <message>
        <source>%1: before %2, now %3</source>
        <translation>%1&#xa0;: avant %2, maintenant %3</translation>
    </message>
    <message>
        <source>LDB %1 (%2) has other settings than before the fault finding of %3.</source>
        <translation>Le LDB %1 (%2) a d&apos;autres paramètres qu&apos;avant la recherche de défaut du %3.</translation>
    </message>
    <message>
        <source>The former settings of LDB %1 are not restored: %2</source>
        <translation>Les anciens paramètres du LDB %1 ne sont pas rétablis&#xa0;: %2</translation>
    </message>
    <message>
        <source>Restore the former settings</source>
        <translation>Rétablir les anciens paramètres</translation>
    </message>
    <message>
        <source>Leave them</source>
        <translation>Laisser ainsi</translation>
    </message>
    <message>
        <source>Later</source>
        <translation>Plus tard</translation>
    </message>
    <message>
        <source>Before fault finding, on %1, LDB %2 was called %3. Now it is called %4. Is it the same LDB?</source>
        <translation>Avant la recherche de défaut, le %1, le LDB %2 s&apos;appelait %3. Maintenant il s&apos;appelle %4. Est-ce le même LDB&#xa0;?</translation>
    </message>
    <message>
        <source>Before fault finding, on %1, LDB %2 was called %3. Now LDB %4 has this name. Is it the same LDB?</source>
        <translation>Avant la recherche de défaut, le %1, le LDB %2 s&apos;appelait %3. Maintenant le LDB %4 porte ce nom. Est-ce le même LDB&#xa0;?</translation>
    </message>
    <message>
        <source>Fault finding</source>
        <translation>Recherche de défaut</translation>
    </message>
    <message>
        <source>If it is, its audio mute becomes what it was, and its settings are compared.</source>
        <translation>Si oui, sa coupure du son redevient ce qu&apos;elle était, et ses paramètres sont comparés.</translation>
    </message>
    <message>
        <source>The same LDB</source>
        <translation>Le même LDB</translation>
    </message>
    <message>
        <source>Forget it</source>
        <translation>Oublier</translation>
    </message>
    <message>
        <source>Another LDB</source>
        <translation>Un autre LDB</translation>
    </message>
    <message>
        <source>Attention</source>
        <translation>Attention</translation>
    </message>
    <message>
        <source>The audio mute of LDB %1 could not be ended.
The audio of this LDB stays muted.</source>
        <translation>La coupure du son du LDB %1 n&apos;a pas pu être levée.
L&apos;audio de ce LDB reste coupé.</translation>
    </message>
    <message>
        <source>The program remembers it, and ends the mute as soon as the LDB takes it.</source>
        <translation>Le programme s&apos;en souvient, et lève la coupure dès que le LDB l&apos;accepte.</translation>
    </message>
    <message>
        <source>LDB %1 is muted again, as it was before the fault finding.</source>
        <translation>L&apos;audio du LDB %1 est de nouveau coupé, comme avant la recherche de défaut.</translation>
    </message>
    <message>
        <source>The audio mute of LDB %1 from the fault finding has ended.</source>
        <translation>La coupure du son du LDB %1 due à la recherche de défaut est levée.</translation>
    </message>
    <message>
        <source>LDB %1 has its former settings again.</source>
        <translation>Le LDB %1 a de nouveau ses anciens paramètres.</translation>
    </message>
    <message>
        <source>LDB %1 keeps its settings; the former ones are forgotten.</source>
        <translation>Le LDB %1 garde ses paramètres&#xa0;; les anciens sont oubliés.</translation>
    </message>
    <message>
        <source>What was put back into LDB %1 will be put back again: %2</source>
        <translation>Ce qui a été remis dans le LDB %1 le sera de nouveau&#xa0;: %2</translation>
    </message>
    <message>
        <source>What was kept of LDB&apos;s before fault finding cannot be read.</source>
        <translation>Ce qui a été conservé des LDB avant la recherche de défaut ne peut pas être lu.</translation>
    </message>
    <message>
        <source>%1
An LDB whose fault finding was broken off may still be muted, or have default settings.</source>
        <translation>%1
Un LDB dont la recherche de défaut a été interrompue peut encore être coupé, ou avoir les paramètres par défaut.</translation>
    </message>
    <message>
        <source>Nothing was restored: LDB %1 is now called %2.</source>
        <translation>Rien n&apos;a été rétabli : le LDB %1 s&apos;appelle maintenant %2.</translation>
    </message>
</context>
<context>
    <name>QualityDisplay</name>
    <message>
        <source>Line quality</source>
        <translation>Qualité de ligne</translation>
    </message>
    <message>
        <source>Shows how well the exchanges with each LDB go, and went</source>
        <translation>Montre comment vont et allaient les échanges avec chaque LDB</translation>
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
        <translation>Nom</translation>
    </message>
    <message>
        <source>How often the LDB was asked</source>
        <translation>Combien de fois le LDB a été interrogé</translation>
    </message>
    <message>
        <source>Exchanges</source>
        <translation>Échanges</translation>
    </message>
    <message>
        <source>Share of exchanges with a sound answer</source>
        <translation>Part des échanges avec une réponse intacte</translation>
    </message>
    <message>
        <source>Good</source>
        <translation>Bons</translation>
    </message>
    <message>
        <source>Share of exchanges with a damaged answer</source>
        <translation>Part des échanges avec une réponse endommagée</translation>
    </message>
    <message>
        <source>Damaged</source>
        <translation>Endommagés</translation>
    </message>
    <message>
        <source>Share of exchanges without an answer</source>
        <translation>Part des échanges sans réponse</translation>
    </message>
    <message>
        <source>Silent</source>
        <translation>Muets</translation>
    </message>
    <message>
        <source>Share of sound answers that may be those to another question, as they came at an unusual time</source>
        <translation>Part des réponses intactes qui peuvent répondre à une autre question, car elles sont venues à un moment inhabituel</translation>
    </message>
    <message>
        <source>Not believed</source>
        <translation>Non crus</translation>
    </message>
    <message>
        <source>Half of the answers came within this time</source>
        <translation>La moitié des réponses sont venues dans ce délai</translation>
    </message>
    <message>
        <source>Answer time
(median)</source>
        <translation>Temps de réponse
(médiane)</translation>
    </message>
    <message>
        <source>95 of 100 answers came within this time</source>
        <translation>95 réponses sur 100 sont venues dans ce délai</translation>
    </message>
    <message>
        <source>Answer time
(95 %)</source>
        <translation>Temps de réponse
(95 %)</translation>
    </message>
    <message>
        <source>How much was bad, over time: the higher a bar, the more</source>
        <translation>Combien était mauvais, dans le temps : plus la barre est haute, plus il y en avait</translation>
    </message>
    <message>
        <source>Over time</source>
        <translation>Dans le temps</translation>
    </message>
</context>
<context>
    <name>QualityWindow</name>
    <message>
        <source>Recorded: up to %1.</source>
        <translation>Enregistré : jusqu&apos;à %1.</translation>
    </message>
    <message>
        <source>Nothing is recorded: what was counted within the last hour is shown, without answer times.</source>
        <translation>Rien n&apos;est enregistré : ce qui a été compté durant la dernière heure est montré, sans temps de réponse.</translation>
    </message>
    <message>
        <source>Reading the recording...</source>
        <translation>Lecture de l&apos;enregistrement...</translation>
    </message>
    <message>
        <source>Answer times with ≈ are of an evenly spread sample.</source>
        <translation>Les temps de réponse avec ≈ viennent d&apos;un échantillon réparti régulièrement.</translation>
    </message>
    <message>
        <source>Line quality</source>
        <translation>Qualité de ligne</translation>
    </message>
    <message>
        <source>Now (5 minutes)</source>
        <translation>Maintenant (5 minutes)</translation>
    </message>
    <message>
        <source>Last hour</source>
        <translation>Dernière heure</translation>
    </message>
    <message>
        <source>Last day</source>
        <translation>Dernier jour</translation>
    </message>
    <message>
        <source>Last week</source>
        <translation>Dernière semaine</translation>
    </message>
    <message>
        <source>How far back</source>
        <translation>Jusqu&apos;où en arrière</translation>
    </message>
    <message>
        <source>How far back the quality of the line is looked at</source>
        <translation>Jusqu&apos;où en arrière la qualité de la ligne est regardée</translation>
    </message>
    <message>
        <source>Line quality, worst first</source>
        <translation>Qualité de ligne, les pires d&apos;abord</translation>
    </message>
    <message>
        <source>Small bars in the overview</source>
        <translation>Petites barres dans la vue d&apos;ensemble</translation>
    </message>
    <message>
        <source>Shows at each name how well the LDB&apos;s exchanges of the last 15 minutes went</source>
        <translation>Montre à chaque nom comment se sont passés les échanges du LDB durant les 15 dernières minutes</translation>
    </message>
</context>
<context>
    <name>RecordedBand</name>
    <message>
        <source>nothing was recorded since %1</source>
        <translation>rien n&apos;a été enregistré depuis %1</translation>
    </message>
    <message>
        <source>the bus was being scanned</source>
        <translation>le bus était en cours de balayage</translation>
    </message>
    <message>
        <source>no LDB answered</source>
        <translation>aucun LDB ne répondait</translation>
    </message>
    <message>
        <source>not monitored since %1</source>
        <translation>non surveillé depuis %1</translation>
    </message>
    <message>
        <source>not monitored yet</source>
        <translation>pas encore surveillé</translation>
    </message>
    <message>
        <source>Recorded: %1 %2 (%3)</source>
        <translation>Enregistré : %1 %2 (%3)</translation>
    </message>
    <message>
        <source>Pause (Space)</source>
        <translation>Pause (Espace)</translation>
    </message>
    <message>
        <source>Play (Space)</source>
        <translation>Lecture (Espace)</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pause</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Lecture</translation>
    </message>
    <message>
        <source>Back to Live</source>
        <translation>Retour au direct</translation>
    </message>
    <message>
        <source>Show what is now (Esc)</source>
        <translation>Afficher ce qui est maintenant (Échap)</translation>
    </message>
    <message>
        <source>now: %1</source>
        <translation>maintenant : %1</translation>
    </message>
    <message>
        <source>%1; back to live</source>
        <translation>%1 ; retour au direct</translation>
    </message>
</context>
<context>
    <name>RecordedEvent</name>
    <message>
        <source>Loop open</source>
        <translation>Boucle ouverte</translation>
    </message>
    <message>
        <source>Loop short</source>
        <translation>Court-circuit de boucle</translation>
    </message>
    <message>
        <source>Loop DC leakage</source>
        <translation>Fuite CC de boucle</translation>
    </message>
    <message>
        <source>Earth wire open</source>
        <translation>Fil de terre coupé</translation>
    </message>
    <message>
        <source>Earth leakage</source>
        <translation>Fuite à la terre</translation>
    </message>
    <message>
        <source>Amplifier disconnected</source>
        <translation>Amplificateur déconnecté</translation>
    </message>
    <message>
        <source>Primary port short</source>
        <translation>Court-circuit au port primaire</translation>
    </message>
    <message>
        <source>Secondary port short</source>
        <translation>Court-circuit au port secondaire</translation>
    </message>
    <message>
        <source>Lost</source>
        <translation>Perdu</translation>
    </message>
    <message numerus="yes">
        <source>%1: %n times in %2</source>
        <translation>
            <numerusform>%1&#xa0;: %n fois en %2</numerusform>
            <numerusform>%1&#xa0;: %n fois en %2</numerusform>
        </translation>
    </message>
    <message>
        <source>%1, still there</source>
        <translation>%1, toujours présent</translation>
    </message>
    <message>
        <source>%1, gone now</source>
        <translation>%1, disparu maintenant</translation>
    </message>
    <message>
        <source>missing: %1</source>
        <translation>manquants&#xa0;: %1</translation>
    </message>
    <message>
        <source>new: %1</source>
        <translation>nouveaux&#xa0;: %1</translation>
    </message>
    <message>
        <source>The scan differs from the last one: %1</source>
        <translation>Le balayage diffère du précédent&#xa0;: %1</translation>
    </message>
    <message>
        <source>%1 gone</source>
        <translation>%1&#xa0;: disparu</translation>
    </message>
    <message>
        <source>%1 gone after %2</source>
        <translation>%1&#xa0;: disparu après %2</translation>
    </message>
    <message>
        <source>%1 came and went</source>
        <translation>%1&#xa0;: apparu et disparu</translation>
    </message>
    <message>
        <source>Mode %1, before %2</source>
        <translation>Mode %1, avant %2</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>De retour</translation>
    </message>
    <message>
        <source>Back after %1</source>
        <translation>De retour après %1</translation>
    </message>
    <message>
        <source>Started on %1</source>
        <translation>Démarré sur %1</translation>
    </message>
    <message>
        <source>Stopped</source>
        <translation>Arrêté</translation>
    </message>
    <message>
        <source>Stopped after %1</source>
        <translation>Arrêté après %1</translation>
    </message>
    <message>
        <source>Port lost: %1</source>
        <translation>Port perdu&#xa0;: %1</translation>
    </message>
    <message>
        <source>Port back</source>
        <translation>Port de retour</translation>
    </message>
    <message>
        <source>Port back after %1</source>
        <translation>Port de retour après %1</translation>
    </message>
    <message numerus="yes">
        <source>Not recorded: %n exchanges in %1</source>
        <translation>
            <numerusform>Non enregistré&#xa0;: %n échange en %1</numerusform>
            <numerusform>Non enregistrés&#xa0;: %n échanges en %1</numerusform>
        </translation>
    </message>
    <message>
        <source>The computer&apos;s clock was set</source>
        <translation>L&apos;horloge de l&apos;ordinateur a été réglée</translation>
    </message>
    <message>
        <source>Name &quot;%1&quot;, before &quot;%2&quot;</source>
        <translation>Nom «&#xa0;%1&#xa0;», avant «&#xa0;%2&#xa0;»</translation>
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
        <translation>%1 h %2 min</translation>
    </message>
    <message>
        <source>%1 d %2 h</source>
        <translation>%1 j %2 h</translation>
    </message>
    <message>
        <source>Mode %1</source>
        <translation>Mode %1</translation>
    </message>
    <message>
        <source>%1, still lost</source>
        <translation>%1, toujours perdu</translation>
    </message>
    <message>
        <source>%1, back now</source>
        <translation>%1, de retour</translation>
    </message>
    <message>
        <source>%1, there already</source>
        <translation>%1, déjà là</translation>
    </message>
    <message>
        <source>%1 gone meanwhile</source>
        <translation>%1 disparu entre-temps</translation>
    </message>
    <message>
        <source>%1 gone after %2 at most</source>
        <translation>%1 disparu après %2 au plus</translation>
    </message>
    <message>
        <source>%1 in memory, there already</source>
        <translation>%1 en mémoire, déjà là</translation>
    </message>
</context>
<context>
    <name>RecordedWork</name>
    <message>
        <source>open</source>
        <translation>ouvert</translation>
    </message>
    <message>
        <source>short</source>
        <translation>court-circuit</translation>
    </message>
    <message>
        <source>connected</source>
        <translation>connecté</translation>
    </message>
    <message>
        <source>%1: not tracked</source>
        <translation>%1 : non suivi</translation>
    </message>
    <message numerus="yes">
        <source>%1: %n FIM&apos;s counted</source>
        <translation>
            <numerusform>%1 : %n FIM compté</numerusform>
            <numerusform>%1 : %n FIM comptés</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1: %n FIM&apos;s counted, connected</source>
        <translation>
            <numerusform>%1 : %n FIM compté, connecté</numerusform>
            <numerusform>%1 : %n FIM comptés, connecté</numerusform>
        </translation>
    </message>
    <message>
        <source>%1: %2, approximately at FIM %3</source>
        <translation>%1 : %2, approximativement au FIM %3</translation>
    </message>
    <message>
        <source>%1: %2 -&gt; %3, %4</source>
        <translation>%1 : %2 -&gt; %3, %4</translation>
    </message>
    <message>
        <source>verified</source>
        <translation>vérifié</translation>
    </message>
    <message>
        <source>accepted, not verified</source>
        <translation>accepté, non vérifié</translation>
    </message>
    <message>
        <source>refused by the LDB</source>
        <translation>refusé par le LDB</translation>
    </message>
    <message>
        <source>not answered, not verified</source>
        <translation>sans réponse, non vérifié</translation>
    </message>
    <message>
        <source>the LDB has another value</source>
        <translation>le LDB a une autre valeur</translation>
    </message>
    <message>
        <source>left alone</source>
        <translation>laissé tel quel</translation>
    </message>
    <message>
        <source>not sent</source>
        <translation>non envoyé</translation>
    </message>
    <message>
        <source>Commissioning</source>
        <translation>Mise en service</translation>
    </message>
    <message>
        <source>Fault finding</source>
        <translation>Recherche de défaut</translation>
    </message>
    <message>
        <source>Primary side</source>
        <translation>Côté primaire</translation>
    </message>
    <message>
        <source>Secondary side</source>
        <translation>Côté secondaire</translation>
    </message>
    <message>
        <source>primary side approximately at FIM %1</source>
        <translation>côté primaire approximativement au FIM %1</translation>
    </message>
    <message>
        <source>secondary side approximately at FIM %1</source>
        <translation>côté secondaire approximativement au FIM %1</translation>
    </message>
    <message>
        <source>Earth leakage</source>
        <translation>Fuite à la terre</translation>
    </message>
    <message>
        <source>Loop DC leakage</source>
        <translation>Fuite CC de la boucle</translation>
    </message>
</context>
<context>
    <name>RecordingExport</name>
    <message>
        <source>Time</source>
        <translation>Heure</translation>
    </message>
    <message>
        <source>LDB</source>
        <translation>LDB</translation>
    </message>
    <message>
        <source>Event</source>
        <translation>Événement</translation>
    </message>
    <message>
        <source>Before</source>
        <translation>Avant</translation>
    </message>
    <message>
        <source>After</source>
        <translation>Après</translation>
    </message>
    <message>
        <source>Duration [s]</source>
        <translation>Durée [s]</translation>
    </message>
</context>
<context>
    <name>RecordingForm</name>
    <message>
        <source>Folder for Recordings</source>
        <translation>Dossier des enregistrements</translation>
    </message>
    <message>
        <source>Recording</source>
        <translation>Enregistrement</translation>
    </message>
    <message>
        <source>Which days are kept could not be stored. The days may be deleted when they are old.</source>
        <translation>Les jours à conserver n&apos;ont pas pu être notés. Ils peuvent être supprimés quand ils seront anciens.</translation>
    </message>
    <message>
        <source>&amp;Record everything while the bus is monitored</source>
        <translation>&amp;Enregistrer tout pendant que le bus est surveillé</translation>
    </message>
    <message>
        <source>&amp;Folder:</source>
        <translation>&amp;Dossier&#xa0;:</translation>
    </message>
    <message>
        <source>With what is remembered of the installation</source>
        <translation>À côté de ce qui est mémorisé de l&apos;installation</translation>
    </message>
    <message>
        <source>Recordings lie in it under the installation; what was recorded before stays where it is</source>
        <translation>Les enregistrements s&apos;y trouvent sous l&apos;installation&#xa0;; ce qui a été enregistré avant reste où il est</translation>
    </message>
    <message>
        <source>Browse...</source>
        <translation>Parcourir...</translation>
    </message>
    <message>
        <source>Keep for &amp;days:</source>
        <translation>&amp;Jours conservés&#xa0;:</translation>
    </message>
    <message>
        <source>What is older is deleted by whole days</source>
        <translation>Ce qui est plus ancien est supprimé par jours entiers</translation>
    </message>
    <message>
        <source>Keep at &amp;most:</source>
        <translation>Conserver au &amp;plus&#xa0;:</translation>
    </message>
    <message>
        <source> GB</source>
        <extracomment>gigabytes</extracomment>
        <translation> Go</translation>
    </message>
    <message>
        <source>For each installation. When there is more, the oldest days are deleted</source>
        <translation>Par installation. S&apos;il y en a plus, les jours les plus anciens sont supprimés</translation>
    </message>
    <message>
        <source>Days re&amp;corded; those ticked are kept whatever their age and size:</source>
        <translation>Jours e&amp;nregistrés&#xa0;; ceux cochés sont conservés quels que soient leur âge et leur taille&#xa0;:</translation>
    </message>
    <message>
        <source>Keep Day</source>
        <translation>Conserver le jour</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Taille</translation>
    </message>
    <message>
        <source>Days recorded</source>
        <translation>Jours enregistrés</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
</context>
<context>
    <name>RecordingIndicator</name>
    <message>
        <source>Recording is off</source>
        <translation>Enregistrement désactivé</translation>
    </message>
    <message>
        <source>Nothing is recorded: it is turned off in the settings.</source>
        <translation>Rien n&apos;est enregistré&#xa0;: c&apos;est désactivé dans les paramètres.</translation>
    </message>
    <message>
        <source>Not recorded!</source>
        <translation>Non enregistré&#xa0;!</translation>
    </message>
    <message>
        <source>Recording</source>
        <translation>Enregistrement</translation>
    </message>
    <message>
        <source>Everything on the bus is recorded. Click to open the folder.
%1</source>
        <translation>Tout ce qui passe sur le bus est enregistré. Cliquez pour ouvrir le dossier.
%1</translation>
    </message>
    <message>
        <source>Not recording</source>
        <translation>Pas d&apos;enregistrement</translation>
    </message>
    <message>
        <source>What happens on the bus is recorded as soon as it is monitored. Click to open the folder.
%1</source>
        <translation>Ce qui se passe sur le bus est enregistré dès qu&apos;il est surveillé. Cliquez pour ouvrir le dossier.
%1</translation>
    </message>
</context>
<context>
    <name>RecordingNotice</name>
    <message>
        <source>Recording goes on.</source>
        <translation>L&apos;enregistrement continue.</translation>
    </message>
    <message>
        <source>Nothing is recorded: the disk is full. Recording goes on as soon as there is room.</source>
        <translation>Rien n&apos;est enregistré&#xa0;: le disque est plein. L&apos;enregistrement continue dès qu&apos;il y a de la place.</translation>
    </message>
    <message>
        <source>Nothing is recorded: the file cannot be written. Recording goes on as soon as it can.</source>
        <translation>Rien n&apos;est enregistré&#xa0;: impossible d&apos;écrire le fichier. L&apos;enregistrement continue dès que possible.</translation>
    </message>
    <message>
        <source>The recording has been removed. A new one has been begun.</source>
        <translation>L&apos;enregistrement a été supprimé. Un nouveau a été commencé.</translation>
    </message>
    <message>
        <source>The recording is damaged. Recording goes on in another file.</source>
        <translation>L&apos;enregistrement est endommagé. Il continue dans un autre fichier.</translation>
    </message>
    <message>
        <source>The recording is of a later version of this program. Recording goes on in another file.</source>
        <translation>L&apos;enregistrement vient d&apos;une version ultérieure de ce programme. Il continue dans un autre fichier.</translation>
    </message>
    <message>
        <source>Another window records into the same file. This one records into a file of its own.</source>
        <translation>Une autre fenêtre enregistre dans le même fichier. Celle-ci enregistre dans son propre fichier.</translation>
    </message>
    <message>
        <source>The computer&apos;s clock has been set back. Recording goes on in another file.</source>
        <translation>L&apos;horloge de l&apos;ordinateur a été retardée. L&apos;enregistrement continue dans un autre fichier.</translation>
    </message>
    <message>
        <source>The recording cannot be read.</source>
        <translation>Impossible de lire l&apos;enregistrement.</translation>
    </message>
    <message>
        <source>The recording is damaged. What can be read of it is shown.</source>
        <translation>L&apos;enregistrement est endommagé. Ce qui peut en être lu est affiché.</translation>
    </message>
    <message>
        <source>The recording is of a later version of this program. It cannot be read.</source>
        <translation>L&apos;enregistrement vient d&apos;une version ultérieure de ce programme. Il ne peut pas être lu.</translation>
    </message>
    <message>
        <source>The recording was not closed and cannot be written to. Its last seconds are not shown.</source>
        <translation>L&apos;enregistrement n&apos;a pas été fermé et n&apos;est pas accessible en écriture. Ses dernières secondes ne sont pas affichées.</translation>
    </message>
</context>
<context>
    <name>ReportMaker</name>
    <message>
        <source>The document cannot be made.</source>
        <translation>Le document ne peut pas être créé.</translation>
    </message>
</context>
<context>
    <name>ReportWindow</name>
    <message>
        <source>Printed.</source>
        <translation>Imprimé.</translation>
    </message>
    <message>
        <source>It could not be printed.</source>
        <translation>L&apos;impression a échoué.</translation>
    </message>
    <message>
        <source>The end of the span is before its begin.</source>
        <translation>La fin de la période est avant son début.</translation>
    </message>
    <message>
        <source>Reading the recording...</source>
        <translation>Lecture de l&apos;enregistrement...</translation>
    </message>
    <message>
        <source>Making the pages...</source>
        <translation>Création des pages...</translation>
    </message>
    <message>
        <source>Save the Report as PDF</source>
        <translation>Enregistrer le rapport en PDF</translation>
    </message>
    <message>
        <source>Save the Report as HTML</source>
        <translation>Enregistrer le rapport en HTML</translation>
    </message>
    <message>
        <source>Writing %1</source>
        <translation>Écriture de %1</translation>
    </message>
    <message>
        <source>Saved: %1</source>
        <translation>Enregistré : %1</translation>
    </message>
    <message>
        <source>Not saved: %1</source>
        <translation>Non enregistré : %1</translation>
    </message>
    <message>
        <source>Report of the Visit</source>
        <translation>Rapport de la visite</translation>
    </message>
    <message>
        <source>%1 could not be written.</source>
        <translation>%1 n&apos;a pas pu être écrit.</translation>
    </message>
    <message>
        <source>Printing...</source>
        <translation>Impression...</translation>
    </message>
    <message>
        <source>&amp;Time:</source>
        <translation>&amp;Période :</translation>
    </message>
    <message>
        <source>F&amp;rom:</source>
        <translation>&amp;De :</translation>
    </message>
    <message>
        <source>T&amp;o:</source>
        <translation>&amp;À :</translation>
    </message>
    <message>
        <source>&amp;Engineer:</source>
        <translation>&amp;Technicien :</translation>
    </message>
    <message>
        <source>&amp;Customer&apos;s reference:</source>
        <translation>Référence du &amp;client :</translation>
    </message>
    <message>
        <source>Re&amp;marks:</source>
        <translation>Re&amp;marques :</translation>
    </message>
    <message>
        <source>&amp;Paper:</source>
        <translation>Papie&amp;r :</translation>
    </message>
    <message>
        <source>Today</source>
        <translation>Aujourd&apos;hui</translation>
    </message>
    <message>
        <source>From, to</source>
        <translation>De, à</translation>
    </message>
    <message>
        <source>&amp;Settings of all LDB&apos;s as an appendix</source>
        <translation>Paramètre&amp;s de tous les LDB en annexe</translation>
    </message>
    <message>
        <source>Those that were read in this time. &quot;Settings of all LDB&apos;s&quot; reads them all</source>
        <translation>Ceux qui ont été lus pendant cette période. « Paramètres de tous les LDB » les lit tous</translation>
    </message>
    <message>
        <source>Re&amp;fresh</source>
        <translation>Actualis&amp;er</translation>
    </message>
    <message>
        <source>Reads the recording again (F5)</source>
        <translation>Relit l&apos;enregistrement (F5)</translation>
    </message>
    <message>
        <source>Save as P&amp;DF...</source>
        <translation>Enregistrer en PD&amp;F...</translation>
    </message>
    <message>
        <source>Save as &amp;HTML...</source>
        <translation>Enregistrer en &amp;HTML...</translation>
    </message>
    <message>
        <source>Pri&amp;nt...</source>
        <translation>&amp;Imprimer...</translation>
    </message>
    <message>
        <source>Pages of the report</source>
        <translation>Pages du rapport</translation>
    </message>
    <message>
        <source>This visit, since %1</source>
        <translation>Cette visite, depuis %1</translation>
    </message>
    <message>
        <source>This visit</source>
        <translation>Cette visite</translation>
    </message>
    <message>
        <source>This visit began with today&apos;s first start of the bus</source>
        <translation>Cette visite a commencé au premier démarrage du bus aujourd&apos;hui</translation>
    </message>
</context>
<context>
    <name>RunFindings</name>
    <message>
        <source>Attention</source>
        <translation>Attention</translation>
    </message>
</context>
<context>
    <name>SerialLink</name>
    <message>
        <source>The former connection has not ended yet.</source>
        <translation>La connexion précédente n&apos;est pas encore terminée.</translation>
    </message>
</context>
<context>
    <name>SetValueDialog</name>
    <message numerus="yes">
        <source>Set for %n LDB(s)</source>
        <translation>
            <numerusform>Définir pour %n LDB</numerusform>
            <numerusform>Définir pour %n LDB</numerusform>
        </translation>
    </message>
    <message>
        <source>Set</source>
        <translation>Définir</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
</context>
<context>
    <name>SettingsFields</name>
    <message>
        <source>The settings have not been read yet.</source>
        <translation>Les paramètres n’ont pas encore été lus.</translation>
    </message>
    <message>
        <source>Tick Enable Open Detection first.</source>
        <translation>Cochez d’abord Activer la détection de coupure.</translation>
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
        <source>Serial &amp;Port</source>
        <translation>&amp;Port série</translation>
    </message>
    <message>
        <source>&amp;Language:</source>
        <translation>&amp;Langue&#xa0;:</translation>
    </message>
    <message>
        <source>Sounds</source>
        <translation>Sons</translation>
    </message>
    <message>
        <source>Enable &amp;Sound Warnings</source>
        <translation>Activer les avertissements &amp;sonores</translation>
    </message>
    <message>
        <source>&amp;About</source>
        <translation>À p&amp;ropos</translation>
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
    <message>
        <source>Installation</source>
        <translation>Installation</translation>
    </message>
    <message>
        <source>Begin with the LDBs that are remembered; without it, each start scans the whole bus</source>
        <translation>Commencer avec les LDB mémorisés ; sinon, chaque démarrage parcourt tout le bus</translation>
    </message>
    <message>
        <source>Start with the LDBs &amp;remembered</source>
        <translation>Démarrer avec les LDB &amp;mémorisés</translation>
    </message>
    <message>
        <source>Name, place, notes and LDBs of the installations that are remembered</source>
        <translation>Nom, lieu, notes et LDB des installations mémorisées</translation>
    </message>
    <message>
        <source>&amp;Installation...</source>
        <translation>&amp;Installation...</translation>
    </message>
    <message>
        <source>Whether what happens on the bus is recorded, where, and how long it is kept</source>
        <translation>Si ce qui se passe sur le bus est enregistré, où, et combien de temps</translation>
    </message>
    <message>
        <source>Re&amp;cording...</source>
        <translation>E&amp;nregistrement...</translation>
    </message>
</context>
<context>
    <name>SettingsTable</name>
    <message>
        <source>written</source>
        <translation>écrit</translation>
    </message>
    <message>
        <source>refused</source>
        <translation>refusé</translation>
    </message>
    <message>
        <source>not answered</source>
        <translation>sans réponse</translation>
    </message>
    <message>
        <source>differs</source>
        <translation>diffère</translation>
    </message>
    <message>
        <source>left alone</source>
        <translation>laissé tel quel</translation>
    </message>
    <message>
        <source>not sent</source>
        <translation>non envoyé</translation>
    </message>
    <message>
        <source>To be written: %1</source>
        <translation>À écrire : %1</translation>
    </message>
    <message>
        <source>What the LDB has is not known: it was not read back.</source>
        <translation>Ce que le LDB contient n&apos;est pas connu : la valeur n&apos;a pas été relue.</translation>
    </message>
    <message>
        <source>The LDB has: %1</source>
        <translation>Le LDB a : %1</translation>
    </message>
    <message>
        <source>The last Write: %1</source>
        <translation>Dernière écriture : %1</translation>
    </message>
    <message>
        <source>Most LDB&apos;s have: %1</source>
        <translation>La plupart des LDB ont : %1</translation>
    </message>
    <message>
        <source>Factory default: %1</source>
        <translation>Valeur d&apos;usine : %1</translation>
    </message>
    <message>
        <source>not connected</source>
        <translation>non connecté</translation>
    </message>
    <message>
        <source>not read</source>
        <translation>non lu</translation>
    </message>
    <message>
        <source>waits to be read</source>
        <translation>en attente de lecture</translation>
    </message>
    <message>
        <source>did not answer</source>
        <translation>n&apos;a pas répondu</translation>
    </message>
    <message>
        <source>the connection ended before it was read</source>
        <translation>la connexion s&apos;est terminée avant la lecture</translation>
    </message>
    <message>
        <source>changed since it was shown: nothing was written</source>
        <translation>modifié depuis l&apos;affichage : rien n&apos;a été écrit</translation>
    </message>
    <message numerus="yes">
        <source>%n to write</source>
        <translation>
            <numerusform>%n à écrire</numerusform>
            <numerusform>%n à écrire</numerusform>
        </translation>
    </message>
    <message>
        <source>&quot;%1&quot; cannot be the value of %2 of LDB %3. Nothing was pasted.</source>
        <translation>« %1 » ne peut pas être la valeur de %2 du LDB %3. Rien n&apos;a été collé.</translation>
    </message>
    <message>
        <source>What is to be pasted is larger than the table from the selected cell on. Nothing was pasted.</source>
        <translation>Ce qui doit être collé dépasse le tableau à partir de la cellule sélectionnée. Rien n&apos;a été collé.</translation>
    </message>
    <message>
        <source>The IDs of the file are read as decimal.</source>
        <translation>Les ID du fichier sont lus en décimal.</translation>
    </message>
    <message>
        <source>The IDs of the file are read as hexadecimal.</source>
        <translation>Les ID du fichier sont lus en hexadécimal.</translation>
    </message>
    <message>
        <source>The names fit better as hexadecimal: then %1 are those of the LDB&apos;s, now %2.</source>
        <translation>Les noms correspondent mieux en hexadécimal : %1 sont alors ceux des LDB, %2 maintenant.</translation>
    </message>
    <message>
        <source>The names fit better as decimal: then %1 are those of the LDB&apos;s, now %2.</source>
        <translation>Les noms correspondent mieux en décimal : %1 sont alors ceux des LDB, %2 maintenant.</translation>
    </message>
</context>
<context>
    <name>SettingsTableModel</name>
    <message>
        <source>Address %1</source>
        <translation>Adresse %1</translation>
    </message>
    <message>
        <source>LDB</source>
        <translation>LDB</translation>
    </message>
    <message>
        <source>Firmware ID</source>
        <translation>ID firmware</translation>
    </message>
    <message>
        <source>Read at</source>
        <translation>Lu à</translation>
    </message>
    <message>
        <source>State</source>
        <translation>État</translation>
    </message>
    <message>
        <source>%1 of LDB %2</source>
        <translation>%1 du LDB %2</translation>
    </message>
</context>
<context>
    <name>SettingsTableWindow</name>
    <message>
        <source>Read All</source>
        <translation>Tout lire</translation>
    </message>
    <message>
        <source>Read the settings of all LDB&apos;s</source>
        <translation>Lire les paramètres de tous les LDB</translation>
    </message>
    <message>
        <source>Read Selected</source>
        <translation>Lire la sélection</translation>
    </message>
    <message>
        <source>Read the LDB&apos;s of the selected cells again</source>
        <translation>Relire les LDB des cellules sélectionnées</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Arrêter</translation>
    </message>
    <message>
        <source>End the reading, or the writing behind the LDB under way</source>
        <translation>Terminer la lecture, ou l&apos;écriture après le LDB en cours</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Take the last change of the table back</source>
        <translation>Annuler la dernière modification du tableau</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Rétablir</translation>
    </message>
    <message>
        <source>Make the change again that was taken back</source>
        <translation>Refaire la modification annulée</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Copier</translation>
    </message>
    <message>
        <source>Copy the selected cells for a spreadsheet</source>
        <translation>Copier les cellules sélectionnées pour un tableur</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Coller</translation>
    </message>
    <message>
        <source>Put cells of a spreadsheet in, from the first selected cell on</source>
        <translation>Insérer des cellules d&apos;un tableur à partir de la première cellule sélectionnée</translation>
    </message>
    <message>
        <source>Set...</source>
        <translation>Définir...</translation>
    </message>
    <message>
        <source>Give the selected LDB&apos;s one value</source>
        <translation>Donner une même valeur aux LDB sélectionnés</translation>
    </message>
    <message>
        <source>Import...</source>
        <translation>Importer...</translation>
    </message>
    <message>
        <source>Take the values of a file as changes</source>
        <translation>Prendre les valeurs d&apos;un fichier comme modifications</translation>
    </message>
    <message>
        <source>Export...</source>
        <translation>Exporter...</translation>
    </message>
    <message>
        <source>Write what the table shows, with its changes, into a file</source>
        <translation>Écrire dans un fichier ce que montre le tableau, avec ses modifications</translation>
    </message>
    <message>
        <source>Former Settings...</source>
        <translation>Anciens paramètres...</translation>
    </message>
    <message>
        <source>Compare with what the LDB&apos;s had before, or put it back</source>
        <translation>Comparer avec ce que les LDB avaient avant, ou le remettre</translation>
    </message>
    <message>
        <source>Go On Writing</source>
        <translation>Continuer l&apos;écriture</translation>
    </message>
    <message>
        <source>Write what was confirmed before the connection ended</source>
        <translation>Écrire ce qui était confirmé avant la fin de la connexion</translation>
    </message>
    <message>
        <source>Write...</source>
        <translation>Écrire...</translation>
    </message>
    <message>
        <source>Show what would be written; nothing is sent before you confirm it</source>
        <translation>Montrer ce qui serait écrit ; rien n&apos;est envoyé avant votre confirmation</translation>
    </message>
    <message>
        <source>These are left out:</source>
        <translation>Ceux-ci sont laissés de côté :</translation>
    </message>
    <message numerus="yes">
        <source>%n LDB(s)</source>
        <translation>
            <numerusform>%n LDB</numerusform>
            <numerusform>%n LDB</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n to write</source>
        <translation>
            <numerusform>%n à écrire</numerusform>
            <numerusform>%n à écrire</numerusform>
        </translation>
    </message>
    <message>
        <source>Settings of all LDB&apos;s</source>
        <translation>Paramètres de tous les LDB</translation>
    </message>
    <message>
        <source>Tools</source>
        <translation>Outils</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Rechercher</translation>
    </message>
    <message>
        <source>What the values are compared with</source>
        <translation>À quoi les valeurs sont comparées</translation>
    </message>
    <message>
        <source>Compare with most others</source>
        <translation>Comparer à la plupart</translation>
    </message>
    <message>
        <source>Compare with factory defaults</source>
        <translation>Comparer aux valeurs d&apos;usine</translation>
    </message>
    <message>
        <source>Compare with a file...</source>
        <translation>Comparer à un fichier...</translation>
    </message>
    <message>
        <source>Which LDB&apos;s are shown</source>
        <translation>Quels LDB sont affichés</translation>
    </message>
    <message>
        <source>All LDB&apos;s</source>
        <translation>Tous les LDB</translation>
    </message>
    <message>
        <source>Only differing</source>
        <translation>Seulement différents</translation>
    </message>
    <message>
        <source>Only changed</source>
        <translation>Seulement modifiés</translation>
    </message>
    <message>
        <source>Select File</source>
        <translation>Sélectionner un fichier</translation>
    </message>
    <message>
        <source>The file cannot be written.</source>
        <translation>Le fichier ne peut pas être écrit.</translation>
    </message>
    <message numerus="yes">
        <source>Reading: %n left</source>
        <translation>
            <numerusform>Lecture : reste %n</numerusform>
            <numerusform>Lecture : restent %n</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Reading: %n left, about %1 s</source>
        <translation>
            <numerusform>Lecture : reste %n, environ %1 s</numerusform>
            <numerusform>Lecture : restent %n, environ %1 s</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Writing: %n left</source>
        <translation>
            <numerusform>Écriture : reste %n</numerusform>
            <numerusform>Écriture : restent %n</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>The table of settings has %n change(s) that are not written.</source>
        <translation>
            <numerusform>Le tableau des paramètres a %n modification non écrite.</numerusform>
            <numerusform>Le tableau des paramètres a %n modifications non écrites.</numerusform>
        </translation>
    </message>
    <message>
        <source>Select cells of the setting that is to be set.</source>
        <translation>Sélectionnez des cellules du paramètre à définir.</translation>
    </message>
    <message>
        <source>Read as hexadecimal</source>
        <translation>Lire en hexadécimal</translation>
    </message>
    <message>
        <source>Read as decimal</source>
        <translation>Lire en décimal</translation>
    </message>
    <message>
        <source>Compared with &quot;%1&quot;. %2</source>
        <translation>Comparé à « %1 ». %2</translation>
    </message>
    <message>
        <source>Compared with: %1</source>
        <translation>Comparé à : %1</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
    <message>
        <source>Nothing was written, as the former settings could not be kept.</source>
        <translation>Rien n&apos;a été écrit, car les anciens paramètres n&apos;ont pas pu être conservés.</translation>
    </message>
    <message>
        <source>Nothing was written, as the LDB&apos;s cannot be written to now.</source>
        <translation>Rien n&apos;a été écrit, car il n&apos;est pas possible d&apos;écrire dans les LDB maintenant.</translation>
    </message>
    <message>
        <source>Put back</source>
        <translation>Remettre</translation>
    </message>
    <message>
        <source>Attention</source>
        <translation>Attention</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>Abandonner</translation>
    </message>
    <message>
        <source>Keep</source>
        <translation>Garder</translation>
    </message>
    <message>
        <source>Stay</source>
        <translation>Rester</translation>
    </message>
    <message>
        <source>Names have characters that the file cannot hold.</source>
        <translation>Des noms ont des caractères que le fichier ne peut pas contenir.</translation>
    </message>
    <message numerus="yes">
        <source>%1 of %n LDB(s) shown</source>
        <translation>
            <numerusform>%1 sur %n LDB affiché</numerusform>
            <numerusform>%1 sur %n LDB affichés</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>SettingsTransfer</name>
    <message>
        <source>Select File</source>
        <translation>Sélectionner un fichier</translation>
    </message>
    <message>
        <source>Exporting LDB settings</source>
        <translation>Exportation des paramètres des LDB</translation>
    </message>
    <message>
        <source>Exporting LDB settings finished</source>
        <translation>Exportation des paramètres des LDB terminée</translation>
    </message>
    <message>
        <source>Exporting LDB settings failed</source>
        <translation>Échec de l&apos;exportation des paramètres des LDB</translation>
    </message>
    <message>
        <source>Importing LDB settings</source>
        <translation>Importation des paramètres des LDB</translation>
    </message>
    <message>
        <source>Importing LDB settings finished</source>
        <translation>Importation des paramètres des LDB terminée</translation>
    </message>
    <message>
        <source>Importing LDB settings failed</source>
        <translation>Échec de l&apos;importation des paramètres des LDB</translation>
    </message>
    <message>
        <source>Importing LDB settings failed, not all LDB&apos;s are connected</source>
        <translation>Échec de l&apos;importation des paramètres des LDB, tous les LDB ne sont pas connectés</translation>
    </message>
    <message>
        <source>Importing LDB settings failed, settings are missing for connected LDB&apos;s</source>
        <translation>Échec de l&apos;importation des paramètres des LDB, des paramètres manquent pour des LDB connectés</translation>
    </message>
    <message>
        <source>Information</source>
        <translation>Information</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Erreur</translation>
    </message>
    <message>
        <source>%1!</source>
        <translation>%1&#xa0;!</translation>
    </message>
    <message>
        <source>Importing LDB settings failed, not all LDB&apos;s&apos; are connected!</source>
        <translation>Échec de l&apos;importation des paramètres des LDB, tous les LDB ne sont pas connectés&#xa0;!</translation>
    </message>
    <message>
        <source>The transfer stops behind the LDB under way.</source>
        <translation>Le transfert s&apos;arrête après le LDB en cours.</translation>
    </message>
    <message>
        <source>Nothing was imported.</source>
        <translation>Rien n&apos;a été importé.</translation>
    </message>
    <message>
        <source>Importing LDB settings was stopped.</source>
        <translation>L&apos;importation des paramètres des LDB a été arrêtée.</translation>
    </message>
    <message>
        <source>Exporting LDB settings was stopped.</source>
        <translation>L&apos;exportation des paramètres des LDB a été arrêtée.</translation>
    </message>
    <message>
        <source>Attention</source>
        <translation>Attention</translation>
    </message>
    <message>
        <source>An import is under way. The LDB being written may be left with a part of its settings.</source>
        <translation>Une importation est en cours. Le LDB en cours d&apos;écriture peut ne recevoir qu&apos;une partie de ses paramètres.</translation>
    </message>
    <message>
        <source>An export is under way. LDB&apos;s not read yet will be missing in the file.</source>
        <translation>Une exportation est en cours. Les LDB qui n&apos;ont pas encore été lus manqueront dans le fichier.</translation>
    </message>
    <message>
        <source>Nothing has been imported yet.</source>
        <translation>Rien n&apos;a encore été importé.</translation>
    </message>
    <message>
        <source>Writing LDB settings</source>
        <translation>Écriture des paramètres des LDB</translation>
    </message>
    <message>
        <source>LDB %1: %2</source>
        <translation>LDB %1 : %2</translation>
    </message>
    <message numerus="yes">
        <source>The settings of %n LDB(s) are written.</source>
        <translation>
            <numerusform>Les paramètres de %n LDB sont écrits.</numerusform>
            <numerusform>Les paramètres de %n LDB sont écrits.</numerusform>
        </translation>
    </message>
    <message>
        <source>Not all settings are written.</source>
        <translation>Tous les paramètres ne sont pas écrits.</translation>
    </message>
    <message numerus="yes">
        <source>Written: %n LDB(s)</source>
        <translation>
            <numerusform>Écrits : %n LDB</numerusform>
            <numerusform>Écrits : %n LDB</numerusform>
        </translation>
    </message>
    <message>
        <source>Not begun: %1</source>
        <translation>Non commencés : %1</translation>
    </message>
    <message>
        <source>Settings are being written. The LDB being written may be left with a part of them.</source>
        <translation>Des paramètres sont en cours d&apos;écriture. Le LDB en cours peut n&apos;en recevoir qu&apos;une partie.</translation>
    </message>
</context>
<context>
    <name>SettingsWriter</name>
    <message>
        <source>storing</source>
        <translation>mémorisation</translation>
    </message>
    <message>
        <source>the connection ended before it was written</source>
        <translation>la connexion s&apos;est terminée avant l&apos;écriture</translation>
    </message>
    <message>
        <source>not written: %1</source>
        <translation>non écrit&#xa0;: %1</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>the connection ended before everything was written</source>
        <translation>la connexion s&apos;est terminée avant que tout soit écrit</translation>
    </message>
    <message>
        <source>the settings could not be read again</source>
        <translation>les paramètres n&apos;ont pas pu être relus</translation>
    </message>
    <message>
        <source>the LDB reports other values than written: %1</source>
        <translation>le LDB indique d&apos;autres valeurs que celles écrites&#xa0;: %1</translation>
    </message>
    <message>
        <source>no answer</source>
        <translation>pas de réponse</translation>
    </message>
    <message>
        <source>not sent</source>
        <translation>non envoyé</translation>
    </message>
    <message>
        <source>refused</source>
        <translation>refusé</translation>
    </message>
    <message>
        <source>changed by somebody else meanwhile</source>
        <translation>modifié entre-temps par quelqu’un d’autre</translation>
    </message>
    <message>
        <source>the LDB reports another value than written</source>
        <translation>le LDB indique une autre valeur que celle écrite</translation>
    </message>
    <message>
        <source>nothing was written, as the settings could not be read just before (%1)</source>
        <translation>rien n’a été écrit, car les paramètres n’ont pas pu être lus juste avant (%1)</translation>
    </message>
    <message>
        <source>not written, as somebody else has changed it meanwhile: %1</source>
        <translation>non écrit, car quelqu’un d’autre l’a modifié entre-temps&#xa0;: %1</translation>
    </message>
    <message>
        <source>the LDB has another name than before</source>
        <translation>le LDB a un autre nom qu&apos;avant</translation>
    </message>
    <message>
        <source>nothing was written, as the LDB is now called &quot;%1&quot;: it may be another one</source>
        <translation>rien n&apos;a été écrit, car le LDB s&apos;appelle maintenant « %1 » : c&apos;est peut-être un autre</translation>
    </message>
</context>
<context>
    <name>StatusIndicators</name>
    <message>
        <source>SERVICE MODE</source>
        <translation>MODE MAINTENANCE</translation>
    </message>
    <message>
        <source>EARTH FAULT</source>
        <translation>DÉFAUT DE TERRE</translation>
    </message>
    <message>
        <source>OPEN/SHORT/LEAK</source>
        <translation>COUPURE/COURT-CIRCUIT/FUITE</translation>
    </message>
    <message>
        <source>SETTINGS</source>
        <translation>PARAMÈTRES</translation>
    </message>
    <message>
        <source>%1: off</source>
        <translation>%1&#xa0;: éteint</translation>
    </message>
    <message>
        <source>%1: blinking slowly</source>
        <translation>%1&#xa0;: clignotement lent</translation>
    </message>
    <message>
        <source>%1: blinking fast</source>
        <translation>%1&#xa0;: clignotement rapide</translation>
    </message>
    <message>
        <source>No round over all LDBs has been completed yet.</source>
        <translation>Aucun cycle complet de tous les LDB n&apos;a encore été effectué.</translation>
    </message>
    <message>
        <source>No LDB is in service mode.</source>
        <translation>Aucun LDB n&apos;est en mode maintenance.</translation>
    </message>
    <message>
        <source>At least one LDB is in service mode.</source>
        <translation>Au moins un LDB est en mode maintenance.</translation>
    </message>
    <message>
        <source>No LDB reports an earth fault.</source>
        <translation>Aucun LDB ne signale de défaut de terre.</translation>
    </message>
    <message>
        <source>At least one LDB has an earth fault now.</source>
        <translation>Au moins un LDB présente actuellement un défaut de terre.</translation>
    </message>
    <message>
        <source>At least one LDB remembers an earth fault that has gone.</source>
        <translation>Au moins un LDB garde en mémoire un défaut de terre disparu.</translation>
    </message>
    <message>
        <source>No LDB reports a fault of its loop or its amplifier.</source>
        <translation>Aucun LDB ne signale de défaut de boucle ou d&apos;amplificateur.</translation>
    </message>
    <message>
        <source>At least one LDB has an open, a short, DC leakage or a disconnected amplifier now.</source>
        <translation>Au moins un LDB présente actuellement une coupure, un court-circuit, une fuite CC ou un amplificateur déconnecté.</translation>
    </message>
    <message>
        <source>At least one LDB remembers a loop fault that has gone, or has its amplifier back.</source>
        <translation>Au moins un LDB garde en mémoire un défaut de boucle disparu, ou a retrouvé son amplificateur.</translation>
    </message>
    <message>
        <source>No LDB asks for its settings to be checked.</source>
        <translation>Aucun LDB ne demande la vérification de ses paramètres.</translation>
    </message>
    <message>
        <source>At least one LDB asks for its settings to be checked.</source>
        <translation>Au moins un LDB demande la vérification de ses paramètres.</translation>
    </message>
    <message>
        <source>%1: not known</source>
        <translation>%1 : inconnu</translation>
    </message>
    <message>
        <source>Not all LDBs are monitored.</source>
        <translation>Les LDB ne sont pas tous surveillés.</translation>
    </message>
</context>
<context>
    <name>TableHeads</name>
    <message>
        <source>Name</source>
        <translation>Nom</translation>
    </message>
    <message>
        <source>Number of FIM&apos;s</source>
        <translation>Nombre de FIM</translation>
    </message>
    <message>
        <source>Open Detection Delay</source>
        <translation>Délai de détection de coupure</translation>
    </message>
    <message>
        <source>General Fault Output</source>
        <translation>Sortie de défaut général</translation>
    </message>
    <message>
        <source>Earth Leakage Detection</source>
        <translation>Détection de fuite à la terre</translation>
    </message>
    <message>
        <source>Earth Wire Open Detection</source>
        <translation>Détection de coupure du fil de terre</translation>
    </message>
    <message>
        <source>Start in Service Mode</source>
        <translation>Démarrer en mode maint.</translation>
    </message>
    <message>
        <source>Amplifier Detection</source>
        <translation>Détection de l&apos;ampli</translation>
    </message>
    <message>
        <source>Audio Mute</source>
        <translation>Audio coupé</translation>
    </message>
</context>
<context>
    <name>TableImport</name>
    <message>
        <source>Import of %1</source>
        <translation>Importation de %1</translation>
    </message>
    <message>
        <source>Import of &quot;%1&quot;: nothing has been written yet. %2</source>
        <translation>Importation de « %1 » : rien n&apos;a encore été écrit. %2</translation>
    </message>
    <message>
        <source>Read as hexadecimal</source>
        <translation>Lire en hexadécimal</translation>
    </message>
    <message>
        <source>Read as decimal</source>
        <translation>Lire en décimal</translation>
    </message>
    <message numerus="yes">
        <source>%n left out...</source>
        <translation>
            <numerusform>%n laissé de côté...</numerusform>
            <numerusform>%n laissés de côté...</numerusform>
        </translation>
    </message>
    <message>
        <source>Discard the Import</source>
        <translation>Abandonner l&apos;importation</translation>
    </message>
    <message>
        <source>LDB %1 has not been read yet.</source>
        <translation>Le LDB %1 n&apos;a pas encore été lu.</translation>
    </message>
    <message>
        <source>LDB %1: what fault finding has changed is being put back.</source>
        <translation>LDB %1 : ce que la recherche de défaut a modifié est en cours de remise en place.</translation>
    </message>
    <message>
        <source>Import of &quot;%1&quot;: what is not written is still a change of the table.</source>
        <translation>Importation de « %1 » : ce qui n&apos;est pas écrit reste une modification du tableau.</translation>
    </message>
    <message>
        <source>Discard the Rest</source>
        <translation>Abandonner le reste</translation>
    </message>
</context>
<context>
    <name>TimeBar</name>
    <message>
        <source>Live</source>
        <translation>Direct</translation>
    </message>
    <message>
        <source>Nothing is recorded yet.</source>
        <translation>Rien n&apos;est encore enregistré.</translation>
    </message>
    <message>
        <source>Back to what is now (Esc)</source>
        <translation>Retour à ce qui est maintenant (Échap)</translation>
    </message>
    <message>
        <source>LDB %1:</source>
        <translation>LDB %1 :</translation>
    </message>
    <message>
        <source>Recorded time</source>
        <translation>Temps enregistré</translation>
    </message>
</context>
<context>
    <name>VisitReport</name>
    <message>
        <source>Page %1 of %2</source>
        <translation>Page %1 sur %2</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Ouvert</translation>
    </message>
    <message>
        <source>Short</source>
        <translation>Court-circuit</translation>
    </message>
    <message>
        <source>Connected</source>
        <translation>Connecté</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1 : %2</translation>
    </message>
    <message>
        <source>Loop</source>
        <translation>Boucle</translation>
    </message>
    <message>
        <source>Earth</source>
        <translation>Terre</translation>
    </message>
    <message>
        <source>Amplifier</source>
        <translation>Amplificateur</translation>
    </message>
    <message>
        <source>Primary side</source>
        <translation>Côté primaire</translation>
    </message>
    <message>
        <source>Secondary side</source>
        <translation>Côté secondaire</translation>
    </message>
    <message>
        <source>The bus was not monitored from %1 to %2 (%3).</source>
        <translation>Le bus n&apos;était pas surveillé de %1 à %2 (%3).</translation>
    </message>
    <message>
        <source>%1, came and went between two looks</source>
        <translation>%1, apparu et disparu entre deux observations</translation>
    </message>
    <message numerus="yes">
        <source>%1, %n times</source>
        <translation>
            <numerusform>%1, %n fois</numerusform>
            <numerusform>%1, %n fois</numerusform>
        </translation>
    </message>
    <message>
        <source>not known</source>
        <translation>inconnu</translation>
    </message>
    <message>
        <source>before %1</source>
        <translation>avant %1</translation>
    </message>
    <message>
        <source>still there</source>
        <translation>toujours présent</translation>
    </message>
    <message>
        <source>%1 at least</source>
        <translation>au moins %1</translation>
    </message>
    <message>
        <source>%1 at most</source>
        <translation>au plus %1</translation>
    </message>
    <message>
        <source>a save</source>
        <translation>un enregistrement</translation>
    </message>
    <message>
        <source>a writing of the table</source>
        <translation>une écriture du tableau</translation>
    </message>
    <message>
        <source>an import</source>
        <translation>une importation</translation>
    </message>
    <message>
        <source>a put back</source>
        <translation>une restauration</translation>
    </message>
    <message>
        <source>not tracked</source>
        <translation>non suivi</translation>
    </message>
    <message>
        <source>not ended</source>
        <translation>non terminé</translation>
    </message>
    <message>
        <source>%1, approximately at FIM %2</source>
        <translation>%1, approximativement au FIM %2</translation>
    </message>
    <message>
        <source>Nothing is recorded of this time.</source>
        <translation>Rien n&apos;est enregistré pour cette période.</translation>
    </message>
    <message numerus="yes">
        <source>%n LDB&apos;s were found.</source>
        <translation>
            <numerusform>%n LDB a été trouvé.</numerusform>
            <numerusform>%n LDB ont été trouvés.</numerusform>
        </translation>
    </message>
    <message>
        <source>LDB&apos;s that remember a fault that has gone (%1): %2.</source>
        <translation>LDB gardant en mémoire un défaut disparu (%1) : %2.</translation>
    </message>
    <message>
        <source>LDB&apos;s in service mode (%1): %2.</source>
        <translation>LDB en mode maintenance (%1) : %2.</translation>
    </message>
    <message>
        <source>LDB&apos;s whose settings are to be checked (%1): %2.</source>
        <translation>LDB dont les paramètres sont à vérifier (%1) : %2.</translation>
    </message>
    <message>
        <source>Remembered of this installation, and not found: %1.</source>
        <translation>Connus de cette installation et non trouvés : %1.</translation>
    </message>
    <message>
        <source>Found, and never heard: %1.</source>
        <translation>Trouvés et jamais entendus : %1.</translation>
    </message>
    <message>
        <source>Lost, and therefore without values: %1.</source>
        <translation>Perdus, et donc sans valeurs : %1.</translation>
    </message>
    <message>
        <source>Last heard before this time: %1.</source>
        <translation>Entendus pour la dernière fois avant cette période : %1.</translation>
    </message>
    <message>
        <source>Last heard more than 5 minutes before the end: %1.</source>
        <translation>Entendus pour la dernière fois plus de 5 minutes avant la fin : %1.</translation>
    </message>
    <message>
        <source>In the list for a time only: %1.</source>
        <translation>Dans la liste un certain temps seulement : %1.</translation>
    </message>
    <message>
        <source>Without a confirmed firmware ID: %1.</source>
        <translation>Sans ID de firmware confirmé : %1.</translation>
    </message>
    <message>
        <source>Settings not read in this time: %1.</source>
        <translation>Paramètres non lus pendant cette période : %1.</translation>
    </message>
    <message numerus="yes">
        <source>%n exchanges from %1 to %2 are not recorded.</source>
        <translation>
            <numerusform>%n échange de %1 à %2 n&apos;est pas enregistré.</numerusform>
            <numerusform>%n échanges de %1 à %2 ne sont pas enregistrés.</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 ms, at most %2 ms</source>
        <translation>%1 ms, au plus %2 ms</translation>
    </message>
    <message>
        <source>Line quality: nothing was asked.</source>
        <translation>Qualité de la ligne : rien n&apos;a été demandé.</translation>
    </message>
    <message>
        <source>Line quality: good. Of %1 questions %2 were answered well.</source>
        <translation>Qualité de la ligne : bonne. Sur %1 questions, %2 ont reçu une bonne réponse.</translation>
    </message>
    <message>
        <source>Line quality: not good. Of %1 questions %2 were answered well.</source>
        <translation>Qualité de la ligne : mauvaise. Sur %1 questions, %2 ont reçu une bonne réponse.</translation>
    </message>
    <message>
        <source>Primary current</source>
        <translation>Courant primaire</translation>
    </message>
    <message>
        <source>Secondary current</source>
        <translation>Courant secondaire</translation>
    </message>
    <message>
        <source>Report of the visit</source>
        <translation>Rapport de la visite</translation>
    </message>
    <message>
        <source>en</source>
        <comment>code of this language</comment>
        <translation>fr</translation>
    </message>
    <message>
        <source>Place and date</source>
        <translation>Lieu et date</translation>
    </message>
    <message>
        <source>Engineer</source>
        <translation>Technicien</translation>
    </message>
    <message>
        <source>Customer</source>
        <translation>Client</translation>
    </message>
    <message>
        <source>Installation</source>
        <translation>Installation</translation>
    </message>
    <message>
        <source>Place</source>
        <translation>Lieu</translation>
    </message>
    <message>
        <source>Customer&apos;s reference</source>
        <translation>Référence du client</translation>
    </message>
    <message>
        <source>Begun</source>
        <translation>Début</translation>
    </message>
    <message>
        <source>Ended</source>
        <translation>Fin</translation>
    </message>
    <message>
        <source>Program</source>
        <translation>Programme</translation>
    </message>
    <message>
        <source>Port</source>
        <translation>Port</translation>
    </message>
    <message>
        <source>Remarks</source>
        <translation>Remarques</translation>
    </message>
    <message>
        <source>Summary</source>
        <translation>Résumé</translation>
    </message>
    <message>
        <source>LDB&apos;s</source>
        <translation>LDB</translation>
    </message>
    <message>
        <source>Not heard</source>
        <translation>Non entendu</translation>
    </message>
    <message>
        <source>ID</source>
        <translation>ID</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Nom</translation>
    </message>
    <message>
        <source>Mode</source>
        <translation>Mode</translation>
    </message>
    <message>
        <source>Firmware</source>
        <translation>Firmware</translation>
    </message>
    <message>
        <source>As of</source>
        <translation>État au</translation>
    </message>
    <message>
        <source>Faults</source>
        <translation>Défauts</translation>
    </message>
    <message>
        <source>No fault was recorded.</source>
        <translation>Aucun défaut n&apos;a été enregistré.</translation>
    </message>
    <message>
        <source>Fault</source>
        <translation>Défaut</translation>
    </message>
    <message>
        <source>Begin</source>
        <translation>Début</translation>
    </message>
    <message>
        <source>End</source>
        <translation>Fin</translation>
    </message>
    <message>
        <source>Duration</source>
        <translation>Durée</translation>
    </message>
    <message>
        <source>Fault finding</source>
        <translation>Recherche de défaut</translation>
    </message>
    <message>
        <source>No run of fault finding or commissioning was recorded.</source>
        <translation>Aucune recherche de défaut ni mise en service n&apos;a été enregistrée.</translation>
    </message>
    <message>
        <source>LDB %1: %2</source>
        <translation>LDB %1 : %2</translation>
    </message>
    <message>
        <source>Commissioning</source>
        <translation>Mise en service</translation>
    </message>
    <message>
        <source>Side</source>
        <translation>Côté</translation>
    </message>
    <message>
        <source>Result</source>
        <translation>Résultat</translation>
    </message>
    <message>
        <source>FIM&apos;s counted</source>
        <translation>FIM comptés</translation>
    </message>
    <message>
        <source>Last run, %1</source>
        <translation>Dernière fois, %1</translation>
    </message>
    <message>
        <source>Last run: none recorded</source>
        <translation>Dernière fois : aucune enregistrée</translation>
    </message>
    <message>
        <source>The currents of both sides during the run.</source>
        <translation>Les courants des deux côtés pendant la recherche.</translation>
    </message>
    <message>
        <source>Changed settings</source>
        <translation>Paramètres modifiés</translation>
    </message>
    <message>
        <source>No change of a setting was recorded.</source>
        <translation>Aucune modification de paramètre n&apos;a été enregistrée.</translation>
    </message>
    <message>
        <source>Setting</source>
        <translation>Paramètre</translation>
    </message>
    <message>
        <source>Old</source>
        <translation>Ancien</translation>
    </message>
    <message>
        <source>New</source>
        <translation>Nouveau</translation>
    </message>
    <message>
        <source>When</source>
        <translation>Quand</translation>
    </message>
    <message>
        <source>Read back</source>
        <translation>Relecture</translation>
    </message>
    <message>
        <source>%1: before %2, the former settings of %3 were kept.</source>
        <translation>%1 : avant %2, les anciens paramètres ont été conservés de %3.</translation>
    </message>
    <message>
        <source>Marks of the engineer</source>
        <translation>Repères du technicien</translation>
    </message>
    <message>
        <source>No mark was made.</source>
        <translation>Aucun repère n&apos;a été posé.</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Heure</translation>
    </message>
    <message>
        <source>LDB</source>
        <translation>LDB</translation>
    </message>
    <message>
        <source>Mark</source>
        <translation>Repère</translation>
    </message>
    <message>
        <source>Other events</source>
        <translation>Autres événements</translation>
    </message>
    <message>
        <source>No other event was recorded.</source>
        <translation>Aucun autre événement n&apos;a été enregistré.</translation>
    </message>
    <message>
        <source>Event</source>
        <translation>Événement</translation>
    </message>
    <message>
        <source>Line quality</source>
        <translation>Qualité de la ligne</translation>
    </message>
    <message numerus="yes">
        <source>%n LDB&apos;s answered every question at once.</source>
        <translation>
            <numerusform>%n LDB a répondu à chaque question du premier coup.</numerusform>
            <numerusform>%n LDB ont répondu à chaque question du premier coup.</numerusform>
        </translation>
    </message>
    <message>
        <source>Questions</source>
        <translation>Questions</translation>
    </message>
    <message>
        <source>Answered well</source>
        <translation>Bonnes réponses</translation>
    </message>
    <message>
        <source>Damaged</source>
        <translation>Endommagées</translation>
    </message>
    <message>
        <source>Not answered</source>
        <translation>Sans réponse</translation>
    </message>
    <message>
        <source>Not believed</source>
        <translation>Écartées</translation>
    </message>
    <message>
        <source>Answer after</source>
        <translation>Réponse après</translation>
    </message>
    <message>
        <source>Not looked at, or not answered</source>
        <translation>Non examiné ou sans réponse</translation>
    </message>
    <message>
        <source>Every LDB was looked at and answered, and nothing of this time is missing in the recording.</source>
        <translation>Chaque LDB a été examiné et a répondu, et rien ne manque dans l&apos;enregistrement de cette période.</translation>
    </message>
    <message>
        <source>Appendix: settings of all LDB&apos;s</source>
        <translation>Annexe : paramètres de tous les LDB</translation>
    </message>
    <message>
        <source>Read</source>
        <translation>Lu</translation>
    </message>
    <message>
        <source>not read</source>
        <translation>non lu</translation>
    </message>
    <message>
        <source>FIM&apos;s configured</source>
        <translation>FIM configurés</translation>
    </message>
    <message>
        <source>Both sides</source>
        <translation>Les deux côtés</translation>
    </message>
    <message>
        <source>No LDB had a fault at the end.</source>
        <translation>Aucun LDB n&apos;avait de défaut à la fin.</translation>
    </message>
    <message>
        <source>LDB&apos;s with a fault at the end (%1): %2.</source>
        <translation>LDB avec un défaut à la fin (%1)&#xa0;: %2.</translation>
    </message>
    <message>
        <source>No LDB was lost at the end.</source>
        <translation>Aucun LDB n&apos;était perdu à la fin.</translation>
    </message>
    <message>
        <source>LDB&apos;s lost at the end (%1): %2.</source>
        <translation>LDB perdus à la fin (%1)&#xa0;: %2.</translation>
    </message>
</context>
<context>
    <name>WorkNotes</name>
    <message>
        <source>Fault finding ended without a result</source>
        <translation>La recherche de défaut s&apos;est terminée sans résultat</translation>
    </message>
</context>
<context>
    <name>WritePreview</name>
    <message>
        <source>Write Settings</source>
        <translation>Écrire les paramètres</translation>
    </message>
    <message>
        <source>Nothing has been written yet. To be written: %1 in %2.</source>
        <translation>Rien n&apos;a encore été écrit. À écrire : %1 dans %2.</translation>
    </message>
    <message numerus="yes">
        <source>%n change(s)</source>
        <translation>
            <numerusform>%n modification</numerusform>
            <numerusform>%n modifications</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n LDB(s)</source>
        <translation>
            <numerusform>%n LDB</numerusform>
            <numerusform>%n LDB</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Write %n LDB(s)</source>
        <translation>
            <numerusform>Écrire %n LDB</numerusform>
            <numerusform>Écrire %n LDB</numerusform>
        </translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Not written: %1</source>
        <translation>Non écrits : %1</translation>
    </message>
    <message>
        <source>What is not written, and why</source>
        <translation>Ce qui n&apos;est pas écrit, et pourquoi</translation>
    </message>
    <message>
        <source>LDB</source>
        <translation>LDB</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Nom</translation>
    </message>
    <message>
        <source>Setting</source>
        <translation>Paramètre</translation>
    </message>
    <message>
        <source>Change</source>
        <translation>Modification</translation>
    </message>
    <message>
        <source>What is written</source>
        <translation>Ce qui est écrit</translation>
    </message>
</context>
</TS>
