<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE">
<context>
    <name>CAgentsDlg</name>
    <message>
        <source>Agents on %1</source>
        <translation>Agenten auf %1</translation>
    </message>
    <message>
        <source>&amp;Incoming mail agent:</source>
        <translation>Agent für &amp;eingehende Mail:</translation>
    </message>
    <message>
        <source>&amp;Archive directory:</source>
        <translation>&amp;Archivverzeichnis:</translation>
    </message>
</context>
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
    <name>CAntiDoSWizard</name>
    <message>
        <source>AntiDoS Wizard</source>
        <translation>Anti-DoS-Assistent</translation>
    </message>
</context>
<context>
    <name>CAntiDoSWizard_1</name>
    <message>
        <source>Start</source>
        <translation>Start</translation>
    </message>
    <message>
        <source>Initial qualification</source>
        <translation>Vorprüfung</translation>
    </message>
    <message>
        <source>Welcome to the Anti Denial of Service Wizard</source>
        <translation>Willkommen beim Assistenten gegen Denial-of-Service-Angriffe</translation>
    </message>
    <message>
        <source>A flood of connections or of data from one host can keep the SMTP receiver from serving everybody else. This wizard limits the number of connections, drops idle connections after a timeout and limits the throughput accepted from one host.

Nothing is changed until you click Finish on the last page.

To continue, click Next.</source>
        <translation>Eine Flut von Verbindungen oder Daten von einem Host kann den SMTP-Empfänger davon abhalten, alle anderen zu bedienen. Dieser Assistent begrenzt die Zahl der Verbindungen, trennt untätige Verbindungen nach einer Zeitspanne und begrenzt den von einem Host angenommenen Durchsatz.

Nichts wird geändert, bevor Sie auf der letzten Seite auf „Fertig stellen“ klicken.

Klicken Sie auf „Weiter“, um fortzufahren.</translation>
    </message>
</context>
<context>
    <name>CAntiDoSWizard_2</name>
    <message>
        <source>Maximum connections</source>
        <translation>Höchstzahl der Verbindungen</translation>
    </message>
    <message>
        <source>Enter the maximum number of connections allowed to SMTPRA from &amp;all IP addresses</source>
        <translation>Höchstzahl der Verbindungen zu SMTPRA von &amp;allen IP-Adressen</translation>
    </message>
    <message>
        <source>Enter the maximum number of connections allowed to SMTPRA from any &amp;one IP address</source>
        <translation>Höchstzahl der Verbindungen zu SMTPRA von &amp;einer einzelnen IP-Adresse</translation>
    </message>
    <message>
        <source>Note: for either value, zero or empty implies no limit.</source>
        <translation>Hinweis: Null oder leer bedeutet bei beiden Werten keine Grenze.</translation>
    </message>
</context>
<context>
    <name>CAntiDoSWizard_3</name>
    <message>
        <source>Connection timeout</source>
        <translation>Zeitlimit für Verbindungen</translation>
    </message>
    <message>
        <source>Enter the &amp;timeout period (in seconds) after which idle connections will be disconnected.</source>
        <translation>&amp;Zeitspanne (in Sekunden), nach der untätige Verbindungen getrennt werden.</translation>
    </message>
    <message>
        <source>Note: A value of zero or empty  causes timeouts to be disabled. The default timeout value is 900 seconds, ie 15 minutes</source>
        <translation>Hinweis: Null oder leer schaltet das Zeitlimit ab. Der Standardwert ist 900 Sekunden, also 15 Minuten</translation>
    </message>
</context>
<context>
    <name>CAntiDoSWizard_4</name>
    <message>
        <source>Maximum throughput</source>
        <translation>Höchster Durchsatz</translation>
    </message>
    <message>
        <source>Maximum &amp;throughput accepted from one host:</source>
        <translation>Höchster &amp;Durchsatz, der von einem Host angenommen wird:</translation>
    </message>
    <message>
        <source>0.5</source>
        <translation>0.5</translation>
    </message>
    <message>
        <source>Unlimited</source>
        <translation>Unbegrenzt</translation>
    </message>
    <message>
        <source>kbytes/sec</source>
        <translation>KByte/s</translation>
    </message>
    <message>
        <source>&amp;Yes, apply this restriction to friendly hosts.</source>
        <translation>&amp;Ja, diese Beschränkung auch auf befreundete Hosts anwenden.</translation>
    </message>
    <message>
        <source>&amp;No, allow friendly hosts unlimited throughput</source>
        <translation>&amp;Nein, befreundeten Hosts unbegrenzten Durchsatz erlauben</translation>
    </message>
    <message>
        <source>Do you wish to apply this throughput restriction to Friendly hosts ?</source>
        <translation>Soll diese Durchsatzbeschränkung auch für befreundete Hosts gelten?</translation>
    </message>
</context>
<context>
    <name>CAntiDoSWizard_5</name>
    <message>
        <source>Finish</source>
        <translation>Fertig stellen</translation>
    </message>
    <message>
        <source>Exit the Anti "Denial of Service" Wizard</source>
        <translation>Den Anti-„Denial-of-Service“-Assistenten beenden</translation>
    </message>
    <message>
        <source>You have completed configuring Velbrook’s Anti "Denial of Service" features.  Click Finish to start using the new configuation.</source>
        <translation>Sie haben die Funktionen gegen „Denial of Service“ von Velbrook eingerichtet.  Klicken Sie auf „Fertig stellen“, um die neue Konfiguration zu verwenden.</translation>
    </message>
</context>
<context>
    <name>CAntiRelayWizard</name>
    <message>
        <source>AntiRelay Wizard</source>
        <translation>Anti-Relay-Assistent</translation>
    </message>
</context>
<context>
    <name>CAntiRelayWizard_1</name>
    <message>
        <source>Start</source>
        <translation>Start</translation>
    </message>
    <message>
        <source>Initial qualification</source>
        <translation>Vorprüfung</translation>
    </message>
    <message>
        <source>Welcome to the Anti-Relay Wizard</source>
        <translation>Willkommen beim Anti-Relay-Assistenten</translation>
    </message>
    <message>
        <source>An open relay passes anybody's mail on to anywhere, and is blacklisted within hours. This wizard sets who may relay mail through the SMTP receiver: whether users must authenticate, which local subnets and friendly sites may relay without authenticating, which other domains the server relays to, and how the return address of relayed mail is checked.

Nothing is changed until you click Finish on the last page.

To continue, click Next.</source>
        <translation>Ein offenes Relay leitet jedermanns Mail überallhin weiter und steht binnen Stunden auf schwarzen Listen. Dieser Assistent legt fest, wer Mail über den SMTP-Empfänger weiterleiten darf: ob sich Benutzer anmelden müssen, welche lokalen Subnetze und befreundeten Sites ohne Anmeldung weiterleiten dürfen, an welche anderen Domänen der Server weiterleitet und wie die Absenderadresse weitergeleiteter Mail geprüft wird.

Nichts wird geändert, bevor Sie auf der letzten Seite auf „Fertig stellen“ klicken.

Klicken Sie auf „Weiter“, um fortzufahren.</translation>
    </message>
</context>
<context>
    <name>CAntiRelayWizard_2</name>
    <message>
        <source>Authentication policy</source>
        <translation>Anmelderichtlinie</translation>
    </message>
    <message>
        <source>Do you wish to force users to authenticate with your SMTP server in order to be permitted to relay mail through your system?  Authentication is recommended.</source>
        <translation>Sollen sich Benutzer bei Ihrem SMTP-Server anmelden müssen, um Mail über Ihr System weiterleiten zu dürfen?  Die Anmeldung wird empfohlen.</translation>
    </message>
    <message>
        <source>Users must &amp;always authenticate</source>
        <translation>Benutzer müssen sich &amp;immer anmelden</translation>
    </message>
    <message>
        <source>Users must authenticate &amp;unless connecting from a Friendly site</source>
        <translation>Benutzer müssen sich anmelden, &amp;außer bei Verbindungen von einer befreundeten Site</translation>
    </message>
    <message>
        <source>&amp;No authentication required</source>
        <translation>&amp;Keine Anmeldung erforderlich</translation>
    </message>
</context>
<context>
    <name>CAntiRelayWizard_2_1</name>
    <message>
        <source>Local subnets</source>
        <translation>Lokale Subnetze</translation>
    </message>
    <message>
        <source>&amp;Yes</source>
        <translation>&amp;Ja</translation>
    </message>
    <message>
        <source>&amp;No</source>
        <translation>&amp;Nein</translation>
    </message>
    <message>
        <source>Local subnet</source>
        <translation>Lokales Subnetz</translation>
    </message>
    <message>
        <source>Do you wish to accept email for relay from machines on your subnet (IP address %s) without requiring them to authenticate with your SMTP server?</source>
        <translation>Soll Mail zur Weiterleitung von Rechnern in Ihrem Subnetz (IP-Adresse %s) angenommen werden, ohne dass sie sich bei Ihrem SMTP-Server anmelden?</translation>
    </message>
</context>
<context>
    <name>CAntiRelayWizard_2_2</name>
    <message>
        <source>Friendly sites</source>
        <translation>Befreundete Sites</translation>
    </message>
    <message>
        <source>Friendly sites relay without authenticating with your SMTP server. Enter a list of IP addresses or host names that you wish to approve for relay without authentication:  IP addresses of clients that do not support authenticated SMTP should be listed here.</source>
        <translation>Befreundete Sites leiten ohne Anmeldung bei Ihrem SMTP-Server weiter. Geben Sie die IP-Adressen oder Hostnamen ein, die ohne Anmeldung weiterleiten dürfen:  IP-Adressen von Clients, die kein SMTP mit Anmeldung unterstützen, gehören hierher.</translation>
    </message>
    <message>
        <source>&amp;Friendly sites that relay without authentication:</source>
        <translation>&amp;Befreundete Sites, die ohne Anmeldung weiterleiten:</translation>
    </message>
    <message>
        <source>The only column</source>
        <translation>Die einzige Spalte</translation>
    </message>
    <message>
        <source>new domain</source>
        <translation>neue Domäne</translation>
    </message>
</context>
<context>
    <name>CAntiRelayWizard_3</name>
    <message>
        <source>Other domains</source>
        <translation>Andere Domänen</translation>
    </message>
    <message>
        <source>Do you wish to relay mail that is addressed to recipients in non-local domains?  If so, enter the names of those domains here. This is applicable if you relay for a third party domain.</source>
        <translation>Soll Mail an Empfänger in nicht lokalen Domänen weitergeleitet werden?  Wenn ja, geben Sie hier die Namen dieser Domänen ein. Das gilt, wenn Sie für die Domäne eines Dritten weiterleiten.</translation>
    </message>
    <message>
        <source>&amp;Other domains:</source>
        <translation>&amp;Andere Domänen:</translation>
    </message>
    <message>
        <source>The only column</source>
        <translation>Die einzige Spalte</translation>
    </message>
    <message>
        <source>new domain</source>
        <translation>neue Domäne</translation>
    </message>
</context>
<context>
    <name>CAntiRelayWizard_4</name>
    <message>
        <source>Third-party relaying</source>
        <translation>Weiterleitung für Dritte</translation>
    </message>
    <message>
        <source>Do you wish to force users to specify a valid return address for mail messages that they are sending for relay elsewhere?  Choose one:</source>
        <translation>Sollen Benutzer für Nachrichten, die sie zur Weiterleitung senden, eine gültige Absenderadresse angeben müssen?  Wählen Sie eine Möglichkeit:</translation>
    </message>
    <message>
        <source>User must specify valid local return &amp;address, including the domain component</source>
        <translation>Benutzer muss eine gültige lokale Absender&amp;adresse samt Domäne angeben</translation>
    </message>
    <message>
        <source>User must specify valid local return &amp;mailbox; server will add the relevant domain component</source>
        <translation>Benutzer muss ein gültiges lokales Absender&amp;postfach angeben; der Server ergänzt die Domäne</translation>
    </message>
    <message>
        <source>User &amp;need not specify a local return address.</source>
        <translation>Benutzer muss &amp;keine lokale Absenderadresse angeben.</translation>
    </message>
</context>
<context>
    <name>CAntiRelayWizard_5</name>
    <message>
        <source>Finish</source>
        <translation>Fertig stellen</translation>
    </message>
    <message>
        <source>Exit Anti-Relay Wizard</source>
        <translation>Den Anti-Relay-Assistenten beenden</translation>
    </message>
    <message>
        <source>You have completed configuring Velbrook's anti-relay features.  Click Finish to start using the new configuration.</source>
        <translation>Sie haben die Funktionen gegen Relaying von Velbrook eingerichtet.  Klicken Sie auf „Fertig stellen“, um die neue Konfiguration zu verwenden.</translation>
    </message>
</context>
<context>
    <name>CAntiSpamWizard</name>
    <message>
        <source>AntiSpam Wizard</source>
        <translation>Anti-Spam-Assistent</translation>
    </message>
</context>
<context>
    <name>CAntiSpamWizard_1</name>
    <message>
        <source>Start</source>
        <translation>Start</translation>
    </message>
    <message>
        <source>Initial qualification</source>
        <translation>Vorprüfung</translation>
    </message>
    <message>
        <source>Welcome to the SMTP Security Wizard</source>
        <translation>Willkommen beim SMTP-Sicherheitsassistenten</translation>
    </message>
    <message>
        <source>This wizard helps you protect the SMTP receiver against unsolicited mail: it can block servers without a DNS host name, check DNS blacklist services, keep a private blacklist of mail servers, block return addresses, insist on qualified addresses and limit the number of recipients of a message.

Nothing is changed until you click Finish on the last page.

To continue, click Next.</source>
        <translation>Dieser Assistent schützt den SMTP-Empfänger vor unerwünschter Mail: Er kann Server ohne DNS-Hostnamen abweisen, DNS-Blacklist-Dienste abfragen, eine eigene schwarze Liste von Mailservern führen, Absenderadressen sperren, auf vollständige Adressen bestehen und die Zahl der Empfänger einer Nachricht begrenzen.

Nichts wird geändert, bevor Sie auf der letzten Seite auf „Fertig stellen“ klicken.

Klicken Sie auf „Weiter“, um fortzufahren.</translation>
    </message>
