<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<!-- The reference host's own sentences. Ids are words: area, dash, what is said. -->
<TS version="2.1" language="en">
<context>
    <name></name>
    <message id="settings-reason-damaged">
        <source>it is damaged</source>
        <translation>it is damaged</translation>
    </message>
    <message id="settings-reason-full">
        <source>the disk is full</source>
        <translation>the disk is full</translation>
    </message>
    <message id="settings-reason-busy">
        <source>another program is using it</source>
        <translation>another program is using it</translation>
    </message>
    <message id="settings-reason-too-long">
        <source>it is too long</source>
        <translation>it is too long</translation>
    </message>
    <message id="settings-reason-kind">
        <source>it is of an unknown kind</source>
        <translation>it is of an unknown kind</translation>
    </message>
    <message id="settings-reason-read-only">
        <source>it may not be written</source>
        <translation>it may not be written</translation>
    </message>
    <message id="settings-reason-refused">
        <source>access is refused</source>
        <translation>access is refused</translation>
    </message>
    <message id="settings-not-stored">
        <source>The setting "%1" was not stored in %2: %3.</source>
        <translation>The setting "%1" was not stored in %2: %3.</translation>
    </message>
    <message id="settings-not-stored-because">
        <source>The setting "%1" was not stored. %2</source>
        <translation>The setting "%1" was not stored. %2</translation>
    </message>
    <message id="settings-item-not-read">
        <source>The setting "%1" cannot be read from %2: %3.</source>
        <translation>The setting "%1" cannot be read from %2: %3.</translation>
    </message>
    <message id="settings-item-damaged">
        <source>The setting "%1" in %2 is damaged; the last good copy is restored at the next start.</source>
        <translation>The setting "%1" in %2 is damaged; the last good copy is restored at the next start.</translation>
    </message>
    <message id="settings-not-read">
        <source>The settings file %1 cannot be read: %2.</source>
        <translation>The settings file %1 cannot be read: %2.</translation>
    </message>
    <message id="settings-not-opened">
        <source>The settings file %1 cannot be opened: %2.</source>
        <translation>The settings file %1 cannot be opened: %2.</translation>
    </message>
    <message id="settings-not-made">
        <source>The settings file %1 cannot be made: %2.</source>
        <translation>The settings file %1 cannot be made: %2.</translation>
    </message>
    <message id="settings-not-removed">
        <source>The file %1 cannot be removed.</source>
        <translation>The file %1 cannot be removed.</translation>
    </message>
    <message id="settings-not-renamed">
        <source>The file %1 cannot be renamed to %2: %3.</source>
        <translation>The file %1 cannot be renamed to %2: %3.</translation>
    </message>
    <message id="settings-not-synced">
        <source>%1 cannot be written to disk: %2.</source>
        <translation>%1 cannot be written to disk: %2.</translation>
    </message>
    <message id="settings-newer-format">
        <source>The settings file %1 was written by a newer version of this program.</source>
        <translation>The settings file %1 was written by a newer version of this program.</translation>
    </message>
    <message id="settings-not-writable">
        <source>The settings file %1 cannot be written in this session.</source>
        <translation>The settings file %1 cannot be written in this session.</translation>
    </message>
    <message id="settings-repaired-next-time">
        <source>The settings file %1 is damaged or missing; the last good copy is restored at the next start.</source>
        <translation>The settings file %1 is damaged or missing; the last good copy is restored at the next start.</translation>
    </message>
    <message id="settings-damaged">
        <source>The settings file %1 is damaged.</source>
        <translation>The settings file %1 is damaged.</translation>
    </message>
    <message id="settings-missing">
        <source>The settings file %1 is missing.</source>
        <translation>The settings file %1 is missing.</translation>
    </message>
    <message id="settings-kept-aside">
        <source>What was found is kept as %1.</source>
        <translation>What was found is kept as %1.</translation>
    </message>
    <message id="settings-restored">
        <source>The last good copy, made %1, is restored.</source>
        <translation>The last good copy, made %1, is restored.</translation>
    </message>
    <message id="settings-start-empty">
        <source>There is no good copy to restore, so the settings are empty.</source>
        <translation>There is no good copy to restore, so the settings are empty.</translation>
    </message>
    <message id="settings-good-copy-unusable">
        <source>The last good copy cannot be used either; it is kept as %1.</source>
        <translation>The last good copy cannot be used either; it is kept as %1.</translation>
    </message>
    <message id="settings-good-copy-read">
        <source>The last good copy, made %1, is read instead; settings cannot be changed in this session.</source>
        <translation>The last good copy, made %1, is read instead; settings cannot be changed in this session.</translation>
    </message>
    <message id="settings-nothing-to-read">
        <source>There is no good copy either, so this session has no stored settings.</source>
        <translation>There is no good copy either, so this session has no stored settings.</translation>
    </message>
    <message id="settings-only-read">
        <source>%1 Until that changes, settings can be read but not stored.</source>
        <translation>%1 Until that changes, settings can be read but not stored.</translation>
    </message>
    <message id="settings-not-kept">
        <source>%1 Until that changes, there are no stored settings and none can be stored.</source>
        <translation>%1 Until that changes, there are no stored settings and none can be stored.</translation>
    </message>
    <message id="settings-good-copy-not-renewed">
        <source>The last good copy of the settings was not renewed. %1</source>
        <translation>The last good copy of the settings was not renewed. %1</translation>
    </message>
    <message id="profile-not-made">
        <source>The profile folder %1 cannot be created: %2.</source>
        <translation>The profile folder %1 cannot be created: %2.</translation>
    </message>
    <message id="profile-holds-semicolon">
        <source>The profile folder %1 cannot be used: its path holds a semicolon, which separates the paths in the list of loaded files.</source>
        <translation>The profile folder %1 cannot be used: its path holds a semicolon, which separates the paths in the list of loaded files.</translation>
    </message>
    <message id="profile-not-writable">
        <source>The profile folder %1 cannot be written (%2), so nothing is kept after this session.</source>
        <translation>The profile folder %1 cannot be written (%2), so nothing is kept after this session.</translation>
    </message>
    <message id="profile-only-read">
        <source>%1 Nothing is kept after this session.</source>
        <translation>%1 Nothing is kept after this session.</translation>
    </message>
    <message id="profile-not-locked">
        <source>The profile cannot be held for this session, since its file %1 cannot be locked: %2.</source>
        <translation>The profile cannot be held for this session, since its file %1 cannot be locked: %2.</translation>
    </message>
    <message id="profile-in-use">
        <source>The profile folder %1 is in use by %2 (process %3).</source>
        <translation>The profile folder %1 is in use by %2 (process %3).</translation>
    </message>
    <message id="profile-in-use-unknown">
        <source>The profile folder %1 is in use by another program.</source>
        <translation>The profile folder %1 is in use by another program.</translation>
    </message>
    <message id="profile-file-not-written">
        <source>The file %1 cannot be written: %2.</source>
        <translation>The file %1 cannot be written: %2.</translation>
    </message>
    <message id="profile-main-file-written">
        <source>The main customization file %1 was missing and has been written again.</source>
        <translation>The main customization file %1 was missing and has been written again.</translation>
    </message>
    <message id="profile-main-file-missing">
        <source>The main customization file %1 is missing and cannot be written.</source>
        <translation>The main customization file %1 is missing and cannot be written.</translation>
    </message>
    <message id="profile-main-file-first">
        <source>The main customization file %1 has been put in front of the list of loaded files.</source>
        <translation>The main customization file %1 has been put in front of the list of loaded files.</translation>
    </message>
    <message id="profile-list-missing">
        <source>The list of loaded files was missing and now holds the main customization file %1.</source>
        <translation>The list of loaded files was missing and now holds the main customization file %1.</translation>
    </message>
    <message id="profile-list-no-text">
        <source>The list of loaded files was no text and now holds the main customization file %1.</source>
        <translation>The list of loaded files was no text and now holds the main customization file %1.</translation>
    </message>
    <message id="module-no-file">
        <source>The command module %1 does not exist.</source>
        <translation>The command module %1 does not exist.</translation>
    </message>
    <message id="module-missing-symbols">
        <source>The command module %1 needs what this host does not have: %2</source>
        <translation>The command module %1 needs what this host does not have: %2</translation>
    </message>
    <message id="module-no-library">
        <source>%1 cannot be loaded as a command module: %2</source>
        <translation>%1 cannot be loaded as a command module: %2</translation>
    </message>
    <message id="module-no-entry">
        <source>%1 is no command module: it has no entry point %2.</source>
        <translation>%1 is no command module: it has no entry point %2.</translation>
    </message>
    <message id="module-no-application">
        <source>The command module %1 gave no application object.</source>
        <translation>The command module %1 gave no application object.</translation>
    </message>
    <message id="module-not-ready">
        <source>The command module %1 is not ready: it answered %2.</source>
        <translation>The command module %1 is not ready: it answered %2.</translation>
    </message>
    <message id="box-ok">
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message id="box-cancel">
        <source>Cancel</source>
        <translation>Cancel</translation>
    </message>
    <message id="box-yes">
        <source>Yes</source>
        <translation>Yes</translation>
    </message>
    <message id="box-no">
        <source>No</source>
        <translation>No</translation>
    </message>
    <message id="variable-unknown">
        <source>There is no system variable %1; there are %2.</source>
        <translation>There is no system variable %1; there are %2.</translation>
    </message>
    <message id="variable-no-integer">
        <source>%1 takes an integer from -32768 to 32767, not "%2".</source>
        <translation>%1 takes an integer from -32768 to 32767, not "%2".</translation>
    </message>
    <message id="prompt-command">
        <source>Command: </source>
        <translation>Command: </translation>
    </message>
    <message id="prompt-variable">
        <source>Name of the system variable: </source>
        <translation>Name of the system variable: </translation>
    </message>
    <message id="prompt-value">
        <source>New value: </source>
        <translation>New value: </translation>
    </message>
    <message id="groups-name-taken">
        <source>%1 is not shown: its group %2 is shown already, from %3.</source>
        <translation>%1 is not shown: its group %2 is shown already, from %3.</translation>
    </message>
    <message id="groups-none">
        <source>none</source>
        <translation>none</translation>
    </message>
    <message id="groups-menus">
        <source>menus</source>
        <translation>menus</translation>
    </message>
    <message id="groups-toolbars">
        <source>toolbars</source>
        <translation>toolbars</translation>
    </message>
    <message id="groups-file">
        <source>file</source>
        <translation>file</translation>
    </message>
    <message id="groups-relative">
        <source>relative name</source>
        <translation>relative name</translation>
    </message>
    <message id="groups-missing">
        <source>file is missing</source>
        <translation>file is missing</translation>
    </message>
    <message id="groups-empty">
        <source>No menu group is shown.</source>
        <translation>No menu group is shown.</translation>
    </message>
    <message id="groups-not-shown">
        <source>Listed, but not shown:</source>
        <translation>Listed, but not shown:</translation>
    </message>
    <message id="aliases-none">
        <source>There are no aliases.</source>
        <translation>There are no aliases.</translation>
    </message>
    <message id="alias-not-utf8">
        <source>This line is not UTF-8 and is skipped.</source>
        <translation>This line is not UTF-8 and is skipped.</translation>
    </message>
    <message id="alias-bad-line">
        <source>This line is not ALIAS = COMMAND, each one word, and is skipped.</source>
        <translation>This line is not ALIAS = COMMAND, each one word, and is skipped.</translation>
    </message>
    <message id="alias-replaced">
        <source>The alias %1 is replaced in line %2.</source>
        <translation>The alias %1 is replaced in line %2.</translation>
    </message>
    <message id="alias-unreadable">
        <source>The alias file %1 cannot be read: %2</source>
        <translation>The alias file %1 cannot be read: %2</translation>
    </message>
    <message id="error-status">
        <source>error status %1</source>
        <translation>error status %1</translation>
    </message>
    <message id="error-unknown">
        <source>an error of an unknown kind</source>
        <translation>an error of an unknown kind</translation>
    </message>
    <message id="command-threw">
        <source>The command %1 failed: %2</source>
        <translation>The command %1 failed: %2</translation>
    </message>
    <message id="command-unknown">
        <source>Unknown command %1. HELP lists the commands.</source>
        <translation>Unknown command %1. HELP lists the commands.</translation>
    </message>
    <message id="command-unknown-nearest">
        <source>Unknown command %1. Did you mean %2?</source>
        <translation>Unknown command %1. Did you mean %2?</translation>
    </message>
    <message id="command-setvar">
        <source>Set a system variable: SETVAR NAME VALUE</source>
        <translation>Set a system variable: SETVAR NAME VALUE</translation>
    </message>
    <message id="command-getvar">
        <source>Show a system variable: GETVAR NAME</source>
        <translation>Show a system variable: GETVAR NAME</translation>
    </message>
    <message id="command-settings">
        <source>Show the stored settings: SETTINGS [KEY]</source>
        <translation>Show the stored settings: SETTINGS [KEY]</translation>
    </message>
    <message id="command-groups">
        <source>Show the loaded menu groups</source>
        <translation>Show the loaded menu groups</translation>
    </message>
    <message id="command-aliases">
        <source>Show the command aliases</source>
        <translation>Show the command aliases</translation>
    </message>
    <message id="command-commands">
        <source>Show every command</source>
        <translation>Show every command</translation>
    </message>
    <message id="command-echo">
        <source>Print a text: ECHO TEXT</source>
        <translation>Print a text: ECHO TEXT</translation>
    </message>
    <message id="command-help">
        <source>Show how to use the command line</source>
        <translation>Show how to use the command line</translation>
    </message>
    <message id="command-quit">
        <source>End the session</source>
        <translation>End the session</translation>
    </message>
    <message id="commands-global">
        <source>Global name</source>
        <translation>Global name</translation>
    </message>
    <message id="commands-local">
        <source>Localized name</source>
        <translation>Localized name</translation>
    </message>
    <message id="commands-module">
        <source>Module</source>
        <translation>Module</translation>
    </message>
    <message id="commands-description">
        <source>Description</source>
        <translation>Description</translation>
    </message>
    <message id="help-usage">
        <source>Type a command or an alias and press Enter; answers may follow on the same line.
