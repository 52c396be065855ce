<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE">
<context>
    <name>CAliasDlg</name>
    <message>
        <source>Alias</source>
        <translation>Alias</translation>
    </message>
    <message>
        <source>Stands for</source>
        <translation>Steht für</translation>
    </message>
    <message>
        <source>Aliases on %1</source>
        <translation>Aliasse auf %1</translation>
    </message>
    <message>
        <source>&amp;Alias (address or domain):</source>
        <translation>&amp;Alias (Adresse oder Domäne):</translation>
    </message>
    <message>
        <source>&amp;Stands for:</source>
        <translation>&amp;Steht für:</translation>
    </message>
    <message>
        <source>A&amp;dd</source>
        <translation>Hin&amp;zufügen</translation>
    </message>
    <message>
        <source>&amp;Modify</source>
        <translation>Ä&amp;ndern</translation>
    </message>
    <message>
        <source>De&amp;lete</source>
        <translation>&amp;Löschen</translation>
    </message>
    <message>
        <source>&amp;Find:</source>
        <translation>Su&amp;chen:</translation>
    </message>
    <message>
        <source>&amp;Import...</source>
        <translation>&amp;Importieren...</translation>
    </message>
    <message>
        <source>E&amp;xport...</source>
        <translation>E&amp;xportieren...</translation>
    </message>
</context>
<context>
    <name>CDeliveryScheduleMasterDlg</name>
    <message>
        <source>Delivery Schedule Management on %1</source>
        <translation>Zustellpläne auf %1</translation>
    </message>
    <message>
        <source>&amp;Use the Elapsed Time schedule for the following list of domains:</source>
        <translation>Den Zeitplan nach verstrichener Zeit für folgende Domänen &amp;verwenden:</translation>
    </message>
    <message>
        <source>All other domains use the time-of-day schedule.</source>
        <translation>Alle anderen Domänen verwenden den Tageszeitplan.</translation>
    </message>
    <message>
        <source>Reattempt delivery</source>
        <translation>Zustellung erneut versuchen</translation>
    </message>
    <message>
        <source>&amp;Enter a list of domains to which delivery should be reattempted:</source>
        <translation>&amp;Domänen, an die die Zustellung erneut versucht werden soll:</translation>
    </message>
    <message>
        <source>&amp;Reattempt delivery to these domains now!</source>
        <translation>Zustellung an diese Domänen jetzt &amp;erneut versuchen!</translation>
    </message>
</context>
<context>
    <name>CDialupScheduleDlg</name>
    <message>
        <source>Time-of-day Delivery Schedule on %1</source>
        <translation>Tageszeit-Zustellplan auf %1</translation>
    </message>
    <message>
        <source>Delivery times</source>
        <translation>Zustellzeiten</translation>
    </message>
    <message>
        <source>Monday to Friday:</source>
        <translation>Montag bis Freitag:</translation>
    </message>
    <message>
        <source>Saturday and Sunday:</source>
        <translation>Samstag und Sonntag:</translation>
    </message>
    <message>
        <source>Week&amp;days...</source>
        <translation>&amp;Werktage...</translation>
    </message>
    <message>
        <source>Week&amp;ends...</source>
        <translation>Wochen&amp;ende...</translation>
    </message>
    <message>
        <source>Dial-up link</source>
        <translation>Wählverbindung</translation>
    </message>
    <message>
        <source>State:</source>
        <translation>Zustand:</translation>
    </message>
    <message>
        <source>&amp;Connect</source>
        <translation>&amp;Verbinden</translation>
    </message>
    <message>
        <source>D&amp;isconnect</source>
        <translation>&amp;Trennen</translation>
    </message>
