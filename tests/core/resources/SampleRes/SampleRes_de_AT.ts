<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_AT">
<context>
    <name></name>
    <message id="1">
        <source>one</source>
        <translation>oans</translation>
    </message>
</context>
</TS>
