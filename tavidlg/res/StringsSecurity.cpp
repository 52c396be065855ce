// Texts of the security sheet and its dialogs.
#include "res/SecurityStrings.h"
#include "res/StringTable.h"

namespace {

const TaviStringEntry kStrings[] = {
    {IDS_SEC_LIST_DUPLICATE, QT_TRANSLATE_NOOP("TaviStrings", "\"%1\" is already in the list.")},
    {IDS_SEC_NO_AUTH_METHOD, QT_TRANSLATE_NOOP("TaviStrings",
        "Authentication is required, but no authentication method is allowed. Allow at least one method.")},
    {IDS_SEC_BAD_ZONE, QT_TRANSLATE_NOOP("TaviStrings",
        "\"%1\" is not a DNS zone name. A blacklist service is named by its zone, for example "
        "bl.spamcop.net.")},
    {IDS_SEC_BAD_SPAM_SOURCE, QT_TRANSLATE_NOOP("TaviStrings",
        "\"%1\" is neither a host name nor an IP address pattern.\n\nExamples: mail.spam.example, "
        "*.bulk.example, 203.0.113.7, 198.51.100.*; a leading ! exempts an entry.")},
    {IDS_SEC_BAD_RETURN_ADDRESS, QT_TRANSLATE_NOOP("TaviStrings",
        "\"%1\" is not a return address or domain. Examples: offers@promo.example, @junk.example, "
        "*@junk.example.")},
    {IDS_SEC_HOSTS_COUNT, QT_TRANSLATE_NOOP("TaviStrings", "Blocked hosts and addresses: %1")},
    {IDS_SEC_NETWORKS_COUNT, QT_TRANSLATE_NOOP("TaviStrings", "Blocked networks: %1")},
    {IDS_SEC_SUBNETS_CAPTION, QT_TRANSLATE_NOOP("TaviStrings", "Blocked Networks")},
    {IDS_SEC_SUBNETS_UNREADABLE, QT_TRANSLATE_NOOP("TaviStrings",
        "The list of blocked networks could not be read, so it cannot be edited now.")},
    {IDS_SEC_PROBATION_COUNT, QT_TRANSLATE_NOOP("TaviStrings", "Addresses on probation: %1")},
    {IDS_SEC_PROBATION_RELEASE_FAILED, QT_TRANSLATE_NOOP("TaviStrings", "Could not release %1 from probation.")},
    {IDS_SEC_PROBATION_UNREADABLE, QT_TRANSLATE_NOOP("TaviStrings", "Could not read the probation list.")},
    {IDS_SEC_KIND_HOST, QT_TRANSLATE_NOOP("TaviStrings", "host name")},
    {IDS_SEC_KIND_ADDRESS, QT_TRANSLATE_NOOP("TaviStrings", "IP address")},
    {IDS_SEC_SPAM_FILTER_TEXT, QT_TRANSLATE_NOOP("TaviStrings", "Text files")},
    {IDS_SEC_SPAM_READ_FAILED, QT_TRANSLATE_NOOP("TaviStrings", "Could not read \"%1\": %2")},
    {IDS_SEC_SPAM_WRITE_FAILED, QT_TRANSLATE_NOOP("TaviStrings", "Could not write \"%1\": %2")},
    {IDS_SEC_SPAM_IMPORT_REFUSED, QT_TRANSLATE_NOOP("TaviStrings",
        "%1 entries of the file are neither host names nor IP address patterns and were skipped.")},
    {IDS_SEC_TLS_NO_CERTIFICATE, QT_TRANSLATE_NOOP("TaviStrings",
        "Type the path of the certificate file (the server's certificate followed by its chain).")},
    {IDS_SEC_TLS_NO_KEY, QT_TRANSLATE_NOOP("TaviStrings", "Type the path of the private key file.")},
    {IDS_SEC_TLS_MISSING, QT_TRANSLATE_NOOP("TaviStrings", "The file \"%1\" does not exist.")},
    {IDS_SEC_TLS_UNREADABLE, QT_TRANSLATE_NOOP("TaviStrings", "The file \"%1\" cannot be read: %2")},
    {IDS_SEC_TLS_IS_FOLDER, QT_TRANSLATE_NOOP("TaviStrings", "it is a folder")},
    {IDS_SEC_TLS_NOT_CERTIFICATE, QT_TRANSLATE_NOOP("TaviStrings",
        "The file \"%1\" does not hold a certificate in PEM or DER form.")},
    {IDS_SEC_TLS_EXPIRED, QT_TRANSLATE_NOOP("TaviStrings",
        "The certificate \"%1\" expired on %2 (in \"%3\"). Mail servers will refuse it; install a renewed "
        "certificate.")},
    {IDS_SEC_TLS_NOT_YET_VALID, QT_TRANSLATE_NOOP("TaviStrings",
        "The certificate \"%1\" is not valid before %2 (in \"%3\").")},
    {IDS_SEC_TLS_NOT_KEY, QT_TRANSLATE_NOOP("TaviStrings",
        "The file \"%1\" does not hold a private key in PEM or DER form, or the key is protected by a "
        "passphrase (the server needs it without one).")},
    {IDS_SEC_TLS_MISMATCH, QT_TRANSLATE_NOOP("TaviStrings",
        "The private key in \"%1\" does not belong to the certificate in \"%2\".")},
    {IDS_SEC_TLS_SUMMARY, QT_TRANSLATE_NOOP("TaviStrings", "Issued to %1 by %2, valid until %3.")},
    {IDS_SEC_TLS_FILTER_CERT, QT_TRANSLATE_NOOP("TaviStrings", "Certificates")},
    {IDS_SEC_TLS_FILTER_KEY, QT_TRANSLATE_NOOP("TaviStrings", "Private keys")},
    {IDS_SEC_TLS_FILTER_ALL, QT_TRANSLATE_NOOP("TaviStrings", "All files")},
    {IDS_SEC_TLS_CHOOSE_CERT, QT_TRANSLATE_NOOP("TaviStrings", "Certificate File")},
    {IDS_SEC_TLS_CHOOSE_KEY, QT_TRANSLATE_NOOP("TaviStrings", "Private Key File")},
    {IDS_SEC_TLS_REMOTE, QT_TRANSLATE_NOOP("TaviStrings",
        "The files are on the mail server's machine, so they cannot be checked from here. Make sure they "
        "are there and that the key belongs to the certificate.")},
};

const CStringTableRegistrar registrar(kStrings);

} // namespace