</context>
<context>
    <name>CDomainAliasesPage</name>
    <message>
        <source>Aliases</source>
        <translation>Aliasse</translation>
    </message>
    <message>
        <source>Other names of this domain's mailboxes. Aliases are added and removed on the mailbox they belong to.</source>
        <translation>Weitere Namen der Postfächer dieser Domäne. Aliasse werden beim Postfach hinzugefügt und entfernt, zu dem sie gehören.</translation>
    </message>
    <message>
        <source>&amp;Find:</source>
        <translation>Su&amp;chen:</translation>
    </message>
    <message>
        <source>%1 delivers to %2</source>
        <translation>%1 stellt an %2 zu</translation>
    </message>
    <message>
        <source>%1: the mailbox cannot be read</source>
        <translation>%1: Das Postfach kann nicht gelesen werden</translation>
    </message>
</context>
<context>
    <name>CDomainForwardingPage</name>
    <message>
        <source>Relay Host</source>
        <translation>Relay-Host</translation>
    </message>
    <message>
        <source>&amp;Enable domain forwarding for this domain</source>
        <translation>Domänenweiterleitung für diese Domäne &amp;aktivieren</translation>
    </message>
    <message>
        <source>If domain forwarding is enabled, any non-local mail addressed to this domain will be forwarded to the host specified below.</source>
        <translation>Ist die Domänenweiterleitung aktiviert, wird jede nicht lokale Mail an diese Domäne an den unten angegebenen Host weitergeleitet.</translation>
    </message>
    <message>
        <source>Relay &amp;host (domain name or IP address):</source>
        <translation>Relay-&amp;Host (Domänenname oder IP-Adresse):</translation>
    </message>
    <message>
        <source>&amp;Reattempt delivery to this host now!</source>
        <translation>Zustellung an diesen Host jetzt &amp;erneut versuchen!</translation>
    </message>
</context>
<context>
    <name>CDomainGeneralPage</name>
    <message>
        <source>General</source>
        <translation>Allgemein</translation>
    </message>
    <message>
        <source>Mailbox &amp;root directory:</source>
        <translation>&amp;Stammverzeichnis der Postfächer:</translation>
    </message>
    <message>
        <source>&amp;Browse...</source>
        <translation>D&amp;urchsuchen...</translation>
    </message>
    <message>
        <source>Multi-level mailbox directories</source>
        <translation>Mehrstufige Postfachverzeichnisse</translation>
    </message>
    <message>
        <source>IP &amp;Address:</source>
        <translation>IP-&amp;Adresse:</translation>
    </message>
    <message>
        <source>&amp;Copy local failure reports for this domain to postmaster </source>
        <translation>Lokale Fehlerberichte dieser Domäne in &amp;Kopie an den Postmaster </translation>
    </message>
    <message>
        <source>Max mailbo&amp;xes:</source>
        <translation>Max. Post&amp;fächer:</translation>
    </message>
    <message>
        <source>Max mail &amp;lists:</source>
        <translation>Max. Mail&amp;listen:</translation>
    </message>
    <message>
        <source>Calendaring</source>
        <translation>Kalender</translation>
    </message>
    <message>
        <source>Enable calendaring for all mailboxes in this domain</source>
        <translation>Kalenderfunktion für alle Postfächer dieser Domäne aktivieren</translation>
    </message>
    <message>
        <source>Disable calendaring for this domain</source>
        <translation>Kalenderfunktion für diese Domäne deaktivieren</translation>
    </message>
    <message>
        <source>Enable calendaring for configured mailboxes in this domain</source>
        <translation>Kalenderfunktion für eingerichtete Postfächer dieser Domäne aktivieren</translation>
    </message>
    <message>
        <source>Mail list root directory:</source>
        <translation>Stammverzeichnis der Mailinglisten:</translation>
    </message>
    <message>
        <source>Browse...</source>
        <translation>Durchsuchen...</translation>
    </message>
    <message>
        <source>Domain Quotas</source>
        <translation>Domänenkontingente</translation>
    </message>
    <message>
        <source>Values are for reporting purposes only and are not
automatically enforced</source>
        <translation>Die Werte dienen nur Berichten und werden nicht
