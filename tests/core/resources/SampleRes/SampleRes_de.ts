<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de">
<context>
    <name></name>
    <message id="1">
        <source>one</source>
        <translation>eins</translation>
    </message>
    <message id="2">
        <source>two</source>
        <translation>zwei €😀</translation>
    </message>
</context>
</TS>