</context>
<context>
    <name>CAntiSpamWizard_2</name>
    <message>
        <source>Anonymous servers</source>
        <translation>Anonyme Server</translation>
    </message>
    <message>
        <source>Do you wish to block mail from anonymous servers (servers without a DNS host name)?</source>
        <translation>Soll Mail von anonymen Servern (Servern ohne DNS-Hostnamen) abgewiesen werden?</translation>
    </message>
    <message>
        <source>&amp;Yes</source>
        <translation>&amp;Ja</translation>
    </message>
    <message>
        <source>&amp;No</source>
        <translation>&amp;Nein</translation>
    </message>
    <message>
        <source>Note: DNS lookup will automatically be turned on if you select the Yes option.</source>
        <translation>Hinweis: Wenn Sie „Ja“ wählen, wird die DNS-Abfrage automatisch eingeschaltet.</translation>
    </message>
</context>
<context>
    <name>CAntiSpamWizard_3</name>
    <message>
        <source>Blacklist servers</source>
        <translation>Blacklist-Server</translation>
    </message>
    <message>
        <source>&amp;Yes, reject mail from blacklisted mail servers ...</source>
        <translation>&amp;Ja, Mail von Mailservern auf schwarzen Listen abweisen ...</translation>
    </message>
    <message>
        <source>&amp;No, don’t check any blacklist services</source>
        <translation>&amp;Nein, keine Blacklist-Dienste abfragen</translation>
    </message>
    <message>
        <source>... &amp;unless they appear in the list of friendly sites.</source>
        <translation>... &amp;außer sie stehen in der Liste der befreundeten Sites.</translation>
    </message>
</context>
<context>
    <name>CAntiSpamWizard_3_1</name>
    <message>
        <source>Select blacklist servers</source>
        <translation>Blacklist-Server auswählen</translation>
    </message>
    <message>
        <source>Blacklist servers 2</source>
        <translation>Blacklist-Server 2</translation>
    </message>
    <message>
        <source>&amp;Well known black list services:</source>
        <translation>&amp;Bekannte Blacklist-Dienste:</translation>
    </message>
    <message>
        <source>Enter a list of blacklist services and associated explanatory URLs.  Either edit the list directly or choose from the the list of known services</source>
        <translation>Geben Sie eine Liste von Blacklist-Diensten mit erklärenden URLs ein.  Bearbeiten Sie die Liste direkt oder wählen Sie aus der Liste bekannter Dienste</translation>
    </message>
    <message>
        <source>&amp;Blacklist Services, checked in the order listed:</source>
        <translation>Blacklist-&amp;Dienste, in der angegebenen Reihenfolge abgefragt:</translation>
    </message>
    <message>
        <source>Blacklist Service</source>
        <translation>Blacklist-Dienst</translation>
    </message>
    <message>
        <source>new service</source>
        <translation>neuer Dienst</translation>
    </message>
</context>
<context>
    <name>CAntiSpamWizard_4</name>
    <message>
        <source>Private blacklist</source>
        <translation>Eigene schwarze Liste</translation>
    </message>
    <message>
        <source>Do you want to specify additional host names or IP addresses from which you do not wish to accept mail?</source>
        <translation>Möchten Sie weitere Hostnamen oder IP-Adressen angeben, von denen Sie keine Mail annehmen möchten?</translation>
    </message>
    <message>
        <source>&amp;Yes, I want to specify additional mail servers to block</source>
        <translation>&amp;Ja, ich möchte weitere Mailserver sperren</translation>
    </message>
    <message>
        <source>&amp;No, I don’t want to block any other mail servers</source>
        <translation>&amp;Nein, ich möchte keine weiteren Mailserver sperren</translation>
    </message>
</context>
<context>
    <name>CAntiSpamWizard_4_1</name>
    <message>
        <source>Specify private blacklist</source>
        <translation>Eigene schwarze Liste angeben</translation>
    </message>
    <message>
        <source>Private Blacklist</source>
        <translation>Eigene schwarze Liste</translation>
    </message>
    <message>
        <source>Specify additional mail server IP addresses or host names from which you do not want to receive mail. If names are specified tne DNS lookup feature will be enabled.</source>
        <translation>Geben Sie weitere IP-Adressen oder Hostnamen von Mailservern an, von denen Sie keine Mail empfangen möchten. Werden Namen angegeben, wird die DNS-Abfrage eingeschaltet.</translation>
    </message>
    <message>
        <source>&amp;Private blacklist:</source>
        <translation>&amp;Eigene schwarze Liste:</translation>
    </message>
    <message>
        <source>The only column</source>
        <translation>Die einzige Spalte</translation>
    </message>
    <message>
        <source>new domain</source>
        <translation>neue Domäne</translation>
    </message>
</context>
<context>
    <name>CAntiSpamWizard_4_2</name>
    <message>
        <source>Erase existing blacklist</source>
        <translation>Bestehende schwarze Liste löschen</translation>
    </message>
    <message>
        <source>Your current configuration specifies the following list of blocked mail servers.  Do you want to keep this configuration?</source>
        <translation>Ihre aktuelle Konfiguration sperrt die folgenden Mailserver.  Möchten Sie diese Konfiguration behalten?</translation>
    </message>
    <message>
        <source>&amp;Yes, keep using this list of mail servers to block</source>
        <translation>&amp;Ja, diese Liste gesperrter Mailserver weiter verwenden</translation>
    </message>
    <message>
        <source>&amp;No, erase this list of mail servers</source>
        <translation>&amp;Nein, diese Liste von Mailservern löschen</translation>
    </message>
    <message>
        <source>B&amp;lacklist:</source>
        <translation>Schwarze &amp;Liste:</translation>
    </message>
    <message>
        <source>The only column</source>
        <translation>Die einzige Spalte</translation>
    </message>
</context>
<context>
    <name>CAntiSpamWizard_5</name>
    <message>
        <source>Return addresses</source>
        <translation>Absenderadressen</translation>
    </message>
    <message>
        <source>Do you want to verify that the return address on incoming mail is valid?</source>
        <translation>Soll geprüft werden, ob die Absenderadresse eingehender Mail gültig ist?</translation>
    </message>
    <message>
        <source>&amp;Yes</source>
        <translation>&amp;Ja</translation>
    </message>
    <message>
        <source>&amp;No</source>
        <translation>&amp;Nein</translation>
    </message>
    <message>
        <source>Return address</source>
        <translation>Absenderadresse</translation>
    </message>
</context>
<context>
    <name>CAntiSpamWizard_5_1</name>
    <message>
        <source>Block return addresses</source>
        <translation>Absenderadressen sperren</translation>
    </message>
    <message>
        <source>Specify a list of return addresses from which mail will be rejected.  Leave the list empty if you don’t want to block mail based on the return address</source>
        <translation>Geben Sie Absenderadressen an, von denen Mail abgewiesen wird.  Lassen Sie die Liste leer, wenn Sie Mail nicht nach der Absenderadresse sperren möchten</translation>
    </message>
    <message>
        <source>&amp;Return addresses:</source>
        <translation>&amp;Absenderadressen:</translation>
    </message>
    <message>
        <source>Return address</source>
        <translation>Absenderadresse</translation>
    </message>
    <message>
        <source>new domain</source>
        <translation>neue Domäne</translation>
    </message>
</context>
<context>
    <name>CAntiSpamWizard_6</name>
    <message>
        <source>Recipient addressess</source>
        <translation>Empfängeradressen</translation>
    </message>
    <message>
        <source>What should the SMTP receiver do with a recipient address that has no domain name?</source>
        <translation>Was soll der SMTP-Empfänger mit einer Empfängeradresse ohne Domänennamen tun?</translation>
    </message>
    <message>
        <source>&amp;Insist on fully qualified recipient addresses.</source>
        <translation>Auf &amp;vollständigen Empfängeradressen bestehen.</translation>
    </message>
    <message>
        <source>&amp;Append an appropriate domain name.</source>
        <translation>Einen passenden Domänennamen &amp;anhängen.</translation>
    </message>
    <message>
        <source>Recipients</source>
        <translation>Empfänger</translation>
    </message>
</context>
<context>
    <name>CAntiSpamWizard_6_1</name>
    <message>
        <source>Maximum recipients</source>
        <translation>Höchstzahl der Empfänger</translation>
    </message>
    <message>
        <source>&amp;Most recipients one message may have:</source>
        <translation>&amp;Höchstzahl der Empfänger einer Nachricht:</translation>
    </message>
    <message>
        <source>Note: A value of zero implies no limit to the number of recipients.</source>
        <translation>Hinweis: Null bedeutet keine Grenze für die Zahl der Empfänger.</translation>
    </message>
</context>
<context>
    <name>CAntiSpamWizard_7</name>
    <message>
        <source>Finish</source>
        <translation>Fertig stellen</translation>
    </message>
    <message>
        <source>Exit SMTP Wizard</source>
        <translation>SMTP-Assistenten beenden</translation>
    </message>
    <message>
        <source>You have completed configuring Velbrook’s SMTP security features.  Click Finish to start using the new configuration.</source>
        <translation>Sie haben die SMTP-Sicherheitsfunktionen von Velbrook eingerichtet.  Klicken Sie auf „Fertig stellen“, um die neue Konfiguration zu verwenden.</translation>
    </message>
</context>
<context>
    <name>CCalendaringDlg</name>
    <message>
        <source>Calendaring on %1!s!</source>
        <translation>Kalender auf %1!s!</translation>
    </message>
    <message>
        <source>Configure Calendaring on this server</source>
        <translation>Kalenderfunktion dieses Servers einrichten</translation>
    </message>
    <message>
        <source>Enable Calendaring on this server</source>
        <translation>Kalenderfunktion auf diesem Server aktivieren</translation>
    </message>
    <message>
        <source>Enable for all mailboxes</source>
        <translation>Für alle Postfächer aktivieren</translation>
    </message>
    <message>
        <source>Enable for configured domains/mailboxes</source>
        <translation>Für eingerichtete Domänen/Postfächer aktivieren</translation>
    </message>
</context>
<context>
    <name>CDbLogConfigDlg</name>
    <message>
        <source>Also &amp;log events to a database</source>
        <translation>Ereignisse auch in einer Datenbank &amp;protokollieren</translation>
    </message>
    <message>
        <source>Database</source>
        <translation>Datenbank</translation>
    </message>
    <message>
        <source>The configuration &amp;store's own database</source>
        <translation>Die eigene Datenbank des Konfigurations&amp;speichers</translation>
    </message>
    <message>
        <source>A separate SQLite &amp;file:</source>
        <translation>Eine eigene SQLite-&amp;Datei:</translation>
    </message>
    <message>
        <source>A &amp;PostgreSQL database (connection URI):</source>
        <translation>Eine &amp;PostgreSQL-Datenbank (Verbindungs-URI):</translation>
    </message>
    <message>
        <source>&amp;Browse...</source>
        <translation>D&amp;urchsuchen...</translation>
    </message>
    <message>
        <source>&amp;Test Connection</source>
        <translation>Verbindung &amp;testen</translation>
    </message>
    <message>
        <source> days</source>
        <translation> Tage</translation>
    </message>
    <message>
        <source>Keep for ever</source>
        <translation>Für immer behalten</translation>
    </message>
    <message>
        <source>&amp;Keep events for:</source>
        <translation>Ereignisse &amp;behalten für:</translation>
    </message>
    <message>
        <source>Events logged</source>
        <translation>Protokollierte Ereignisse</translation>
    </message>
    <message>
        <source>Messages &amp;received</source>
        <translation>Nachrichten &amp;empfangen</translation>
    </message>
    <message>
        <source>Messages &amp;delivered or returned</source>
        <translation>Nachrichten &amp;zugestellt oder zurückgeschickt</translation>
    </message>
    <message>
        <source>Refused connections, s&amp;enders and recipients</source>
        <translation>Abgewiesene Verbindungen, &amp;Absender und Empfänger</translation>
    </message>
    <message>
        <source>Logins and failed logi&amp;ns</source>
        <translation>Anmeldungen und fehlgeschlagene A&amp;nmeldungen</translation>
    </message>
    <message>
        <source>Lock&amp;outs, bans and harvest probation</source>
        <translation>&amp;Sperren, Verbannungen und Harvest-Bewährung</translation>
    </message>
    <message>
        <source>Ser&amp;vices started and stopped</source>
        <translation>&amp;Dienste gestartet und beendet</translation>
    </message>
    <message>
        <source>Configuration &amp;changes</source>
        <translation>Konfigurations&amp;änderungen</translation>
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
    <name>CDirectoriesDlg</name>
    <message>
        <source>Mail directory locations on %1</source>
        <translation>Mailverzeichnisse auf %1</translation>
    </message>
    <message>
        <source>Mail &amp;spool directory:</source>
        <translation>Mail-&amp;Spoolverzeichnis:</translation>
    </message>
    <message>
        <source>Browse...</source>
        <translation>Durchsuchen...</translation>
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
    <name>CFileLogConfigDlg</name>
    <message>
        <source>File log configuration on %1</source>
        <translation>Dateiprotokoll auf %1</translation>
    </message>
    <message>
        <source>&amp;Log file directory:</source>
        <translation>&amp;Protokollverzeichnis:</translation>
    </message>
    <message>
        <source>Browse...</source>
        <translation>Durchsuchen...</translation>
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
    <name>CIp4AddressEdit</name>
    <message>
        <source>.</source>
        <translation>.</translation>
    </message>
</context>
<context>
    <name>CListEditor</name>
    <message>
        <source>Select List</source>
        <translation>Liste auswählen</translation>
    </message>
    <message>
        <source>&amp;Add...</source>
        <translation>&amp;Hinzufügen...</translation>
    </message>
    <message>
        <source>&amp;Edit...</source>
        <translation>&amp;Bearbeiten...</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>&amp;Löschen</translation>
    </message>
    <message>
        <source>&amp;Import...</source>
        <translation>&amp;Importieren...</translation>
    </message>
    <message>
        <source>&amp;Export...</source>
        <translation>&amp;Exportieren...</translation>
    </message>
    <message>
        <source>Load Default</source>
        <translation>Standard laden</translation>
    </message>
</context>
<context>
    <name>CLogFlagsPage</name>
    <message>
        <source>Write these events to the log:</source>
        <translation>Diese Ereignisse ins Protokoll schreiben:</translation>
    </message>
    <message>
        <source>Select &amp;All</source>
        <translation>&amp;Alle auswählen</translation>
    </message>
    <message>
        <source>Clear A&amp;ll</source>
        <translation>Alle a&amp;bwählen</translation>
    </message>