automatisch durchgesetzt</translation>
    </message>
    <message>
        <source>Track domain size in real time</source>
        <translation>Domänengröße in Echtzeit verfolgen</translation>
    </message>
    <message>
        <source>(not recommended for large or busy domains)</source>
        <translation>(nicht empfohlen für große oder stark genutzte Domänen)</translation>
    </message>
    <message>
        <source>&amp;Domain quota limit (kB):</source>
        <translation>&amp;Domänenkontingent (kB):</translation>
    </message>
    <message>
        <source>D&amp;omain warning level (kB):</source>
        <translation>Domänen-&amp;Warnstufe (kB):</translation>
    </message>
    <message>
        <source>Default mailbox &amp;quota limit (kB):</source>
        <translation>Standard-&amp;Postfachkontingent (kB):</translation>
    </message>
    <message>
        <source>Default mailbox &amp;warning level (kB):</source>
        <translation>Standard-Postfach-Wa&amp;rnstufe (kB):</translation>
    </message>
</context>
<context>
    <name>CDomainSynonymsPage</name>
    <message>
        <source>Synonyms</source>
        <translation>Synonyme</translation>
    </message>
    <message>
        <source>Mail addressed to any of these names is delivered to this domain.</source>
        <translation>Mail an einen dieser Namen wird dieser Domäne zugestellt.</translation>
    </message>
    <message>
        <source>A&amp;dd</source>
        <translation>Hin&amp;zufügen</translation>
    </message>
    <message>
        <source>Re&amp;name</source>
        <translation>&amp;Umbenennen</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>&amp;Löschen</translation>
    </message>
</context>
<context>
    <name>CDomainTrafficPage</name>
    <message>
        <source>RCPT Commands:</source>
        <translation>RCPT-Befehle:</translation>
    </message>
    <message>
        <source>SMTP Bytes Sent:</source>
        <translation>SMTP-Bytes gesendet:</translation>
    </message>
    <message>
        <source>SMTP Bytes Received:</source>
        <translation>SMTP-Bytes empfangen:</translation>
    </message>
    <message>
        <source>SMTP Bytes Relayed:</source>
        <translation>SMTP-Bytes weitergeleitet:</translation>
    </message>
    <message>
        <source>IMAP Bytes Sent:</source>
        <translation>IMAP-Bytes gesendet:</translation>
    </message>
    <message>
        <source>IMAP Bytes Received:</source>
        <translation>IMAP-Bytes empfangen:</translation>
    </message>
    <message>
        <source>POP Bytes Sent:</source>
        <translation>POP-Bytes gesendet:</translation>
    </message>
    <message>
        <source>POP Bytes Received:</source>
        <translation>POP-Bytes empfangen:</translation>
    </message>
    <message>
        <source>Statistics</source>
        <translation>Statistik</translation>
    </message>
    <message>
        <source>Traffic</source>
        <translation>Verkehr</translation>
    </message>
    <message>
        <source>&amp;Reset</source>
        <translation>&amp;Zurücksetzen</translation>
    </message>
</context>
<context>
    <name>CElTimeScheduleDlg</name>
    <message>
        <source>Elapsed Time Delivery Schedule on %1</source>
        <translation>Zustellplan nach verstrichener Zeit auf %1</translation>
    </message>
    <message>
        <source>&amp;Time after the initial attempt:</source>
        <translation>&amp;Zeit nach dem ersten Versuch:</translation>
    </message>
    <message>
        <source>For example: 1 day 20 minutes, 2 hours, 3d12h</source>
        <translation>Zum Beispiel: 1 day 20 minutes, 2 hours, 3d12h</translation>
    </message>
    <message>
        <source>Add &gt;&gt;&gt;</source>
        <translation>Hinzufügen &gt;&gt;&gt;</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>Default schedule</source>
        <translation>Standardzeitplan</translation>
    </message>
    <message>
        <source>Delivery &amp;attempts:</source>
        <translation>Zustell&amp;versuche:</translation>
    </message>
    <message>
        <source>At a checked attempt the sender is told
