#!/usr/bin/env python3
"""Fills tavidlg_de.ts from the German texts below (context, English) -> German, after lupdate.

Run `cmake --build <build> --target tavi_lupdate` first; then `translations/fill_de.py` writes every
translation it knows and lists the texts that still have none. Texts the table does not know keep what
a translator wrote in Qt Linguist.
"""
import sys
import xml.etree.ElementTree as ET
from pathlib import Path

# (context, English) -> German. A context of None matches every context.
GERMAN = {
    # The help window
    ("CHelpWindow", "Velbrook Help"): "Velbrook-Hilfe",
    ("CHelpWindow", "&Back"): "&Zurück",
    ("CHelpWindow", "&Forward"): "&Vorwärts",
    ("CHelpWindow", "S&tart Page"): "St&artseite",
    ("CHelpWindow", "Words to look for"): "Gesuchte Wörter",
    ("CHelpWindow", "&List Topics"): "&Themen auflisten",
    ("CHelpWindow", "&Search"): "&Suchen",
    ("CHelpWindow", "&Contents"): "&Inhalt",
    ("CHelpWindow", "Type the first letters of a word"): "Die ersten Buchstaben eines Wortes eingeben",
    ("CHelpWindow", "%1 (%2)"): "%1 (%2)",
    ("CHelpWindow", "&Index"): "In&dex",
    ("CHelpWindow", "No topic holds these words."): "Kein Thema enthält diese Wörter.",
    ("CHelpWindow", "%1 - Velbrook Help"): "%1 - Velbrook-Hilfe",
    ("CHelpWindow", "There is no help page for topic %1."): "Für das Hilfethema %1 gibt es keine Hilfeseite.",
    ("QPlatformTheme", "Cancel"): "Abbrechen",
    # The console's command line
    ("velbrook-console", "Administration console of the Velbrook mail server."):
        "Verwaltungskonsole des Velbrook-Mailservers.",
    ("velbrook-console", "Open the configuration store at <location> (file or URI)."):
        "Den Konfigurationsspeicher unter <location> öffnen (Datei oder URI).",
    ("velbrook-console", "Render every available dialog to <dir>/<EntryPoint>.png and exit."):
        "Jeden verfügbaren Dialog als <dir>/<EntryPoint>.png speichern und beenden.",
    ("velbrook-console", "The store to open (as --store)."): "Der zu öffnende Speicher (wie --store).",
}


def main() -> int:
    path = Path(__file__).with_name("tavidlg_de.ts")
    tree = ET.parse(path)
    missing = []
    for context in tree.getroot().iter("context"):
        name = context.findtext("name")
        for message in context.iter("message"):
            source = message.findtext("source")
            translation = message.find("translation")
            german = GERMAN.get((name, source), GERMAN.get((None, source)))
            if german is not None:
                translation.text = german
                translation.attrib.pop("type", None)
            elif translation.get("type") == "unfinished" or not translation.text:
                missing.append(f"{name}: {source}")
    with open(path, "wb") as out:
        out.write(b'<?xml version="1.0" encoding="utf-8"?>\n<!DOCTYPE TS>\n')
        tree.write(out, encoding="utf-8", xml_declaration=False)
        out.write(b"\n")
    for m in missing:
        print("no German text:", m)
    return 1 if missing else 0


if __name__ == "__main__":
    sys.exit(main())
