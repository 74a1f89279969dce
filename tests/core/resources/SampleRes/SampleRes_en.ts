<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en">
<context>
    <name></name>
    <message id="1">
        <source>one</source>
        <translation>one</translation>
    </message>
    <message id="2">
        <source>two</source>
        <translation>two</translation>
    </message>
    <message id="3">
        <source>three</source>
        <translation>three</translation>
    </message>
    <message id="4294967295">
        <source>last</source>
        <translation>last</translation>
    </message>
</context>
</TS>