</context>
<context>
    <name>CMailListDigestPage</name>
    <message>
        <source> KB</source>
        <translation> KB</translation>
    </message>
    <message>
        <source> hours</source>
        <translation> Stunden</translation>
    </message>
    <message>
        <source>Plain text</source>
        <translation>Reiner Text</translation>
    </message>
    <message>
        <source>MIME, each message attached</source>
        <translation>MIME, jede Nachricht als Anhang</translation>
    </message>
    <message>
        <source>No size limit</source>
        <translation>Keine Größengrenze</translation>
    </message>
    <message>
        <source>No time limit</source>
        <translation>Keine Zeitgrenze</translation>
    </message>
    <message>
        <source>A digest is sent as soon as either threshold is reached.</source>
        <translation>Eine Sammelnachricht wird verschickt, sobald eine der beiden Schwellen erreicht ist.</translation>
    </message>
    <message>
        <source>Send when the digest reaches &amp;size:</source>
        <translation>Verschicken, wenn die Sammelnachricht diese &amp;Größe erreicht:</translation>
    </message>
    <message>
        <source>Send when the oldest message is &amp;older than:</source>
        <translation>Verschicken, wenn die älteste Nachricht &amp;älter ist als:</translation>
    </message>
    <message>
        <source>Digest &amp;format:</source>
        <translation>&amp;Format der Sammelnachricht:</translation>
    </message>
</context>
<context>
    <name>CMailListGeneralPage</name>
    <message>
        <source>General</source>
        <translation>Allgemein</translation>
    </message>
    <message>
        <source>Repl&amp;y to list</source>
        <translation>Antwort an die &amp;Liste</translation>
    </message>
    <message>
        <source>&amp;Force</source>
        <translation>&amp;Erzwingen</translation>
    </message>
    <message>
        <source>&amp;Moderators:</source>
        <translation>&amp;Moderatoren:</translation>
    </message>
    <message>
        <source>Non-delivery reports</source>
        <translation>Unzustellbarkeitsberichte</translation>
    </message>
    <message>
        <source>&amp;Return to sender</source>
        <translation>An den Absender &amp;zurück</translation>
    </message>
    <message>
        <source>&amp;Send to:</source>
        <translation>&amp;Senden an:</translation>
    </message>
    <message>
        <source>Who can post:</source>
        <translation>Wer darf schreiben:</translation>
    </message>
    <message>
        <source>&amp;Anyone</source>
        <translation>&amp;Jeder</translation>
    </message>
    <message>
        <source>Mem&amp;bers</source>
        <translation>Mit&amp;glieder</translation>
    </message>
    <message>
        <source>Members and d&amp;igesters</source>
        <translation>Mitglieder und &amp;Sammelbezieher</translation>
    </message>
    <message>
        <source>M&amp;oderators</source>
        <translation>M&amp;oderatoren</translation>
    </message>
    <message>
        <source>Moderator controls:</source>
        <translation>Moderator kontrolliert:</translation>
    </message>
    <message>
        <source>&amp;Joining</source>
        <translation>&amp;Beitritt</translation>
    </message>
    <message>
        <source>&amp;Leaving</source>
        <translation>&amp;Austritt</translation>
    </message>
    <message>
        <source>Con&amp;tent</source>
        <translation>&amp;Inhalt</translation>
    </message>
    <message>
        <source>Notify moderator on:</source>
        <translation>Moderator benachrichtigen bei:</translation>
    </message>
    <message>
        <source>Joi&amp;ning</source>
        <translation>Bei&amp;tritt</translation>
    </message>
    <message>
        <source>Lea&amp;ving</source>
        <translation>Aus&amp;tritt</translation>
    </message>
    <message>
        <source>Agents</source>
        <translation>Agenten</translation>
    </message>
    <message>
        <source>Mail list ag&amp;ent:</source>
        <translation>&amp;Agent der Mailingliste:</translation>
    </message>
    <message>
        <source>Mail list &amp;processor agent:</source>
        <translation>Agent des Listen&amp;prozessors:</translation>
    </message>
    <message>
        <source>Ma&amp;x message size (bytes):</source>
        <translation>Ma&amp;x. Nachrichtengröße (Bytes):</translation>
    </message>
    <message>
        <source>Confirmation message to sender</source>
        <translation>Bestätigungsnachricht an den Absender</translation>
    </message>
    <message>
        <source>Disable mail list</source>
        <translation>Mailingliste deaktivieren</translation>
    </message>
    <message>
        <source>Lo&amp;g list processor commands</source>
        <translation>Befehle des Listenprozessors &amp;protokollieren</translation>
    </message>
    <message>
        <source>Disallow multiple &amp;commands</source>
        <translation>&amp;Mehrere Befehle nicht zulassen</translation>
    </message>
    <message>
        <source>Journal in your local lang&amp;uage</source>
        <translation>Journal in Ihrer &amp;Landessprache</translation>
    </message>
    <message>
        <source>Poster must use SMTP authentication</source>
        <translation>Absender muss SMTP-Anmeldung verwenden</translation>
    </message>
</context>
<context>
    <name>CMailListMembersPage</name>
    <message>
        <source>Line %1: %2</source>
        <translation>Zeile %1: %2</translation>
    </message>
    <message>
        <source>... and %1 more</source>
        <translation>... und %1 weitere</translation>
    </message>
    <message>
        <source>Members</source>
        <translation>Mitglieder</translation>
    </message>
    <message>
        <source>Part of an address or a name</source>
        <translation>Teil einer Adresse oder eines Namens</translation>
    </message>
    <message>
        <source>&amp;Search:</source>
        <translation>&amp;Suchen:</translation>
    </message>
    <message>
        <source>&amp;Add</source>
        <translation>Hin&amp;zufügen</translation>
    </message>
    <message>
        <source>&amp;Remove</source>
        <translation>&amp;Entfernen</translation>
    </message>
    <message>
        <source>&amp;Import...</source>
        <translation>&amp;Importieren...</translation>
    </message>
    <message>
        <source>E&amp;xport...</source>
        <translation>E&amp;xportieren...</translation>
    </message>
    <message>
        <source>New member's a&amp;ddress:</source>
        <translation>A&amp;dresse des neuen Mitglieds:</translation>
    </message>
    <message>
        <source>&amp;Name:</source>
        <translation>&amp;Name:</translation>
    </message>
    <message>
        <source>Import members</source>
        <translation>Mitglieder importieren</translation>
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
        <source>Export members</source>
        <translation>Mitglieder exportieren</translation>
    </message>
</context>
<context>
    <name>CMailListMessagesPage</name>
    <message>
        <source>Messages</source>
        <translation>Nachrichten</translation>
    </message>
    <message>
        <source>Keep attachments</source>
        <translation>Anhänge behalten</translation>
    </message>
    <message>
        <source>Remove attachments before distribution</source>
        <translation>Anhänge vor dem Verteilen entfernen</translation>
    </message>
    <message>
        <source>Refuse messages with attachments</source>
        <translation>Nachrichten mit Anhängen abweisen</translation>
    </message>
    <message>
        <source>Subject &amp;prefix:</source>
        <translation>Betreff-&amp;Präfix:</translation>
    </message>
    <message>
        <source>Text &amp;before each message:</source>
        <translation>Text &amp;vor jeder Nachricht:</translation>
    </message>
    <message>
        <source>Text &amp;after each message:</source>
        <translation>Text &amp;nach jeder Nachricht:</translation>
    </message>
    <message>
        <source>A&amp;ttachments:</source>
        <translation>A&amp;nhänge:</translation>
    </message>
</context>
<context>
    <name>CMailListPluginConfigPage</name>
    <message>
        <source>Configuration</source>
        <translation>Konfiguration</translation>
    </message>
    <message>
        <source>&amp;Rules that decide who receives this list's mail:</source>
        <translation>&amp;Regeln, die bestimmen, wer die Mail dieser Liste erhält:</translation>
    </message>
    <message>
        <source>Rule</source>
        <translation>Regel</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Wert</translation>
    </message>
    <message>
        <source>&amp;Add rule</source>
        <translation>Regel &amp;hinzufügen</translation>
    </message>
    <message>
        <source>R&amp;emove rule</source>
        <translation>Regel &amp;entfernen</translation>
    </message>
</context>
<context>
    <name>CMailListScriptPage</name>
    <message>
        <source>Header Script</source>
        <translation>Kopfzeilen-Skript</translation>
    </message>
    <message>
        <source>&amp;Commands that rewrite the headers of each message before it is distributed:
add Name: value, set Name: value, remove Name, rename Name NewName.</source>
        <translation>&amp;Befehle, die die Kopfzeilen jeder Nachricht vor dem Verteilen umschreiben:
add Name: Wert, set Name: Wert, remove Name, rename Name NeuerName.</translation>
    </message>
    <message>
        <source>Check &amp;syntax</source>
        <translation>&amp;Syntax prüfen</translation>
    </message>
    <message>
        <source>The script has no errors.</source>
        <translation>Das Skript hat keine Fehler.</translation>
    </message>
    <message>
        <source>Line %1: %2</source>
        <translation>Zeile %1: %2</translation>
    </message>
    <message>
        <source>... and %1 more</source>
        <translation>... und %1 weitere</translation>
    </message>
</context>
<context>
    <name>CMailListSecurityPage</name>
    <message>
        <source>Security</source>
        <translation>Sicherheit</translation>
    </message>
    <message>
        <source>Anyone</source>
        <translation>Jeder</translation>
    </message>
    <message>
        <source>Addresses in this server's domains only</source>
        <translation>Nur Adressen in den Domänen dieses Servers</translation>
    </message>
    <message>
        <source>Nobody: members are added by an administrator</source>
        <translation>Niemand: Mitglieder werden von einem Administrator hinzugefügt</translation>
    </message>
    <message>
        <source>Ask new members to &amp;confirm their subscription by mail</source>
        <translation>Neue Mitglieder ihr Abonnement per Mail &amp;bestätigen lassen</translation>
    </message>
    <message>
        <source>One address pattern per line, such as *@example.com</source>
        <translation>Ein Adressmuster pro Zeile, etwa *@example.com</translation>
    </message>
    <message>
        <source>&amp;Who may subscribe:</source>
        <translation>&amp;Wer darf abonnieren:</translation>
    </message>
    <message>
        <source>Senders &amp;allowed to post:</source>
        <translation>Absender, die schreiben &amp;dürfen:</translation>
    </message>
    <message>
        <source>Senders &amp;refused:</source>
        <translation>&amp;Abgewiesene Absender:</translation>
    </message>
</context>
<context>
    <name>CMailListSheet</name>
    <message>
        <source>Digest</source>
        <translation>Sammelnachricht</translation>
    </message>
    <message>
        <source>Moderator Digest</source>
        <translation>Moderator-Sammelnachricht</translation>
    </message>
</context>
<context>
    <name>CMailListWebArchivePage</name>
    <message>
        <source>Web Archive</source>
        <translation>Webarchiv</translation>
    </message>
    <message>
        <source>&amp;Keep a web archive of this list's messages</source>
        <translation>Ein &amp;Webarchiv der Nachrichten dieser Liste führen</translation>
    </message>
    <message>
        <source>B&amp;rowse...</source>
        <translation>Du&amp;rchsuchen...</translation>
    </message>
    <message>
        <source> days</source>
        <translation> Tage</translation>
    </message>
    <message>
        <source>Keep for ever</source>
        <translation>Für immer behalten</translation>
    </message>
    <message>
        <source>Archive &amp;directory:</source>
        <translation>Archiv&amp;verzeichnis:</translation>
    </message>
    <message>
        <source>Remove messages &amp;older than:</source>
        <translation>Nachrichten entfernen, die &amp;älter sind als:</translation>
    </message>
    <message>
        <source>Web archive directory</source>
        <translation>Verzeichnis des Webarchivs</translation>
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
    <name>CMemberModel</name>
    <message>
        <source>Address</source>
        <translation>Adresse</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
</context>
<context>
    <name>CProbationListDlg</name>
    <message>
        <source>Probation List on %1</source>
        <translation>Bewährungsliste auf %1</translation>
    </message>
    <message>
        <source>These addresses tried too many unknown recipients. Mail from them is refused until their probation ends.</source>
        <translation>Diese Adressen haben zu viele unbekannte Empfänger versucht. Mail von ihnen wird abgewiesen, bis ihre Bewährung endet.</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>Adresse</translation>
    </message>
    <message>
        <source>On probation until</source>
        <translation>Auf Bewährung bis</translation>
    </message>
    <message>
        <source>part of an address</source>
        <translation>Teil einer Adresse</translation>
    </message>
    <message>
        <source>F&amp;ind:</source>
        <translation>Su&amp;chen:</translation>
    </message>
    <message>
        <source>&amp;Release</source>
        <translation>&amp;Freigeben</translation>
    </message>
    <message>
        <source>Re&amp;fresh</source>
        <translation>A&amp;ktualisieren</translation>
    </message>
</context>
<context>
    <name>CQuotasDlg</name>
    <message>
        <source>Quotas on %1</source>
        <translation>Kontingente auf %1</translation>
    </message>
    <message>
        <source>&amp;Enable quota support</source>
        <translation>&amp;Kontingente aktivieren</translation>
    </message>
    <message>
        <source>&amp;Copy quota warnings to postmaster</source>
        <translation>Kontingentwarnungen in &amp;Kopie an den Postmaster</translation>
    </message>
    <message>
        <source>Reject over-quota mail with permanent (522) error</source>
        <translation>Mail über dem Kontingent mit dauerhaftem Fehler (522) abweisen</translation>
    </message>
    <message>
        <source>&amp;Interval between quota warnings (days):</source>
        <translation>&amp;Abstand zwischen Kontingentwarnungen (Tage):</translation>
    </message>
    <message>
        <source>Default Domain Quotas</source>
        <translation>Standardkontingente der Domänen</translation>
    </message>
    <message>
        <source>Default domain &amp;quota limit (kB):</source>
        <translation>Standard-&amp;Kontingentgrenze der Domäne (kB):</translation>
    </message>
    <message>
        <source>Default domain &amp;warning limit (kB):</source>
        <translation>Standard-&amp;Warngrenze der Domäne (kB):</translation>
    </message>
    <message>
        <source>Values are for reporting purposes only and are not
automatically enforced</source>
        <translation>Die Werte dienen nur Berichten und werden nicht
automatisch durchgesetzt</translation>
    </message>
