#!/usr/bin/env python3
"""Fills tavidlg_de.ts from the German texts below (context, English) -> German, after lupdate.

Run `cmake --build <build> --target tavi_lupdate` first; then `translations/fill_de.py` writes every
translation it knows and prints the texts that still have none as entries for the table below (exit
status 1 while there are any). Texts the table does not know keep what
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
    (None, "&Add"): "Hin&zufügen",
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
    # Server aliases
    ("CAliasDlg", "Alias"): "Alias",
    ("CAliasDlg", "Stands for"): "Steht für",
    ("CAliasDlg", "Aliases on %1"): "Aliasse auf %1",
    ("CAliasDlg", "&Alias (address or domain):"): "&Alias (Adresse oder Domäne):",
    ("CAliasDlg", "&Stands for:"): "&Steht für:",
    (None, "A&dd"): "Hin&zufügen",
    (None, "De&lete"): "&Löschen",
    (None, "&Find:"): "Su&chen:",
    (None, "E&xport..."): "E&xportieren...",
    (None, "The alias %1 is already in the list."): "Der Alias %1 steht bereits in der Liste.",
    (None, "Enter an alias and the address it stands for. Neither may be empty, longer than 255 characters, "
           "or contain blanks, commas, double quotes or control characters."):
        "Geben Sie einen Alias und die Adresse ein, für die er steht. Keines von beiden darf leer oder länger "
        "als 255 Zeichen sein oder Leerzeichen, Kommas, doppelte Anführungszeichen oder Steuerzeichen enthalten.",
    (None, "Cannot read the server's aliases."): "Die Aliasse des Servers können nicht gelesen werden.",
    (None, "Cannot save the server's aliases."): "Die Aliasse des Servers können nicht gespeichert werden.",
    (None, "There were %1 errors when processing the file.\n\nPress OK to keep the %2 aliases that were read, "
           "or Cancel to keep the list as it was."):
        "Beim Verarbeiten der Datei traten %1 Fehler auf.\n\nKlicken Sie auf OK, um die %2 gelesenen Aliasse zu "
        "übernehmen, oder auf Abbrechen, um die Liste unverändert zu lassen.",
    (None, "There were I/O errors when processing the file %1."):
        "Beim Verarbeiten der Datei %1 traten Ein-/Ausgabefehler auf.",
    (None, "%1 aliases"): "%1 Aliasse",
    (None, "%1 of %2 aliases"): "%1 von %2 Aliassen",
    # The domain sheet
    (None, "Cannot open domain %1."): "Die Domäne %1 kann nicht geöffnet werden.",
    (None, "%1 on "): "%1 auf ",
    (None, "General"): "Allgemein",
    (None, "Mailbox &root directory:"): "&Stammverzeichnis der Postfächer:",
    (None, "&Browse..."): "D&urchsuchen...",
    (None, "Multi-level mailbox directories"): "Mehrstufige Postfachverzeichnisse",
    (None, "IP &Address:"): "IP-&Adresse:",
    (None, "&Copy local failure reports for this domain to postmaster "):
        "Lokale Fehlerberichte dieser Domäne in &Kopie an den Postmaster ",
    (None, "Max mailbo&xes:"): "Max. Post&fächer:",
    (None, "Max mail &lists:"): "Max. Mail&listen:",
    (None, "Enable calendaring for all mailboxes in this domain"):
        "Kalenderfunktion für alle Postfächer dieser Domäne aktivieren",
    (None, "Disable calendaring for this domain"): "Kalenderfunktion für diese Domäne deaktivieren",
    (None, "Enable calendaring for configured mailboxes in this domain"):
        "Kalenderfunktion für eingerichtete Postfächer dieser Domäne aktivieren",
    (None, "Mail list root directory:"): "Stammverzeichnis der Mailinglisten:",
    (None, "Domain Quotas"): "Domänenkontingente",
    (None, "Track domain size in real time"): "Domänengröße in Echtzeit verfolgen",
    (None, "(not recommended for large or busy domains)"): "(nicht empfohlen für große oder stark genutzte Domänen)",
    (None, "&Domain quota limit (kB):"): "&Domänenkontingent (kB):",
    (None, "D&omain warning level (kB):"): "Domänen-&Warnstufe (kB):",
    (None, "Default mailbox &quota limit (kB):"): "Standard-&Postfachkontingent (kB):",
    (None, "Default mailbox &warning level (kB):"): "Standard-Postfach-Wa&rnstufe (kB):",
    (None, "Domain size: %ukB (%u messages) in %u mailboxes\r\n(Last verified: %s)."):
        "Domänengröße: %ukB (%u Nachrichten) in %u Postfächern\r\n(Zuletzt geprüft: %s).",
    (None, "NOTE - there are currently %1 mailboxes in the domain."):
        "HINWEIS - die Domäne enthält derzeit %1 Postfächer.",
    (None, "NOTE - there are currently %1 mail lists in the domain."):
        "HINWEIS - die Domäne enthält derzeit %1 Mailinglisten.",
    (None, "Warning!  Any existing mailbox directories will be inaccessible.\n"
           "Please use the TVCVTDIR utility to convert existing mailbox directories."):
        "Achtung!  Vorhandene Postfachverzeichnisse werden unzugänglich.\n"
        "Bitte wandeln Sie vorhandene Postfachverzeichnisse mit dem Programm TVCVTDIR um.",
    (None, "When using a clustered configuration, you should specify a UNC path for the mailbox root directory.  "
           "Otherwise, the directory may be inaccessible to the other mail servers in the cluster.\n\n You should "
           "only specify a drive letter if using the Registry connector."):
        "In einer Cluster-Konfiguration sollten Sie für das Stammverzeichnis der Postfächer einen UNC-Pfad "
        "angeben.  Andernfalls ist das Verzeichnis für die anderen Mailserver des Clusters womöglich nicht "
        "erreichbar.\n\n Geben Sie nur mit dem Registry-Connector einen Laufwerksbuchstaben an.",
    (None, "When using a clustered configuration, you should specify a UNC path for the mail list root directory.  "
           "Otherwise, the directory may be inaccessible to the other mail servers in the cluster.\n\n You should "
           "only specify a drive letter if using the Registry connector."):
        "In einer Cluster-Konfiguration sollten Sie für das Stammverzeichnis der Mailinglisten einen UNC-Pfad "
        "angeben.  Andernfalls ist das Verzeichnis für die anderen Mailserver des Clusters womöglich nicht "
        "erreichbar.\n\n Geben Sie nur mit dem Registry-Connector einen Laufwerksbuchstaben an.",
    (None, "Cannot set MaxMailboxes."): "MaxMailboxes kann nicht gesetzt werden.",
    (None, "Cannot set MaxMailLists."): "MaxMailLists kann nicht gesetzt werden.",
    (None, "Cannot set quota limit"): "Die Kontingentgrenze kann nicht gesetzt werden",
    (None, "Cannot set quota warning level"): "Die Kontingent-Warnstufe kann nicht gesetzt werden",
    (None, "Cannot set quota real time tracking"): "Die Echtzeitverfolgung des Kontingents kann nicht gesetzt werden",
    (None, "unlimited"): "unbegrenzt",
    (None, "default"): "Standard",
    (None, "<none>"): "<keine>",
    (None, "Relay Host"): "Relay-Host",
    (None, "&Enable domain forwarding for this domain"): "Domänenweiterleitung für diese Domäne &aktivieren",
    (None, "If domain forwarding is enabled, any non-local mail addressed to this domain will be forwarded to "
           "the host specified below."):
        "Ist die Domänenweiterleitung aktiviert, wird jede nicht lokale Mail an diese Domäne an den unten "
        "angegebenen Host weitergeleitet.",
    (None, "Relay &host (domain name or IP address):"): "Relay-&Host (Domänenname oder IP-Adresse):",
    (None, "&Reattempt delivery to this host now!"): "Zustellung an diesen Host jetzt &erneut versuchen!",
    (None, "Bad domain name or IP address"): "Ungültiger Domänenname oder ungültige IP-Adresse",
    (None, "The mail server has been asked to reattempt delivery to %1 now."):
        "Der Mailserver wurde gebeten, die Zustellung an %1 jetzt erneut zu versuchen.",
    (None, "Cannot ask the mail server to reattempt delivery to %1."):
        "Der Mailserver kann nicht gebeten werden, die Zustellung an %1 erneut zu versuchen.",
    (None, "SMTP Bytes Relayed:"): "SMTP-Bytes weitergeleitet:",
    (None, "Statistics"): "Statistik",
    (None, "Traffic"): "Verkehr",
    (None, "&Reset"): "&Zurücksetzen",
    (None, "Statistics Since: %s"): "Statistik seit: %s",
    (None, "Aliases"): "Aliasse",
    (None, "Other names of this domain's mailboxes. Aliases are added and removed on the mailbox they belong to."):
        "Weitere Namen der Postfächer dieser Domäne. Aliasse werden beim Postfach hinzugefügt und entfernt, "
        "zu dem sie gehören.",
    (None, "%1 delivers to %2"): "%1 stellt an %2 zu",
    (None, "%1: the mailbox cannot be read"): "%1: Das Postfach kann nicht gelesen werden",
    (None, "Cannot read the alias names of the domain %1."): "Die Aliasnamen der Domäne %1 können nicht gelesen werden.",
    (None, "%1 of %2 alias names"): "%1 von %2 Aliasnamen",
    (None, "Synonyms"): "Synonyme",
    (None, "Mail addressed to any of these names is delivered to this domain."):
        "Mail an einen dieser Namen wird dieser Domäne zugestellt.",
    (None, "Re&name"): "&Umbenennen",
    (None, "&Synonym (another name of this domain):"): "&Synonym (anderer Name dieser Domäne):",
    (None, "\"%1\" is not a valid domain name. A synonym is a name such as mail.example.com."):
        "„%1“ ist kein gültiger Domänenname. Ein Synonym ist ein Name wie mail.example.com.",
    (None, "%1 is already a synonym of the domain %2."): "%1 ist bereits ein Synonym der Domäne %2.",
    (None, "%1 is a domain of this server and cannot be a synonym."):
        "%1 ist eine Domäne dieses Servers und kann kein Synonym sein.",
    (None, "%1 is already a synonym of this domain."): "%1 ist bereits ein Synonym dieser Domäne.",
    (None, "Cannot add the synonym %1."): "Das Synonym %1 kann nicht hinzugefügt werden.",
    (None, "Cannot remove the synonym %1."): "Das Synonym %1 kann nicht entfernt werden.",
    (None, "Cannot read the synonyms of the domain %1."): "Die Synonyme der Domäne %1 können nicht gelesen werden.",
    # Delivery schedules and routing
    (None, "Delivery Schedule Management on %1"): "Zustellpläne auf %1",
    (None, "&Use the Elapsed Time schedule for the following list of domains:"):
        "Den Zeitplan nach verstrichener Zeit für folgende Domänen &verwenden:",
    (None, "All other domains use the time-of-day schedule."): "Alle anderen Domänen verwenden den Tageszeitplan.",
    (None, "Reattempt delivery"): "Zustellung erneut versuchen",
    (None, "&Enter a list of domains to which delivery should be reattempted:"):
        "&Domänen, an die die Zustellung erneut versucht werden soll:",
    (None, "&Reattempt delivery to these domains now!"): "Zustellung an diese Domänen jetzt &erneut versuchen!",
    (None, "Time-of-day Delivery Schedule on %1"): "Tageszeit-Zustellplan auf %1",
    (None, "Delivery times"): "Zustellzeiten",
    (None, "Monday to Friday:"): "Montag bis Freitag:",
    (None, "Saturday and Sunday:"): "Samstag und Sonntag:",
    (None, "Week&days..."): "&Werktage...",
    (None, "Week&ends..."): "Wochen&ende...",
    (None, "Dial-up link"): "Wählverbindung",
    (None, "State:"): "Zustand:",
    (None, "&Connect"): "&Verbinden",
    (None, "D&isconnect"): "&Trennen",
    (None, "Elapsed Time Delivery Schedule on %1"): "Zustellplan nach verstrichener Zeit auf %1",
    (None, "&Time after the initial attempt:"): "&Zeit nach dem ersten Versuch:",
    (None, "For example: 1 day 20 minutes, 2 hours, 3d12h"): "Zum Beispiel: 1 day 20 minutes, 2 hours, 3d12h",
    (None, "Add >>>"): "Hinzufügen >>>",
    (None, "Remove"): "Entfernen",
    (None, "Default schedule"): "Standardzeitplan",
    (None, "Delivery &attempts:"): "Zustell&versuche:",
    (None, "At a checked attempt the sender is told\nthat the message is delayed."):
        "Bei einem markierten Versuch erfährt der Absender,\ndass sich die Nachricht verzögert.",
    (None, "Routes for %1"): "Routen für %1",
    (None, "Host"): "Host",
    (None, "Port"): "Port",
    (None, "Preference"): "Präferenz",
    (None, "&Host:"): "&Host:",
    (None, "P&ort:"): "P&ort:",
    (None, "P&reference:"): "P&räferenz:",
    (None, "Add"): "Hinzufügen",
    (None, "Routing on %1"): "Routing auf %1",
    (None, "Domain mask"): "Domänenmaske",
    (None, "Rule for using"): "Verwendungsregel",
    (None, "Domain mas&k:"): "Domänen&maske:",
    (None, "Rule for using the routes"): "Regel für die Verwendung der Routen",
    (None, "&Force"): "&Erzwingen",
    (None, "Defaul&t"): "S&tandard",
    (None, "Additiona&l"): "Zusätz&lich",
    (None, "D&elete"): "&Löschen",
    (None, "&Up"): "Nach &oben",
    (None, "&Down"): "Nach &unten",
    (None, "&Routes..."): "&Routen...",
    (None, "&Time (hhmm):"): "&Uhrzeit (hhmm):",
    (None, "&Add >>>"): "Hin&zufügen >>>",
    (None, "&Remove"): "&Entfernen",
    (None, "&Delivery times:"): "Zu&stellzeiten:",
    (None, "A checked time also forces a dial-up\nconnection when no mail is waiting."):
        "Eine markierte Uhrzeit erzwingt auch dann eine Wähl-\nverbindung, wenn keine Mail wartet.",
    (None, "<initial attempt>"): "<erster Versuch>",
    (None, "%d day "): "%d Tag ",
    (None, "%d days "): "%d Tage ",
    (None, "%d hour "): "%d Stunde ",
    (None, "%d hours "): "%d Stunden ",
    (None, "%d minute"): "%d Minute",
    (None, "%d minutes"): "%d Minuten",
    (None, "The retry schedule is full."): "Der Zeitplan für Zustellversuche ist voll.",
    (None, "Error saving delivery retry schedule"): "Fehler beim Speichern des Zeitplans für Zustellversuche",
    (None, "Weekday Delivery Schedule"): "Zustellplan für Werktage",
    (None, "Weekend Delivery Schedule"): "Zustellplan für das Wochenende",
    (None, "No delivery times"): "Keine Zustellzeiten",
    (None, "%1 (dial-up)"): "%1 (Wählverbindung)",
    (None, "and %1 more"): "und %1 weitere",
    (None, "Disconnected"): "Getrennt",
    (None, "Connecting"): "Wird verbunden",
    (None, "Connected"): "Verbunden",
    (None, "Disconnecting"): "Wird getrennt",
    (None, "Could not connect the dial-up link"): "Die Wählverbindung konnte nicht hergestellt werden",
    (None, "Could not disconnect the dial-up link"): "Die Wählverbindung konnte nicht getrennt werden",
    (None, "Error saving Elapsed Time Schedule domain list"):
        "Fehler beim Speichern der Domänenliste des Zeitplans nach verstrichener Zeit",
    (None, "Additional"): "Zusätzlich",
    (None, "Force"): "Erzwingen",
    (None, "Default"): "Standard",
    (None, "The following domain masks do not have routes associated with them.\nThese domain masks can not be "
           "saved.\n\n%1"):
        "Den folgenden Domänenmasken sind keine Routen zugeordnet.\nDiese Domänenmasken können nicht "
        "gespeichert werden.\n\n%1",
    (None, "<...more...>\n"): "<...weitere...>\n",
    (None, "Error saving manual route table"): "Fehler beim Speichern der Routentabelle",
    (None, "Error loading manual route table. The table cannot be changed."):
        "Fehler beim Laden der Routentabelle. Die Tabelle kann nicht geändert werden.",
    (None, "Could not keep the changed hosts; the hosts as they were are kept."):
        "Die geänderten Hosts konnten nicht übernommen werden; die bisherigen Hosts bleiben erhalten.",
    # The console's command line
    ("velbrook-console", "Administration console of the Velbrook mail server."):
        "Verwaltungskonsole des Velbrook-Mailservers.",
    ("velbrook-console", "Open the configuration store at <location> (file or URI)."):
        "Den Konfigurationsspeicher unter <location> öffnen (Datei oder URI).",
    ("velbrook-console", "Render every available dialog to <dir>/<EntryPoint>.png and exit."):
        "Jeden verfügbaren Dialog als <dir>/<EntryPoint>.png speichern und beenden.",
    ("velbrook-console", "The store to open (as --store)."): "Der zu öffnende Speicher (wie --store).",
}


def ts_text(element) -> str:
    """The text of a <source> or <translation>, with the characters lupdate writes as
    <byte value="xd"/> (carriage returns and other control characters) put back."""
    if element is None:
        return ""
    parts = [element.text or ""]
    for child in element:
        if child.tag == "byte":
            value = child.get("value")
            parts.append(chr(int(value[1:], 16) if value.startswith("x") else int(value)))
        parts.append(child.tail or "")
    return "".join(parts)


def set_ts_text(element, text: str) -> None:
    """Writes text into element the way lupdate does: control characters other than line feeds and
    tabs as <byte value=".."/>."""
    for child in list(element):
        element.remove(child)
    pieces = [""]
    for ch in text:
        if ord(ch) < 0x20 and ch not in "\n\t":
            pieces.append(ch)
            pieces.append("")
        else:
            pieces[-1] += ch
    element.text = pieces[0]
    last = None
    for i in range(1, len(pieces), 2):
        last = ET.SubElement(element, "byte", value="x" + format(ord(pieces[i]), "x"))
        last.tail = pieces[i + 1]


def main() -> int:
    path = Path(__file__).with_name("tavidlg_de.ts")
    tree = ET.parse(path)
    missing = []
    for context in tree.getroot().iter("context"):
        name = context.findtext("name")
        for message in context.iter("message"):
            source = ts_text(message.find("source"))
            translation = message.find("translation")
            german = GERMAN.get((name, source), GERMAN.get((None, source)))
            if german is not None:
                set_ts_text(translation, german)
                translation.attrib.pop("type", None)
            elif translation.get("type") == "unfinished" or not ts_text(translation):
                missing.append((name, source))
    with open(path, "wb") as out:
        out.write(b'<?xml version="1.0" encoding="utf-8"?>\n<!DOCTYPE TS>\n')
        tree.write(out, encoding="utf-8", xml_declaration=False)
        out.write(b"\n")
    for context, source in missing:
        # As entries for GERMAN, ready to be given their German.
        print(f"    ({context!r}, {source!r}): ,")
    return 1 if missing else 0


if __name__ == "__main__":
    sys.exit(main())