that the message is delayed.</source>
        <translation>Bei einem markierten Versuch erfährt der Absender,
dass sich die Nachricht verzögert.</translation>
    </message>
</context>
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
    <name>CManualRouteDlg</name>
    <message>
        <source>Routes for %1</source>
        <translation>Routen für %1</translation>
    </message>
    <message>
        <source>Host</source>
        <translation>Host</translation>
    </message>
    <message>
        <source>Port</source>
        <translation>Port</translation>
    </message>
    <message>
        <source>Preference</source>
        <translation>Präferenz</translation>
    </message>
    <message>
        <source>&amp;Host:</source>
        <translation>&amp;Host:</translation>
    </message>
    <message>
        <source>P&amp;ort:</source>
        <translation>P&amp;ort:</translation>
    </message>
    <message>
        <source>P&amp;reference:</source>
        <translation>P&amp;räferenz:</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Hinzufügen</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>&amp;Löschen</translation>
    </message>
    <message>
        <source>Modify</source>
        <translation>Ändern</translation>
    </message>
</context>
<context>
    <name>CRoutingDlg</name>
    <message>
        <source>Routing on %1</source>
        <translation>Routing auf %1</translation>
    </message>
    <message>
        <source>Domain mask</source>
        <translation>Domänenmaske</translation>
    </message>
    <message>
        <source>Rule for using</source>
        <translation>Verwendungsregel</translation>
    </message>
    <message>
        <source>Domain mas&amp;k:</source>
        <translation>Domänen&amp;maske:</translation>
    </message>
    <message>
        <source>Rule for using the routes</source>
        <translation>Regel für die Verwendung der Routen</translation>
    </message>
    <message>
        <source>&amp;Force</source>
        <translation>&amp;Erzwingen</translation>
    </message>
    <message>
        <source>Defaul&amp;t</source>
        <translation>S&amp;tandard</translation>
    </message>
    <message>
        <source>Additiona&amp;l</source>
        <translation>Zusätz&amp;lich</translation>
    </message>
    <message>
        <source>&amp;Add</source>
        <translation>Hin&amp;zufügen</translation>
    </message>
    <message>
        <source>D&amp;elete</source>
        <translation>&amp;Löschen</translation>
    </message>
    <message>
        <source>&amp;Up</source>
        <translation>Nach &amp;oben</translation>
    </message>
    <message>
        <source>&amp;Down</source>
        <translation>Nach &amp;unten</translation>
    </message>
    <message>
        <source>&amp;Routes...</source>
        <translation>&amp;Routen...</translation>
    </message>
</context>
<context>
    <name>CToDScheduleDlg</name>
    <message>
        <source>&amp;Time (hhmm):</source>
        <translation>&amp;Uhrzeit (hhmm):</translation>
    </message>
    <message>
        <source>&amp;Add &gt;&gt;&gt;</source>
        <translation>Hin&amp;zufügen &gt;&gt;&gt;</translation>
    </message>
    <message>
        <source>&amp;Remove</source>
        <translation>&amp;Entfernen</translation>
    </message>
    <message>
        <source>&amp;Delivery times:</source>
        <translation>Zu&amp;stellzeiten:</translation>
    </message>
    <message>
        <source>A checked time also forces a dial-up
connection when no mail is waiting.</source>
        <translation>Eine markierte Uhrzeit erzwingt auch dann eine Wähl-
verbindung, wenn keine Mail wartet.</translation>
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
    <name>TaviStrings</name>
    <message>
        <source>Cannot open domain %1.</source>
        <translation>Die Domäne %1 kann nicht geöffnet werden.</translation>
    </message>
    <message>
        <source>%1 on </source>
        <translation>%1 auf </translation>
    </message>
    <message>
        <source>Domain size: %ukB (%u messages) in %u mailboxes<byte value="xd" />
