<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<!-- The reference host's own sentences. Ids are words: area, dash, what is said. -->
<TS version="2.1" language="de">
<context>
    <name></name>
    <message id="settings-reason-damaged">
        <source>it is damaged</source>
        <translation>sie ist beschädigt</translation>
    </message>
    <message id="settings-reason-full">
        <source>the disk is full</source>
        <translation>der Datenträger ist voll</translation>
    </message>
    <message id="settings-reason-busy">
        <source>another program is using it</source>
        <translation>ein anderes Programm benutzt sie</translation>
    </message>
    <message id="settings-reason-too-long">
        <source>it is too long</source>
        <translation>sie ist zu lang</translation>
    </message>
    <message id="settings-reason-kind">
        <source>it is of an unknown kind</source>
        <translation>ihre Art ist unbekannt</translation>
    </message>
    <message id="settings-reason-read-only">
        <source>it may not be written</source>
        <translation>sie darf nicht geschrieben werden</translation>
    </message>
    <message id="settings-reason-refused">
        <source>access is refused</source>
        <translation>der Zugriff wird verweigert</translation>
    </message>
    <message id="settings-not-stored">
        <source>The setting "%1" was not stored in %2: %3.</source>
        <translation>Die Einstellung „%1“ wurde nicht in %2 gespeichert: %3.</translation>
    </message>
    <message id="settings-not-stored-because">
        <source>The setting "%1" was not stored. %2</source>
        <translation>Die Einstellung „%1“ wurde nicht gespeichert. %2</translation>
    </message>
    <message id="settings-item-not-read">
        <source>The setting "%1" cannot be read from %2: %3.</source>
        <translation>Die Einstellung „%1“ kann nicht aus %2 gelesen werden: %3.</translation>
    </message>
    <message id="settings-item-damaged">
        <source>The setting "%1" in %2 is damaged; the last good copy is restored at the next start.</source>
        <translation>Die Einstellung „%1“ in %2 ist beschädigt; beim nächsten Start wird die letzte gute Kopie wiederhergestellt.</translation>
    </message>
    <message id="settings-not-read">
        <source>The settings file %1 cannot be read: %2.</source>
        <translation>Die Einstellungsdatei %1 kann nicht gelesen werden: %2.</translation>
    </message>
    <message id="settings-not-opened">
        <source>The settings file %1 cannot be opened: %2.</source>
        <translation>Die Einstellungsdatei %1 kann nicht geöffnet werden: %2.</translation>
    </message>
    <message id="settings-not-made">
        <source>The settings file %1 cannot be made: %2.</source>
        <translation>Die Einstellungsdatei %1 kann nicht angelegt werden: %2.</translation>
    </message>
    <message id="settings-not-removed">
        <source>The file %1 cannot be removed.</source>
        <translation>Die Datei %1 kann nicht entfernt werden.</translation>
    </message>
    <message id="settings-not-renamed">
        <source>The file %1 cannot be renamed to %2: %3.</source>
        <translation>Die Datei %1 kann nicht in %2 umbenannt werden: %3.</translation>
    </message>
    <message id="settings-not-synced">
        <source>%1 cannot be written to disk: %2.</source>
        <translation>%1 kann nicht auf den Datenträger geschrieben werden: %2.</translation>
    </message>
    <message id="settings-newer-format">
        <source>The settings file %1 was written by a newer version of this program.</source>
        <translation>Die Einstellungsdatei %1 wurde von einer neueren Version dieses Programms geschrieben.</translation>
    </message>
    <message id="settings-not-writable">
        <source>The settings file %1 cannot be written in this session.</source>
        <translation>Die Einstellungsdatei %1 kann in dieser Sitzung nicht geschrieben werden.</translation>
    </message>
    <message id="settings-repaired-next-time">
        <source>The settings file %1 is damaged or missing; the last good copy is restored at the next start.</source>
        <translation>Die Einstellungsdatei %1 ist beschädigt oder fehlt; beim nächsten Start wird die letzte gute Kopie wiederhergestellt.</translation>
    </message>
    <message id="settings-damaged">
        <source>The settings file %1 was damaged and has been replaced.</source>
        <translation>Die Einstellungsdatei %1 war beschädigt und wurde ersetzt.</translation>
    </message>
    <message id="settings-missing">
        <source>The settings file %1 was missing.</source>
        <translation>Die Einstellungsdatei %1 fehlte.</translation>
    </message>
    <message id="settings-damage-stays">
        <source>The settings file %1 is damaged and could not be replaced.</source>
        <translation>Die Einstellungsdatei %1 ist beschädigt und konnte nicht ersetzt werden.</translation>
    </message>
    <message id="settings-kept-aside">
        <source>What was found is kept as %1.</source>
        <translation>Was vorgefunden wurde, ist aufbewahrt als %1.</translation>
    </message>
    <message id="settings-restored">
        <source>The last good copy, made %1, has been restored.</source>
        <translation>Die letzte gute Kopie vom %1 wurde wiederhergestellt.</translation>
    </message>
    <message id="settings-start-empty">
        <source>There was no good copy to restore, so the settings are empty.</source>
        <translation>Es gab keine gute Kopie zum Wiederherstellen, daher sind die Einstellungen leer.</translation>
    </message>
    <message id="settings-good-copy-unusable">
        <source>The last good copy could not be used either; it is kept as %1.</source>
        <translation>Auch die letzte gute Kopie war nicht brauchbar; sie ist aufbewahrt als %1.</translation>
    </message>
    <message id="settings-good-copy-read">
        <source>The last good copy, made %1, is read instead; settings cannot be changed in this session.</source>
        <translation>Stattdessen wird die letzte gute Kopie vom %1 gelesen; Einstellungen können in dieser Sitzung nicht geändert werden.</translation>
    </message>
    <message id="settings-nothing-to-read">
        <source>There is no good copy either, so this session has no stored settings.</source>
        <translation>Auch eine gute Kopie gibt es nicht, daher hat diese Sitzung keine gespeicherten Einstellungen.</translation>
    </message>
    <message id="settings-only-read">
        <source>Until that changes, settings can be read but not stored.</source>
        <translation>Solange das so ist, können Einstellungen gelesen, aber nicht gespeichert werden.</translation>
    </message>
    <message id="settings-not-kept">
        <source>Until that changes, there are no stored settings and none can be stored.</source>
        <translation>Solange das so ist, gibt es keine gespeicherten Einstellungen, und es können keine gespeichert werden.</translation>
    </message>
    <message id="settings-good-copy-not-renewed">
        <source>The last good copy of the settings was not renewed. %1</source>
        <translation>Die letzte gute Kopie der Einstellungen wurde nicht erneuert. %1</translation>
    </message>
    <message id="profile-not-made">
        <source>The profile folder %1 cannot be created: %2.</source>
        <translation>Der Profilordner %1 kann nicht angelegt werden: %2.</translation>
    </message>
    <message id="profile-holds-semicolon">
        <source>The profile folder %1 cannot be used: its path holds a semicolon, which separates the paths in the list of loaded files.</source>
        <translation>Der Profilordner %1 kann nicht benutzt werden: Sein Pfad enthält ein Semikolon, das in der Liste der geladenen Dateien die Pfade trennt.</translation>
    </message>
    <message id="profile-not-writable">
        <source>The profile folder %1 cannot be written (%2), so nothing is kept after this session.</source>
        <translation>Der Profilordner %1 kann nicht beschrieben werden (%2), daher bleibt nach dieser Sitzung nichts erhalten.</translation>
    </message>
    <message id="profile-only-read">
        <source>%1 Nothing is kept after this session.</source>
        <translation>%1 Nach dieser Sitzung bleibt nichts erhalten.</translation>
    </message>
    <message id="profile-not-locked">
        <source>The profile cannot be held for this session, since its file %1 cannot be locked: %2.</source>
        <translation>Das Profil kann für diese Sitzung nicht belegt werden, weil seine Datei %1 nicht gesperrt werden kann: %2.</translation>
    </message>
    <message id="profile-in-use">
        <source>The profile folder %1 is in use by %2 (process %3).</source>
        <translation>Der Profilordner %1 wird von %2 benutzt (Prozess %3).</translation>
    </message>
    <message id="profile-in-use-unknown">
        <source>The profile folder %1 is in use by another program.</source>
        <translation>Der Profilordner %1 wird von einem anderen Programm benutzt.</translation>
    </message>
    <message id="profile-file-not-written">
        <source>The file %1 cannot be written: %2.</source>
        <translation>Die Datei %1 kann nicht geschrieben werden: %2.</translation>
    </message>
    <message id="profile-main-file-written">
        <source>The main customization file %1 was missing and has been written again.</source>
        <translation>Die Hauptanpassungsdatei %1 fehlte und wurde neu geschrieben.</translation>
    </message>
    <message id="profile-main-file-missing">
        <source>The main customization file %1 is missing and cannot be written.</source>
        <translation>Die Hauptanpassungsdatei %1 fehlt und kann nicht geschrieben werden.</translation>
    </message>
    <message id="profile-main-file-first">
        <source>The main customization file %1 has been put in front of the list of loaded files.</source>
        <translation>Die Hauptanpassungsdatei %1 wurde an den Anfang der Liste der geladenen Dateien gesetzt.</translation>
    </message>
    <message id="profile-list-missing">
        <source>The list of loaded files was missing and now holds the main customization file %1.</source>
        <translation>Die Liste der geladenen Dateien fehlte und enthält jetzt die Hauptanpassungsdatei %1.</translation>
    </message>
    <message id="profile-list-no-text">
        <source>The list of loaded files was no text and now holds the main customization file %1.</source>
        <translation>Die Liste der geladenen Dateien war kein Text und enthält jetzt die Hauptanpassungsdatei %1.</translation>
    </message>
    <message id="module-no-file">
        <source>The command module %1 does not exist.</source>
        <translation>Das Befehlsmodul %1 gibt es nicht.</translation>
    </message>
    <message id="module-missing-symbols">
        <source>The command module %1 needs what this host does not have: %2</source>
        <translation>Das Befehlsmodul %1 braucht, was dieser Host nicht hat: %2</translation>
    </message>
    <message id="module-no-library">
        <source>%1 cannot be loaded as a command module: %2</source>
        <translation>%1 kann nicht als Befehlsmodul geladen werden: %2</translation>
    </message>
    <message id="module-no-entry">
        <source>%1 is no command module: it has no entry point %2.</source>
        <translation>%1 ist kein Befehlsmodul: ihm fehlt der Einstiegspunkt %2.</translation>
    </message>
    <message id="module-no-application">
        <source>The command module %1 gave no application object.</source>
        <translation>Das Befehlsmodul %1 lieferte kein Anwendungsobjekt.</translation>
    </message>
    <message id="module-not-ready">
        <source>The command module %1 is not ready: it answered %2.</source>
        <translation>Das Befehlsmodul %1 ist nicht bereit: es antwortete %2.</translation>
    </message>
    <message id="box-ok">
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message id="box-cancel">
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message id="box-yes">
        <source>Yes</source>
        <translation>Ja</translation>
    </message>
    <message id="box-no">
        <source>No</source>
        <translation>Nein</translation>
    </message>
    <message id="variable-unknown">
        <source>There is no system variable %1; there are %2.</source>
        <translation>Die Systemvariable %1 gibt es nicht; es gibt %2.</translation>
    </message>
    <message id="variable-no-integer">
        <source>%1 takes an integer from -32768 to 32767, not "%2".</source>
        <translation>%1 nimmt eine ganze Zahl von -32768 bis 32767, nicht "%2".</translation>
    </message>
    <message id="prompt-command">
        <source>Command: </source>
        <translation>Befehl: </translation>
    </message>
    <message id="prompt-variable">
        <source>Name of the system variable: </source>
        <translation>Name der Systemvariable: </translation>
    </message>
    <message id="prompt-value">
        <source>New value: </source>
        <translation>Neuer Wert: </translation>
    </message>
    <message id="groups-name-taken">
        <source>%1 is not shown: its group %2 is shown already, from %3.</source>
        <translation>%1 wird nicht gezeigt: die Gruppe %2 ist schon da, aus %3.</translation>
    </message>
    <message id="groups-none">
        <source>none</source>
        <translation>keine</translation>
    </message>
    <message id="groups-menus">
        <source>menus</source>
        <translation>Menüs</translation>
    </message>
    <message id="groups-toolbars">
        <source>toolbars</source>
        <translation>Leisten</translation>
    </message>
    <message id="groups-file">
        <source>file</source>
        <translation>Datei</translation>
    </message>
    <message id="groups-relative">
        <source>relative name</source>
        <translation>relativer Name</translation>
    </message>
    <message id="groups-missing">
        <source>file is missing</source>
        <translation>Datei fehlt</translation>
    </message>
    <message id="groups-empty">
        <source>No menu group is shown.</source>
        <translation>Es wird keine Menügruppe gezeigt.</translation>
    </message>
    <message id="groups-not-shown">
        <source>Listed, but not shown:</source>
        <translation>In der Liste, aber nicht gezeigt:</translation>
    </message>
    <message id="aliases-none">
        <source>There are no aliases.</source>
        <translation>Es gibt keine Kurzbefehle.</translation>
    </message>
    <message id="alias-not-utf8">
        <source>This line is not UTF-8 and is skipped.</source>
        <translation>Diese Zeile ist kein UTF-8 und wird übergangen.</translation>
    </message>
    <message id="alias-bad-line">
        <source>This line is not ALIAS = COMMAND, each one word, and is skipped.</source>
        <translation>Diese Zeile ist nicht KURZBEFEHL = BEFEHL, je ein Wort, und wird übergangen.</translation>
    </message>
    <message id="alias-replaced">
        <source>The alias %1 is replaced in line %2.</source>
        <translation>Der Kurzbefehl %1 wird in Zeile %2 ersetzt.</translation>
    </message>
    <message id="alias-unreadable">
        <source>The alias file %1 cannot be read: %2</source>
        <translation>Die Kurzbefehlsdatei %1 kann nicht gelesen werden: %2</translation>
    </message>
    <message id="error-status">
        <source>error status %1</source>
        <translation>Fehlerstatus %1</translation>
    </message>
    <message id="error-unknown">
        <source>an error of an unknown kind</source>
        <translation>ein Fehler unbekannter Art</translation>
    </message>
    <message id="command-threw">
        <source>The command %1 failed: %2</source>
        <translation>Der Befehl %1 ist gescheitert: %2</translation>
    </message>
    <message id="command-unknown">
        <source>Unknown command %1. HELP lists the commands.</source>
        <translation>Unbekannter Befehl %1. HELP zeigt die Befehle.</translation>
    </message>
    <message id="command-unknown-nearest">
        <source>Unknown command %1. Did you mean %2?</source>
        <translation>Unbekannter Befehl %1. Gemeint war vielleicht %2?</translation>
    </message>
    <message id="command-setvar">
        <source>Set a system variable: SETVAR NAME VALUE</source>
        <translation>Setzt eine Systemvariable: SETVAR NAME WERT</translation>
    </message>
    <message id="command-getvar">
        <source>Show a system variable: GETVAR NAME</source>
        <translation>Zeigt eine Systemvariable: GETVAR NAME</translation>
    </message>
    <message id="command-settings">
        <source>Show the stored settings: SETTINGS [KEY]</source>
        <translation>Zeigt die gespeicherten Einstellungen: SETTINGS [SCHLÜSSEL]</translation>
    </message>
    <message id="command-groups">
        <source>Show the loaded menu groups</source>
        <translation>Zeigt die geladenen Menügruppen</translation>
    </message>
    <message id="command-aliases">
        <source>Show the command aliases</source>
        <translation>Zeigt die Kurzbefehle</translation>
    </message>
    <message id="command-commands">
        <source>Show every command</source>
        <translation>Zeigt alle Befehle</translation>
    </message>
    <message id="command-echo">
        <source>Print a text: ECHO TEXT</source>
        <translation>Schreibt einen Text: ECHO TEXT</translation>
    </message>
    <message id="command-help">
        <source>Show how to use the command line</source>
        <translation>Zeigt, wie die Befehlszeile bedient wird</translation>
    </message>
    <message id="command-quit">
        <source>End the session</source>
        <translation>Beendet die Sitzung</translation>
    </message>
    <message id="commands-global">
        <source>Global name</source>
        <translation>Globaler Name</translation>
    </message>
    <message id="commands-local">
        <source>Localized name</source>
        <translation>Name</translation>
    </message>
    <message id="commands-module">
        <source>Module</source>
        <translation>Modul</translation>
    </message>
    <message id="commands-description">
        <source>Description</source>
        <translation>Beschreibung</translation>
    </message>
    <message id="help-usage">
        <source>Type a command or an alias and press Enter; answers may follow on the same line.