An answer with blanks is put in double quotes. Enter alone repeats the last command.
Esc or Ctrl+C cancels a prompt; the end of the input or QUIT ends the session.</source>
        <translation>Type a command or an alias and press Enter; answers may follow on the same line.
An answer with blanks is put in double quotes. Enter alone repeats the last command.
Esc or Ctrl+C cancels a prompt; the end of the input or QUIT ends the session.</translation>
    </message>
    <message id="help-commands">
        <source>Commands: %1</source>
        <translation>Commands: %1</translation>
    </message>
    <message id="settings-none">
        <source>There is no such setting.</source>
        <translation>There is no such setting.</translation>
    </message>
    <message id="keyword-unknown">
        <source>"%1" is none of %2.</source>
        <translation>"%1" is none of %2.</translation>
    </message>
    <message id="dialog-no-display">
        <source>There is no display, so the dialog cannot be shown.</source>
        <translation>There is no display, so the dialog cannot be shown.</translation>
    </message>
    <message id="dialog-no-controls">
        <source>The dialog cannot be shown, because its controls are missing.</source>
        <translation>The dialog cannot be shown, because its controls are missing.</translation>
    </message>
    <message id="session-file-lost">
        <source>A file of the program is missing: %1</source>
        <translation>A file of the program is missing: %1</translation>
    </message>
    <message id="options-description">
        <source>A host for command modules that load customization packages.</source>
        <translation>A host for command modules that load customization packages.</translation>
    </message>
    <message id="options-console">
        <source>Use the terminal.</source>
        <translation>Use the terminal.</translation>
    </message>
    <message id="options-window">
        <source>Use a window.</source>
        <translation>Use a window.</translation>
    </message>
    <message id="options-script">
        <source>Run the lines of FILE as if they were typed, then leave; - is the standard input.</source>
        <translation>Run the lines of FILE as if they were typed, then leave; - is the standard input.</translation>
    </message>
    <message id="options-interactive-input">
        <source>With --script: treat the lines as typed by a person.</source>
        <translation>With --script: treat the lines as typed by a person.</translation>
    </message>
    <message id="options-profile">
        <source>Keep settings, aliases and the main customization file in DIR.</source>
        <translation>Keep settings, aliases and the main customization file in DIR.</translation>
    </message>
    <message id="options-module">
        <source>Load the command module PATH; may be repeated.</source>
        <translation>Load the command module PATH; may be repeated.</translation>
    </message>
    <message id="options-var">
        <source>Give a system variable a value for this run; may be repeated.</source>
        <translation>Give a system variable a value for this run; may be repeated.</translation>
    </message>
    <message id="options-support">
        <source>Search DIR for files as well; may be repeated.</source>
        <translation>Search DIR for files as well; may be repeated.</translation>
    </message>
    <message id="options-lang">
        <source>Show texts in language CODE, for example en or de.</source>
        <translation>Show texts in language CODE, for example en or de.</translation>
    </message>
    <message id="options-report-status">
        <source>Write NAME&lt;TAB&gt;STATUS to the standard error after each command.</source>
        <translation>Write NAME&lt;TAB&gt;STATUS to the standard error after each command.</translation>
    </message>
    <message id="options-list-settings">
        <source>Print every stored setting, then leave.</source>
        <translation>Print every stored setting, then leave.</translation>
    </message>
    <message id="options-check">
        <source>Say whether the packages are good, with every fault, then leave.</source>
        <translation>Say whether the packages are good, with every fault, then leave.</translation>
    </message>
    <message id="options-help">
        <source>Show this help, then leave.</source>
        <translation>Show this help, then leave.</translation>
    </message>
    <message id="options-version">
        <source>Show the version, then leave.</source>
        <translation>Show the version, then leave.</translation>
    </message>
    <message id="options-file">
        <source>Customization packages that are loaded at the start.</source>
        <translation>Customization packages that are loaded at the start.</translation>
    </message>
    <message id="options-var-form">
        <source>--var takes NAME=VALUE, not "%1".</source>
        <translation>--var takes NAME=VALUE, not "%1".</translation>
    </message>
    <message id="options-two-faces">
        <source>--console and --window exclude each other.</source>
        <translation>--console and --window exclude each other.</translation>
    </message>
    <message id="options-interactive-without-script">
        <source>--interactive-input needs --script.</source>
        <translation>--interactive-input needs --script.</translation>
    </message>
    <message id="options-check-nothing">
        <source>--check needs at least one package.</source>
        <translation>--check needs at least one package.</translation>
    </message>
    <message id="console-script-missing">
        <source>The script %1 does not exist.</source>
        <translation>The script %1 does not exist.</translation>
    </message>
    <message id="console-script-folder">
        <source>%1 is a folder, not a script.</source>
        <translation>%1 is a folder, not a script.</translation>
    </message>
    <message id="console-script-unreadable">
        <source>The script %1 cannot be read: %2.</source>
        <translation>The script %1 cannot be read: %2.</translation>
    </message>
    <message id="console-history-no-file">
        <source>The lines you type are not kept: %1 is not a file.</source>
        <translation>The lines you type are not kept: %1 is not a file.</translation>
    </message>
    <message id="console-history-too-large">
        <source>The lines you type are not kept: %1 is too large for a history file.</source>
        <translation>The lines you type are not kept: %1 is too large for a history file.</translation>
    </message>
    <message id="console-history-unreadable">
        <source>The lines you type are not kept: %1 cannot be read: %2.</source>
        <translation>The lines you type are not kept: %1 cannot be read: %2.</translation>
    </message>
    <message id="console-history-unwritable">
        <source>The lines you type are not kept: %1 cannot be written: %2.</source>
        <translation>The lines you type are not kept: %1 cannot be written: %2.</translation>
    </message>
    <message id="console-more-matches">
        <source>... and %1 more</source>
        <translation>... and %1 more</translation>
    </message>
    <message id="package-attribute-control"><source>The value of "%1" contains a control character.</source><translation>The value of "%1" contains a control character.</translation></message>
    <message id="package-attribute-empty"><source>&lt;%1&gt; needs a value for its attribute "%2".</source><translation>&lt;%1&gt; needs a value for its attribute "%2".</translation></message>
    <message id="package-attribute-missing"><source>&lt;%1&gt; needs the attribute "%2".</source><translation>&lt;%1&gt; needs the attribute "%2".</translation></message>
    <message id="package-attribute-unknown"><source>There is no attribute "%1" of &lt;%2&gt;.</source><translation>There is no attribute "%1" of &lt;%2&gt;.</translation></message>
    <message id="package-command-unknown"><source>The menu group has no command "%1".</source><translation>The menu group has no command "%1".</translation></message>
    <message id="package-element-unknown"><source>There is no element &lt;%1&gt; inside &lt;%2&gt;.</source><translation>There is no element &lt;%1&gt; inside &lt;%2&gt;.</translation></message>
    <message id="package-entry-damaged"><source>"%1" is damaged: its content does not have the size and checksum that the archive states.</source><translation>"%1" is damaged: its content does not have the size and checksum that the archive states.</translation></message>
    <message id="package-entry-encrypted"><source>"%1" is encrypted; a package must not be.</source><translation>"%1" is encrypted; a package must not be.</translation></message>
    <message id="package-entry-folder"><source>The folder "%1" has content of its own.</source><translation>The folder "%1" has content of its own.</translation></message>
    <message id="package-entry-method"><source>"%1" is compressed in a way that is not supported; only stored and deflated entries are.</source><translation>"%1" is compressed in a way that is not supported; only stored and deflated entries are.</translation></message>
    <message id="package-entry-special"><source>"%1" is a link or a device, not a plain file.</source><translation>"%1" is a link or a device, not a plain file.</translation></message>
    <message id="package-entry-too-large"><source>"%1" is larger than %2 MiB.</source><translation>"%1" is larger than %2 MiB.</translation></message>
    <message id="package-entry-twice"><source>The archive has more than one entry "%1".</source><translation>The archive has more than one entry "%1".</translation></message>
    <message id="package-file-folder"><source>This is a folder, not a package.</source><translation>This is a folder, not a package.</translation></message>
    <message id="package-file-missing"><source>There is no such file.</source><translation>There is no such file.</translation></message>
    <message id="package-file-permission"><source>The file may not be read: permission denied.</source><translation>The file may not be read: permission denied.</translation></message>
    <message id="package-file-special"><source>This is not a plain file.</source><translation>This is not a plain file.</translation></message>
    <message id="package-file-too-large"><source>The file is larger than %1 MiB.</source><translation>The file is larger than %1 MiB.</translation></message>
    <message id="package-file-unreadable"><source>The file cannot be read: %1</source><translation>The file cannot be read: %1</translation></message>
    <message id="package-format"><source>Format "%1" is not known; this program reads format 1.</source><translation>Format "%1" is not known; this program reads format 1.</translation></message>
    <message id="package-good"><source>%1: good: menu group "%2", commands: %3, menus: %4, toolbars: %5, accelerators: %6</source><translation>%1: good: menu group "%2", commands: %3, menus: %4, toolbars: %5, accelerators: %6</translation></message>
    <message id="package-group-missing"><source>There is no &lt;menugroup&gt;.</source><translation>There is no &lt;menugroup&gt;.</translation></message>
    <message id="package-group-name"><source>"%1" is not a group name: 1 to 64 letters, digits, "_" and "-" are.</source><translation>"%1" is not a group name: 1 to 64 letters, digits, "_" and "-" are.</translation></message>
    <message id="package-group-second"><source>A package holds one &lt;menugroup&gt; only.</source><translation>A package holds one &lt;menugroup&gt; only.</translation></message>
    <message id="package-icon-kind"><source>The icon "%1" is neither a .png nor an .svg file.</source><translation>The icon "%1" is neither a .png nor an .svg file.</translation></message>
    <message id="package-icon-missing"><source>The icon "%1" is not in the archive.</source><translation>The icon "%1" is not in the archive.</translation></message>
    <message id="package-id-twice"><source>The id "%1" is already used in line %2.</source><translation>The id "%1" is already used in line %2.</translation></message>
    <message id="package-image-kind"><source>The file is neither a .png nor an .svg image.</source><translation>The file is neither a .png nor an .svg image.</translation></message>
    <message id="package-keys"><source>"%1" is not a key combination.</source><translation>"%1" is not a key combination.</translation></message>
    <message id="package-keys-twice"><source>The keys "%1" are already used in line %2.</source><translation>The keys "%1" are already used in line %2.</translation></message>
    <message id="package-macro-close"><source>The macro has a closing brace without an opening one.</source><translation>The macro has a closing brace without an opening one.</translation></message>
    <message id="package-macro-open"><source>The macro has an opening brace without a closing one.</source><translation>The macro has an opening brace without a closing one.</translation></message>
    <message id="package-macro-word"><source>The macro uses unknown words: %1; known are {cancel} and {enter}.</source><translation>The macro uses unknown words: %1; known are {cancel} and {enter}.</translation></message>
    <message id="package-many-faults"><source>There are so many faults that the rest was not checked.</source><translation>There are so many faults that the rest was not checked.</translation></message>
    <message id="package-name-absolute"><source>The entry name "%1" is an absolute path.</source><translation>The entry name "%1" is an absolute path.</translation></message>
    <message id="package-name-backslash"><source>The entry name "%1" contains a backslash.</source><translation>The entry name "%1" contains a backslash.</translation></message>
    <message id="package-name-control"><source>The entry name "%1" contains a control character.</source><translation>The entry name "%1" contains a control character.</translation></message>
    <message id="package-name-dots"><source>The entry name "%1" contains "." or ".." as a folder.</source><translation>The entry name "%1" contains "." or ".." as a folder.</translation></message>
    <message id="package-name-empty"><source>The archive has an entry without a name.</source><translation>The archive has an entry without a name.</translation></message>
    <message id="package-name-unknown"><source>"%1" does not belong in a package: only customization.xml and files below images/ do.</source><translation>"%1" does not belong in a package: only customization.xml and files below images/ do.</translation></message>
    <message id="package-name-utf8"><source>The entry name "%1" is not UTF-8.</source><translation>The entry name "%1" is not UTF-8.</translation></message>
    <message id="package-names-too-long"><source>The names of all entries together are longer than %1 KiB.</source><translation>The names of all entries together are longer than %1 KiB.</translation></message>
    <message id="package-no-customization"><source>The archive has no customization.xml.</source><translation>The archive has no customization.xml.</translation></message>
    <message id="package-not-zip"><source>The file is not a ZIP archive.</source><translation>The file is not a ZIP archive.</translation></message>
    <message id="package-png-damaged"><source>The image cannot be decoded.</source><translation>The image cannot be decoded.</translation></message>
    <message id="package-png-header"><source>The file is not a PNG image.</source><translation>The file is not a PNG image.</translation></message>
    <message id="package-png-size"><source>The image is %1 x %2 pixels; at most %3 x %3 are allowed.</source><translation>The image is %1 x %2 pixels; at most %3 x %3 are allowed.</translation></message>
    <message id="package-root"><source>The root element is &lt;%1&gt;, not &lt;customization&gt;.</source><translation>The root element is &lt;%1&gt;, not &lt;customization&gt;.</translation></message>
    <message id="package-section-twice"><source>There is already a section &lt;%1&gt; in line %2.</source><translation>There is already a section &lt;%1&gt; in line %2.</translation></message>
    <message id="package-svg-attribute-backslash"><source>The attribute "%1" contains a backslash.</source><translation>The attribute "%1" contains a backslash.</translation></message>
    <message id="package-svg-backslash"><source>The style sheet contains a backslash.</source><translation>The style sheet contains a backslash.</translation></message>
    <message id="package-svg-element"><source>An image of a package must not contain &lt;%1&gt;.</source><translation>An image of a package must not contain &lt;%1&gt;.</translation></message>
    <message id="package-svg-event"><source>The attribute "%1" runs a script on an event; an image of a package must not.</source><translation>The attribute "%1" runs a script on an event; an image of a package must not.</translation></message>
    <message id="package-svg-length"><source>The %1 "%2" is not a length.</source><translation>The %1 "%2" is not a length.</translation></message>
    <message id="package-svg-reference"><source>The attribute "%1" refers to something outside of the image.</source><translation>The attribute "%1" refers to something outside of the image.</translation></message>
    <message id="package-svg-root"><source>The root element is &lt;%1&gt;, not &lt;svg&gt;.</source><translation>The root element is &lt;%1&gt;, not &lt;svg&gt;.</translation></message>
    <message id="package-svg-size"><source>The %1 of the image is more than %2 pixels.</source><translation>The %1 of the image is more than %2 pixels.</translation></message>
    <message id="package-svg-style"><source>The style sheet refers to something outside of the image.</source><translation>The style sheet refers to something outside of the image.</translation></message>
    <message id="package-text"><source>Text is not allowed inside &lt;%1&gt;.</source><translation>Text is not allowed inside &lt;%1&gt;.</translation></message>
    <message id="package-too-many-entries"><source>The archive has %1 entries; at most %2 are allowed.</source><translation>The archive has %1 entries; at most %2 are allowed.</translation></message>
    <message id="package-total-too-large"><source>The entries together are larger than %1 MiB.</source><translation>The entries together are larger than %1 MiB.</translation></message>
    <message id="package-xml-attributes"><source>The element has more than %1 attributes.</source><translation>The element has more than %1 attributes.</translation></message>
    <message id="package-xml-character"><source>The character U+%1 is not allowed in XML.</source><translation>The character U+%1 is not allowed in XML.</translation></message>
    <message id="package-xml-depth"><source>Elements are nested more than %1 deep.</source><translation>Elements are nested more than %1 deep.</translation></message>
    <message id="package-xml-dtd"><source>A document type (&lt;!DOCTYPE) is not allowed.</source><translation>A document type (&lt;!DOCTYPE) is not allowed.</translation></message>
    <message id="package-xml-encoding"><source>The encoding "%1" is not allowed; the text must be UTF-8.</source><translation>The encoding "%1" is not allowed; the text must be UTF-8.</translation></message>
    <message id="package-xml-extra"><source>Nothing but comments may follow the root element.</source><translation>Nothing but comments may follow the root element.</translation></message>
    <message id="package-xml-incomplete"><source>The XML text ends before its root element does.</source><translation>The XML text ends before its root element does.</translation></message>
    <message id="package-xml-instruction"><source>A processing instruction is not allowed.</source><translation>A processing instruction is not allowed.</translation></message>
    <message id="package-xml-malformed"><source>This is not well-formed XML: %1</source><translation>This is not well-formed XML: %1</translation></message>
    <message id="package-xml-names"><source>The names of elements and attributes together are longer than %1 bytes.</source><translation>The names of elements and attributes together are longer than %1 bytes.</translation></message>
    <message id="package-xml-token"><source>A single tag, text or comment is longer than %1 bytes.</source><translation>A single tag, text or comment is longer than %1 bytes.</translation></message>
    <message id="package-xml-too-large"><source>The XML text is larger than %1 bytes.</source><translation>The XML text is larger than %1 bytes.</translation></message>
    <message id="package-xml-utf8"><source>The byte %1 is not part of UTF-8 text.</source><translation>The byte %1 is not part of UTF-8 text.</translation></message>
    <message id="package-zip-damaged"><source>The ZIP archive is damaged: its table of contents is missing or contradicts the rest.</source><translation>The ZIP archive is damaged: its table of contents is missing or contradicts the rest.</translation></message>
    <message id="package-zip-overlap"><source>The entries "%1" and "%2" share bytes of the archive.</source><translation>The entries "%1" and "%2" share bytes of the archive.</translation></message>
    <message id="prompt-file">
        <source>File: </source>
        <translation>File: </translation>
    </message>
    <message id="file-not-there">
        <source>There is no file %1.</source>
        <translation>There is no file %1.</translation>
    </message>
    <message id="help-missing">
        <source>There is no help on %1.</source>
        <translation>There is no help on %1.</translation>
    </message>
    <message id="settings-kind-refused">
        <source>The setting "%1" was not stored: only integers and texts can be.</source>
        <translation>The setting "%1" was not stored: only integers and texts can be.</translation>
    </message>
    <message id="program-no-window">
        <source>This version has no window; leave out --window to use the terminal.</source>
        <translation>This version has no window; leave out --window to use the terminal.</translation>
    </message>
    <message id="dialog-missing">
        <source>The dialog cannot be shown: its description %1 is not there.</source>
        <translation>The dialog cannot be shown: its description %1 is not there.</translation>
    </message>
    <message id="dialog-damaged">
        <source>The dialog cannot be shown: its description %1 is damaged: %2</source>
        <translation>The dialog cannot be shown: its description %1 is damaged: %2</translation>
    </message>
    <message id="dialog-control-missing">
        <source>it has no control %1.</source>
        <translation>it has no control %1.</translation>
    </message>
    <message id="dialog-control-wrong">
        <source>its control %1 is no %2.</source>
        <translation>its control %1 is no %2.</translation>
    </message>
    <message id="dialog-has-layout">
        <source>it arranges its controls in a layout.</source>
        <translation>it arranges its controls in a layout.</translation>
    </message>
    <message id="dialog-not-a-dialog">
        <source>it describes no dialog.</source>
        <translation>it describes no dialog.</translation>
    </message>
    <message id="help-title">
        <source>Help</source>
        <translation>Help</translation>
    </message>
    <message id="window-said">
        <source>What was said so far</source>
        <translation>What was said so far</translation>
    </message>
    <message id="window-asking-first">
        <source>A command is asking. Answer it, or cancel it with Esc.</source>
        <translation>A command is asking. Answer it, or cancel it with Esc.</translation>
    </message>
    <message id="window-no-drawing">
        <source>Commands are typed below. HELP lists them.</source>
        <translation>Commands are typed below. HELP lists them.</translation>
    </message>
    <message id="window-command-line">
        <source>Command Line</source>
        <translation>Command Line</translation>
    </message>
    <message id="program-no-display">
        <source>There is no display for a window; leave out --window to use the terminal.</source>
        <translation>There is no display for a window; leave out --window to use the terminal.</translation>
    </message>
    <message id="program-window-unusable">
        <source>The window cannot be used: %1</source>
        <translation>The window cannot be used: %1</translation>
    </message>
    <message id="window-key-lost">
        <source>%1 stays with %2 (%3); %4 (%5) does without it.</source>
        <translation>%1 stays with %2 (%3); %4 (%5) does without it.</translation>
    </message>
    <message id="change-menus" numerus="yes">
        <source>%n menus</source>
        <translation><numerusform>%n menu</numerusform><numerusform>%n menus</numerusform></translation>
    </message>
    <message id="change-toolbars" numerus="yes">
        <source>%n toolbars</source>
        <translation><numerusform>%n toolbar</numerusform><numerusform>%n toolbars</numerusform></translation>
    </message>
    <message id="change-accelerators" numerus="yes">
        <source>%n accelerators</source>
        <translation><numerusform>%n accelerator</numerusform><numerusform>%n accelerators</numerusform></translation>
    </message>
    <message id="change-keys-stay" numerus="yes">
        <source>%1 stay with %2</source>
        <translation><numerusform>%1 stays with %2</numerusform><numerusform>%1 stay with %2</numerusform></translation>
    </message>
    <message id="change-keys-go" numerus="yes">
        <source>%1 go to %2</source>
        <translation><numerusform>%1 goes to %2</numerusform><numerusform>%1 go to %2</numerusform></translation>
    </message>
    <message id="change-nothing">
        <source>no menus, toolbars or accelerators</source>
        <translation>no menus, toolbars or accelerators</translation>
    </message>
    <message id="change-adds">
        <source>adds %1</source>
        <translation>adds %1</translation>
    </message>
    <message id="change-removes">
        <source>removes %1</source>
        <translation>removes %1</translation>
    </message>
    <message id="change-loaded">
        <source>is loaded already</source>
        <translation>is loaded already</translation>
    </message>
    <message id="change-name-taken">
        <source>cannot be shown: its menu group %1 is that of %2</source>
        <translation>cannot be shown: its menu group %1 is that of %2</translation>
    </message>
    <message id="customize-command">
        <source>COMMAND</source>
        <translation>COMMAND</translation>
    </message>
    <message id="customize-key">
        <source>KEY</source>
        <translation>KEY</translation>
    </message>
    <message id="customize-group">
        <source>GROUP</source>
        <translation>GROUP</translation>
    </message>
    <message id="customize-title">
        <source>TITLE</source>
        <translation>TITLE</translation>
    </message>
    <message id="customize-commands">
        <source>COMMANDS</source>
        <translation>COMMANDS</translation>
    </message>
    <message id="customize-no-keys">
        <source>No command of the loaded menu groups has a key.</source>
        <translation>No command of the loaded menu groups has a key.</translation>
    </message>
    <message id="customize-no-toolbars">
        <source>There are no toolbars.</source>
        <translation>There are no toolbars.</translation>
    </message>
    <message id="window-said-help">
        <source>The rows can be selected and copied; the context menu copies one row or all.</source>
        <translation>The rows can be selected and copied; the context menu copies one row or all.</translation>
    </message>
    <message id="window-line-help">
        <source>Tab completes, Down goes into the suggestions, Up and Down go through earlier lines, Page Up and Page Down scroll the rows above.</source>
        <translation>Tab completes, Down goes into the suggestions, Up and Down go through earlier lines, Page Up and Page Down scroll the rows above.</translation>
    </message>
    <message id="window-line-keywords">
        <source>Shift+Tab goes to the keywords.</source>
        <translation>Shift+Tab goes to the keywords.</translation>
    </message>
    <message id="window-suggestions">
        <source>Suggestions</source>
        <translation>Suggestions</translation>
    </message>
    <message id="window-keywords">
        <source>Keywords</source>
        <translation>Keywords</translation>
    </message>
    <message id="window-keyword">
        <source>Answers with %1. Shift+Tab comes here from the line.</source>
        <translation>Answers with %1. Shift+Tab comes here from the line.</translation>
    </message>
    <message id="window-keyword-by-enter">
        <source>Answers with %1, as Enter alone does. Shift+Tab comes here from the line.</source>
        <translation>Answers with %1, as Enter alone does. Shift+Tab comes here from the line.</translation>
    </message>
    <message id="window-copy">
        <source>&amp;Copy</source>
        <translation>&amp;Copy</translation>
    </message>
    <message id="window-copy-row">
        <source>Copy &amp;Line</source>
        <translation>Copy &amp;Line</translation>
    </message>
    <message id="window-copy-all">
        <source>Copy &amp;All</source>
        <translation>Copy &amp;All</translation>
    </message>
    <message id="window-select-all">
        <source>&amp;Select All</source>
        <translation>&amp;Select All</translation>
    </message>
    <message id="window-loaded">
        <source>What Is Loaded</source>
        <translation>What Is Loaded</translation>
    </message>
    <message id="window-load-title">
        <source>Load Customization File</source>
        <translation>Load Customization File</translation>
    </message>
    <message id="window-load-filter">
        <source>Customization files</source>
        <translation>Customization files</translation>
    </message>
    <message id="window-not-kept">
        <source>How the window was left could not be kept in %1.</source>
        <translation>How the window was left could not be kept in %1.</translation>
    </message>
    <message id="host-menu">
        <source>&amp;Quelhost</source>
        <translation>&amp;Quelhost</translation>
    </message>
    <message id="host-menu-find">
        <source>&amp;Find Command...</source>
        <translation>&amp;Find Command...</translation>
    </message>
    <message id="host-menu-recent">
        <source>&amp;Recent Files</source>
        <translation>&amp;Recent Files</translation>
    </message>
    <message id="host-menu-loaded">
        <source>What Is &amp;Loaded</source>
        <translation>What Is &amp;Loaded</translation>
    </message>
    <message id="host-menu-command-line">
        <source>&amp;Command Line</source>
        <translation>&amp;Command Line</translation>
    </message>
    <message id="host-menu-toolbars">
        <source>&amp;Toolbars</source>
        <translation>&amp;Toolbars</translation>
    </message>
    <message id="host-menu-no-toolbars">
        <source>There are no toolbars</source>
        <translation>There are no toolbars</translation>
    </message>
    <message id="host-menu-quit">
        <source>&amp;Quit</source>
        <translation>&amp;Quit</translation>
    </message>
    <message id="recent-none">
        <source>No file was loaded yet</source>
        <translation>No file was loaded yet</translation>
    </message>
    <message id="recent-file">
        <source>%1</source>
        <translation>%1</translation>
    </message>
    <message id="recent-loaded">
        <source>%1 (loaded)</source>
        <translation>%1 (loaded)</translation>
    </message>
    <message id="recent-missing">
        <source>%1 (missing)</source>
        <translation>%1 (missing)</translation>
    </message>
    <message id="loaded-search">
        <source>Search names, keys, macros and files</source>
        <translation>Search names, keys, macros and files</translation>
    </message>
    <message id="loaded-load">
        <source>&amp;Load...</source>
        <translation>&amp;Load...</translation>
    </message>
    <message id="loaded-load-tip">
        <source>Load a customization file with its menus, toolbars and keys</source>
        <translation>Load a customization file with its menus, toolbars and keys</translation>
    </message>
    <message id="loaded-unload">
        <source>&amp;Unload</source>
        <translation>&amp;Unload</translation>
    </message>
    <message id="loaded-unload-none">
        <source>Choose a group to unload</source>
        <translation>Choose a group to unload</translation>
    </message>
    <message id="loaded-unload-tip">
        <source>Unload %1: %2</source>
        <translation>Unload %1: %2</translation>
    </message>
    <message id="loaded-main-file">
        <source>The main customization file stays loaded</source>
        <translation>The main customization file stays loaded</translation>
    </message>
    <message id="loaded-where">
        <source>Show &amp;Where</source>
        <translation>Show &amp;Where</translation>
    </message>
    <message id="loaded-where-tip">
        <source>Show the command in its menu, on its toolbar or among the keys</source>
        <translation>Show the command in its menu, on its toolbar or among the keys</translation>
    </message>
    <message id="loaded-where-none">
        <source>Choose a command to see where it stands</source>
        <translation>Choose a command to see where it stands</translation>
    </message>
    <message id="loaded-place-menu">
        <source>Menu: %1</source>
        <translation>Menu: %1</translation>
    </message>
    <message id="loaded-place-toolbar">
        <source>Toolbar: %1</source>
        <translation>Toolbar: %1</translation>
    </message>
    <message id="loaded-place-key">
        <source>Key: %1</source>
        <translation>Key: %1</translation>
    </message>
    <message id="loaded-place-none">
        <source>In no menu, on no toolbar, without a key</source>
        <translation>In no menu, on no toolbar, without a key</translation>
    </message>
    <message id="loaded-run">
        <source>&amp;Run</source>
        <translation>&amp;Run</translation>
    </message>
    <message id="loaded-copy-name">
        <source>Copy &amp;Name</source>
        <translation>Copy &amp;Name</translation>
    </message>
    <message id="loaded-copy-macro">
        <source>Copy &amp;Macro</source>
        <translation>Copy &amp;Macro</translation>
    </message>
    <message id="loaded-copy-path">
        <source>Copy &amp;File Path</source>
        <translation>Copy &amp;File Path</translation>
    </message>
    <message id="loaded-menus">
        <source>Menus</source>
        <translation>Menus</translation>
    </message>
    <message id="loaded-toolbars">
        <source>Toolbars</source>
        <translation>Toolbars</translation>
    </message>
    <message id="loaded-commands">
        <source>Commands</source>
        <translation>Commands</translation>
    </message>
    <message id="loaded-keys">
        <source>Keys</source>
        <translation>Keys</translation>
    </message>
    <message id="loaded-separator">
        <source>(separator)</source>
        <translation>(separator)</translation>
    </message>
    <message id="loaded-key-lost">
        <source>%1 (stays with %2)</source>
        <translation>%1 (stays with %2)</translation>
    </message>
    <message id="loaded-file-missing">
        <source>%1 (missing)</source>
        <translation>%1 (missing)</translation>
    </message>
    <message id="loaded-file-refused">
        <source>%1 (not shown)</source>
        <translation>%1 (not shown)</translation>
    </message>
    <message id="loaded-missing-tip">
        <source>The file is missing. Its entry leaves the list when another file is unloaded.</source>
        <translation>The file is missing. Its entry leaves the list when another file is unloaded.</translation>
    </message>
    <message id="loaded-refused-tip">
        <source>The file could not be shown; why was said at the command line.</source>
        <translation>The file could not be shown; why was said at the command line.</translation>
    </message>
    <message id="loaded-column-name">
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message id="loaded-column-keys">
        <source>Keys</source>
        <translation>Keys</translation>
    </message>
    <message id="loaded-column-detail">
        <source>Macro or File</source>
        <translation>Macro or File</translation>
    </message>
    <message id="palette-name">
        <source>Find Command</source>
        <translation>Find Command</translation>
    </message>
    <message id="palette-commands">
        <source>Commands</source>
        <translation>Commands</translation>
    </message>
    <message id="palette-aliases">
        <source>Aliases</source>
        <translation>Aliases</translation>
    </message>
    <message id="customize-changed">
        <source>CHANGED</source>
        <translation>CHANGED</translation>
    </message>
    <message id="customize-yes">
        <source>yes</source>
        <translation>yes</translation>
    </message>
    <message id="customize-no">
        <source>no</source>
        <translation>no</translation>
    </message>
    <message id="customize-none">
        <source>none</source>
        <translation>none</translation>
    </message>
    <message id="customize-own">
        <source>(yours)</source>
        <translation>(yours)</translation>
    </message>
    <message id="customize-hidden">
        <source>hidden</source>
        <translation>hidden</translation>
    </message>
    <message id="customize-deleted">
        <source>deleted</source>
        <translation>deleted</translation>
    </message>
    <message id="customization-unreadable">
        <source>The setting %1 cannot be understood and is not used.</source>
        <translation>The setting %1 cannot be understood and is not used.</translation>
    </message>
    <message id="keyfile-no-keys">
        <source>This is not a file of keys: its first line has to be "quelhost keys 1".</source>
        <translation>This is not a file of keys: its first line has to be "quelhost keys 1".</translation>
    </message>
    <message id="keyfile-not-utf8">
        <source>This line is not valid UTF-8.</source>
        <translation>This line is not valid UTF-8.</translation>
    </message>
    <message id="keyfile-bad-line">
        <source>This line is not a menu group, a command and keys with a tab between them.</source>
        <translation>This line is not a menu group, a command and keys with a tab between them.</translation>
    </message>
    <message id="keyfile-bad-keys">
        <source>"%1" names no keys, or the same ones twice.</source>
        <translation>"%1" names no keys, or the same ones twice.</translation>
    </message>
    <message id="keyfile-twice">
        <source>The keys of command %2 of menu group %1 stand in line %3 already.</source>
        <translation>The keys of command %2 of menu group %1 stand in line %3 already.</translation>
    </message>
    <message id="loaded-own-toolbars">
        <source>Your Toolbars</source>
        <translation>Your Toolbars</translation>
    </message>
    <message id="toolbars-title">
        <source>Customize Toolbars</source>
        <translation>Customize Toolbars</translation>
    </message>
    <message id="toolbars-list">
        <source>&amp;Toolbars</source>
        <translation>&amp;Toolbars</translation>
    </message>
    <message id="toolbars-new">
        <source>&amp;New</source>
        <translation>&amp;New</translation>
    </message>
    <message id="toolbars-rename">
        <source>Rena&amp;me</source>
        <translation>Rena&amp;me</translation>
    </message>
    <message id="toolbars-delete">
        <source>&amp;Delete</source>
        <translation>&amp;Delete</translation>
    </message>
    <message id="toolbars-reset">
        <source>R&amp;eset</source>
        <translation>R&amp;eset</translation>
    </message>
    <message id="toolbars-reset-tip">
        <source>Make the toolbar what its package has</source>
        <translation>Make the toolbar what its package has</translation>
    </message>
    <message id="toolbars-reset-same">
        <source>The toolbar is what its package has</source>
        <translation>The toolbar is what its package has</translation>
    </message>
    <message id="toolbars-reset-own">
        <source>Your own toolbar has no package to go back to</source>
        <translation>Your own toolbar has no package to go back to</translation>
    </message>
    <message id="toolbars-reset-all">
        <source>Reset A&amp;ll</source>
        <translation>Reset A&amp;ll</translation>
    </message>
    <message id="toolbars-reset-all-tip">
        <source>Make all toolbars what their packages have; your own stay</source>
        <translation>Make all toolbars what their packages have; your own stay</translation>
    </message>
    <message id="toolbars-shown-tip">
        <source>Ticked: shown in the window</source>
        <translation>Ticked: shown in the window</translation>
    </message>
    <message id="toolbars-own">
        <source>your own</source>
        <translation>your own</translation>
    </message>
    <message id="toolbars-changed">
        <source>changed</source>
        <translation>changed</translation>
    </message>
    <message id="toolbars-new-title">
        <source>New toolbar</source>
        <translation>New toolbar</translation>
    </message>
    <message id="toolbars-name">
        <source>Name of the toolbar</source>
        <translation>Name of the toolbar</translation>
    </message>
    <message id="toolbars-name-needed">
        <source>A toolbar needs a name; this one keeps its own.</source>
        <translation>A toolbar needs a name; this one keeps its own.</translation>
    </message>
    <message id="toolbars-name-taken">
        <source>Another toolbar has that name; this one is called "%1".</source>
        <translation>Another toolbar has that name; this one is called "%1".</translation>
    </message>
    <message id="toolbars-deleted-hint">
        <source>This toolbar is deleted. A tick or Reset brings it back.</source>
        <translation>This toolbar is deleted. A tick or Reset brings it back.</translation>
    </message>
    <message id="toolbars-buttons">
        <source>&amp;Buttons</source>
        <translation>&amp;Buttons</translation>
    </message>
    <message id="toolbars-buttons-of">
        <source>Buttons of %1</source>
        <translation>Buttons of %1</translation>
    </message>
    <message id="toolbars-up">
        <source>&amp;Up</source>
        <translation>&amp;Up</translation>
    </message>
    <message id="toolbars-down">
        <source>Do&amp;wn</source>
        <translation>Do&amp;wn</translation>
    </message>
    <message id="toolbars-separator">
        <source>&amp;Separator</source>
        <translation>&amp;Separator</translation>
    </message>
    <message id="toolbars-remove">
        <source>Remo&amp;ve</source>
        <translation>Remo&amp;ve</translation>
    </message>
    <message id="toolbars-not-loaded">
        <source>%1 (not loaded)</source>
        <translation>%1 (not loaded)</translation>
    </message>
    <message id="toolbars-not-there">
        <source>%1 (no longer in its package)</source>
        <translation>%1 (no longer in its package)</translation>
    </message>
    <message id="toolbars-commands">
        <source>&amp;Commands</source>
        <translation>&amp;Commands</translation>
    </message>
    <message id="toolbars-search">
        <source>Search commands</source>
        <translation>Search commands</translation>
    </message>
    <message id="toolbars-none-found">
        <source>No command has that in its name.</source>
        <translation>No command has that in its name.</translation>
    </message>
    <message id="toolbars-add">
        <source>&amp;Add</source>
        <translation>&amp;Add</translation>
    </message>
    <message id="toolbars-add-tip">
        <source>Put the command on the toolbar, behind the current button</source>
        <translation>Put the command on the toolbar, behind the current button</translation>
    </message>
    <message id="toolbars-undo">
        <source>Und&amp;o</source>
        <translation>Und&amp;o</translation>
    </message>
    <message id="toolbars-redo">
        <source>&amp;Redo</source>
        <translation>&amp;Redo</translation>
    </message>
    <message id="accelerators-title">
        <source>Customize Accelerators</source>
        <translation>Customize Accelerators</translation>
    </message>
    <message id="accelerators-host">
        <source>The program itself</source>
        <translation>The program itself</translation>
    </message>
    <message id="accelerators-search">
        <source>Search for commands and keys</source>
        <translation>Search for commands and keys</translation>
    </message>
    <message id="accelerators-list">
        <source>Commands and their keys</source>
        <translation>Commands and their keys</translation>
    </message>
    <message id="accelerators-key">
        <source>Press to type new keys</source>
        <translation>Press to type new keys</translation>
    </message>
    <message id="accelerators-clear">
        <source>Take the keys away</source>
        <translation>Take the keys away</translation>
    </message>
    <message id="accelerators-reset">
        <source>&amp;Reset Command</source>
        <translation>&amp;Reset Command</translation>
    </message>
    <message id="accelerators-reset-tip">
        <source>Gives the chosen command the keys of its package</source>
        <translation>Gives the chosen command the keys of its package</translation>
    </message>
    <message id="accelerators-reset-all">
        <source>Reset &amp;All</source>
        <translation>Reset &amp;All</translation>
    </message>
    <message id="accelerators-reset-all-tip">
        <source>Gives all of these commands the keys of their packages</source>
        <translation>Gives all of these commands the keys of their packages</translation>
    </message>
    <message id="accelerators-import">
        <source>&amp;Import...</source>
        <translation>&amp;Import...</translation>
    </message>
    <message id="accelerators-import-tip">
        <source>Replaces all changes by those of a file</source>
        <translation>Replaces all changes by those of a file</translation>
    </message>
    <message id="accelerators-export">
        <source>&amp;Export...</source>
        <translation>&amp;Export...</translation>
    </message>
    <message id="accelerators-export-tip">
        <source>Writes all changes to a file</source>
        <translation>Writes all changes to a file</translation>
    </message>
    <message id="accelerators-import-title">
        <source>Import Keys</source>
        <translation>Import Keys</translation>
    </message>
    <message id="accelerators-export-title">
        <source>Export Keys</source>
        <translation>Export Keys</translation>
    </message>
    <message id="accelerators-files">
        <source>Files of keys</source>
        <translation>Files of keys</translation>
    </message>
    <message id="accelerators-all-files">
        <source>All files</source>
        <translation>All files</translation>
    </message>
    <message id="change-keys-taken" numerus="yes">
        <source>%1 are taken from %2</source>
        <translation><numerusform>%1 is taken from %2</numerusform><numerusform>%1 are taken from %2</numerusform></translation>
    </message>
</context>
</TS>
