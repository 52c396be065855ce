/*
 * Server settings of the security sheet, the service properties, the database log and the log flags,
 * as the dialogs read and write them with GetMailServerProperty / SetMailServerProperty. A number is
 * VB_TYPE_DWORD, a text VB_TYPE_STRING, a list VB_TYPE_MULTI_STRING; "list text" is a text whose entries
 * are separated by commas and white space (written joined with ", "). The default applies when the
 * property is absent. This header declares nothing; it is the reference for these settings.
 *
 * ---- authentication and lockout ----------------------------------------------------------------
 * (none)     NoUnauthenticatedRelay   number  0 relaying needs no authentication, 1 always, 2 unless
 *                                             the client is a friendly site                  default 0
 * "SMTPRA"   SubmissionAuthRequired   number  1: message submission (port 587) needs authentication  1
 * "SMTPRA"   AuthMethods              list text  SASL methods offered: SCRAM-SHA-256, SCRAM-SHA-1,
 *                                             CRAM-MD5, PLAIN, LOGIN (others are kept as they are)
 *                                             default "SCRAM-SHA-256, CRAM-MD5, PLAIN, LOGIN"
 * "SMTPRA"   AuthCleartextNeedsTls    number  1: PLAIN and LOGIN only over an encrypted connection   1
 * "Security" LockoutEnabled           number  1: lock out an address after repeated failed logins    0
 * "Security" LockoutThreshold         number  failed logins that lock an address out (1-1000)         5
 * "Security" LockoutWindow            number  minutes within which they are counted (1-1440)         15
 * "Security" LockoutDuration          number  minutes a ban lasts (1-525600)                         30
 * "Security" LockoutAutoExpire        number  1: bans end by themselves; 0: until released           1
 *
 * ---- anti-spam (the anti-spam wizard's settings, and the blocked networks) --------------------
 * (none)     AcceptUnknownSmtpHosts   number  1: accept mail from servers without a DNS host name     1
 * (none)     LookupIncomingCalls      number  1: look up the host names of connecting servers         0
 * (none)     RblEnabled               number  1: check connecting servers against blacklist services  0
 * (none)     NoRblForFriends          number  1: friendly sites are not checked                       0
 * (none)     RblDomain                list text  blacklist service zones, checked in this order
 * (none)     RejectAllMailFrom        list text  private blacklist: host names and IP address patterns
 *                                             ("*" wildcards, a leading "!" exempts)
 * "SMTPRA"   RejectAllMailFromSubnets list    blocked networks, one "a.b.c.d/nn,\"comment\"" per element
 * (none)     RejectAllMailFromAddresses list text  refused return addresses ("user@domain", "@domain")
 * "SMTPRA"   NoUnqualifiedReturnPath  number  1: reject return addresses that are not fully qualified 0
 * "SMTPRA"   NoUnqualifiedRecipients  number  1: insist on fully qualified recipient addresses        0
 * (none)     MaxSmtpRecipients        number  most recipients of one message; 0 no limit              0
 *
 * ---- directory harvest attack protection --------------------------------------------------------
 * "DHAP"     Enabled                  number  1: protection on                                        0
 * "DHAP"     MaxInvalidPerConnection  number  unknown recipients allowed in one connection           10
 * "DHAP"     MaxInvalidPerWindow      number  unknown recipients allowed from one address ...        50
 * "DHAP"     WindowMinutes            number  ... within this many minutes                           60
 * "DHAP"     ProbationMinutes         number  how long an address that went over stays on probation  60
 * "DHAP"     NoDhapForFriends         number  1: friendly sites are not checked                       1
 * "DHAP"     Probation                list    addresses on probation, elements "<address>,<expiry>"
 *                                             (expiry in seconds since 1970, UTC); kept by the server,
 *                                             released by removing the element
 *
 * ---- TLS ----------------------------------------------------------------------------------------
 * "TLS"      StartTls                 number  0 STARTTLS not offered, 1 offered, 2 required           0
 * "TLS"      CertificateFile          text    PEM or DER file: the server's certificate, then its chain
 * "TLS"      PrivateKeyFile           text    PEM or DER file: the certificate's private key, unencrypted
 * "TLS"      MinProtocol              number  oldest version accepted: 10, 11, 12 or 13 (TLS 1.x)    12
 *
 * ---- each service, in its own section ("SMTPRA", "POP3", ...) -----------------------------------
 * <service>  ListenAddresses          list text  endpoints: "*:25" (every address), "192.0.2.1:25",
 *                                             "[2001:db8::1]:25"; no two services may bind the same one
 * <service>  StartMode                number  0 automatic (with the server), 1 manual, 2 disabled     0
 * <service>  MaxWorkers               number  worker limit; 0 the server's default                    0
 * <service>  Timeout                  number  seconds before an idle connection is dropped; 0 never 900
 * <service>  LogToFile                number  1: the service writes its own log file                  1
 *
 * ---- database log ("DbLog") ---------------------------------------------------------------------
 * "DbLog"    Enabled                  number  1: events are also logged to a database                 0
 * "DbLog"    Target                   number  0 the configuration store's database, 1 a SQLite file,
 *                                             2 a PostgreSQL database                                 0
 * "DbLog"    SqliteFile               text    absolute path of the SQLite file (Target 1)
 * "DbLog"    ConnectionUri            text    "postgresql://user@host:port/database?..." (Target 2)
 * "DbLog"    RetentionDays            number  days events are kept; 0 for ever                       30
 * "DbLog"    EventKinds               number  bits: 0x01 received, 0x02 delivered or returned,
 *                                             0x04 refused, 0x08 logins, 0x10 lockouts and probation,
 *                                             0x20 services started and stopped, 0x40 configuration
 *                                             changes                                              0x7F
 *
 * ---- log flags ----------------------------------------------------------------------------------
 * "Logging"  LogFlags                 number  the TAVI_LOG_* bits of TaviDlg.h (the console edits this
 *                                             one through EditLogFlags)
 */
#ifndef VELBROOK_SECURITYSETTINGS_H
#define VELBROOK_SECURITYSETTINGS_H
#endif