</context>
<context>
    <name>CReminder</name>
    <message>
        <source>Reminder</source>
        <translation>Erinnerung</translation>
    </message>
    <message>
        <source>&amp;Don't show this dialog again</source>
        <translation>Diesen Dialog &amp;nicht mehr anzeigen</translation>
    </message>
    <message>
        <source>&amp;OK</source>
        <translation>&amp;OK</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>&amp;Abbrechen</translation>
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
    <name>CSecurityAntiSpamPage</name>
    <message>
        <source>Anti-spam</source>
        <translation>Anti-Spam</translation>
    </message>
    <message>
        <source>Connecting servers</source>
        <translation>Verbindende Server</translation>
    </message>
    <message>
        <source>Reject mail from servers &amp;without a DNS host name</source>
        <translation>Mail von Servern &amp;ohne DNS-Hostnamen abweisen</translation>
    </message>
    <message>
        <source>&amp;Look up the host names of connecting servers</source>
        <translation>&amp;Hostnamen verbindender Server nachschlagen</translation>
    </message>
    <message>
        <source>Reject mail from servers on these &amp;blacklist services:</source>
        <translation>Mail von Servern auf diesen &amp;Blacklist-Diensten abweisen:</translation>
    </message>
    <message>
        <source>zone, e.g. bl.spamcop.net</source>
        <translation>Zone, z. B. bl.spamcop.net</translation>
    </message>
    <message>
        <source>...unless they appear in the list of &amp;friendly sites</source>
        <translation>... außer sie stehen in der Liste der &amp;befreundeten Sites</translation>
    </message>
    <message>
        <source>Private blacklist</source>
        <translation>Eigene schwarze Liste</translation>
    </message>
    <message>
        <source>Spam &amp;Sources...</source>
        <translation>Spam-&amp;Quellen...</translation>
    </message>
    <message>
        <source>&amp;Networks...</source>
        <translation>&amp;Netze...</translation>
    </message>
    <message>
        <source>Senders and recipients</source>
        <translation>Absender und Empfänger</translation>
    </message>
    <message>
        <source>Refuse mail from these return addr&amp;esses:</source>
        <translation>Mail von diesen Absender&amp;adressen abweisen:</translation>
    </message>
    <message>
        <source>address or @domain</source>
        <translation>Adresse oder @Domäne</translation>
    </message>
    <message>
        <source>Reject return addresses that are not fully &amp;qualified</source>
        <translation>Unvollständige Absenderadressen &amp;abweisen</translation>
    </message>
    <message>
        <source>Insist on fully qualified &amp;recipient addresses</source>
        <translation>Auf vollständigen &amp;Empfängeradressen bestehen</translation>
    </message>
    <message>
        <source>No limit</source>
        <translation>Keine Grenze</translation>
    </message>
    <message>
        <source>Most recipien&amp;ts per message:</source>
        <translation>Höchstzahl der Empfän&amp;ger pro Nachricht:</translation>
    </message>
</context>
<context>
    <name>CSecurityDhapPage</name>
    <message>
        <source>Harvest Protection</source>
        <translation>Harvest-Schutz</translation>
    </message>
    <message>
        <source>A directory harvest attack tries many made-up recipient addresses to find out which exist. An address that tries too many unknown recipients is put on probation: mail from it is refused until the probation ends.</source>
        <translation>Ein Directory-Harvest-Angriff probiert viele erfundene Empfängeradressen durch, um herauszufinden, welche es gibt. Eine Adresse, die zu viele unbekannte Empfänger versucht, kommt auf Bewährung: Mail von ihr wird abgewiesen, bis die Bewährung endet.</translation>
    </message>
    <message>
        <source>&amp;Protect against directory harvest attacks</source>
        <translation>Vor Directory-Harvest-Angriffen &amp;schützen</translation>
    </message>
    <message>
        <source> unknown recipients</source>
        <translation> unbekannte Empfänger</translation>
    </message>
    <message>
        <source> minutes</source>
        <translation> Minuten</translation>
    </message>
    <message>
        <source>Do not check &amp;friendly sites</source>
        <translation>&amp;Befreundete Sites nicht prüfen</translation>
    </message>
    <message>
        <source>In one &amp;connection, at most:</source>
        <translation>In einer &amp;Verbindung höchstens:</translation>
    </message>
    <message>
        <source>From one address, at &amp;most:</source>
        <translation>Von einer Adresse &amp;höchstens:</translation>
    </message>
    <message>
        <source>&amp;within</source>
        <translation>&amp;innerhalb von</translation>
    </message>
    <message>
        <source>Then put the address on p&amp;robation for:</source>
        <translation>Dann die Adresse auf &amp;Bewährung setzen für:</translation>
    </message>
    <message>
        <source>Probation &amp;List...</source>
        <translation>Bewährungs&amp;liste...</translation>
    </message>
</context>
<context>
    <name>CSecurityGeneralPage</name>
    <message>
        <source>General</source>
        <translation>Allgemein</translation>
    </message>
    <message>
        <source>SMTP authentication</source>
        <translation>SMTP-Anmeldung</translation>
    </message>
    <message>
        <source>Not required</source>
        <translation>Nicht erforderlich</translation>
    </message>
    <message>
        <source>Always required</source>
        <translation>Immer erforderlich</translation>
    </message>
    <message>
        <source>Required unless from a friendly site</source>
        <translation>Erforderlich, außer von einer befreundeten Site</translation>
    </message>
    <message>
        <source>For &amp;relaying:</source>
        <translation>Für das &amp;Weiterleiten:</translation>
    </message>
    <message>
        <source>Required for message &amp;submission (port 587)</source>
        <translation>Erforderlich für das Ein&amp;liefern von Nachrichten (Port 587)</translation>
    </message>
    <message>
        <source>Methods allowed:</source>
        <translation>Erlaubte Verfahren:</translation>
    </message>
    <message>
        <source>Allow PLAIN and LOGIN only over an &amp;encrypted connection</source>
        <translation>PLAIN und LOGIN nur über eine &amp;verschlüsselte Verbindung erlauben</translation>
    </message>
    <message>
        <source>&amp;Lock out addresses after repeated failed logins</source>
        <translation>Adressen nach wiederholten fehlgeschlagenen Anmeldungen &amp;sperren</translation>
    </message>
    <message>
        <source> failed logins</source>
        <translation> fehlgeschlagene Anmeldungen</translation>
    </message>
    <message>
        <source> minutes</source>
        <translation> Minuten</translation>
    </message>
    <message>
        <source>Bans e&amp;xpire by themselves (otherwise they last until released)</source>
        <translation>Verbannungen laufen von selbst &amp;ab (sonst gelten sie bis zur Freigabe)</translation>
    </message>
    <message>
        <source>Lock out after &amp;threshold:</source>
        <translation>Sperren ab &amp;Schwelle:</translation>
    </message>
    <message>
        <source>Counted &amp;within:</source>
        <translation>Gezählt &amp;innerhalb von:</translation>
    </message>
    <message>
        <source>&amp;Ban for:</source>
        <translation>&amp;Verbannen für:</translation>
    </message>
</context>
<context>
    <name>CSecurityTlsPage</name>
    <message>
        <source>TLS</source>
        <translation>TLS</translation>
    </message>
    <message>
        <source>STARTTLS for incoming SMTP connections</source>
        <translation>STARTTLS für eingehende SMTP-Verbindungen</translation>
    </message>
    <message>
        <source>&amp;Not offered</source>
        <translation>&amp;Nicht angeboten</translation>
    </message>
    <message>
        <source>&amp;Offered to clients that ask for it</source>
        <translation>&amp;Angeboten für Clients, die danach fragen</translation>
    </message>
    <message>
        <source>Re&amp;quired before any mail is accepted</source>
        <translation>&amp;Erforderlich, bevor Mail angenommen wird</translation>
    </message>
    <message>
        <source>Certificate</source>
        <translation>Zertifikat</translation>
    </message>
    <message>
        <source>&amp;Browse...</source>
        <translation>D&amp;urchsuchen...</translation>
    </message>
    <message>
        <source>Bro&amp;wse...</source>
        <translation>Durch&amp;suchen...</translation>
    </message>
    <message>
        <source>&amp;Certificate chain file:</source>
        <translation>&amp;Zertifikatskettendatei:</translation>
    </message>
    <message>
        <source>Private &amp;key file:</source>
        <translation>Datei des privaten &amp;Schlüssels:</translation>
    </message>
    <message>
        <source>TLS 1.0 (insecure, for very old clients)</source>
        <translation>TLS 1.0 (unsicher, für sehr alte Clients)</translation>
    </message>
    <message>
        <source>TLS 1.1 (insecure, for old clients)</source>
        <translation>TLS 1.1 (unsicher, für alte Clients)</translation>
    </message>
    <message>
        <source>TLS 1.2 (recommended)</source>
        <translation>TLS 1.2 (empfohlen)</translation>
    </message>
    <message>
        <source>TLS 1.3</source>
        <translation>TLS 1.3</translation>
    </message>
    <message>
        <source>Oldest &amp;protocol version accepted:</source>
        <translation>Älteste angenommene &amp;Protokollversion:</translation>
    </message>
</context>
<context>
    <name>CServiceDlg</name>
    <message>
        <source>Service status:</source>
        <translation>Dienststatus:</translation>
    </message>
    <message>
        <source>&amp;Start!</source>
        <translation>&amp;Starten!</translation>
    </message>
    <message>
        <source>St&amp;op!</source>
        <translation>&amp;Beenden!</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>&amp;Schließen</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
</context>
<context>
    <name>CServicePropertiesDlg</name>
    <message>
        <source> service on %1</source>
        <translation> (Dienst) auf %1</translation>
    </message>
    <message>
        <source>Listening addresses</source>
        <translation>Empfangsadressen</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>Adresse</translation>
    </message>
    <message>
        <source>Port</source>
        <translation>Port</translation>
    </message>
    <message>
        <source>A&amp;ddress:</source>
        <translation>A&amp;dresse:</translation>
    </message>
    <message>
        <source>every address</source>
        <translation>jede Adresse</translation>
    </message>
    <message>
        <source>&amp;Port:</source>
        <translation>&amp;Port:</translation>
    </message>
    <message>
        <source>&amp;Add</source>
        <translation>Hin&amp;zufügen</translation>
    </message>
    <message>
        <source>&amp;Remove</source>
        <translation>&amp;Entfernen</translation>
    </message>
    <message>
        <source>Running</source>
        <translation>Läuft</translation>
    </message>
    <message>
        <source>Automatic (with the server)</source>
        <translation>Automatisch (mit dem Server)</translation>
    </message>
    <message>
        <source>Manual</source>
        <translation>Manuell</translation>
    </message>
    <message>
        <source>Disabled</source>
        <translation>Deaktiviert</translation>
    </message>
    <message>
        <source>Server default</source>
        <translation>Standard des Servers</translation>
    </message>
    <message>
        <source> seconds</source>
        <translation> Sekunden</translation>
    </message>
    <message>
        <source>Never</source>
        <translation>Nie</translation>
    </message>
    <message>
        <source>Write the service's own &amp;log file</source>
        <translation>Eigene &amp;Protokolldatei des Dienstes schreiben</translation>
    </message>
    <message>
        <source>&amp;Start mode:</source>
        <translation>&amp;Startart:</translation>
    </message>
    <message>
        <source>&amp;Worker limit:</source>
        <translation>&amp;Höchstzahl der Arbeitsprozesse:</translation>
    </message>
    <message>
        <source>Drop &amp;idle connections after:</source>
        <translation>&amp;Untätige Verbindungen trennen nach:</translation>
    </message>
    <message>
        <source>State</source>
        <translation>Zustand</translation>
    </message>
    <message>
        <source>Service status:</source>
        <translation>Dienststatus:</translation>
    </message>
    <message>
        <source>Service &amp;Control...</source>
        <translation>Dienst&amp;steuerung...</translation>
    </message>
    <message>
        <source>(every address)</source>
        <translation>(jede Adresse)</translation>
    </message>
    <message>
        <source> service</source>
        <translation> (Dienst)</translation>
    </message>
</context>
<context>
    <name>CSieveFilterDlg</name>
    <message>
        <source>Sieve Filter</source>
        <translation>Sieve-Filter</translation>
    </message>
    <message>
        <source>&amp;Rules</source>
        <translation>&amp;Regeln</translation>
    </message>
    <message>
        <source>S&amp;cript</source>
        <translation>S&amp;kript</translation>
    </message>
    <message>
        <source>This script uses Sieve features that the rules cannot show, so it is kept as it is. Edit it on the Script tab, or delete its text there to start again with rules.</source>
        <translation>Dieses Skript verwendet Sieve-Funktionen, die sich nicht als Regeln darstellen lassen; es bleibt daher unverändert. Bearbeiten Sie es auf der Registerkarte „Skript“, oder löschen Sie dort seinen Text, um wieder mit Regeln zu beginnen.</translation>
    </message>
    <message>
        <source>Filter ru&amp;les, applied in this order:</source>
        <translation>Filter&amp;regeln, in dieser Reihenfolge angewandt:</translation>
    </message>
    <message>
        <source>&amp;Add...</source>
        <translation>&amp;Hinzufügen...</translation>
    </message>
    <message>
        <source>&amp;Edit...</source>
        <translation>&amp;Bearbeiten...</translation>
    </message>
    <message>
        <source>Re&amp;move</source>
        <translation>&amp;Entfernen</translation>
    </message>
    <message>
        <source>Move &amp;Up</source>
        <translation>Nach &amp;oben</translation>
    </message>
    <message>
        <source>Move &amp;Down</source>
        <translation>Nach &amp;unten</translation>
    </message>
    <message>
        <source>The filter as a Sieve &amp;script:</source>
        <translation>Der Filter als Sieve-&amp;Skript:</translation>
    </message>
    <message>
        <source>The script has an error on line %1, column %2:
%3

Nothing has been saved.</source>
        <translation>Das Skript enthält einen Fehler in Zeile %1, Spalte %2:
%3

Es wurde nichts gespeichert.</translation>
    </message>
    <message>
        <source>Cannot set mailbox %1 property</source>
        <translation>Die Postfacheigenschaft %1 kann nicht gesetzt werden</translation>
    </message>
