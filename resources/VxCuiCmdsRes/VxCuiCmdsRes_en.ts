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
</context>
</TS>
