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
        <source>The settings file %1 is damaged.</source>
        <translation>Die Einstellungsdatei %1 ist beschädigt.</translation>
    </message>
    <message id="settings-missing">
        <source>The settings file %1 is missing.</source>
        <translation>Die Einstellungsdatei %1 fehlt.</translation>
    </message>
    <message id="settings-kept-aside">
        <source>What was found is kept as %1.</source>
        <translation>Was vorgefunden wurde, ist aufbewahrt als %1.</translation>
    </message>
    <message id="settings-restored">
        <source>The last good copy, made %1, is restored.</source>
        <translation>Die letzte gute Kopie vom %1 wird wiederhergestellt.</translation>
    </message>
    <message id="settings-start-empty">
        <source>There is no good copy to restore, so the settings are empty.</source>
        <translation>Es gibt keine gute Kopie zum Wiederherstellen, daher sind die Einstellungen leer.</translation>
    </message>
    <message id="settings-good-copy-unusable">
        <source>The last good copy cannot be used either; it is kept as %1.</source>
        <translation>Auch die letzte gute Kopie ist nicht brauchbar; sie ist aufbewahrt als %1.</translation>
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
        <source>%1 Until that changes, settings can be read but not stored.</source>
        <translation>%1 Solange das so ist, können Einstellungen gelesen, aber nicht gespeichert werden.</translation>
    </message>
    <message id="settings-not-kept">
        <source>%1 Until that changes, there are no stored settings and none can be stored.</source>
        <translation>%1 Solange das so ist, gibt es keine gespeicherten Einstellungen, und es können keine gespeichert werden.</translation>
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
    <message id="package-many-faults"><source>There are so many faults that the rest was not checked.</source><translation>Es gibt so viele Fehler, dass der Rest nicht geprüft wurde.</translation></message>
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
    <message id="change-menus" numerus="yes">
        <source>%n menus</source>
        <translation><numerusform>%n Menü</numerusform><numerusform>%n Menüs</numerusform></translation>
    </message>
    <message id="change-toolbars" numerus="yes">
        <source>%n toolbars</source>
        <translation><numerusform>%n Werkzeugleiste</numerusform><numerusform>%n Werkzeugleisten</numerusform></translation>
    </message>
    <message id="change-accelerators" numerus="yes">
        <source>%n accelerators</source>
        <translation><numerusform>%n Tastenkürzel</numerusform><numerusform>%n Tastenkürzel</numerusform></translation>
    </message>
    <message id="change-keys-stay" numerus="yes">
        <source>%1 stay with %2</source>
        <translation><numerusform>%1 bleibt bei %2</numerusform><numerusform>%1 bleiben bei %2</numerusform></translation>
    </message>
    <message id="change-keys-go" numerus="yes">
        <source>%1 go to %2</source>
        <translation><numerusform>%1 geht an %2</numerusform><numerusform>%1 gehen an %2</numerusform></translation>
    </message>
    <message id="change-nothing">
        <source>no menus, toolbars or accelerators</source>
        <translation>keine Menüs, Werkzeugleisten oder Tastenkürzel</translation>
    </message>
    <message id="change-adds">
        <source>adds %1</source>
        <translation>fügt hinzu: %1</translation>
    </message>
    <message id="change-removes">
        <source>removes %1</source>
        <translation>entfernt: %1</translation>
    </message>
    <message id="change-loaded">
        <source>is loaded already</source>
        <translation>ist schon geladen</translation>
    </message>
    <message id="change-name-taken">
        <source>cannot be shown: its menu group %1 is that of %2</source>
        <translation>kann nicht gezeigt werden: Seine Menügruppe %1 ist die von %2</translation>
    </message>
    <message id="customize-command">
        <source>COMMAND</source>
        <translation>BEFEHL</translation>
    </message>
    <message id="customize-key">
        <source>KEY</source>
        <translation>TASTE</translation>
    </message>
    <message id="customize-group">
        <source>GROUP</source>
        <translation>GRUPPE</translation>
    </message>
    <message id="customize-title">
        <source>TITLE</source>
        <translation>TITEL</translation>
    </message>
    <message id="customize-commands">
        <source>COMMANDS</source>
        <translation>BEFEHLE</translation>
    </message>
    <message id="customize-no-keys">
        <source>No command of the loaded menu groups has a key.</source>
        <translation>Kein Befehl der geladenen Menügruppen hat eine Taste.</translation>
    </message>
    <message id="customize-no-toolbars">
        <source>There are no toolbars.</source>
        <translation>Es gibt keine Werkzeugleisten.</translation>
    </message>
    <message id="window-said-help">
        <source>The rows can be selected and copied; the context menu copies one row or all.</source>
        <translation>Die Zeilen lassen sich markieren und kopieren; das Kontextmenü kopiert eine Zeile oder alle.</translation>
    </message>
    <message id="window-line-help">
        <source>Tab completes, Down goes into the suggestions, Up and Down go through earlier lines, Page Up and Page Down scroll the rows above.</source>
        <translation>Tab ergänzt, Abwärts führt in die Vorschläge, Aufwärts und Abwärts blättern durch frühere Zeilen, Bild auf und Bild ab durch die Zeilen darüber.</translation>
    </message>
    <message id="window-line-keywords">
        <source>Shift+Tab goes to the keywords.</source>
        <translation>Umschalt+Tab führt zu den Schlüsselwörtern.</translation>
    </message>
    <message id="window-suggestions">
        <source>Suggestions</source>
        <translation>Vorschläge</translation>
    </message>
    <message id="window-keywords">
        <source>Keywords</source>
        <translation>Schlüsselwörter</translation>
    </message>
    <message id="window-keyword">
        <source>Answers with %1. Shift+Tab comes here from the line.</source>
        <translation>Antwortet mit %1. Umschalt+Tab führt von der Zeile hierher.</translation>
    </message>
    <message id="window-keyword-by-enter">
        <source>Answers with %1, as Enter alone does. Shift+Tab comes here from the line.</source>
        <translation>Antwortet mit %1, wie die Eingabetaste allein. Umschalt+Tab führt von der Zeile hierher.</translation>
    </message>
    <message id="window-copy">
        <source>&amp;Copy</source>
        <translation>&amp;Kopieren</translation>
    </message>
    <message id="window-copy-row">
        <source>Copy &amp;Line</source>
        <translation>&amp;Zeile kopieren</translation>
    </message>
    <message id="window-copy-all">
        <source>Copy &amp;All</source>
        <translation>A&amp;lles kopieren</translation>
    </message>
    <message id="window-select-all">
        <source>&amp;Select All</source>
        <translation>Alles &amp;markieren</translation>
    </message>
    <message id="window-loaded">
        <source>What Is Loaded</source>
        <translation>Was geladen ist</translation>
    </message>
    <message id="window-load-title">
        <source>Load Customization File</source>
        <translation>Anpassungsdatei laden</translation>
    </message>
    <message id="window-load-filter">
        <source>Customization files</source>
        <translation>Anpassungsdateien</translation>
    </message>
    <message id="window-not-kept">
        <source>How the window was left could not be kept in %1.</source>
        <translation>Wie das Fenster verlassen wurde, konnte nicht in %1 festgehalten werden.</translation>
    </message>
    <message id="host-menu">
        <source>&amp;Quelhost</source>
        <translation>&amp;Quelhost</translation>
    </message>
    <message id="host-menu-find">
        <source>&amp;Find Command...</source>
        <translation>Befehl &amp;finden...</translation>
    </message>
    <message id="host-menu-recent">
        <source>&amp;Recent Files</source>
        <translation>&amp;Zuletzt geladen</translation>
    </message>
    <message id="host-menu-loaded">
        <source>What Is &amp;Loaded</source>
        <translation>Was ge&amp;laden ist</translation>
    </message>
    <message id="host-menu-command-line">
        <source>&amp;Command Line</source>
        <translation>&amp;Befehlszeile</translation>
    </message>
    <message id="host-menu-toolbars">
        <source>&amp;Toolbars</source>
        <translation>&amp;Werkzeugleisten</translation>
    </message>
    <message id="host-menu-no-toolbars">
        <source>There are no toolbars</source>
        <translation>Es gibt keine Werkzeugleisten</translation>
    </message>
    <message id="host-menu-quit">
        <source>&amp;Quit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message id="recent-none">
        <source>No file was loaded yet</source>
        <translation>Noch keine Datei geladen</translation>
    </message>
    <message id="recent-file">
        <source>%1</source>
        <translation>%1</translation>
    </message>
    <message id="recent-loaded">
        <source>%1 (loaded)</source>
        <translation>%1 (geladen)</translation>
    </message>
    <message id="recent-missing">
        <source>%1 (missing)</source>
        <translation>%1 (fehlt)</translation>
    </message>
    <message id="loaded-search">
        <source>Search names, keys, macros and files</source>
        <translation>Namen, Tasten, Makros und Dateien suchen</translation>
    </message>
    <message id="loaded-load">
        <source>&amp;Load...</source>
        <translation>&amp;Laden...</translation>
    </message>
    <message id="loaded-load-tip">
        <source>Load a customization file with its menus, toolbars and keys</source>
        <translation>Eine Anpassungsdatei mit ihren Menüs, Werkzeugleisten und Tasten laden</translation>
    </message>
    <message id="loaded-unload">
        <source>&amp;Unload</source>
        <translation>&amp;Entladen</translation>
    </message>
    <message id="loaded-unload-none">
        <source>Choose a group to unload</source>
        <translation>Eine Gruppe zum Entladen wählen</translation>
    </message>
    <message id="loaded-unload-tip">
        <source>Unload %1: %2</source>
        <translation>%1 entladen: %2</translation>
    </message>
    <message id="loaded-main-file">
        <source>The main customization file stays loaded</source>
        <translation>Die Hauptanpassungsdatei bleibt geladen</translation>
    </message>
    <message id="loaded-where">
        <source>Show &amp;Where</source>
        <translation>&amp;Wo ist das?</translation>
    </message>
    <message id="loaded-where-tip">
        <source>Show the command in its menu, on its toolbar or among the keys</source>
        <translation>Den Befehl in seinem Menü, auf seiner Werkzeugleiste oder bei den Tasten zeigen</translation>
    </message>
    <message id="loaded-where-none">
        <source>Choose a command to see where it stands</source>
        <translation>Einen Befehl wählen, um zu sehen, wo er steht</translation>
    </message>
    <message id="loaded-place-menu">
        <source>Menu: %1</source>
        <translation>Menü: %1</translation>
    </message>
    <message id="loaded-place-toolbar">
        <source>Toolbar: %1</source>
        <translation>Werkzeugleiste: %1</translation>
    </message>
    <message id="loaded-place-key">
        <source>Key: %1</source>
        <translation>Taste: %1</translation>
    </message>
    <message id="loaded-place-none">
        <source>In no menu, on no toolbar, without a key</source>
        <translation>In keinem Menü, auf keiner Werkzeugleiste, ohne Taste</translation>
    </message>
    <message id="loaded-run">
        <source>&amp;Run</source>
        <translation>&amp;Ausführen</translation>
    </message>
    <message id="loaded-copy-name">
        <source>Copy &amp;Name</source>
        <translation>&amp;Namen kopieren</translation>
    </message>
    <message id="loaded-copy-macro">
        <source>Copy &amp;Macro</source>
        <translation>&amp;Makro kopieren</translation>
    </message>
    <message id="loaded-copy-path">
        <source>Copy &amp;File Path</source>
        <translation>Datei&amp;pfad kopieren</translation>
    </message>
    <message id="loaded-menus">
        <source>Menus</source>
        <translation>Menüs</translation>
    </message>
    <message id="loaded-toolbars">
        <source>Toolbars</source>
        <translation>Werkzeugleisten</translation>
    </message>
    <message id="loaded-commands">
        <source>Commands</source>
        <translation>Befehle</translation>
    </message>
    <message id="loaded-keys">
        <source>Keys</source>
        <translation>Tasten</translation>
    </message>
    <message id="loaded-separator">
        <source>(separator)</source>
        <translation>(Trennlinie)</translation>
    </message>
    <message id="loaded-key-lost">
        <source>%1 (stays with %2)</source>
        <translation>%1 (bleibt bei %2)</translation>
    </message>
    <message id="loaded-file-missing">
        <source>%1 (missing)</source>
        <translation>%1 (fehlt)</translation>
    </message>
    <message id="loaded-file-refused">
        <source>%1 (not shown)</source>
        <translation>%1 (nicht gezeigt)</translation>
    </message>
    <message id="loaded-missing-tip">
        <source>The file is missing. Its entry leaves the list when another file is unloaded.</source>
        <translation>Die Datei fehlt. Ihr Eintrag verlässt die Liste, wenn eine andere Datei entladen wird.</translation>
    </message>
    <message id="loaded-refused-tip">
        <source>The file could not be shown; why was said at the command line.</source>
        <translation>Die Datei konnte nicht gezeigt werden; der Grund wurde in der Befehlszeile genannt.</translation>
    </message>
    <message id="loaded-column-name">
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message id="loaded-column-keys">
        <source>Keys</source>
        <translation>Tasten</translation>
    </message>
    <message id="loaded-column-detail">
        <source>Macro or File</source>
        <translation>Makro oder Datei</translation>
    </message>
    <message id="palette-name">
        <source>Find Command</source>
        <translation>Befehl finden</translation>
    </message>
    <message id="palette-commands">
        <source>Commands</source>
        <translation>Befehle</translation>
    </message>
    <message id="palette-aliases">
        <source>Aliases</source>
        <translation>Kurzbefehle</translation>
    </message>
    <message id="customize-changed">
        <source>CHANGED</source>
        <translation>GEÄNDERT</translation>
    </message>
    <message id="customize-yes">
        <source>yes</source>
        <translation>ja</translation>
    </message>
    <message id="customize-no">
        <source>no</source>
        <translation>nein</translation>
    </message>
    <message id="customize-none">
        <source>none</source>
        <translation>keine</translation>
    </message>
    <message id="customize-own">
        <source>(yours)</source>
        <translation>(eigene)</translation>
    </message>
    <message id="customize-hidden">
        <source>hidden</source>
        <translation>verborgen</translation>
    </message>
    <message id="customize-deleted">
        <source>deleted</source>
        <translation>gelöscht</translation>
    </message>
    <message id="customization-unreadable">
        <source>The setting %1 cannot be understood and is not used.</source>
        <translation>Die Einstellung %1 ist nicht zu verstehen und wird nicht verwendet.</translation>
    </message>
    <message id="keyfile-no-keys">
        <source>This is not a file of keys: its first line has to be "quelhost keys 1".</source>
        <translation>Das ist keine Datei mit Tasten: Ihre erste Zeile muss „quelhost keys 1“ lauten.</translation>
    </message>
    <message id="keyfile-not-utf8">
        <source>This line is not valid UTF-8.</source>
        <translation>Diese Zeile ist kein gültiges UTF-8.</translation>
    </message>
    <message id="keyfile-bad-line">
        <source>This line is not a menu group, a command and keys with a tab between them.</source>
        <translation>Diese Zeile ist nicht Menügruppe, Befehl und Tasten mit je einem Tabulator dazwischen.</translation>
    </message>
    <message id="keyfile-bad-keys">
        <source>"%1" names no keys, or the same ones twice.</source>
        <translation>„%1“ nennt keine Tasten oder dieselben zweimal.</translation>
    </message>
    <message id="keyfile-twice">
        <source>The keys of command %2 of menu group %1 stand in line %3 already.</source>
        <translation>Die Tasten des Befehls %2 der Menügruppe %1 stehen schon in Zeile %3.</translation>
    </message>
    <message id="loaded-own-toolbars">
        <source>Your Toolbars</source>
        <translation>Ihre Werkzeugleisten</translation>
    </message>
    <message id="toolbars-title">
        <source>Customize Toolbars</source>
        <translation>Werkzeugleisten anpassen</translation>
    </message>
    <message id="toolbars-list">
        <source>&amp;Toolbars</source>
        <translation>Wer&amp;kzeugleisten</translation>
    </message>
    <message id="toolbars-new">
        <source>&amp;New</source>
        <translation>&amp;Neu</translation>
    </message>
    <message id="toolbars-rename">
        <source>Rena&amp;me</source>
        <translation>&amp;Umbenennen</translation>
    </message>
    <message id="toolbars-delete">
        <source>&amp;Delete</source>
        <translation>&amp;Löschen</translation>
    </message>
    <message id="toolbars-reset">
        <source>R&amp;eset</source>
        <translation>&amp;Zurücksetzen</translation>
    </message>
    <message id="toolbars-reset-tip">
        <source>Make the toolbar what its package has</source>
        <translation>Die Werkzeugleiste wieder so machen, wie ihr Paket sie hat</translation>
    </message>
    <message id="toolbars-reset-same">
        <source>The toolbar is what its package has</source>
        <translation>Die Werkzeugleiste ist so, wie ihr Paket sie hat</translation>
    </message>
    <message id="toolbars-reset-own">
        <source>Your own toolbar has no package to go back to</source>
        <translation>Die eigene Werkzeugleiste hat kein Paket, zu dem es zurückginge</translation>
    </message>
    <message id="toolbars-reset-all">
        <source>Reset A&amp;ll</source>
        <translation>&amp;Alle zurücksetzen</translation>
    </message>
    <message id="toolbars-reset-all-tip">
        <source>Make all toolbars what their packages have; your own stay</source>
        <translation>Alle Werkzeugleisten wieder so machen, wie ihre Pakete sie haben; die eigenen bleiben</translation>
    </message>
    <message id="toolbars-shown-tip">
        <source>Ticked: shown in the window</source>
        <translation>Mit Haken: im Fenster zu sehen</translation>
    </message>
    <message id="toolbars-own">
        <source>your own</source>
        <translation>eigene</translation>
    </message>
    <message id="toolbars-changed">
        <source>changed</source>
        <translation>geändert</translation>
    </message>
    <message id="toolbars-new-title">
        <source>New toolbar</source>
        <translation>Neue Werkzeugleiste</translation>
    </message>
    <message id="toolbars-name">
        <source>Name of the toolbar</source>
        <translation>Name der Werkzeugleiste</translation>
    </message>
    <message id="toolbars-name-needed">
        <source>A toolbar needs a name; this one keeps its own.</source>
        <translation>Eine Werkzeugleiste braucht einen Namen; diese behält ihren.</translation>
    </message>
    <message id="toolbars-name-taken">
        <source>Another toolbar has that name; this one is called "%1".</source>
        <translation>Eine andere Werkzeugleiste heißt schon so; diese heißt „%1“.</translation>
    </message>
    <message id="toolbars-deleted-hint">
        <source>This toolbar is deleted. A tick or Reset brings it back.</source>
        <translation>Diese Werkzeugleiste ist gelöscht. Ein Haken oder Zurücksetzen holt sie wieder.</translation>
    </message>
    <message id="toolbars-buttons">
        <source>&amp;Buttons</source>
        <translation>S&amp;chaltflächen</translation>
    </message>
    <message id="toolbars-buttons-of">
        <source>Buttons of %1</source>
        <translation>Schaltflächen von %1</translation>
    </message>
    <message id="toolbars-up">
        <source>&amp;Up</source>
        <translation>Nach &amp;oben</translation>
    </message>
    <message id="toolbars-down">
        <source>Do&amp;wn</source>
        <translation>Nach un&amp;ten</translation>
    </message>
    <message id="toolbars-separator">
        <source>&amp;Separator</source>
        <translation>T&amp;rennlinie</translation>
    </message>
    <message id="toolbars-remove">
        <source>Remo&amp;ve</source>
        <translation>&amp;Entfernen</translation>
    </message>
    <message id="toolbars-not-loaded">
        <source>%1 (not loaded)</source>
        <translation>%1 (nicht geladen)</translation>
    </message>
    <message id="toolbars-not-there">
        <source>%1 (no longer in its package)</source>
        <translation>%1 (nicht mehr in seinem Paket)</translation>
    </message>
    <message id="toolbars-commands">
        <source>&amp;Commands</source>
        <translation>&amp;Befehle</translation>
    </message>
    <message id="toolbars-search">
        <source>Search commands</source>
        <translation>Befehle suchen</translation>
    </message>
    <message id="toolbars-none-found">
        <source>No command has that in its name.</source>
        <translation>Kein Befehl hat das in seinem Namen.</translation>
    </message>
    <message id="toolbars-add">
        <source>&amp;Add</source>
        <translation>&amp;Hinzufügen</translation>
    </message>
    <message id="toolbars-add-tip">
        <source>Put the command on the toolbar, behind the current button</source>
        <translation>Den Befehl auf die Werkzeugleiste setzen, hinter die aktuelle Schaltfläche</translation>
    </message>
    <message id="toolbars-undo">
        <source>Und&amp;o</source>
        <translation>Rückgän&amp;gig</translation>
    </message>
    <message id="toolbars-redo">
        <source>&amp;Redo</source>
        <translation>&amp;Wiederholen</translation>
    </message>
    <message id="accelerators-title">
        <source>Customize Accelerators</source>
        <translation>Tastenkürzel anpassen</translation>
    </message>
    <message id="accelerators-host">
        <source>The program itself</source>
        <translation>Das Programm selbst</translation>
    </message>
    <message id="accelerators-search">
        <source>Search for commands and keys</source>
        <translation>Befehle und Tasten suchen</translation>
    </message>
    <message id="accelerators-list">
        <source>Commands and their keys</source>
        <translation>Befehle und ihre Tasten</translation>
    </message>
    <message id="accelerators-key">
        <source>Press to type new keys</source>
        <translation>Drücken, um neue Tasten einzugeben</translation>
    </message>
    <message id="accelerators-clear">
        <source>Take the keys away</source>
        <translation>Tasten wegnehmen</translation>
    </message>
    <message id="accelerators-reset">
        <source>&amp;Reset Command</source>
        <translation>Befehl &amp;zurücksetzen</translation>
    </message>
    <message id="accelerators-reset-tip">
        <source>Gives the chosen command the keys of its package</source>
        <translation>Gibt dem gewählten Befehl die Tasten seines Pakets</translation>
    </message>
    <message id="accelerators-reset-all">
        <source>Reset &amp;All</source>
        <translation>&amp;Alle zurücksetzen</translation>
    </message>
    <message id="accelerators-reset-all-tip">
        <source>Gives all of these commands the keys of their packages</source>
        <translation>Gibt allen diesen Befehlen die Tasten ihrer Pakete</translation>
    </message>
    <message id="accelerators-import">
        <source>&amp;Import...</source>
        <translation>&amp;Importieren...</translation>
    </message>
    <message id="accelerators-import-tip">
        <source>Replaces all changes by those of a file</source>
        <translation>Ersetzt alle Änderungen durch die einer Datei</translation>
    </message>
    <message id="accelerators-export">
        <source>&amp;Export...</source>
        <translation>&amp;Exportieren...</translation>
    </message>
    <message id="accelerators-export-tip">
        <source>Writes all changes to a file</source>
        <translation>Schreibt alle Änderungen in eine Datei</translation>
    </message>
    <message id="accelerators-import-title">
        <source>Import Keys</source>
        <translation>Tasten importieren</translation>
    </message>
    <message id="accelerators-export-title">
        <source>Export Keys</source>
        <translation>Tasten exportieren</translation>
    </message>
    <message id="accelerators-files">
        <source>Files of keys</source>
        <translation>Dateien mit Tasten</translation>
    </message>
    <message id="accelerators-all-files">
        <source>All files</source>
        <translation>Alle Dateien</translation>
    </message>
    <message id="change-keys-taken" numerus="yes">
        <source>%1 are taken from %2</source>
        <translation><numerusform>%1 wird %2 genommen</numerusform><numerusform>%1 werden %2 genommen</numerusform></translation>
    </message>
</context>
</TS>