</context>
<context>
    <name>CSieveRuleDlg</name>
    <message>
        <source>Filter Rule</source>
        <translation>Filterregel</translation>
    </message>
    <message>
        <source>When a message arrives</source>
        <translation>Wenn eine Nachricht eintrifft</translation>
    </message>
    <message>
        <source>a header contains a text</source>
        <translation>ein Kopfeintrag einen Text enthält</translation>
    </message>
    <message>
        <source>its size is over</source>
        <translation>ihre Größe überschreitet</translation>
    </message>
    <message>
        <source>it comes from an address</source>
        <translation>sie von einer Adresse kommt</translation>
    </message>
    <message>
        <source>&amp;Condition:</source>
        <translation>&amp;Bedingung:</translation>
    </message>
    <message>
        <source>Hea&amp;der:</source>
        <translation>&amp;Kopfeintrag:</translation>
    </message>
    <message>
        <source>bytes, or with K, M or G, such as 500K</source>
        <translation>Bytes, oder mit K, M oder G, etwa 500K</translation>
    </message>
    <message>
        <source>&amp;Size over:</source>
        <translation>&amp;Größer als:</translation>
    </message>
    <message>
        <source>Then</source>
        <translation>Dann</translation>
    </message>
    <message>
        <source>file it into a folder</source>
        <translation>in einen Ordner ablegen</translation>
    </message>
    <message>
        <source>forward it to an address</source>
        <translation>an eine Adresse weiterleiten</translation>
    </message>
    <message>
        <source>reject it</source>
        <translation>abweisen</translation>
    </message>
    <message>
        <source>discard it</source>
        <translation>verwerfen</translation>
    </message>
    <message>
        <source>send an SMS notification</source>
        <translation>eine SMS-Benachrichtigung senden</translation>
    </message>
    <message>
        <source>&amp;Action:</source>
        <translation>&amp;Aktion:</translation>
    </message>
    <message>
        <source>Addr&amp;ess:</source>
        <translation>Adr&amp;esse:</translation>
    </message>
    <message>
        <source>Con&amp;tains:</source>
        <translation>&amp;Enthält:</translation>
    </message>
    <message>
        <source>&amp;Forward to:</source>
        <translation>&amp;Weiterleiten an:</translation>
    </message>
    <message>
        <source>&amp;Reason:</source>
        <translation>&amp;Begründung:</translation>
    </message>
    <message>
        <source>&amp;Folder:</source>
        <translation>&amp;Ordner:</translation>
    </message>
</context>
<context>
    <name>CSpamListDlg</name>
    <message>
        <source>Spam Sources on %1</source>
        <translation>Spam-Quellen auf %1</translation>
    </message>
    <message>
        <source>Mail is refused from these hosts and IP addresses. Use * as a wildcard (*.bulk.example, 198.51.100.*); a leading ! exempts an entry from the patterns after it. Host names need DNS lookups of connecting servers.</source>
        <translation>Von diesen Hosts und IP-Adressen wird keine Mail angenommen. Verwenden Sie * als Platzhalter (*.bulk.example, 198.51.100.*); ein vorangestelltes ! nimmt einen Eintrag von den folgenden Mustern aus. Hostnamen erfordern DNS-Abfragen verbindender Server.</translation>
    </message>
    <message>
        <source>host name or IP address pattern</source>
        <translation>Hostname oder IP-Adressmuster</translation>
    </message>
    <message>
        <source>&amp;Import...</source>
        <translation>&amp;Importieren...</translation>
    </message>
    <message>
        <source>E&amp;xport...</source>
        <translation>E&amp;xportieren...</translation>
    </message>
    <message>
        <source>%1 host names, %2 IP address patterns</source>
        <translation>%1 Hostnamen, %2 IP-Adressmuster</translation>
    </message>
</context>
<context>
    <name>CStringListEdit</name>
    <message>
        <source>A&amp;dd</source>
        <translation>Hin&amp;zufügen</translation>
    </message>
    <message>
        <source>Re&amp;move</source>
        <translation>Ent&amp;fernen</translation>
    </message>
    <message>
        <source>Up</source>
        <translation>Nach oben</translation>
    </message>
    <message>
        <source>Move the selected entry up the list</source>
        <translation>Den ausgewählten Eintrag in der Liste nach oben verschieben</translation>
    </message>
    <message>
        <source>Down</source>
        <translation>Nach unten</translation>
    </message>
    <message>
        <source>Move the selected entry down the list</source>
        <translation>Den ausgewählten Eintrag in der Liste nach unten verschieben</translation>
    </message>
</context>
<context>
    <name>CSubnetListDlg</name>
    <message>
        <source>&amp;Network Address:</source>
        <translation>&amp;Netzwerkadresse:</translation>
    </message>
    <message>
        <source>Subnet Mas&amp;k:</source>
        <translation>Subnetz&amp;maske:</translation>
    </message>
    <message>
        <source>C&amp;omment:</source>
        <translation>&amp;Kommentar:</translation>
    </message>
    <message>
        <source>&amp;Add</source>
        <translation>Hin&amp;zufügen</translation>
    </message>
    <message>
        <source>&amp;Modify</source>
        <translation>Ä&amp;ndern</translation>
    </message>
    <message>
        <source>C&amp;lear</source>
        <translation>Lee&amp;ren</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>&amp;Löschen</translation>
    </message>
    <message>
        <source>&amp;Import...</source>
        <translation>&amp;Importieren...</translation>
    </message>
    <message>
        <source>&amp;Export...</source>
        <translation>&amp;Exportieren...</translation>
    </message>
</context>
<context>
    <name>CTaviDialog</name>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
</context>
<context>
    <name>CTaviPropertySheet</name>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
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
    <name>CTrafficCountersDlg</name>
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
        <source>Traffic Counters on %1</source>
        <translation>Verkehrszähler auf %1</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>Enable Traffic Counters</source>
        <translation>Verkehrszähler aktivieren</translation>
    </message>
    <message>
        <source>Domain Auto Reset (s):</source>
        <translation>Domänen automatisch zurücksetzen (s):</translation>
    </message>
    <message>
        <source>Mailbox Auto Reset (s):</source>
        <translation>Postfächer automatisch zurücksetzen (s):</translation>
    </message>
    <message>
        <source>Report</source>
        <translation>Bericht</translation>
    </message>
    <message>
        <source>List all mailboxes whose traffic counters are greater than 
the following values</source>
        <translation>Alle Postfächer auflisten, deren Verkehrszähler größer sind als 
die folgenden Werte</translation>
    </message>
    <message>
        <source>Save Report...</source>
        <translation>Bericht speichern...</translation>
    </message>
</context>
<context>
    <name>CWirelessCarrierDlg</name>
    <message>
        <source>(new)</source>
        <translation>(neu)</translation>
    </message>
    <message>
        <source>&amp;Name:</source>
        <translation>&amp;Name:</translation>
    </message>
    <message>
        <source>&amp;SMS gateway domain:</source>
        <translation>&amp;SMS-Gateway-Domäne:</translation>
    </message>
    <message>
        <source>Id:</source>
        <translation>Kennung:</translation>
    </message>
</context>
<context>
    <name>ConsoleWindow</name>
    <message>
        <source>Velbrook Administration Console</source>
        <translation>Velbrook-Verwaltungskonsole</translation>
    </message>
    <message>
        <source>Server</source>
        <translation>Server</translation>
    </message>
    <message>
        <source>Name:</source>
        <translation>Name:</translation>
    </message>
    <message>
        <source>Location:</source>
        <translation>Ort:</translation>
    </message>
    <message>
        <source>Connector:</source>
        <translation>Connector:</translation>
    </message>
    <message>
        <source>%1: closed with result %2</source>
        <translation>%1: mit Ergebnis %2 geschlossen</translation>
    </message>
    <message>
        <source>&amp;Dialogs:</source>
        <translation>&amp;Dialoge:</translation>
    </message>
    <message>
        <source>&amp;Open...</source>
        <translation>Ö&amp;ffnen...</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;Open store...</source>
        <translation>Speicher ö&amp;ffnen...</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ansicht</translation>
    </message>
    <message>
        <source>&amp;Refresh</source>
        <translation>A&amp;ktualisieren</translation>
    </message>
    <message>
        <source>Server &amp;statistics...</source>
        <translation>Server&amp;statistik...</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>&amp;About</source>
        <translation>Ü&amp;ber</translation>
    </message>
    <message>
        <source>About the console</source>
        <translation>Über die Konsole</translation>
    </message>
    <message>
        <source>Open a configuration store</source>
        <translation>Konfigurationsspeicher öffnen</translation>
    </message>
    <message>
        <source>Opened %1</source>
        <translation>%1 geöffnet</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 von %2</translation>
    </message>
    <message>
        <source>%1: %2 (error %3)</source>
        <translation>%1: %2 (Fehler %3)</translation>
    </message>
    <message numerus="yes">
        <source>, and %n more</source>
        <translation><numerusform>, und %n weitere</numerusform><numerusform>, und %n weitere</numerusform></translation>
    </message>
    <message>
        <source>%1: some changes were not saved</source>
        <translation>%1: einige Änderungen wurden nicht gespeichert</translation>
    </message>
    <message>
        <source>%1: these changes were not saved:</source>
        <translation>%1: diese Änderungen wurden nicht gespeichert:</translation>
    </message>
    <message>
        <source>(no store open)</source>
        <translation>(kein Speicher geöffnet)</translation>
    </message>
    <message>
        <source>%1 - Velbrook Administration Console</source>
        <translation>%1 - Velbrook-Verwaltungskonsole</translation>
    </message>
    <message>
        <source>No configuration store is open.</source>
        <translation>Es ist kein Konfigurationsspeicher geöffnet.</translation>
    </message>
    <message>
        <source> service</source>
        <translation> (Dienst)</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>1 dialog available</source>
        <translation>1 Dialog verfügbar</translation>
    </message>
    <message>
        <source>%1: closed with OK</source>
        <translation>%1: mit OK geschlossen</translation>
    </message>
    <message>
        <source>%1: cancelled</source>
        <translation>%1: abgebrochen</translation>
    </message>
    <message>
        <source>%1: the dialog could not be opened</source>
        <translation>%1: Der Dialog konnte nicht geöffnet werden</translation>
    </message>
    <message>
        <source>%1: returned %2</source>
        <translation>%1: Ergebnis %2</translation>
    </message>
    <message>
        <source> (default)</source>
        <translation> (Standard)</translation>
    </message>
    <message>
        <source>Choose a domain</source>
        <translation>Domäne wählen</translation>
    </message>
    <message>
        <source>&amp;Domain:</source>
        <translation>&amp;Domäne:</translation>
    </message>
    <message>
        <source>Open a %1</source>
        <translation>%1 öffnen</translation>
    </message>
</context>
<context>
    <name>HeaderScript</name>
    <message>
        <source>"%1" needs a header name followed by a colon and a value.</source>
        <translation>„%1“ braucht einen Kopfzeilennamen, gefolgt von einem Doppelpunkt und einem Wert.</translation>
    </message>
    <message>
        <source>"%1" is not a valid header name.</source>
        <translation>„%1“ ist kein gültiger Kopfzeilenname.</translation>
    </message>
    <message>
        <source>"remove" takes exactly one header name.</source>
        <translation>„remove“ erwartet genau einen Kopfzeilennamen.</translation>
    </message>
    <message>
        <source>"rename" takes a header name and its new name.</source>
        <translation>„rename“ erwartet einen Kopfzeilennamen und seinen neuen Namen.</translation>
    </message>
    <message>
        <source>Unknown command "%1"; use add, set, remove or rename.</source>
        <translation>Unbekannter Befehl „%1“; verwenden Sie add, set, remove oder rename.</translation>
    </message>
</context>
<context>
    <name>HealthPanel</name>
    <message>
        <source>Configuration health</source>
        <translation>Zustand der Konfiguration</translation>
    </message>
    <message>
        <source>No configuration problems found.</source>
        <translation>Keine Konfigurationsprobleme gefunden.</translation>
    </message>
    <message>
        <source>The dialog library does not offer %1.</source>
        <translation>Die Dialogbibliothek bietet %1 nicht an.</translation>
    </message>
</context>
<context>
    <name>HealthRules</name>
    <message>
        <source>Anti-&amp;relay wizard...</source>
        <translation>Anti-&amp;Relay-Assistent...</translation>
    </message>
    <message>
        <source>Securi&amp;ty...</source>
        <translation>Sicherhei&amp;t...</translation>
    </message>
    <message>
        <source>Anti-spa&amp;m wizard...</source>
        <translation>Anti-Spa&amp;m-Assistent...</translation>
    </message>
    <message>
        <source>Anti-Do&amp;S wizard...</source>
        <translation>Anti-Do&amp;S-Assistent...</translation>
    </message>
    <message>
        <source>Director&amp;ies...</source>
        <translation>Verze&amp;ichnisse...</translation>
    </message>
    <message>
        <source>File lo&amp;g...</source>
        <translation>Datei&amp;protokoll...</translation>
    </message>
    <message>
        <source>&amp;Quotas...</source>
        <translation>&amp;Kontingente...</translation>
    </message>
</context>
<context>
    <name>MemberCsv</name>
    <message>
        <source>"%1" is not a valid mail address</source>
        <translation>„%1“ ist keine gültige Mailadresse</translation>
    </message>
    <message>
        <source>the name is longer than 255 bytes</source>
        <translation>der Name ist länger als 255 Byte</translation>
    </message>
    <message>
        <source>%1 is already a member</source>
        <translation>%1 ist bereits Mitglied</translation>
    </message>
    <message>
        <source>%1 is given twice</source>
        <translation>%1 ist doppelt angegeben</translation>
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
    <name>SecurityPropertySheet</name>
    <message>
        <source>Security Properties</source>
        <translation>Sicherheitseigenschaften</translation>
    </message>
