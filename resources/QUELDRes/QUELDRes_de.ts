<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de">
<context>
    <name></name>
    <message id="11005">
        <source>cuix;mnu;mns;menuc</source>
        <translation>cuix;mnu;mns;menuc</translation>
    </message>
    <message id="11006">
        <source>Loading a template menu file will result in the loss of any toolbar customization changes that have been made.</source>
        <translation>Beim Laden einer Menüvorlage gehen alle Änderungen an den Werkzeugleisten verloren.</translation>
    </message>
    <message id="11008">
        <source> Continue loading?</source>
        <translation> Trotzdem laden?</translation>
    </message>
</context>
</TS>