(Last verified: %s).</source>
        <translation>Domänengröße: %ukB (%u Nachrichten) in %u Postfächern<byte value="xd" />
(Zuletzt geprüft: %s).</translation>
    </message>
    <message>
        <source>NOTE - there are currently %1 mailboxes in the domain.</source>
        <translation>HINWEIS - die Domäne enthält derzeit %1 Postfächer.</translation>
    </message>
    <message>
        <source>NOTE - there are currently %1 mail lists in the domain.</source>
        <translation>HINWEIS - die Domäne enthält derzeit %1 Mailinglisten.</translation>
    </message>
    <message>
        <source>Warning!  Any existing mailbox directories will be inaccessible.
Please use the TVCVTDIR utility to convert existing mailbox directories.</source>
        <translation>Achtung!  Vorhandene Postfachverzeichnisse werden unzugänglich.
Bitte wandeln Sie vorhandene Postfachverzeichnisse mit dem Programm TVCVTDIR um.</translation>
    </message>
    <message>
        <source>When using a clustered configuration, you should specify a UNC path for the mailbox root directory.  Otherwise, the directory may be inaccessible to the other mail servers in the cluster.

 You should only specify a drive letter if using the Registry connector.</source>
        <translation>In einer Cluster-Konfiguration sollten Sie für das Stammverzeichnis der Postfächer einen UNC-Pfad angeben.  Andernfalls ist das Verzeichnis für die anderen Mailserver des Clusters womöglich nicht erreichbar.

 Geben Sie nur mit dem Registry-Connector einen Laufwerksbuchstaben an.</translation>
    </message>
    <message>
        <source>When using a clustered configuration, you should specify a UNC path for the mail list root directory.  Otherwise, the directory may be inaccessible to the other mail servers in the cluster.

 You should only specify a drive letter if using the Registry connector.</source>
        <translation>In einer Cluster-Konfiguration sollten Sie für das Stammverzeichnis der Mailinglisten einen UNC-Pfad angeben.  Andernfalls ist das Verzeichnis für die anderen Mailserver des Clusters womöglich nicht erreichbar.

 Geben Sie nur mit dem Registry-Connector einen Laufwerksbuchstaben an.</translation>
    </message>
    <message>
        <source>Cannot set MaxMailboxes.</source>
        <translation>MaxMailboxes kann nicht gesetzt werden.</translation>
    </message>
    <message>
        <source>Cannot set MaxMailLists.</source>
        <translation>MaxMailLists kann nicht gesetzt werden.</translation>
    </message>
    <message>
        <source>Cannot set quota limit</source>
        <translation>Die Kontingentgrenze kann nicht gesetzt werden</translation>
    </message>
    <message>
        <source>Cannot set quota warning level</source>
        <translation>Die Kontingent-Warnstufe kann nicht gesetzt werden</translation>
    </message>
    <message>
        <source>Cannot set quota real time tracking</source>
        <translation>Die Echtzeitverfolgung des Kontingents kann nicht gesetzt werden</translation>
    </message>
    <message>
        <source>unlimited</source>
        <translation>unbegrenzt</translation>
    </message>
    <message>
        <source>default</source>
        <translation>Standard</translation>
    </message>
    <message>
        <source>none</source>
        <translation>keine</translation>
    </message>
    <message>
        <source>&lt;none&gt;</source>
        <translation>&lt;keine&gt;</translation>
    </message>
    <message>
        <source>Bad domain name or IP address</source>
        <translation>Ungültiger Domänenname oder ungültige IP-Adresse</translation>
    </message>
    <message>
        <source>The mail server has been asked to reattempt delivery to %1 now.</source>
        <translation>Der Mailserver wurde gebeten, die Zustellung an %1 jetzt erneut zu versuchen.</translation>
    </message>
    <message>
        <source>Cannot ask the mail server to reattempt delivery to %1.</source>
        <translation>Der Mailserver kann nicht gebeten werden, die Zustellung an %1 erneut zu versuchen.</translation>
    </message>
    <message>
        <source>Statistics Since: %s</source>
        <translation>Statistik seit: %s</translation>
    </message>
    <message>
        <source>"%1" is not a valid domain name. A synonym is a name such as mail.example.com.</source>
        <translation>„%1“ ist kein gültiger Domänenname. Ein Synonym ist ein Name wie mail.example.com.</translation>
    </message>
    <message>
        <source>%1 is already a synonym of the domain %2.</source>
        <translation>%1 ist bereits ein Synonym der Domäne %2.</translation>
    </message>
    <message>
        <source>%1 is a domain of this server and cannot be a synonym.</source>
        <translation>%1 ist eine Domäne dieses Servers und kann kein Synonym sein.</translation>
    </message>
    <message>
        <source>%1 is already a synonym of this domain.</source>
        <translation>%1 ist bereits ein Synonym dieser Domäne.</translation>
    </message>
    <message>
        <source>Cannot add the synonym %1.</source>
        <translation>Das Synonym %1 kann nicht hinzugefügt werden.</translation>
    </message>
    <message>
        <source>Cannot remove the synonym %1.</source>
        <translation>Das Synonym %1 kann nicht entfernt werden.</translation>
    </message>
    <message>
        <source>&amp;Synonym (another name of this domain):</source>
        <translation>&amp;Synonym (anderer Name dieser Domäne):</translation>
    </message>
    <message>
        <source>Cannot read the alias names of the domain %1.</source>
        <translation>Die Aliasnamen der Domäne %1 können nicht gelesen werden.</translation>
    </message>
    <message>
        <source>%1 of %2 alias names</source>
        <translation>%1 von %2 Aliasnamen</translation>
    </message>
    <message>
        <source>Cannot read the synonyms of the domain %1.</source>
        <translation>Die Synonyme der Domäne %1 können nicht gelesen werden.</translation>
    </message>
    <message>
        <source>The alias %1 is already in the list.</source>
        <translation>Der Alias %1 steht bereits in der Liste.</translation>
    </message>
    <message>
        <source>Enter an alias and the address it stands for. Neither may be empty, longer than 255 characters, or contain blanks, commas, double quotes or control characters.</source>
        <translation>Geben Sie einen Alias und die Adresse ein, für die er steht. Keines von beiden darf leer oder länger als 255 Zeichen sein oder Leerzeichen, Kommas, doppelte Anführungszeichen oder Steuerzeichen enthalten.</translation>
    </message>
    <message>
        <source>Cannot read the server's aliases.</source>
        <translation>Die Aliasse des Servers können nicht gelesen werden.</translation>
    </message>
    <message>
        <source>Cannot save the server's aliases.</source>
        <translation>Die Aliasse des Servers können nicht gespeichert werden.</translation>
    </message>
    <message>
        <source>There were %1 errors when processing the file.