</context>
<context>
    <name>Sieve</name>
    <message>
        <source>%1 contains "%2"</source>
        <translation>%1 enthält „%2“</translation>
    </message>
    <message>
        <source>Size over %1</source>
        <translation>Größer als %1</translation>
    </message>
    <message>
        <source>From %1</source>
        <translation>Von %1</translation>
    </message>
    <message>
        <source>file into "%1"</source>
        <translation>ablegen in „%1“</translation>
    </message>
    <message>
        <source>forward to %1</source>
        <translation>weiterleiten an %1</translation>
    </message>
    <message>
        <source>reject: %1</source>
        <translation>abweisen: %1</translation>
    </message>
    <message>
        <source>discard</source>
        <translation>verwerfen</translation>
    </message>
    <message>
        <source>send an SMS notification</source>
        <translation>eine SMS-Benachrichtigung senden</translation>
    </message>
    <message>
        <source>%1 → %2</source>
        <translation>%1 → %2</translation>
    </message>
    <message>
        <source>Enter the name of the header, such as Subject.</source>
        <translation>Geben Sie den Namen des Kopfeintrags ein, etwa Subject.</translation>
    </message>
    <message>
        <source>A header name consists of printable characters other than blanks and ':'.</source>
        <translation>Ein Kopfeintragsname besteht aus druckbaren Zeichen außer Leerzeichen und „:“.</translation>
    </message>
    <message>
        <source>Enter the text the header must contain.</source>
        <translation>Geben Sie den Text ein, den der Kopfeintrag enthalten muss.</translation>
    </message>
    <message>
        <source>Enter a size greater than 0: a number of bytes, or one followed by K, M or G.</source>
        <translation>Geben Sie eine Größe über 0 ein: eine Anzahl Bytes, oder eine Zahl gefolgt von K, M oder G.</translation>
    </message>
    <message>
        <source>Enter the sender's address.</source>
        <translation>Geben Sie die Adresse des Absenders ein.</translation>
    </message>
    <message>
        <source>Enter the folder to file the message into.</source>
        <translation>Geben Sie den Ordner ein, in den die Nachricht abgelegt wird.</translation>
    </message>
    <message>
        <source>Enter the address to forward to, such as someone@example.com.</source>
        <translation>Geben Sie die Adresse ein, an die weitergeleitet wird, etwa jemand@example.com.</translation>
    </message>
    <message>
        <source>Enter the reason sent back to the sender.</source>
        <translation>Geben Sie die Begründung ein, die an den Absender zurückgeht.</translation>
    </message>
</context>
<context>
    <name>Sieve::Parser</name>
    <message>
        <source>Unexpected '}'</source>
        <translation>Unerwartetes „}“</translation>
    </message>
    <message>
        <source>Blocks nested too deeply</source>
        <translation>Blöcke zu tief verschachtelt</translation>
    </message>
    <message>
        <source>Expected a command</source>
        <translation>Befehl erwartet</translation>
    </message>
    <message>
        <source>Expected ';' after '%1'</source>
        <translation>„;“ nach „%1“ erwartet</translation>
    </message>
    <message>
        <source>Block not closed with '}'</source>
        <translation>Block nicht mit „}“ geschlossen</translation>
    </message>
    <message>
        <source>'%1' needs exactly one test</source>
        <translation>„%1“ braucht genau einen Test</translation>
    </message>
    <message>
        <source>'%1' needs a block in '{' and '}'</source>
        <translation>„%1“ braucht einen Block in „{“ und „}“</translation>
    </message>
    <message>
        <source>'else' takes no test</source>
        <translation>„else“ nimmt keinen Test</translation>
    </message>
    <message>
        <source>'%1' must follow 'if' or 'elsif'</source>
        <translation>„%1“ muss auf „if“ oder „elsif“ folgen</translation>
    </message>
    <message>
        <source>'require' must come before all other commands</source>
        <translation>„require“ muss vor allen anderen Befehlen stehen</translation>
    </message>
    <message>
        <source>'require' needs a list of extension names</source>
        <translation>„require“ braucht eine Liste von Erweiterungsnamen</translation>
    </message>
    <message>
        <source>Expected a string in the list</source>
        <translation>Zeichenkette in der Liste erwartet</translation>
    </message>
    <message>
        <source>Expected ',' or ']' in the string list</source>
        <translation>„,“ oder „]“ in der Zeichenkettenliste erwartet</translation>
    </message>
    <message>
        <source>Expected a test</source>
        <translation>Test erwartet</translation>
    </message>
    <message>
        <source>Expected ',' or ')' in the test list</source>
        <translation>„,“ oder „)“ in der Testliste erwartet</translation>
    </message>
    <message>
        <source>Tests nested too deeply</source>
        <translation>Tests zu tief verschachtelt</translation>
    </message>
    <message>
        <source>'%1' needs a test</source>
        <translation>„%1“ braucht einen Test</translation>
    </message>
</context>
<context>
    <name>Sieve::Tokenizer</name>
    <message>
        <source>A tag needs a name after ':'</source>
        <translation>Ein Tag braucht nach „:“ einen Namen</translation>
    </message>
    <message>
        <source>Unexpected character '%1'</source>
        <translation>Unerwartetes Zeichen „%1“</translation>
    </message>
    <message>
        <source>Comment not closed with '*/'</source>
        <translation>Kommentar nicht mit „*/“ geschlossen</translation>
    </message>
    <message>
        <source>Number too large</source>
        <translation>Zahl zu groß</translation>
    </message>
    <message>
        <source>A number may only be followed by K, M or G</source>
        <translation>Auf eine Zahl darf nur K, M oder G folgen</translation>
    </message>
    <message>
        <source>String not closed with '"'</source>
        <translation>Zeichenkette nicht mit „"“ geschlossen</translation>
    </message>
    <message>
        <source>'text:' must be followed by the end of the line</source>
        <translation>Auf „text:“ muss das Zeilenende folgen</translation>
    </message>
    <message>
        <source>Multi-line text not ended by a line holding only '.'</source>
        <translation>Mehrzeiliger Text nicht durch eine Zeile mit nur „.“ beendet</translation>
    </message>
</context>
<context>
    <name>StatisticsWindow</name>
    <message>
        <source>RCPT commands:</source>
        <translation>RCPT-Befehle:</translation>
    </message>
    <message>
        <source>SMTP received:</source>
        <translation>SMTP empfangen:</translation>
    </message>
    <message>
        <source>SMTP sent:</source>
        <translation>SMTP gesendet:</translation>
    </message>
    <message>
        <source>IMAP sent:</source>
        <translation>IMAP gesendet:</translation>
    </message>
    <message>
        <source>IMAP received:</source>
        <translation>IMAP empfangen:</translation>
    </message>
    <message>
        <source>POP sent:</source>
        <translation>POP gesendet:</translation>
    </message>
    <message>
        <source>POP received:</source>
        <translation>POP empfangen:</translation>
    </message>
    <message>
        <source>Mail Server Statistics</source>
        <translation>Mailserver-Statistik</translation>
    </message>
    <message>
        <source>Configuration</source>
        <translation>Konfiguration</translation>
    </message>
    <message>
        <source>Domains:</source>
        <translation>Domänen:</translation>
    </message>
    <message>
        <source>Mailboxes:</source>
        <translation>Postfächer:</translation>
    </message>
    <message>
        <source>Mailing lists:</source>
        <translation>Mailinglisten:</translation>
    </message>
    <message>
        <source>Mailboxes with a quota:</source>
        <translation>Postfächer mit Kontingent:</translation>
    </message>
    <message>
        <source>Over quota:</source>
        <translation>Über dem Kontingent:</translation>
    </message>
    <message>
        <source>Near quota:</source>
        <translation>Nahe am Kontingent:</translation>
    </message>
    <message>
        <source>Traffic of all mailboxes</source>
        <translation>Verkehr aller Postfächer</translation>
    </message>
    <message>
        <source>&amp;Largest mailboxes:</source>
        <translation>&amp;Größte Postfächer:</translation>
    </message>
    <message>
        <source>Mailbox</source>
        <translation>Postfach</translation>
    </message>
    <message>
        <source>Size (kB)</source>
        <translation>Größe (kB)</translation>
    </message>
    <message>
        <source>Messages</source>
        <translation>Nachrichten</translation>
    </message>
    <message>
        <source>&amp;Refresh</source>
        <translation>A&amp;ktualisieren</translation>
    </message>
    <message>
        <source>unavailable</source>
        <translation>nicht verfügbar</translation>
    </message>
    <message>
        <source>A statistic could not be read: %1 (error %2).</source>
        <translation>Eine Statistik konnte nicht gelesen werden: %1 (Fehler %2).</translation>
    </message>
    <message>
        <source>Computed by the store in %1 ms.</source>
        <translation>Vom Speicher in %1 ms berechnet.</translation>
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
    <message>
        <source>A connection URI begins with "postgresql://", for example postgresql://velbrook@db.example.net:5432/maillog</source>
        <translation>Eine Verbindungs-URI beginnt mit „postgresql://“, zum Beispiel postgresql://velbrook@db.example.net:5432/maillog</translation>
    </message>
    <message>
        <source>The URI could not be understood.</source>
        <translation>Die URI ist unverständlich.</translation>
    </message>
    <message>
        <source>Out of memory.</source>
        <translation>Nicht genug Speicher.</translation>
    </message>
    <message>
        <source>No answer within %1 seconds.</source>
        <translation>Keine Antwort innerhalb von %1 Sekunden.</translation>
    </message>
    <message>
        <source>Connecting to the database...</source>
        <translation>Verbindung zur Datenbank wird hergestellt...</translation>
    </message>
    <message>
        <source>SMTP Receiver</source>
        <translation>SMTP-Empfänger</translation>
    </message>
    <message>
        <source>&amp;Connections opened and closed</source>
        <translation>&amp;Verbindungen geöffnet und geschlossen</translation>
    </message>
    <message>
        <source>Every co&amp;mmand and reply</source>
        <translation>Jeder &amp;Befehl und jede Antwort</translation>
    </message>
    <message>
        <source>&amp;Refused connections, senders and recipients</source>
        <translation>&amp;Abgewiesene Verbindungen, Absender und Empfänger</translation>
    </message>
    <message>
        <source>A&amp;uthentication attempts</source>
        <translation>A&amp;nmeldeversuche</translation>
    </message>
    <message>
        <source>&amp;TLS negotiation</source>
        <translation>&amp;TLS-Aushandlung</translation>
    </message>
    <message>
        <source>Delivery</source>
        <translation>Zustellung</translation>
    </message>
    <message>
        <source>Messages &amp;queued, retried and expired</source>
        <translation>Nachrichten in die &amp;Warteschlange gestellt, wiederholt und abgelaufen</translation>
    </message>
    <message>
        <source>SMTP &amp;transcripts with remote servers</source>
        <translation>SMTP-&amp;Mitschnitte mit entfernten Servern</translation>
    </message>
    <message>
        <source>&amp;MX and address lookups</source>
        <translation>&amp;MX- und Adressabfragen</translation>
    </message>
    <message>
        <source>Delivery into local mailbo&amp;xes</source>
        <translation>Zustellung in lokale Post&amp;fächer</translation>
    </message>
    <message>
        <source>Delivery status &amp;notifications sent</source>
        <translation>Zustellbe&amp;nachrichtigungen verschickt</translation>
    </message>
    <message>
        <source>Mail Access</source>
        <translation>Mailzugriff</translation>
    </message>
    <message>
        <source>&amp;POP3 sessions</source>
        <translation>&amp;POP3-Sitzungen</translation>
    </message>
    <message>
        <source>&amp;IMAP4 sessions</source>
        <translation>&amp;IMAP4-Sitzungen</translation>
    </message>
    <message>
        <source>Logins and &amp;failed logins</source>
        <translation>Anmeldungen und &amp;fehlgeschlagene Anmeldungen</translation>
    </message>
    <message>
        <source>&amp;Web mail sessions</source>
        <translation>&amp;Webmail-Sitzungen</translation>
    </message>
    <message>
        <source>System</source>
        <translation>System</translation>
    </message>
    <message>
        <source>Mailing-list &amp;processing</source>
        <translation>Verarbeitung von &amp;Mailinglisten</translation>
    </message>
    <message>
        <source>A&amp;gents run and their results</source>
        <translation>Ausgeführte A&amp;genten und ihre Ergebnisse</translation>
    </message>
    <message>
        <source>Lock&amp;outs, bans and harvest probation</source>
        <translation>&amp;Sperren, Verbannungen und Harvest-Bewährung</translation>
    </message>
    <message>
        <source>&amp;Configuration changes picked up</source>
        <translation>Übernommene &amp;Konfigurationsänderungen</translation>
    </message>
    <message>
        <source>&amp;Debugging detail (makes logs large)</source>
        <translation>&amp;Details zur Fehlersuche (macht Protokolle groß)</translation>
    </message>
    <message>
        <source>The connection URI is not valid:

%1</source>
        <translation>Die Verbindungs-URI ist ungültig:

%1</translation>
    </message>
    <message>
        <source>Could not connect to the PostgreSQL database:

%1

Check the host, port, database, user and password in the URI, and that the database server accepts connections from this server.</source>
        <translation>Keine Verbindung zur PostgreSQL-Datenbank:

%1

Prüfen Sie Host, Port, Datenbank, Benutzer und Kennwort in der URI und ob der Datenbankserver Verbindungen von diesem Server annimmt.</translation>
    </message>
    <message>
        <source>The connection succeeded (PostgreSQL server version %1).</source>
        <translation>Die Verbindung ist gelungen (PostgreSQL-Serverversion %1).</translation>
    </message>
    <message>
        <source>Type the full path of the database log file, for example /var/lib/velbrook/eventlog.db.</source>
        <translation>Geben Sie den vollständigen Pfad der Datenbank-Protokolldatei ein, zum Beispiel /var/lib/velbrook/eventlog.db.</translation>
    </message>
    <message>
        <source>The folder "%1" does not exist. Create it first, or choose another folder for the database log file.</source>
        <translation>Den Ordner „%1“ gibt es nicht. Legen Sie ihn zuerst an oder wählen Sie einen anderen Ordner für die Datenbank-Protokolldatei.</translation>
    </message>
    <message>
        <source>"%1" is a folder. Type the path of a file in it.</source>
        <translation>„%1“ ist ein Ordner. Geben Sie den Pfad einer Datei darin ein.</translation>
    </message>
    <message>
        <source>Choose at least one kind of event to log, or turn the database log off.</source>
        <translation>Wählen Sie mindestens eine Art von Ereignis aus oder schalten Sie das Datenbankprotokoll ab.</translation>
    </message>
    <message>
        <source>SQLite databases</source>
        <translation>SQLite-Datenbanken</translation>
    </message>
    <message>
        <source>Database Log File</source>
        <translation>Datenbank-Protokolldatei</translation>
    </message>
    <message>
        <source>Cannot open mail list %1.</source>
        <translation>Die Mailingliste %1 kann nicht geöffnet werden.</translation>
    </message>
    <message>
        <source>Cannot get information about the plugin for %1.</source>
        <translation>Informationen über das Plug-in für %1 sind nicht erhältlich.</translation>
    </message>
    <message>
        <source>Cannot set mail list property %1</source>
        <translation>Die Eigenschaft %1 der Mailingliste kann nicht gesetzt werden</translation>
    </message>
    <message>
        <source>You have specified that only the moderator(s) may send
