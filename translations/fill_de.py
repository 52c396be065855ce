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
    # Texts of the dialogs, the string table and the console, whatever their context
    (None, "OK"): "OK",
    (None, "Cancel"): "Abbrechen",
    (None, "&Help"): "&Hilfe",
    (None, "&Close"): "&Schließen",
    (None, "Close"): "Schließen",
    (None, "&Apply Now"): "Ü&bernehmen",
    (None, "Working..."): "In Arbeit...",
    (None, "Browse..."): "Durchsuchen...",
    (None, "Velbrook Mail Server"): "Velbrook-Mailserver",
    (None, "Enter a whole number from %1 to %2."): "Geben Sie eine ganze Zahl von %1 bis %2 ein.",
    (None, "Enter a whole number of at least 0."): "Geben Sie eine ganze Zahl ab 0 ein.",
    (None, "Help topic %1 is not installed."): "Das Hilfethema %1 ist nicht installiert.",
    # Error reporting
    (None, "\nError: %1\n%2\n"): "\nFehler: %1\n%2\n",
    (None, "Mail list manager error"): "Fehler der Mailinglistenverwaltung",
    (None, "Mailbox manager error"): "Fehler der Postfachverwaltung",
    (None, "Could not start %1 service"): "Der Dienst %1 konnte nicht gestartet werden",
    (None, "Could not stop %1 service"): "Der Dienst %1 konnte nicht beendet werden",
    (None, "You cannot create any more mailboxes in this domain."):
        "In dieser Domäne können keine weiteren Postfächer angelegt werden.",
    (None, "You cannot create any more mail lists in this domain."):
        "In dieser Domäne können keine weiteren Mailinglisten angelegt werden.",
    (None, "The property is too large."): "Die Eigenschaft ist zu groß.",
    (None, "Could not set the '%1' mail server property."):
        "Die Mailserver-Eigenschaft „%1“ konnte nicht gesetzt werden.",
    (None, "Failed to update property %1!s!, error %2!d!."):
        "Die Eigenschaft %1!s! konnte nicht aktualisiert werden, Fehler %2!d!.",
    (None, "Could not read the '%1' mail server property."):
        "Die Mailserver-Eigenschaft „%1“ konnte nicht gelesen werden.",
    # Mail directory locations
    (None, "Mail directory locations on %1"): "Mailverzeichnisse auf %1",
    (None, "Mail &spool directory:"): "Mail-&Spoolverzeichnis:",
    (None, "Save undeliverable, unreturnable messages in the \"dead\" subdirectory"):
        "Unzustellbare, nicht zurücksendbare Nachrichten im Unterverzeichnis „dead“ aufbewahren",
    (None, "You must specify a local drive or a UNC path for this value."):
        "Geben Sie für diesen Wert ein lokales Laufwerk oder einen UNC-Pfad an.",
    # Agents
    (None, "Agents on %1"): "Agenten auf %1",
    (None, "&Incoming mail agent:"): "Agent für &eingehende Mail:",
    (None, "&Archive directory:"): "&Archivverzeichnis:",
    (None, "A UNC path is required"): "Ein UNC-Pfad ist erforderlich",
    (None, "When using a clustered configuration, you should specify a UNC path for the server agent.  "
           "Otherwise, the program may be inaccessible to the other mail servers in the cluster.\n\n You "
           "should only specify a drive letter if using the Registry connector."):
        "In einer Cluster-Konfiguration sollten Sie für den Server-Agenten einen UNC-Pfad angeben.  "
        "Andernfalls ist das Programm für die anderen Mailserver des Clusters womöglich nicht erreichbar.\n\n "
        "Geben Sie nur mit dem Registry-Connector einen Laufwerksbuchstaben an.",
    # Quotas
    (None, "Quotas on %1"): "Kontingente auf %1",
    (None, "&Enable quota support"): "&Kontingente aktivieren",
    (None, "&Copy quota warnings to postmaster"): "Kontingentwarnungen in &Kopie an den Postmaster",
    (None, "Reject over-quota mail with permanent (522) error"):
        "Mail über dem Kontingent mit dauerhaftem Fehler (522) abweisen",
    (None, "&Interval between quota warnings (days):"): "&Abstand zwischen Kontingentwarnungen (Tage):",
    (None, "Default Domain Quotas"): "Standardkontingente der Domänen",
    (None, "Default domain &quota limit (kB):"): "Standard-&Kontingentgrenze der Domäne (kB):",
    (None, "Default domain &warning limit (kB):"): "Standard-&Warngrenze der Domäne (kB):",
    (None, "Values are for reporting purposes only and are not\nautomatically enforced"):
        "Die Werte dienen nur Berichten und werden nicht\nautomatisch durchgesetzt",
    (None, "none"): "keine",
    (None, "unknown"): "unbekannt",
    (None, "Mailboxes contain: %ukB (%u messages)\r\n(as of %s)"):
        "Postfächer enthalten: %ukB (%u Nachrichten)\r\n(Stand: %s)",
    # Calendaring
    (None, "Calendaring on %1!s!"): "Kalender auf %1!s!",
    (None, "Configure Calendaring on this server"): "Kalenderfunktion dieses Servers einrichten",
    (None, "Enable Calendaring on this server"): "Kalenderfunktion auf diesem Server aktivieren",
    (None, "Enable for all mailboxes"): "Für alle Postfächer aktivieren",
    (None, "Enable for configured domains/mailboxes"): "Für eingerichtete Domänen/Postfächer aktivieren",
    # Service control
    (None, "Service status:"): "Dienststatus:",
    (None, "&Start!"): "&Starten!",
    (None, "St&op!"): "&Beenden!",
    (None, "stopped"): "beendet",
    (None, "running"): "läuft",
    (None, "starting"): "wird gestartet",
    (None, "stopping"): "wird beendet",
    (None, "resuming"): "wird fortgesetzt",
    (None, "pausing"): "wird angehalten",
    (None, "paused"): "angehalten",
    # Traffic counters
    (None, "Traffic Counters on %1"): "Verkehrszähler auf %1",
    (None, "Settings"): "Einstellungen",
    (None, "Enable Traffic Counters"): "Verkehrszähler aktivieren",
    (None, "Domain Auto Reset (s):"): "Domänen automatisch zurücksetzen (s):",
    (None, "Mailbox Auto Reset (s):"): "Postfächer automatisch zurücksetzen (s):",
    (None, "Report"): "Bericht",
    (None, "List all mailboxes whose traffic counters are greater than \nthe following values"):
        "Alle Postfächer auflisten, deren Verkehrszähler größer sind als \ndie folgenden Werte",
    (None, "RCPT Commands:"): "RCPT-Befehle:",
    (None, "SMTP Bytes Sent:"): "SMTP-Bytes gesendet:",
    (None, "SMTP Bytes Received:"): "SMTP-Bytes empfangen:",
    (None, "IMAP Bytes Sent:"): "IMAP-Bytes gesendet:",
    (None, "IMAP Bytes Received:"): "IMAP-Bytes empfangen:",
    (None, "POP Bytes Sent:"): "POP-Bytes gesendet:",
    (None, "POP Bytes Received:"): "POP-Bytes empfangen:",
    (None, "Save Report..."): "Bericht speichern...",
    (None, "Mailbox Report Save As:"): "Postfachbericht speichern unter:",
    (None, "Mailbox Report Save Failed"): "Postfachbericht nicht gespeichert",
    (None, "Failed to save the report as \"%1\".  The error code returned was %2!d!."):
        "Der Bericht konnte nicht als „%1“ gespeichert werden.  Der zurückgegebene Fehlercode war %2!d!.",
    (None, "Failed to generate the report.   The error code returned was %1!d!."):
        "Der Bericht konnte nicht erstellt werden.   Der zurückgegebene Fehlercode war %1!d!.",
    (None, "CSV File (*.CSV)"): "CSV-Datei (*.CSV)",
    (None, "All Files (*.*)"): "Alle Dateien (*.*)",
    (None, "Generating the mailbox report..."): "Der Postfachbericht wird erstellt...",
    (None, "Saving the mailbox report..."): "Der Postfachbericht wird gespeichert...",
    # File log
    (None, "File log configuration on %1"): "Dateiprotokoll auf %1",
    (None, "&Log file directory:"): "&Protokollverzeichnis:",
    # Subnet list editor
    (None, "&Network Address:"): "&Netzwerkadresse:",
    (None, "Subnet Mas&k:"): "Subnetz&maske:",
    (None, "C&omment:"): "&Kommentar:",
    (None, "&Add"): "&Hinzufügen",
    (None, "&Delete"): "&Löschen",
    (None, "&Import..."): "&Importieren...",
    (None, "&Export..."): "&Exportieren...",
    (None, "C&lear"): "Lee&ren",
    (None, "&Modify"): "Ä&ndern",
    (None, "Modify"): "Ändern",
    (None, "IP subnet"): "IP-Subnetz",
    (None, "Comment"): "Kommentar",
    (None, "The combination of network address and subnet mask entered is not a valid CIDR subnet or the comment "
           "contains illegal characters.\n\nAs a valid example,  the network IDs 131.107.4.0, 131.107.5.0, "
           "131.107.6.0, and 131.107.7.0 can be summarized with the network ID 131.107.4.0, with a subnet mask of "
           "255.255.252.0 (131.107.4.0/22).\n\nMore information about subnet masks is available on the internet."):
        "Die eingegebene Kombination aus Netzwerkadresse und Subnetzmaske ist kein gültiges CIDR-Subnetz, oder "
        "der Kommentar enthält unzulässige Zeichen.\n\nEin gültiges Beispiel:  Die Netzwerk-IDs 131.107.4.0, "
        "131.107.5.0, 131.107.6.0 und 131.107.7.0 lassen sich mit der Netzwerk-ID 131.107.4.0 und der "
        "Subnetzmaske 255.255.252.0 zusammenfassen (131.107.4.0/22).\n\nWeitere Informationen über "
        "Subnetzmasken finden Sie im Internet.",
    (None, "Cannot add entry as this Nework Address and Subnet Mask already exist in the list."):
        "Der Eintrag kann nicht hinzugefügt werden, da diese Netzwerkadresse und Subnetzmaske bereits in der "
        "Liste stehen.",
    (None, "There were %1 errors when processing the file."): "Beim Verarbeiten der Datei traten %1 Fehler auf.",
    (None, "There were I/O errors when processing the file."):
        "Beim Verarbeiten der Datei traten Ein-/Ausgabefehler auf.",
    (None, "IP Subnets"): "IP-Subnetze",
    (None, "Trusted IP Subnets"): "Vertrauenswürdige IP-Subnetze",
    (None, "Importing subnets from %1..."): "Subnetze werden aus %1 importiert...",
    (None, "Comma-separated values"): "Kommagetrennte Werte",
    (None, "All files"): "Alle Dateien",
    # Reminder and text entry
    (None, "Reminder"): "Erinnerung",
    (None, "&Don't show this dialog again"): "Diesen Dialog &nicht mehr anzeigen",
    # The console window (its texts and the table of dialogs)
    (None, " (on another machine)"): " (auf einem anderen Rechner)",
    (None, " service"): " (Dienst)",
    (None, "%1 - Velbrook Administration Console"): "%1 - Velbrook-Verwaltungskonsole",
    (None, "Velbrook Administration Console"): "Velbrook-Verwaltungskonsole",
    (None, "%1 dialogs available"): "%1 Dialoge verfügbar",
    (None, "1 dialog available"): "1 Dialog verfügbar",
    (None, "%1: cancelled"): "%1: abgebrochen",
    (None, "%1: closed with OK"): "%1: mit OK geschlossen",
    (None, "%1: returned %2"): "%1: Ergebnis %2",
    (None, "%1: the dialog could not be opened"): "%1: Der Dialog konnte nicht geöffnet werden",
    (None, "&About"): "Ü&ber",
    (None, "About the console"): "Über die Konsole",
    (None, "&Dialogs:"): "&Dialoge:",
    (None, "&Domain:"): "&Domäne:",
    (None, "&File"): "&Datei",
    (None, "&View"): "&Ansicht",
    (None, "&Name of the %1 (local part):"): "&Name des %1 (lokaler Teil):",
    (None, "&Open store..."): "Speicher ö&ffnen...",
    (None, "&Open..."): "Ö&ffnen...",
    (None, "&Quit"): "&Beenden",
    (None, "&Refresh"): "A&ktualisieren",
    (None, "(no store open)"): "(kein Speicher geöffnet)",
    (None, "(the default store)"): "(der Standardspeicher)",
    (None, "(unknown)"): "(unbekannt)",
    (None, ", clustered"): ", Cluster",
    (None, ", read-only"): ", schreibgeschützt",
    (None, ", schema %1"): ", Schema %1",
    (None, "Choose a domain"): "Domäne wählen",
    (None, "Configuration stores (*.db);;All files (*)"): "Konfigurationsspeicher (*.db);;Alle Dateien (*)",
    (None, "Connector:"): "Connector:",
    (None, "Embedded (SQLite)"): "Eingebettet (SQLite)",
    (None, "Location:"): "Ort:",
    (None, "Name:"): "Name:",
    (None, "No configuration store is open."): "Es ist kein Konfigurationsspeicher geöffnet.",
    (None, "Open a %1"): "%1 öffnen",
    (None, "Open a configuration store"): "Konfigurationsspeicher öffnen",
    (None, "Opened %1"): "%1 geöffnet",
    (None, "Running"): "Läuft",
    (None, "Stopped"): "Beendet",
    (None, "Starting"): "Wird gestartet",
    (None, "Stopping"): "Wird beendet",
    (None, "Pausing"): "Wird angehalten",
    (None, "Paused"): "Angehalten",
    (None, "Resuming"): "Wird fortgesetzt",
    (None, "Unknown"): "Unbekannt",
    (None, "Unknown error"): "Unbekannter Fehler",
    (None, "Server"): "Server",
    (None, "The configuration store %1 could not be opened.\n%2 (error %3)"):
        "Der Konfigurationsspeicher %1 konnte nicht geöffnet werden.\n%2 (Fehler %3)",
    (None, "The dialog library could not be loaded.\n%1"): "Die Dialogbibliothek konnte nicht geladen werden.\n%1",
    (None, "The dialog library is not loaded."): "Die Dialogbibliothek ist nicht geladen.",
    (None, "Server settings"): "Servereinstellungen",
    (None, "Services"): "Dienste",
    (None, "Delivery"): "Zustellung",
    (None, "Logging"): "Protokollierung",
    (None, "Security"): "Sicherheit",
    (None, "Domains"): "Domänen",
    (None, "Mailboxes"): "Postfächer",
    (None, "Mailing lists"): "Mailinglisten",
    (None, "Mail directory locations"): "Mailverzeichnisse",
    (None, "Agents"): "Agenten",
    (None, "Quotas"): "Kontingente",
    (None, "Calendaring"): "Kalender",
    (None, "Server aliases"): "Server-Aliasse",
    (None, "Traffic counters"): "Verkehrszähler",
    (None, "Configuration connector"): "Konfigurations-Connector",
    (None, "Service control"): "Dienststeuerung",
    (None, "Service properties"): "Diensteigenschaften",
    (None, "Delivery retry schedule"): "Zeitplan für Zustellversuche",
    (None, "Time-of-day delivery schedule"): "Tageszeit-Zustellplan",
    (None, "Delivery schedule management"): "Zustellpläne verwalten",
    (None, "Routing"): "Routing",
    (None, "File log"): "Dateiprotokoll",
    (None, "Database log"): "Datenbankprotokoll",
    (None, "Log flags"): "Protokollierungsoptionen",
    (None, "Security properties"): "Sicherheitseigenschaften",
    (None, "Anti-spam wizard"): "Anti-Spam-Assistent",
    (None, "Anti-relay wizard"): "Anti-Relay-Assistent",
    (None, "Anti-DoS wizard"): "Anti-DoS-Assistent",
    (None, "Trusted subnets of the SMTP receiver"): "Vertrauenswürdige Subnetze des SMTP-Empfängers",
    (None, "Server address lists"): "Adresslisten des Servers",
    (None, "Wireless carriers"): "Mobilfunkanbieter",
    (None, "Domain properties"): "Domäneneigenschaften",
    (None, "Domain address lists"): "Adresslisten der Domäne",
    (None, "Mailbox properties"): "Postfacheigenschaften",
    (None, "Mailbox address lists"): "Adresslisten des Postfachs",
    (None, "Mailing list properties"): "Mailinglisteneigenschaften",
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
