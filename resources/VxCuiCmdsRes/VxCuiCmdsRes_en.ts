<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en">
<context>
    <name></name>
    <message id="6940">
        <source>CUILOAD</source>
        <translation>CUILOAD</translation>
    </message>
    <message id="6941">
        <source>CUIUNLOAD</source>
        <translation>CUIUNLOAD</translation>
    </message>
    <message id="6916">
        <source>MENULOAD</source>
        <translation>MENULOAD</translation>
    </message>
    <message id="6917">
        <source>MENUUNLOAD</source>
        <translation>MENUUNLOAD</translation>
    </message>
    <message id="6915">
        <source>MENU</source>
        <translation>MENU</translation>
    </message>
    <message id="60005">
        <source>CUSTOMIZE</source>
        <translation>CUSTOMIZE</translation>
    </message>
    <message id="6935">
        <source>REINIT</source>
        <translation>REINIT</translation>
    </message>
    <message id="8051">
        <source>Customize [Accelerator/Toolbar] &lt;Accelerator&gt;: </source>
        <translation>Customize [Accelerator/Toolbar] &lt;Accelerator&gt;: </translation>
    </message>
    <message id="8052">
        <source>Accelerator Toolbar</source>
        <translation>Accelerator Toolbar</translation>
    </message>
    <message id="11065">
        <source>"%s" is already loaded.</source>
        <translation>"%s" is already loaded.</translation>
    </message>
    <message id="11068">
        <source>"%s" cannot be unloaded.</source>
        <translation>"%s" cannot be unloaded.</translation>
    </message>
    <message id="IDD_MENU_LOAD_DLG.title">
        <source>Load and Unload Customization Files</source>
        <translation>Load and Unload Customization Files</translation>
    </message>
    <message id="IDD_MENU_LOAD_DLG.IDC_MENULOAD_GRPFILE">
        <source>Customization file</source>
        <translation>Customization file</translation>
    </message>
    <message id="IDD_MENU_LOAD_DLG.IDC_MENULOAD_GRPMENU">
        <source>Loaded menu groups</source>
        <translation>Loaded menu groups</translation>
    </message>
    <message id="IDD_MENU_LOAD_DLG.IDC_MENULOAF_FILENAME">
        <source>&amp;File name:</source>
        <translation>&amp;File name:</translation>
    </message>
    <message id="IDD_MENU_LOAD_DLG.IDC_MENULOAD_EDITCMD.name">
        <source>Customization file to load</source>
        <translation>Customization file to load</translation>
    </message>
    <message id="IDD_MENU_LOAD_DLG.IDC_MENULOAD_EDITCMD.placeholder">
        <source>Path of a .cuix file</source>
        <translation>Path of a .cuix file</translation>
    </message>
    <message id="IDD_MENU_LOAD_DLG.IDC_MENULOAD_LIST.name">
        <source>Loaded menu groups</source>
        <translation>Loaded menu groups</translation>
    </message>
    <message id="IDD_MENU_LOAD_DLG.IDC_MENULOAD_BROWSE">
        <source>&amp;Browse...</source>
        <translation>&amp;Browse...</translation>
    </message>
    <message id="IDD_MENU_LOAD_DLG.IDC_MENULOAD_BROWSE.tip">
        <source>Pick the file to load</source>
        <translation>Pick the file to load</translation>
    </message>
    <message id="IDD_MENU_LOAD_DLG.IDC_MENULOAD_LOAD">
        <source>&amp;Load</source>
        <translation>&amp;Load</translation>
    </message>
    <message id="IDD_MENU_LOAD_DLG.IDC_MENULOAD_LOAD.tip">
        <source>Load the named file</source>
        <translation>Load the named file</translation>
    </message>
    <message id="IDD_MENU_LOAD_DLG.IDC_MENULOAD_BTNUNLOAD">
        <source>&amp;Unload</source>
        <translation>&amp;Unload</translation>
    </message>
    <message id="IDD_MENU_LOAD_DLG.IDC_MENULOAD_BTNUNLOAD.tip">
        <source>Unload the selected group. The first one, of the main file, stays loaded.</source>
        <translation>Unload the selected group. The first one, of the main file, stays loaded.</translation>
    </message>
    <message id="IDD_MENU_LOAD_DLG.IDOK">
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message id="IDD_MENU_LOAD_DLG.IDC_MENULOAD_HELP">
        <source>&amp;Help</source>
        <translation>&amp;Help</translation>
    </message>
</context>
</TS>