messages to this list, but you have not specified the
moderator's address(es).</source>
        <translation>Sie haben angegeben, dass nur Moderatoren an diese Liste
schreiben dürfen, aber keine Adressen von Moderatoren
angegeben.</translation>
    </message>
    <message>
        <source>You have specified that the moderator controls certain aspects of the mail list, but you have not specified the moderator's address.</source>
        <translation>Sie haben angegeben, dass der Moderator Teile der Mailingliste kontrolliert, aber keine Adresse des Moderators angegeben.</translation>
    </message>
    <message>
        <source>Maximum message size is invalid.</source>
        <translation>Die maximale Nachrichtengröße ist ungültig.</translation>
    </message>
    <message>
        <source>You have indicated that non-delivery reports should be sent
to a specific mail address, but you have not supplied that address.
This can result in some mail systems rejecting messages
sent through this mailing list.
Are you sure you want this to happen?</source>
        <translation>Sie haben angegeben, dass Unzustellbarkeitsberichte an eine bestimmte
Mailadresse gehen sollen, aber diese Adresse nicht angegeben.
Manche Mailsysteme weisen dann Nachrichten ab,
die über diese Mailingliste verschickt werden.
Möchten Sie das wirklich?</translation>
    </message>
    <message>
        <source>Missing address for non-delivery reports</source>
        <translation>Adresse für Unzustellbarkeitsberichte fehlt</translation>
    </message>
    <message>
        <source>When using a clustered configuration, you should specify a UNC path for the mail list agent.  Otherwise, the program may be inaccessible to the other mail servers in the cluster.

 You should only specify a drive letter if using the Registry connector.</source>
        <translation>In einer Cluster-Konfiguration sollten Sie für den Agenten der Mailingliste einen UNC-Pfad angeben.  Andernfalls ist das Programm für die anderen Mailserver des Clusters womöglich nicht erreichbar.

 Geben Sie nur mit dem Registry-Connector einen Laufwerksbuchstaben an.</translation>
    </message>
    <message>
        <source>When using a clustered configuration, you should specify a UNC path for the mail list processor agent.  Otherwise, the program may be inaccessible to the other mail servers in the cluster.

 You should only specify a drive letter if using the Registry connector.</source>
        <translation>In einer Cluster-Konfiguration sollten Sie für den Agenten des Listenprozessors einen UNC-Pfad angeben.  Andernfalls ist das Programm für die anderen Mailserver des Clusters womöglich nicht erreichbar.

 Geben Sie nur mit dem Registry-Connector einen Laufwerksbuchstaben an.</translation>
    </message>
    <message>
        <source>A UNC path is required</source>
        <translation>Ein UNC-Pfad ist erforderlich</translation>
    </message>
    <message>
        <source>Cannot read the members of mail list %1.</source>
        <translation>Die Mitglieder der Mailingliste %1 können nicht gelesen werden.</translation>
    </message>
    <message>
        <source>"%1" is not a valid mail address.</source>
        <translation>„%1“ ist keine gültige Mailadresse.</translation>
    </message>
    <message>
        <source>%1 is already a member of this list.</source>
        <translation>%1 ist bereits Mitglied dieser Liste.</translation>
    </message>
    <message>
        <source>Cannot add %1 to the mail list.</source>
        <translation>%1 kann nicht zur Mailingliste hinzugefügt werden.</translation>
    </message>
    <message>
        <source>Cannot remove %1 from the mail list.</source>
        <translation>%1 kann nicht aus der Mailingliste entfernt werden.</translation>
    </message>
    <message>
        <source>%1 lines of the file cannot be imported:
%2
Import the other %3 members?</source>
        <translation>%1 Zeilen der Datei können nicht importiert werden:
%2
Die übrigen %3 Mitglieder importieren?</translation>
    </message>
    <message>
        <source>The members could not be imported (line %1: %2). No member was added.</source>
        <translation>Die Mitglieder konnten nicht importiert werden (Zeile %1: %2). Es wurde kein Mitglied hinzugefügt.</translation>
    </message>
    <message>
        <source>Importing members from %1...</source>
        <translation>Mitglieder werden aus %1 importiert...</translation>
    </message>
    <message>
        <source>Cannot read the file %1.</source>
        <translation>Die Datei %1 kann nicht gelesen werden.</translation>
    </message>
    <message>
        <source>Cannot write the file %1.</source>
        <translation>Die Datei %1 kann nicht geschrieben werden.</translation>
    </message>
    <message>
        <source>%1 of %2 members shown</source>
        <translation>%1 von %2 Mitgliedern angezeigt</translation>
    </message>
    <message>
        <source>The file holds no member that can be imported:
%1</source>
        <translation>Die Datei enthält kein importierbares Mitglied:
%1</translation>
    </message>
    <message>
        <source>Remove %1 from the mail list?</source>
        <translation>%1 aus der Mailingliste entfernen?</translation>
    </message>
    <message>
        <source>Remove the %1 selected members from the mail list?</source>
        <translation>Die %1 ausgewählten Mitglieder aus der Mailingliste entfernen?</translation>
    </message>
    <message>
        <source>the %1 selected members</source>
        <translation>die %1 ausgewählten Mitglieder</translation>
    </message>
    <message>
        <source>The header script has errors:
%1</source>
        <translation>Das Kopfzeilen-Skript hat Fehler:
%1</translation>
    </message>
    <message>
        <source>Cannot save the membership rules of %1.</source>
        <translation>Die Mitgliedschaftsregeln von %1 können nicht gespeichert werden.</translation>
    </message>
    <message>
        <source>Enter the directory in which the web archive is kept.</source>
        <translation>Geben Sie das Verzeichnis an, in dem das Webarchiv liegt.</translation>
    </message>
    <message>
        <source>"%1" is already in the list.</source>
        <translation>„%1“ steht bereits in der Liste.</translation>
    </message>
    <message>
        <source>Authentication is required, but no authentication method is allowed. Allow at least one method.</source>
        <translation>Eine Anmeldung ist erforderlich, aber kein Anmeldeverfahren ist erlaubt. Erlauben Sie mindestens ein Verfahren.</translation>
    </message>
    <message>
        <source>"%1" is not a DNS zone name. A blacklist service is named by its zone, for example bl.spamcop.net.</source>
        <translation>„%1“ ist kein DNS-Zonenname. Ein Blacklist-Dienst wird mit seiner Zone benannt, zum Beispiel bl.spamcop.net.</translation>
    </message>
    <message>
        <source>"%1" is neither a host name nor an IP address pattern.

Examples: mail.spam.example, *.bulk.example, 203.0.113.7, 198.51.100.*; a leading ! exempts an entry.</source>
        <translation>„%1“ ist weder ein Hostname noch ein IP-Adressmuster.

