<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name>ErrorBoundary</name>
    <message numerus="yes">
        <source>

(Changed %n times while this message was showing.)</source>
        <translation>
            <numerusform>

(Changed once while this message was showing.)</numerusform>
            <numerusform>

(Changed %n times while this message was showing.)</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ServedSite</name>
    <message numerus="yes">
        <source>%1 bad or cut-short frames</source>
        <translation>
            <numerusform>%1 bad or cut-short frame</numerusform>
            <numerusform>%1 bad or cut-short frames</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 bytes at other line settings</source>
        <translation>
            <numerusform>%1 byte at other line settings</numerusform>
            <numerusform>%1 bytes at other line settings</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 bytes nobody took</source>
        <translation>
            <numerusform>%1 byte nobody took</numerusform>
            <numerusform>%1 bytes nobody took</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 answer bytes not read</source>
        <translation>
            <numerusform>%1 answer byte not read</numerusform>
            <numerusform>%1 answer bytes not read</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>TrafficLog</name>
    <message numerus="yes">
        <source>The traffic log &quot;%1&quot; cannot be written: %2. Logging has stopped after the last whole row; %n rows were not written.</source>
        <translation>
            <numerusform>The traffic log &quot;%1&quot; cannot be written: %2. Logging has stopped after the last whole row; %n row was not written.</numerusform>
            <numerusform>The traffic log &quot;%1&quot; cannot be written: %2. Logging has stopped after the last whole row; %n rows were not written.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>quellpad::traffic_window::FrmTraffic</name>
    <message numerus="yes">
        <source>%n rows, %1 dropped%2</source>
        <translation>
            <numerusform>%n row, %1 dropped%2</numerusform>
            <numerusform>%n rows, %1 dropped%2</numerusform>
        </translation>
    </message>
</context>
</TS>