Press OK to keep the %2 aliases that were read, or Cancel to keep the list as it was.</source>
        <translation>Beim Verarbeiten der Datei traten %1 Fehler auf.

Klicken Sie auf OK, um die %2 gelesenen Aliasse zu übernehmen, oder auf Abbrechen, um die Liste unverändert zu lassen.</translation>
    </message>
    <message>
        <source>There were I/O errors when processing the file %1.</source>
        <translation>Beim Verarbeiten der Datei %1 traten Ein-/Ausgabefehler auf.</translation>
    </message>
    <message>
        <source>%1 aliases</source>
        <translation>%1 Aliasse</translation>
    </message>
    <message>
        <source>Comma-separated values</source>
        <translation>Kommagetrennte Werte</translation>
    </message>
    <message>
        <source>All files</source>
        <translation>Alle Dateien</translation>
    </message>
    <message>
        <source>%1 of %2 aliases</source>
        <translation>%1 von %2 Aliassen</translation>
    </message>
    <message>
        <source>&lt;initial attempt&gt;</source>
        <translation>&lt;erster Versuch&gt;</translation>
    </message>
    <message>
        <source>%d day </source>
        <translation>%d Tag </translation>
    </message>
    <message>
        <source>%d days </source>
        <translation>%d Tage </translation>
    </message>
    <message>
        <source>%d hour </source>
        <translation>%d Stunde </translation>
    </message>
    <message>
        <source>%d hours </source>
        <translation>%d Stunden </translation>
    </message>
    <message>
        <source>%d minute</source>
        <translation>%d Minute</translation>
    </message>
    <message>
        <source>%d minutes</source>
        <translation>%d Minuten</translation>
    </message>
    <message>
        <source>The retry schedule is full.</source>
        <translation>Der Zeitplan für Zustellversuche ist voll.</translation>
    </message>
    <message>
        <source>Error saving delivery retry schedule</source>
        <translation>Fehler beim Speichern des Zeitplans für Zustellversuche</translation>
    </message>
    <message>
        <source>Weekday Delivery Schedule</source>
        <translation>Zustellplan für Werktage</translation>
    </message>
    <message>
        <source>Weekend Delivery Schedule</source>
        <translation>Zustellplan für das Wochenende</translation>
    </message>
    <message>
        <source>No delivery times</source>
        <translation>Keine Zustellzeiten</translation>
    </message>
    <message>
        <source>%1 (dial-up)</source>
        <translation>%1 (Wählverbindung)</translation>
    </message>
    <message>
        <source>and %1 more</source>
        <translation>und %1 weitere</translation>
    </message>
    <message>
        <source>Disconnected</source>
        <translation>Getrennt</translation>
    </message>
    <message>
        <source>Connecting</source>
        <translation>Wird verbunden</translation>
    </message>
    <message>
        <source>Connected</source>
        <translation>Verbunden</translation>
    </message>
    <message>
        <source>Disconnecting</source>
        <translation>Wird getrennt</translation>
    </message>
    <message>
        <source>Unknown</source>
        <translation>Unbekannt</translation>
    </message>
    <message>
        <source>Could not connect the dial-up link</source>
        <translation>Die Wählverbindung konnte nicht hergestellt werden</translation>
    </message>
    <message>
        <source>Could not disconnect the dial-up link</source>
        <translation>Die Wählverbindung konnte nicht getrennt werden</translation>
    </message>
    <message>
        <source>Error saving Elapsed Time Schedule domain list</source>
        <translation>Fehler beim Speichern der Domänenliste des Zeitplans nach verstrichener Zeit</translation>
    </message>
    <message>
        <source>Additional</source>
        <translation>Zusätzlich</translation>
    </message>
    <message>
        <source>Force</source>
        <translation>Erzwingen</translation>
    </message>
    <message>
        <source>Default</source>
        <translation>Standard</translation>
    </message>
    <message>
        <source>The following domain masks do not have routes associated with them.
These domain masks can not be saved.

%1</source>
        <translation>Den folgenden Domänenmasken sind keine Routen zugeordnet.
Diese Domänenmasken können nicht gespeichert werden.

%1</translation>
    </message>
    <message>
        <source>&lt;...more...&gt;
</source>
        <translation>&lt;...weitere...&gt;
</translation>
    </message>
    <message>
        <source>Error saving manual route table</source>
        <translation>Fehler beim Speichern der Routentabelle</translation>
    </message>
    <message>
        <source>Error loading manual route table. The table cannot be changed.</source>
        <translation>Fehler beim Laden der Routentabelle. Die Tabelle kann nicht geändert werden.</translation>
    </message>
    <message>
        <source>Could not keep the changed hosts; the hosts as they were are kept.</source>
        <translation>Die geänderten Hosts konnten nicht übernommen werden; die bisherigen Hosts bleiben erhalten.</translation>
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