Beispiele: mail.spam.example, *.bulk.example, 203.0.113.7, 198.51.100.*; ein vorangestelltes ! nimmt einen Eintrag aus.</translation>
    </message>
    <message>
        <source>"%1" is not a return address or domain. Examples: offers@promo.example, @junk.example, *@junk.example.</source>
        <translation>„%1“ ist keine Absenderadresse oder Domäne. Beispiele: offers@promo.example, @junk.example, *@junk.example.</translation>
    </message>
    <message>
        <source>Blocked hosts and addresses: %1</source>
        <translation>Gesperrte Hosts und Adressen: %1</translation>
    </message>
    <message>
        <source>Blocked networks: %1</source>
        <translation>Gesperrte Netze: %1</translation>
    </message>
    <message>
        <source>Blocked Networks</source>
        <translation>Gesperrte Netze</translation>
    </message>
    <message>
        <source>The list of blocked networks could not be read, so it cannot be edited now.</source>
        <translation>Die Liste gesperrter Netze konnte nicht gelesen werden und kann daher jetzt nicht bearbeitet werden.</translation>
    </message>
    <message>
        <source>Addresses on probation: %1</source>
        <translation>Adressen auf Bewährung: %1</translation>
    </message>
    <message>
        <source>Could not release %1 from probation.</source>
        <translation>%1 konnte nicht von der Bewährung freigegeben werden.</translation>
    </message>
    <message>
        <source>Could not read the probation list.</source>
        <translation>Die Bewährungsliste konnte nicht gelesen werden.</translation>
    </message>
    <message>
        <source>host name</source>
        <translation>Hostname</translation>
    </message>
    <message>
        <source>IP address</source>
        <translation>IP-Adresse</translation>
    </message>
    <message>
        <source>Text files</source>
        <translation>Textdateien</translation>
    </message>
    <message>
        <source>Could not read "%1": %2</source>
        <translation>„%1“ konnte nicht gelesen werden: %2</translation>
    </message>
    <message>
        <source>Could not write "%1": %2</source>
        <translation>„%1“ konnte nicht geschrieben werden: %2</translation>
    </message>
    <message>
        <source>%1 entries of the file are neither host names nor IP address patterns and were skipped.</source>
        <translation>%1 Einträge der Datei sind weder Hostnamen noch IP-Adressmuster und wurden übersprungen.</translation>
    </message>
    <message>
        <source>Type the path of the certificate file (the server's certificate followed by its chain).</source>
        <translation>Geben Sie den Pfad der Zertifikatsdatei ein (das Zertifikat des Servers, gefolgt von seiner Kette).</translation>
    </message>
    <message>
        <source>Type the path of the private key file.</source>
        <translation>Geben Sie den Pfad der Datei des privaten Schlüssels ein.</translation>
    </message>
    <message>
        <source>The file "%1" does not exist.</source>
        <translation>Die Datei „%1“ gibt es nicht.</translation>
    </message>
    <message>
        <source>The file "%1" cannot be read: %2</source>
        <translation>Die Datei „%1“ kann nicht gelesen werden: %2</translation>
    </message>
    <message>
        <source>it is a folder</source>
        <translation>es ist ein Ordner</translation>
    </message>
    <message>
        <source>The file "%1" does not hold a certificate in PEM or DER form.</source>
        <translation>Die Datei „%1“ enthält kein Zertifikat im PEM- oder DER-Format.</translation>
    </message>
    <message>
        <source>The certificate "%1" expired on %2 (in "%3"). Mail servers will refuse it; install a renewed certificate.</source>
        <translation>Das Zertifikat „%1“ ist am %2 abgelaufen (in „%3“). Mailserver werden es ablehnen; installieren Sie ein erneuertes Zertifikat.</translation>
    </message>
    <message>
        <source>The certificate "%1" is not valid before %2 (in "%3").</source>
        <translation>Das Zertifikat „%1“ ist erst ab %2 gültig (in „%3“).</translation>
    </message>
    <message>
        <source>The file "%1" does not hold a private key in PEM or DER form, or the key is protected by a passphrase (the server needs it without one).</source>
        <translation>Die Datei „%1“ enthält keinen privaten Schlüssel im PEM- oder DER-Format, oder der Schlüssel ist durch eine Passphrase geschützt (der Server braucht ihn ohne).</translation>
    </message>
    <message>
        <source>The private key in "%1" does not belong to the certificate in "%2".</source>
        <translation>Der private Schlüssel in „%1“ gehört nicht zum Zertifikat in „%2“.</translation>
    </message>
    <message>
        <source>Issued to %1 by %2, valid until %3.</source>
        <translation>Ausgestellt für %1 von %2, gültig bis %3.</translation>
    </message>
    <message>
        <source>Certificates</source>
        <translation>Zertifikate</translation>
    </message>
    <message>
        <source>Private keys</source>
        <translation>Private Schlüssel</translation>
    </message>
    <message>
        <source>Certificate File</source>
        <translation>Zertifikatsdatei</translation>
    </message>
    <message>
        <source>Private Key File</source>
        <translation>Datei des privaten Schlüssels</translation>
    </message>
    <message>
        <source>The files are on the mail server's machine, so they cannot be checked from here. Make sure they are there and that the key belongs to the certificate.</source>
        <translation>Die Dateien liegen auf dem Rechner des Mailservers und können von hier aus nicht geprüft werden. Stellen Sie sicher, dass sie dort liegen und der Schlüssel zum Zertifikat gehört.</translation>
    </message>
    <message>
        <source>"%1" is not an IP address of this host.

Type an IPv4 address such as 192.0.2.10, an IPv6 address such as 2001:db8::10, or leave the address empty to listen on every address.</source>
        <translation>„%1“ ist keine IP-Adresse dieses Hosts.

Geben Sie eine IPv4-Adresse wie 192.0.2.10 oder eine IPv6-Adresse wie 2001:db8::10 ein, oder lassen Sie die Adresse leer, um auf jeder Adresse zu lauschen.</translation>
    </message>
    <message>
        <source>The service already listens on %1.</source>
        <translation>Der Dienst lauscht bereits auf %1.</translation>
    </message>
    <message>
        <source>Port %1 is already used by the %2 service (%3), which listens on %4.

Choose another port, or another address for one of the two services.</source>
        <translation>Port %1 wird bereits vom Dienst %2 (%3) verwendet, der auf %4 lauscht.

Wählen Sie einen anderen Port oder für einen der beiden Dienste eine andere Adresse.</translation>
    </message>
    <message>
        <source>%1 of the stored listening addresses could not be understood and are not shown. They will be removed when you press OK.</source>
        <translation>%1 der gespeicherten Empfangsadressen sind unverständlich und werden nicht angezeigt. Sie werden entfernt, wenn Sie auf OK klicken.</translation>
    </message>
    <message>
        <source>Velbrook Security</source>
        <translation>Velbrook-Sicherheit</translation>
    </message>
    <message>
        <source>SMTP Security Wizard</source>
        <translation>SMTP-Sicherheitsassistent</translation>
    </message>
    <message>
        <source>Anti-Relay Wizard</source>
        <translation>Anti-Relay-Assistent</translation>
    </message>
    <message>
        <source>Anti Denial-of-Service Wizard</source>
        <translation>Assistent gegen Denial-of-Service</translation>
    </message>
    <message>
        <source>Failed to update property "%1"</source>
        <translation>Die Eigenschaft „%1“ konnte nicht aktualisiert werden</translation>
    </message>
    <message>
        <source>Add new entry to the list</source>
        <translation>Neuen Eintrag zur Liste hinzufügen</translation>
    </message>
    <message>
        <source>Delete selected entries</source>
        <translation>Ausgewählte Einträge löschen</translation>
    </message>
    <message>
        <source>Move selected entry up the list</source>
        <translation>Ausgewählten Eintrag in der Liste nach oben verschieben</translation>
    </message>
    <message>
        <source>Move selected entry down the list</source>
        <translation>Ausgewählten Eintrag in der Liste nach unten verschieben</translation>
    </message>
    <message>
        <source>
Error: %1
%2
</source>
        <translation>
Fehler: %1
%2
</translation>
    </message>
    <message>
        <source>Mail list manager error</source>
        <translation>Fehler der Mailinglistenverwaltung</translation>
    </message>
    <message>
        <source>Mailbox manager error</source>
        <translation>Fehler der Postfachverwaltung</translation>
    </message>
    <message>
        <source>Could not start %1 service</source>
        <translation>Der Dienst %1 konnte nicht gestartet werden</translation>
    </message>
    <message>
        <source>Could not stop %1 service</source>
        <translation>Der Dienst %1 konnte nicht beendet werden</translation>
    </message>
    <message>
        <source>You cannot create any more mailboxes in this domain.</source>
        <translation>In dieser Domäne können keine weiteren Postfächer angelegt werden.</translation>
    </message>
    <message>
        <source>You cannot create any more mail lists in this domain.</source>
        <translation>In dieser Domäne können keine weiteren Mailinglisten angelegt werden.</translation>
    </message>
    <message>
        <source>The property is too large.</source>
        <translation>Die Eigenschaft ist zu groß.</translation>
    </message>
    <message>
        <source>Could not set the '%1' mail server property.</source>
        <translation>Die Mailserver-Eigenschaft „%1“ konnte nicht gesetzt werden.</translation>
    </message>
    <message>
        <source>Failed to update property %1!s!, error %2!d!.</source>
        <translation>Die Eigenschaft %1!s! konnte nicht aktualisiert werden, Fehler %2!d!.</translation>
    </message>
    <message>
        <source>Velbrook Mail Server</source>
        <translation>Velbrook-Mailserver</translation>
    </message>
    <message>
        <source>Enter a whole number from %1 to %2.</source>
        <translation>Geben Sie eine ganze Zahl von %1 bis %2 ein.</translation>
    </message>
    <message>
        <source>Enter a whole number of at least 0.</source>
        <translation>Geben Sie eine ganze Zahl ab 0 ein.</translation>
    </message>
    <message>
        <source>Help topic %1 is not installed.</source>
        <translation>Das Hilfethema %1 ist nicht installiert.</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>&amp;Apply Now</source>
        <translation>Ü&amp;bernehmen</translation>
    </message>
    <message>
        <source>Working...</source>
        <translation>In Arbeit...</translation>
    </message>
    <message>
        <source>List Editor</source>
        <translation>Listeneditor</translation>
    </message>
    <message>
        <source>&lt;select a list&gt;</source>
        <translation>&lt;Liste auswählen&gt;</translation>
    </message>
    <message>
        <source>Do you want to save the current list before continuing?</source>
        <translation>Möchten Sie die aktuelle Liste speichern, bevor Sie fortfahren?</translation>
    </message>
    <message>
        <source>The loading of the address list %1 failed with error %2. Try to close and reopen the list editor.</source>
        <translation>Das Laden der Adressliste %1 ist mit Fehler %2 gescheitert. Schließen Sie den Listeneditor und öffnen Sie ihn erneut.</translation>
    </message>
    <message>
        <source>The item could not be added to the list because
it duplicates an item already in the list. Modify
the item by pressing the 'Edit' button.</source>
        <translation>Der Eintrag konnte nicht zur Liste hinzugefügt werden, weil er
einen vorhandenen Eintrag doppelt. Ändern Sie den Eintrag
mit der Schaltfläche „Bearbeiten“.</translation>
    </message>
    <message>
        <source>The operation failed with error code %1</source>
        <translation>Der Vorgang ist mit Fehlercode %1 gescheitert</translation>
    </message>
    <message>
        <source>The new name already exists.</source>
        <translation>Der neue Name existiert bereits.</translation>
    </message>
    <message>
        <source>An error has occurred and the selected string "%1"
has been removed from the list.</source>
        <translation>Ein Fehler ist aufgetreten, und der ausgewählte Eintrag „%1“
wurde aus der Liste entfernt.</translation>
    </message>
    <message>
        <source>Could not save the list.</source>
        <translation>Die Liste konnte nicht gespeichert werden.</translation>
    </message>
    <message>
        <source>Could not determine the known lists.</source>
        <translation>Die bekannten Listen konnten nicht ermittelt werden.</translation>
    </message>
    <message>
        <source>CSV (Comma delimited)</source>
        <translation>CSV (kommagetrennt)</translation>
    </message>
    <message>
        <source>All Files</source>
        <translation>Alle Dateien</translation>
    </message>
    <message>
        <source>Importing %1...</source>
        <translation>%1 wird importiert...</translation>
    </message>
    <message>
        <source>There were I/O errors when processing the file.</source>
        <translation>Beim Verarbeiten der Datei traten Ein-/Ausgabefehler auf.</translation>
    </message>
    <message>
        <source>%1 rows of the file could not be imported, on these lines: %2

%3 entries were read. Press OK to add them to the list, or Cancel to import nothing.</source>
        <translation>%1 Zeilen der Datei konnten nicht importiert werden, in diesen Zeilen: %2

%3 Einträge wurden gelesen. Klicken Sie auf OK, um sie zur Liste hinzuzufügen, oder auf Abbrechen, um nichts zu importieren.</translation>
    </message>
    <message>
        <source>%1 and %2 more</source>
        <translation>%1 und %2 weitere</translation>
    </message>
    <message>
        <source>The default list could not be loaded.</source>
        <translation>Die Standardliste konnte nicht geladen werden.</translation>
    </message>
    <message>
        <source>%1 entries</source>
        <translation>%1 Einträge</translation>
    </message>
    <message>
        <source>E-mail Address Lists on %1</source>
        <translation>E-Mail-Adresslisten auf %1</translation>
    </message>
    <message>
        <source>Domain E-mail Address Lists on %1</source>
        <translation>E-Mail-Adresslisten der Domäne auf %1</translation>
    </message>
    <message>
        <source>Mailbox E-mail Address Lists on %1</source>
        <translation>E-Mail-Adresslisten des Postfachs auf %1</translation>
    </message>
    <message>
        <source>Add E-mail Address</source>
        <translation>E-Mail-Adresse hinzufügen</translation>
    </message>
    <message>
        <source>Edit E-mail Address</source>
        <translation>E-Mail-Adresse bearbeiten</translation>
    </message>
    <message>
        <source>&amp;Address or pattern:</source>
        <translation>&amp;Adresse oder Muster:</translation>
    </message>
    <message>
        <source>For example: jane@example.com, *@example.com (a whole domain),
*@*.example.com (its subdomains too), sales*@example.com</source>
        <translation>Zum Beispiel: jane@example.com, *@example.com (eine ganze Domäne),
*@*.example.com (auch ihre Subdomänen), sales*@example.com</translation>
    </message>
    <message>
        <source>"%1" is not an e-mail address or address pattern.

%2</source>
        <translation>„%1“ ist keine E-Mail-Adresse und kein Adressmuster.

%2</translation>
    </message>
    <message>
        <source>Exporting %1...</source>
        <translation>%1 wird exportiert...</translation>
    </message>
    <message>
        <source>Wireless Carriers on %1</source>
        <translation>Mobilfunkanbieter auf %1</translation>
    </message>
    <message>
        <source>Carriers</source>
        <translation>Anbieter</translation>
    </message>
    <message>
        <source>Add Wireless Carrier</source>
        <translation>Mobilfunkanbieter hinzufügen</translation>
    </message>
    <message>
        <source>Edit Wireless Carrier</source>
        <translation>Mobilfunkanbieter bearbeiten</translation>
    </message>
    <message>
        <source>Enter the carrier's name (up to 64 characters, without tabs or "&lt;").</source>
        <translation>Geben Sie den Namen des Anbieters ein (bis zu 64 Zeichen, ohne Tabulatoren oder „&lt;“).</translation>
    </message>
    <message>
        <source>Enter the carrier's SMS gateway domain, such as txt.example.net: the domain that turns mail to number@domain into a text message.</source>
        <translation>Geben Sie die SMS-Gateway-Domäne des Anbieters ein, etwa txt.example.net: die Domäne, die Mail an nummer@domäne in eine Textnachricht verwandelt.</translation>
    </message>
    <message>
        <source>A carrier named "%1" is already in the list.</source>
        <translation>Ein Anbieter namens „%1“ steht bereits in der Liste.</translation>
    </message>
    <message>
        <source>The carrier table "%1" could not be written.</source>
        <translation>Die Anbietertabelle „%1“ konnte nicht geschrieben werden.</translation>
    </message>
    <message>
        <source>Mailbox Report Save As:</source>
        <translation>Postfachbericht speichern unter:</translation>
    </message>
    <message>
        <source>Mailbox Report Save Failed</source>
        <translation>Postfachbericht nicht gespeichert</translation>
    </message>
    <message>
        <source>Failed to save the report as "%1".  The error code returned was %2!d!.</source>
        <translation>Der Bericht konnte nicht als „%1“ gespeichert werden.  Der zurückgegebene Fehlercode war %2!d!.</translation>
    </message>
    <message>
        <source>Failed to generate the report.   The error code returned was %1!d!.</source>
        <translation>Der Bericht konnte nicht erstellt werden.   Der zurückgegebene Fehlercode war %1!d!.</translation>
    </message>
    <message>
        <source>unknown</source>
        <translation>unbekannt</translation>
    </message>
    <message>
        <source>Mailboxes contain: %ukB (%u messages)<byte value="xd" />
(as of %s)</source>
        <translation>Postfächer enthalten: %ukB (%u Nachrichten)<byte value="xd" />
(Stand: %s)</translation>
    </message>
    <message>
        <source>stopped</source>
        <translation>beendet</translation>
    </message>
    <message>
        <source>running</source>
        <translation>läuft</translation>
    </message>
    <message>
        <source>starting</source>
        <translation>wird gestartet</translation>
    </message>
    <message>
        <source>stopping</source>
        <translation>wird beendet</translation>
    </message>
    <message>
        <source>resuming</source>
        <translation>wird fortgesetzt</translation>
    </message>
    <message>
        <source>pausing</source>
        <translation>wird angehalten</translation>
    </message>
    <message>
        <source>paused</source>
        <translation>angehalten</translation>
    </message>
    <message>
        <source>You must specify a local drive or a UNC path for this value.</source>
        <translation>Geben Sie für diesen Wert ein lokales Laufwerk oder einen UNC-Pfad an.</translation>
    </message>
    <message>
        <source>When using a clustered configuration, you should specify a UNC path for the server agent.  Otherwise, the program may be inaccessible to the other mail servers in the cluster.

 You should only specify a drive letter if using the Registry connector.</source>
        <translation>In einer Cluster-Konfiguration sollten Sie für den Server-Agenten einen UNC-Pfad angeben.  Andernfalls ist das Programm für die anderen Mailserver des Clusters womöglich nicht erreichbar.

 Geben Sie nur mit dem Registry-Connector einen Laufwerksbuchstaben an.</translation>
    </message>
    <message>
        <source>CSV File (*.CSV)</source>
        <translation>CSV-Datei (*.CSV)</translation>
    </message>
    <message>
        <source>All Files (*.*)</source>
        <translation>Alle Dateien (*.*)</translation>
    </message>
    <message>
        <source>Generating the mailbox report...</source>
        <translation>Der Postfachbericht wird erstellt...</translation>
    </message>
    <message>
        <source>Saving the mailbox report...</source>
        <translation>Der Postfachbericht wird gespeichert...</translation>
    </message>
    <message>
        <source>Cannot add entry as this Nework Address and Subnet Mask already exist in the list.</source>
        <translation>Der Eintrag kann nicht hinzugefügt werden, da diese Netzwerkadresse und Subnetzmaske bereits in der Liste stehen.</translation>
    </message>
    <message>
        <source>IP subnet</source>
        <translation>IP-Subnetz</translation>
    </message>
    <message>
        <source>Comment</source>
        <translation>Kommentar</translation>
    </message>
    <message>
        <source>The combination of network address and subnet mask entered is not a valid CIDR subnet or the comment contains illegal characters.

As a valid example,  the network IDs 131.107.4.0, 131.107.5.0, 131.107.6.0, and 131.107.7.0 can be summarized with the network ID 131.107.4.0, with a subnet mask of 255.255.252.0 (131.107.4.0/22).

More information about subnet masks is available on the internet.</source>
        <translation>Die eingegebene Kombination aus Netzwerkadresse und Subnetzmaske ist kein gültiges CIDR-Subnetz, oder der Kommentar enthält unzulässige Zeichen.

Ein gültiges Beispiel:  Die Netzwerk-IDs 131.107.4.0, 131.107.5.0, 131.107.6.0 und 131.107.7.0 lassen sich mit der Netzwerk-ID 131.107.4.0 und der Subnetzmaske 255.255.252.0 zusammenfassen (131.107.4.0/22).

Weitere Informationen über Subnetzmasken finden Sie im Internet.</translation>
    </message>
    <message>
        <source>There were %1 errors when processing the file.</source>
        <translation>Beim Verarbeiten der Datei traten %1 Fehler auf.</translation>
    </message>
    <message>
        <source>IP Subnets</source>
        <translation>IP-Subnetze</translation>
    </message>
    <message>
        <source>Importing subnets from %1...</source>
        <translation>Subnetze werden aus %1 importiert...</translation>
    </message>
    <message>
        <source>Trusted IP Subnets</source>
        <translation>Vertrauenswürdige IP-Subnetze</translation>
    </message>
    <message>
        <source>Could not read the '%1' mail server property.</source>
        <translation>Die Mailserver-Eigenschaft „%1“ konnte nicht gelesen werden.</translation>
    </message>
    <message>
        <source>%1 entries of the '%2' mail server property could not be read. They are not shown, and they will be removed when the list is saved.</source>
        <translation>%1 Einträge der Mailserver-Eigenschaft „%2“ konnten nicht gelesen werden. Sie werden nicht angezeigt und beim Speichern der Liste entfernt.</translation>
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