An answer with blanks is put in double quotes. Enter alone repeats the last command.
Esc or Ctrl+C cancels a prompt; the end of the input or QUIT ends the session.</source>
        <translation>Befehl oder Kurzbefehl eingeben und Enter drücken; Antworten dürfen auf derselben Zeile folgen.
Eine Antwort mit Leerzeichen steht in Anführungszeichen. Enter allein wiederholt den letzten Befehl.
Esc oder Strg+C bricht eine Frage ab; das Ende der Eingabe oder QUIT beendet die Sitzung.</translation>
    </message>
    <message id="help-commands">
        <source>Commands: %1</source>
        <translation>Befehle: %1</translation>
    </message>
    <message id="settings-none">
        <source>There is no such setting.</source>
        <translation>Eine solche Einstellung gibt es nicht.</translation>
    </message>
    <message id="keyword-unknown">
        <source>"%1" is none of %2.</source>
        <translation>"%1" ist nichts von %2.</translation>
    </message>
    <message id="dialog-no-display">
        <source>There is no display, so the dialog cannot be shown.</source>
        <translation>Es gibt keine Anzeige, daher kann der Dialog nicht gezeigt werden.</translation>
    </message>
    <message id="dialog-no-controls">
        <source>The dialog cannot be shown, because its controls are missing.</source>
        <translation>Der Dialog kann nicht gezeigt werden, weil seine Bedienelemente fehlen.</translation>
    </message>
    <message id="session-file-lost">
        <source>A file of the program is missing: %1</source>
        <translation>Eine Datei des Programms fehlt: %1</translation>
    </message>
    <message id="options-description">
        <source>A host for command modules that load customization packages.</source>
        <translation>Ein Host für Befehlsmodule, die Anpassungspakete laden.</translation>
    </message>
    <message id="options-console">
        <source>Use the terminal.</source>
        <translation>Das Terminal benutzen.</translation>
    </message>
    <message id="options-window">
        <source>Use a window.</source>
        <translation>Ein Fenster benutzen.</translation>
    </message>
    <message id="options-script">
        <source>Run the lines of FILE as if they were typed, then leave; - is the standard input.</source>
        <translation>Die Zeilen von FILE ausführen, als wären sie getippt, dann enden; - ist die Standardeingabe.</translation>
    </message>
    <message id="options-interactive-input">
        <source>With --script: treat the lines as typed by a person.</source>
        <translation>Mit --script: die Zeilen gelten als von einem Menschen getippt.</translation>
    </message>
    <message id="options-profile">
        <source>Keep settings, aliases and the main customization file in DIR.</source>
        <translation>Einstellungen, Kurzbefehle und die Hauptanpassungsdatei in DIR halten.</translation>
    </message>
    <message id="options-module">
        <source>Load the command module PATH; may be repeated.</source>
        <translation>Das Befehlsmodul PATH laden; darf wiederholt werden.</translation>
    </message>
    <message id="options-var">
        <source>Give a system variable a value for this run; may be repeated.</source>
        <translation>Einer Systemvariable für diesen Lauf einen Wert geben; darf wiederholt werden.</translation>
    </message>
    <message id="options-support">
        <source>Search DIR for files as well; may be repeated.</source>
        <translation>Auch in DIR nach Dateien suchen; darf wiederholt werden.</translation>
    </message>
    <message id="options-lang">
        <source>Show texts in language CODE, for example en or de.</source>
        <translation>Texte in der Sprache CODE zeigen, zum Beispiel en oder de.</translation>
    </message>
    <message id="options-report-status">
        <source>Write NAME&lt;TAB&gt;STATUS to the standard error after each command.</source>
        <translation>Nach jedem Befehl NAME&lt;TAB&gt;STATUS auf die Fehlerausgabe schreiben.</translation>
    </message>
    <message id="options-list-settings">
        <source>Print every stored setting, then leave.</source>
        <translation>Jede gespeicherte Einstellung ausgeben, dann enden.</translation>
    </message>
    <message id="options-check">
        <source>Say whether the packages are good, with every fault, then leave.</source>
        <translation>Sagen, ob die Pakete gut sind, mit jedem Fehler, dann enden.</translation>
    </message>
    <message id="options-help">
        <source>Show this help, then leave.</source>
        <translation>Diese Hilfe zeigen, dann enden.</translation>
    </message>
    <message id="options-version">
        <source>Show the version, then leave.</source>
        <translation>Die Version zeigen, dann enden.</translation>
    </message>
    <message id="options-file">
        <source>Customization packages that are loaded at the start.</source>
        <translation>Anpassungspakete, die zu Beginn geladen werden.</translation>
    </message>
    <message id="options-var-form">
        <source>--var takes NAME=VALUE, not "%1".</source>
        <translation>--var nimmt NAME=WERT, nicht "%1".</translation>
    </message>
    <message id="options-two-faces">
        <source>--console and --window exclude each other.</source>
        <translation>--console und --window schließen einander aus.</translation>
    </message>
    <message id="options-interactive-without-script">
        <source>--interactive-input needs --script.</source>
        <translation>--interactive-input braucht --script.</translation>
    </message>
    <message id="options-check-nothing">
        <source>--check needs at least one package.</source>
        <translation>--check braucht wenigstens ein Paket.</translation>
    </message>
    <message id="console-script-missing">
        <source>The script %1 does not exist.</source>
        <translation>Das Skript %1 gibt es nicht.</translation>
    </message>
    <message id="console-script-folder">
        <source>%1 is a folder, not a script.</source>
        <translation>%1 ist ein Ordner, kein Skript.</translation>
    </message>
    <message id="console-script-unreadable">
        <source>The script %1 cannot be read: %2.</source>
        <translation>Das Skript %1 kann nicht gelesen werden: %2.</translation>
    </message>
    <message id="console-history-no-file">
        <source>The lines you type are not kept: %1 is not a file.</source>
        <translation>Die eingegebenen Zeilen werden nicht aufbewahrt: %1 ist keine Datei.</translation>
    </message>
    <message id="console-history-too-large">
        <source>The lines you type are not kept: %1 is too large for a history file.</source>
        <translation>Die eingegebenen Zeilen werden nicht aufbewahrt: %1 ist zu groß für eine Verlaufsdatei.</translation>
    </message>
    <message id="console-history-unreadable">
        <source>The lines you type are not kept: %1 cannot be read: %2.</source>
        <translation>Die eingegebenen Zeilen werden nicht aufbewahrt: %1 kann nicht gelesen werden: %2.</translation>
    </message>
    <message id="console-history-unwritable">
        <source>The lines you type are not kept: %1 cannot be written: %2.</source>
        <translation>Die eingegebenen Zeilen werden nicht aufbewahrt: %1 kann nicht geschrieben werden: %2.</translation>
    </message>
    <message id="console-more-matches">
        <source>... and %1 more</source>
        <translation>... und %1 weitere</translation>
    </message>
    <message id="package-attribute-control"><source>The value of "%1" contains a control character.</source><translation>Der Wert von „%1“ enthält ein Steuerzeichen.</translation></message>
    <message id="package-attribute-empty"><source>&lt;%1&gt; needs a value for its attribute "%2".</source><translation>&lt;%1&gt; braucht einen Wert für sein Attribut „%2“.</translation></message>
    <message id="package-attribute-missing"><source>&lt;%1&gt; needs the attribute "%2".</source><translation>&lt;%1&gt; braucht das Attribut „%2“.</translation></message>
    <message id="package-attribute-unknown"><source>There is no attribute "%1" of &lt;%2&gt;.</source><translation>Ein Attribut „%1“ gibt es bei &lt;%2&gt; nicht.</translation></message>
    <message id="package-command-unknown"><source>The menu group has no command "%1".</source><translation>Die Menügruppe hat keinen Befehl „%1“.</translation></message>
    <message id="package-element-unknown"><source>There is no element &lt;%1&gt; inside &lt;%2&gt;.</source><translation>Ein Element &lt;%1&gt; gibt es innerhalb von &lt;%2&gt; nicht.</translation></message>
    <message id="package-entry-damaged"><source>"%1" is damaged: its content does not have the size and checksum that the archive states.</source><translation>„%1“ ist beschädigt: Der Inhalt hat nicht die Größe und Prüfsumme, die das Archiv angibt.</translation></message>
    <message id="package-entry-encrypted"><source>"%1" is encrypted; a package must not be.</source><translation>„%1“ ist verschlüsselt; ein Paket darf das nicht sein.</translation></message>
    <message id="package-entry-folder"><source>The folder "%1" has content of its own.</source><translation>Der Ordner „%1“ hat eigenen Inhalt.</translation></message>
    <message id="package-entry-method"><source>"%1" is compressed in a way that is not supported; only stored and deflated entries are.</source><translation>„%1“ ist auf eine Art komprimiert, die nicht unterstützt wird; nur unkomprimierte Einträge und Deflate werden unterstützt.</translation></message>
    <message id="package-entry-special"><source>"%1" is a link or a device, not a plain file.</source><translation>„%1“ ist eine Verknüpfung oder ein Gerät, keine gewöhnliche Datei.</translation></message>
    <message id="package-entry-too-large"><source>"%1" is larger than %2 MiB.</source><translation>„%1“ ist größer als %2 MiB.</translation></message>
    <message id="package-entry-twice"><source>The archive has more than one entry "%1".</source><translation>Das Archiv hat mehr als einen Eintrag „%1“.</translation></message>
    <message id="package-file-folder"><source>This is a folder, not a package.</source><translation>Das ist ein Ordner, kein Paket.</translation></message>
    <message id="package-file-missing"><source>There is no such file.</source><translation>Diese Datei gibt es nicht.</translation></message>
    <message id="package-file-permission"><source>The file may not be read: permission denied.</source><translation>Die Datei darf nicht gelesen werden: keine Berechtigung.</translation></message>
    <message id="package-file-special"><source>This is not a plain file.</source><translation>Das ist keine gewöhnliche Datei.</translation></message>
    <message id="package-file-too-large"><source>The file is larger than %1 MiB.</source><translation>Die Datei ist größer als %1 MiB.</translation></message>
    <message id="package-file-unreadable"><source>The file cannot be read: %1</source><translation>Die Datei kann nicht gelesen werden: %1</translation></message>
    <message id="package-format"><source>Format "%1" is not known; this program reads format 1.</source><translation>Format „%1“ ist nicht bekannt; dieses Programm liest Format 1.</translation></message>
    <message id="package-good"><source>%1: good: menu group "%2", commands: %3, menus: %4, toolbars: %5, accelerators: %6</source><translation>%1: gut: Menügruppe „%2“, Befehle: %3, Menüs: %4, Werkzeugleisten: %5, Tastenkürzel: %6</translation></message>
    <message id="package-group-missing"><source>There is no &lt;menugroup&gt;.</source><translation>Es gibt keine &lt;menugroup&gt;.</translation></message>
    <message id="package-group-name"><source>"%1" is not a group name: 1 to 64 letters, digits, "_" and "-" are.</source><translation>„%1“ ist kein Gruppenname: Erlaubt sind 1 bis 64 Buchstaben, Ziffern, „_“ und „-“.</translation></message>
    <message id="package-group-second"><source>A package holds one &lt;menugroup&gt; only.</source><translation>Ein Paket enthält nur eine &lt;menugroup&gt;.</translation></message>
    <message id="package-icon-kind"><source>The icon "%1" is neither a .png nor an .svg file.</source><translation>Das Symbol „%1“ ist weder eine .png- noch eine .svg-Datei.</translation></message>
    <message id="package-icon-missing"><source>The icon "%1" is not in the archive.</source><translation>Das Symbol „%1“ ist nicht im Archiv.</translation></message>
    <message id="package-id-twice"><source>The id "%1" is already used in line %2.</source><translation>Die Id „%1“ wird schon in Zeile %2 verwendet.</translation></message>
    <message id="package-image-kind"><source>The file is neither a .png nor an .svg image.</source><translation>Die Datei ist weder ein .png- noch ein .svg-Bild.</translation></message>
    <message id="package-keys"><source>"%1" is not a key combination.</source><translation>„%1“ ist keine Tastenkombination.</translation></message>
    <message id="package-keys-twice"><source>The keys "%1" are already used in line %2.</source><translation>Die Tasten „%1“ werden schon in Zeile %2 verwendet.</translation></message>
    <message id="package-macro-close"><source>The macro has a closing brace without an opening one.</source><translation>Das Makro hat eine schließende Klammer ohne öffnende.</translation></message>
    <message id="package-macro-open"><source>The macro has an opening brace without a closing one.</source><translation>Das Makro hat eine öffnende Klammer ohne schließende.</translation></message>
    <message id="package-macro-word"><source>The macro uses unknown words: %1; known are {cancel} and {enter}.</source><translation>Das Makro verwendet unbekannte Wörter: %1; bekannt sind {cancel} und {enter}.</translation></message>
    <message id="package-many-faults"><source>There are so many faults that the other images were not checked.</source><translation>Es gibt so viele Fehler, dass die übrigen Bilder nicht geprüft wurden.</translation></message>
    <message id="package-name-absolute"><source>The entry name "%1" is an absolute path.</source><translation>Der Eintragsname „%1“ ist ein absoluter Pfad.</translation></message>
    <message id="package-name-backslash"><source>The entry name "%1" contains a backslash.</source><translation>Der Eintragsname „%1“ enthält einen umgekehrten Schrägstrich.</translation></message>
    <message id="package-name-control"><source>The entry name "%1" contains a control character.</source><translation>Der Eintragsname „%1“ enthält ein Steuerzeichen.</translation></message>
    <message id="package-name-dots"><source>The entry name "%1" contains "." or ".." as a folder.</source><translation>Der Eintragsname „%1“ enthält „.“ oder „..“ als Ordner.</translation></message>
    <message id="package-name-empty"><source>The archive has an entry without a name.</source><translation>Das Archiv hat einen Eintrag ohne Namen.</translation></message>
    <message id="package-name-unknown"><source>"%1" does not belong in a package: only customization.xml and files below images/ do.</source><translation>„%1“ gehört nicht in ein Paket: nur customization.xml und Dateien unter images/ gehören hinein.</translation></message>
    <message id="package-name-utf8"><source>The entry name "%1" is not UTF-8.</source><translation>Der Eintragsname „%1“ ist kein UTF-8.</translation></message>
    <message id="package-names-too-long"><source>The names of all entries together are longer than %1 KiB.</source><translation>Die Namen aller Einträge sind zusammen länger als %1 KiB.</translation></message>
    <message id="package-no-customization"><source>The archive has no customization.xml.</source><translation>Das Archiv hat keine customization.xml.</translation></message>
    <message id="package-not-zip"><source>The file is not a ZIP archive.</source><translation>Die Datei ist kein ZIP-Archiv.</translation></message>
    <message id="package-png-damaged"><source>The image cannot be decoded.</source><translation>Das Bild kann nicht dekodiert werden.</translation></message>
    <message id="package-png-header"><source>The file is not a PNG image.</source><translation>Die Datei ist kein PNG-Bild.</translation></message>
    <message id="package-png-size"><source>The image is %1 x %2 pixels; at most %3 x %3 are allowed.</source><translation>Das Bild hat %1 x %2 Pixel; höchstens %3 x %3 sind erlaubt.</translation></message>
    <message id="package-root"><source>The root element is &lt;%1&gt;, not &lt;customization&gt;.</source><translation>Das Wurzelelement ist &lt;%1&gt;, nicht &lt;customization&gt;.</translation></message>
    <message id="package-section-twice"><source>There is already a section &lt;%1&gt; in line %2.</source><translation>Einen Abschnitt &lt;%1&gt; gibt es schon in Zeile %2.</translation></message>
    <message id="package-svg-attribute-backslash"><source>The attribute "%1" contains a backslash.</source><translation>Das Attribut „%1“ enthält einen umgekehrten Schrägstrich.</translation></message>
    <message id="package-svg-backslash"><source>The style sheet contains a backslash.</source><translation>Die Formatvorlage enthält einen umgekehrten Schrägstrich.</translation></message>
    <message id="package-svg-element"><source>An image of a package must not contain &lt;%1&gt;.</source><translation>Ein Bild eines Pakets darf kein &lt;%1&gt; enthalten.</translation></message>
    <message id="package-svg-event"><source>The attribute "%1" runs a script on an event; an image of a package must not.</source><translation>Das Attribut „%1“ führt bei einem Ereignis ein Skript aus; ein Bild eines Pakets darf das nicht.</translation></message>
    <message id="package-svg-length"><source>The %1 "%2" is not a length.</source><translation>Der Wert „%2“ von %1 ist keine Länge.</translation></message>
    <message id="package-svg-reference"><source>The attribute "%1" refers to something outside of the image.</source><translation>Das Attribut „%1“ verweist auf etwas außerhalb des Bildes.</translation></message>
    <message id="package-svg-root"><source>The root element is &lt;%1&gt;, not &lt;svg&gt;.</source><translation>Das Wurzelelement ist &lt;%1&gt;, nicht &lt;svg&gt;.</translation></message>
    <message id="package-svg-size"><source>The %1 of the image is more than %2 pixels.</source><translation>Die Größe %1 des Bildes ist mehr als %2 Pixel.</translation></message>
    <message id="package-svg-style"><source>The style sheet refers to something outside of the image.</source><translation>Die Formatvorlage verweist auf etwas außerhalb des Bildes.</translation></message>
    <message id="package-text"><source>Text is not allowed inside &lt;%1&gt;.</source><translation>Text ist innerhalb von &lt;%1&gt; nicht erlaubt.</translation></message>
    <message id="package-too-many-entries"><source>The archive has %1 entries; at most %2 are allowed.</source><translation>Das Archiv hat %1 Einträge; höchstens %2 sind erlaubt.</translation></message>
    <message id="package-total-too-large"><source>The entries together are larger than %1 MiB.</source><translation>Die Einträge sind zusammen größer als %1 MiB.</translation></message>
    <message id="package-xml-attributes"><source>The element has more than %1 attributes.</source><translation>Das Element hat mehr als %1 Attribute.</translation></message>
    <message id="package-xml-character"><source>The character U+%1 is not allowed in XML.</source><translation>Das Zeichen U+%1 ist in XML nicht erlaubt.</translation></message>
    <message id="package-xml-depth"><source>Elements are nested more than %1 deep.</source><translation>Elemente sind mehr als %1-fach geschachtelt.</translation></message>
    <message id="package-xml-dtd"><source>A document type (&lt;!DOCTYPE) is not allowed.</source><translation>Ein Dokumenttyp (&lt;!DOCTYPE) ist nicht erlaubt.</translation></message>
    <message id="package-xml-encoding"><source>The encoding "%1" is not allowed; the text must be UTF-8.</source><translation>Die Kodierung „%1“ ist nicht erlaubt; der Text muss UTF-8 sein.</translation></message>
    <message id="package-xml-extra"><source>Nothing but comments may follow the root element.</source><translation>Auf das Wurzelelement dürfen nur Kommentare folgen.</translation></message>
    <message id="package-xml-incomplete"><source>The XML text ends before its root element does.</source><translation>Der XML-Text endet vor seinem Wurzelelement.</translation></message>
    <message id="package-xml-instruction"><source>A processing instruction is not allowed.</source><translation>Eine Verarbeitungsanweisung ist nicht erlaubt.</translation></message>
    <message id="package-xml-malformed"><source>This is not well-formed XML: %1</source><translation>Das ist kein wohlgeformtes XML: %1</translation></message>
    <message id="package-xml-names"><source>The names of elements and attributes together are longer than %1 bytes.</source><translation>Die Namen der Elemente und Attribute sind zusammen länger als %1 Bytes.</translation></message>
    <message id="package-xml-token"><source>A single tag, text or comment is longer than %1 bytes.</source><translation>Ein einzelnes Tag, ein Text oder ein Kommentar ist länger als %1 Bytes.</translation></message>
    <message id="package-xml-too-large"><source>The XML text is larger than %1 bytes.</source><translation>Der XML-Text ist größer als %1 Bytes.</translation></message>
    <message id="package-xml-utf8"><source>The byte %1 is not part of UTF-8 text.</source><translation>Das Byte %1 ist kein Teil von UTF-8-Text.</translation></message>
    <message id="package-zip-damaged"><source>The ZIP archive is damaged: its table of contents is missing or contradicts the rest.</source><translation>Das ZIP-Archiv ist beschädigt: Sein Inhaltsverzeichnis fehlt oder widerspricht dem Rest.</translation></message>
    <message id="package-zip-overlap"><source>The entries "%1" and "%2" share bytes of the archive.</source><translation>Die Einträge „%1“ und „%2“ teilen sich Bytes des Archivs.</translation></message>
    <message id="prompt-file">
        <source>File: </source>
        <translation>Datei: </translation>
    </message>
    <message id="file-not-there">
        <source>There is no file %1.</source>
        <translation>Die Datei %1 gibt es nicht.</translation>
    </message>
    <message id="help-missing">
        <source>There is no help on %1.</source>
        <translation>Zu %1 gibt es keine Hilfe.</translation>
    </message>
    <message id="settings-kind-refused">
        <source>The setting "%1" was not stored: only integers and texts can be.</source>
        <translation>Die Einstellung „%1“ wurde nicht gespeichert: Nur ganze Zahlen und Texte sind möglich.</translation>
    </message>
    <message id="program-no-window">
        <source>This version has no window; leave out --window to use the terminal.</source>
        <translation>Diese Version hat kein Fenster; ohne --window wird das Terminal benutzt.</translation>
    </message>
    <message id="dialog-missing">
        <source>The dialog cannot be shown: its description %1 is not there.</source>
        <translation>Der Dialog kann nicht angezeigt werden: Seine Beschreibung %1 fehlt.</translation>
    </message>
    <message id="dialog-damaged">
        <source>The dialog cannot be shown: its description %1 is damaged: %2</source>
        <translation>Der Dialog kann nicht angezeigt werden: Seine Beschreibung %1 ist beschädigt: %2</translation>
    </message>
    <message id="dialog-control-missing">
        <source>it has no control %1.</source>
        <translation>Das Element %1 fehlt.</translation>
    </message>
    <message id="dialog-control-wrong">
        <source>its control %1 is no %2.</source>
        <translation>Das Element %1 ist kein %2.</translation>
    </message>
    <message id="dialog-has-layout">
        <source>it arranges its controls in a layout.</source>
        <translation>Sie ordnet ihre Elemente in einem Layout an.</translation>
    </message>
    <message id="dialog-not-a-dialog">
        <source>it describes no dialog.</source>
        <translation>Sie beschreibt keinen Dialog.</translation>
    </message>
    <message id="help-title">
        <source>Help</source>
        <translation>Hilfe</translation>
    </message>
    <message id="window-said">
        <source>What was said so far</source>
        <translation>Bisheriger Verlauf</translation>
    </message>
    <message id="window-asking-first">
        <source>A command is asking. Answer it, or cancel it with Esc.</source>
        <translation>Ein Befehl fragt. Zuerst antworten oder mit Esc abbrechen.</translation>
    </message>
    <message id="window-no-drawing">
        <source>Commands are typed below. HELP lists them.</source>
        <translation>Befehle werden unten eingegeben. HELP listet sie auf.</translation>
    </message>
    <message id="window-command-line">
        <source>Command Line</source>
        <translation>Befehlszeile</translation>
    </message>
    <message id="program-no-display">
        <source>There is no display for a window; leave out --window to use the terminal.</source>
        <translation>Es gibt keinen Bildschirm für ein Fenster; ohne --window läuft das Programm im Terminal.</translation>
    </message>
    <message id="program-window-unusable">
        <source>The window cannot be used: %1</source>
        <translation>Das Fenster kann nicht verwendet werden: %1</translation>
    </message>
    <message id="window-key-lost">
        <source>%1 stays with %2 (%3); %4 (%5) does without it.</source>
        <translation>%1 bleibt bei %2 (%3); %4 (%5) kommt ohne aus.</translation>
    </message>
</context>
</TS>
