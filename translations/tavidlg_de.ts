<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE">
<context>
    <name>CHelpWindow</name>
    <message>
        <source>Velbrook Help</source>
        <translation>Velbrook-Hilfe</translation>
    </message>
    <message>
        <source>&amp;Back</source>
        <translation>&amp;Zurück</translation>
    </message>
    <message>
        <source>&amp;Forward</source>
        <translation>&amp;Vorwärts</translation>
    </message>
    <message>
        <source>Words to look for</source>
        <translation>Gesuchte Wörter</translation>
    </message>
    <message>
        <source>&amp;List Topics</source>
        <translation>&amp;Themen auflisten</translation>
    </message>
    <message>
        <source>&amp;Search</source>
        <translation>&amp;Suchen</translation>
    </message>
    <message>
        <source>&amp;Contents</source>
        <translation>&amp;Inhalt</translation>
    </message>
    <message>
        <source>Type the first letters of a word</source>
        <translation>Die ersten Buchstaben eines Wortes eingeben</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>&amp;Index</source>
        <translation>In&amp;dex</translation>
    </message>
    <message>
        <source>No topic holds these words.</source>
        <translation>Kein Thema enthält diese Wörter.</translation>
    </message>
    <message>
        <source>%1 - Velbrook Help</source>
        <translation>%1 - Velbrook-Hilfe</translation>
    </message>
    <message>
        <source>There is no help page for topic %1.</source>
        <translation>Für das Hilfethema %1 gibt es keine Hilfeseite.</translation>
    </message>
    <message>
        <source>S&amp;tart Page</source>
        <translation>St&amp;artseite</translation>
    </message>
</context>
<context>
    <name>QPlatformTheme</name>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>velbrook-console</name>
    <message>
        <source>Administration console of the Velbrook mail server.</source>
        <translation>Verwaltungskonsole des Velbrook-Mailservers.</translation>
    </message>
    <message>
        <source>Open the configuration store at &lt;location&gt; (file or URI).</source>
        <translation>Den Konfigurationsspeicher unter &lt;location&gt; öffnen (Datei oder URI).</translation>
    </message>
    <message>
        <source>Render every available dialog to &lt;dir&gt;/&lt;EntryPoint&gt;.png and exit.</source>
        <translation>Jeden verfügbaren Dialog als &lt;dir&gt;/&lt;EntryPoint&gt;.png speichern und beenden.</translation>
    </message>
    <message>
        <source>The store to open (as --store).</source>
        <translation>Der zu öffnende Speicher (wie --store).</translation>
    </message>
</context>
</TS>
