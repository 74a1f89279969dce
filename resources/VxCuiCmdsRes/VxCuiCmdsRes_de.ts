<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de">
<context>
    <name></name>
    <message id="6940">
        <source>CUILOAD</source>
        <translation>CUILADEN</translation>
    </message>
    <message id="6941">
        <source>CUIUNLOAD</source>
        <translation>CUIENTFERNEN</translation>
    </message>
    <message id="6916">
        <source>MENULOAD</source>
        <translation>MENÜLADEN</translation>
    </message>
    <message id="6917">
        <source>MENUUNLOAD</source>
        <translation>MENÜENTFERNEN</translation>
    </message>
    <message id="6915">
        <source>MENU</source>
        <translation>MENÜ</translation>
    </message>
    <message id="60005">
        <source>CUSTOMIZE</source>
        <translation>ANPASSEN</translation>
    </message>
    <message id="6935">
        <source>REINIT</source>
        <translation>NEUINIT</translation>
    </message>
    <message id="6700">
        <source>Re-Load QUELD.pgp?</source>
        <translation>QUELD.pgp neu laden?</translation>
    </message>
    <message id="8051">
        <source>Customize [Accelerator/Toolbar] &lt;Accelerator&gt;: </source>
        <translation>Anpassen [Accelerator/Toolbar] &lt;Accelerator&gt;: </translation>
    </message>
    <message id="8052">
        <source>Accelerator Toolbar</source>
        <translation>Accelerator Toolbar</translation>
    </message>
    <message id="11004">
        <source>Customization files(*.cuix)|Menu Template(*.mnu)|Menu File(*.mns)|Menu File(*.menuc)</source>
        <translation>Anpassungsdateien(*.cuix)|Menüvorlage(*.mnu)|Menüdatei(*.mns)|Menüdatei(*.menuc)</translation>
    </message>
    <message id="11005">
        <source>cuix;mnu;mns;menuc</source>
        <translation>cuix;mnu;mns;menuc</translation>
    </message>
    <message id="11062">
        <source>Select Menu File</source>
        <translation>Menüdatei wählen</translation>
    </message>
    <message id="11064">
        <source>
Loading "%s" success.group:%s</source>
        <translation>
"%s" wurde geladen. Gruppe:%s</translation>
    </message>
    <message id="11065">
        <source>"%s" is already loaded.</source>
        <translation>"%s" ist bereits geladen.</translation>
    </message>
    <message id="11066">
        <source>Enter name of menu file to load:</source>
        <translation>Name der zu ladenden Menüdatei:</translation>
    </message>
    <message id="11067">
        <source>Enter the name of a Menu Group to unload:</source>
        <translation>Name der zu entfernenden Menügruppe:</translation>
    </message>
    <message id="11068">
        <source>"%s" cannot be unloaded.</source>
        <translation>"%s" kann nicht entfernt werden.</translation>
    </message>
    <message id="11069">
        <source>Enter customization file name or [. (for none)]&lt;%s&gt;</source>
        <translation>Name der Anpassungsdatei oder [. (für keine)]&lt;%s&gt;</translation>
    </message>
    <message id="11070">
        <source>Menu file load failed.  File not found:"%s"</source>
        <translation>Menüdatei nicht geladen.  Datei nicht gefunden:"%s"</translation>
    </message>
    <message id="11071">
        <source>Do you want to unload menu?</source>
        <translation>Soll das Menü entfernt werden?</translation>
    </message>
    <message id="IDD_MENU_LOAD_DLG.title">
        <source>Load and Unload Customization Files</source>
        <translation>Anpassungsdateien laden und entladen</translation>
    </message>
    <message id="IDD_MENU_LOAD_DLG.IDC_MENULOAD_GRPFILE">
        <source>Customization file</source>
        <translation>Anpassungsdatei</translation>
    </message>
    <message id="IDD_MENU_LOAD_DLG.IDC_MENULOAD_GRPMENU">
        <source>Loaded menu groups</source>
        <translation>Geladene Menügruppen</translation>
    </message>
    <message id="IDD_MENU_LOAD_DLG.IDC_MENULOAF_FILENAME">
        <source>&amp;File name:</source>
        <translation>Datei&amp;name:</translation>
    </message>
    <message id="IDD_MENU_LOAD_DLG.IDC_MENULOAD_EDITCMD.name">
        <source>Customization file to load</source>
        <translation>Zu ladende Anpassungsdatei</translation>
    </message>
    <message id="IDD_MENU_LOAD_DLG.IDC_MENULOAD_EDITCMD.placeholder">
        <source>Path of a .cuix file</source>
        <translation>Pfad einer .cuix-Datei</translation>
    </message>
    <message id="IDD_MENU_LOAD_DLG.IDC_MENULOAD_LIST.name">
        <source>Loaded menu groups</source>
        <translation>Geladene Menügruppen</translation>
    </message>
    <message id="IDD_MENU_LOAD_DLG.IDC_MENULOAD_BROWSE">
        <source>&amp;Browse...</source>
        <translation>&amp;Durchsuchen...</translation>
    </message>
    <message id="IDD_MENU_LOAD_DLG.IDC_MENULOAD_BROWSE.tip">
        <source>Pick the file to load</source>
        <translation>Die zu ladende Datei auswählen</translation>
    </message>
    <message id="IDD_MENU_LOAD_DLG.IDC_MENULOAD_LOAD">
        <source>&amp;Load</source>
        <translation>&amp;Laden</translation>
    </message>
    <message id="IDD_MENU_LOAD_DLG.IDC_MENULOAD_LOAD.tip">
        <source>Load the named file</source>
        <translation>Die genannte Datei laden</translation>
    </message>
    <message id="IDD_MENU_LOAD_DLG.IDC_MENULOAD_BTNUNLOAD">
        <source>&amp;Unload</source>
        <translation>&amp;Entladen</translation>
    </message>
    <message id="IDD_MENU_LOAD_DLG.IDC_MENULOAD_BTNUNLOAD.tip">
        <source>Unload the selected group. The first one, of the main file, stays loaded.</source>
        <translation>Die ausgewählte Gruppe entladen. Die erste, die der Hauptdatei, bleibt geladen.</translation>
    </message>
    <message id="IDD_MENU_LOAD_DLG.IDOK">
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message id="IDD_MENU_LOAD_DLG.IDC_MENULOAD_HELP">
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
</context>
</TS>
