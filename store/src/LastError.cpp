// The thread's last error and the texts of the codes the store and the dialogs use.
#include <cstring>
#include <string>

#include "Util_p.h"

#include "velbrook/ListStore.h"
#include "velbrook/MailToolkit.h"
#include "velbrook/MailboxStore.h"

namespace {

thread_local uint32_t t_lastError = 0;
thread_local std::string t_keyFile;

struct CodeText {
    uint32_t code;
    const char* text;
};

const CodeText kTexts[] = {
    {VB_ERROR_SUCCESS, "The operation completed successfully."},
    {VB_ERROR_FILE_NOT_FOUND, "The system cannot find the file specified."},
    {VB_ERROR_PATH_NOT_FOUND, "The system cannot find the path specified."},
    {VB_ERROR_ACCESS_DENIED, "Access is denied."},
    {VB_ERROR_INVALID_HANDLE, "The handle is invalid."},
    {VB_ERROR_NOT_ENOUGH_MEMORY, "Not enough memory resources are available to process this command."},
    {VB_ERROR_INVALID_DATA, "The data is invalid."},
    {VB_ERROR_NOT_SUPPORTED, "The request is not supported."},
    {VB_ERROR_INVALID_PARAMETER, "The parameter is incorrect."},
    {VB_ERROR_DISK_FULL, "There is not enough space on the disk."},
    {VB_ERROR_BAD_ARGUMENTS, "One or more arguments are not correct."},
    {VB_ERROR_BUSY, "The requested resource is in use."},
    {VB_ERROR_ALREADY_EXISTS, "Cannot create a file when that file already exists."},
    {VB_ERROR_MORE_DATA, "More data is available."},
    {VB_ERROR_NO_MORE_ITEMS, "No more data is available."},
    {VB_ERROR_SERVICE_REQUEST_TIMEOUT, "The service did not respond to the start or control request in a timely fashion."},
    {VB_ERROR_SERVICE_ALREADY_RUNNING, "An instance of the service is already running."},
    {VB_ERROR_SERVICE_DOES_NOT_EXIST, "The specified service does not exist as an installed service."},
    {VB_ERROR_SERVICE_CANNOT_ACCEPT_CTRL, "The service cannot accept control messages at this time."},
    {VB_ERROR_SERVICE_NOT_ACTIVE, "The service has not been started."},
    {VB_ERROR_IO_DEVICE, "The request could not be performed because of an I/O device error."},
    {VB_ERROR_NOT_FOUND, "Element not found."},
    {VB_ERROR_CANCELLED, "The operation was canceled by the user."},
    {VB_ERROR_BAD_FILE, "The file is not a mail server configuration store."},
    {VB_ERROR_STORE_FAILURE, "The configuration store could not complete the operation."},
    {VB_ERROR_STORE_TOO_NEW,
     "The configuration store was written by a newer release of the mail server; this release leaves it "
     "untouched."},
    {VB_ERROR_STORE_LOG_UNREADABLE,
     "The configuration store is read-only and its newest changes are still in its write-ahead log, which "
     "cannot be read without write access to the store's folder."},
    {VB_ERROR_MAILBOX_LIMIT, "You cannot create any more mailboxes in this domain."},
    {VB_ERROR_PROPERTY_TOO_LARGE, "The property is too large."},
    {VB_ERROR_MAILLIST_LIMIT, "You cannot create any more mail lists in this domain."},
    {VB_ERROR_MAILBOX_BAD_NAME, "The mailbox name is not valid."},
    {VB_ERROR_MAILBOX_KEY_FILE, "The mailbox password key file %1 cannot be read or created."},
    {VB_ERROR_MAILBOX_PASSWORD_SEALED,
     "The stored mailbox passwords cannot be decrypted with the key file %1: it is not the key they were "
     "sealed with. Restore the store's own key file; no password is written until then."},
    {VB_ERROR_MAILBOX_KEY_MISSING,
     "The mailbox password key file %1 is missing, but passwords sealed with it are stored. Restore the key "
     "file beside the store; no password is written until then."},
    {VB_ERROR_MAILBOX_KEY_UNSAFE,
     "The mailbox password key file %1 can be read by other users; make it readable by its owner only "
     "(chmod 600)."},
    {VB_ERROR_MAILLIST_BAD_NAME, "The mailing list or member name is not valid."},
};

const char* textOf(uint32_t code)
{
    for (const CodeText& t : kTexts)
        if (t.code == code)
            return t.text;
    return nullptr;
}

// The code's text with "%1" replaced by the key file of the thread's last key error.
bool describe(uint32_t code, std::string& out)
{
    const char* t = code == VB_ERROR_SUCCESS ? "" : textOf(code);
    if (!t)
        return false;
    out = t;
    const size_t at = out.find("%1");
    if (at != std::string::npos)
        out.replace(at, 2, t_keyFile.empty() ? std::string("beside the store") : '"' + t_keyFile + '"');
    return true;
}

int managerText(uint32_t code, uint32_t family, char* text, uint32_t size)
{
    if ((code & 0xE0F00000u) != (0xE0000000u | family))
        return 0;
    std::string t;
    if (!describe(code, t) || !text || size == 0 || t.size() + 1 > size)
        return 0;
    std::memcpy(text, t.c_str(), t.size() + 1);
    return 1;
}

} // namespace

void vb::setKeyFileDetail(const std::string& path) { t_keyFile = path; }

extern "C" {

uint32_t GetLastError(void) { return t_lastError; }
void SetLastError(uint32_t code) { t_lastError = code; }

uint32_t VbErrorText(uint32_t code, char* text, uint32_t size)
{
    if (!text || size == 0)
        return 0;
    std::string t;
    describe(code, t);
    size_t n = t.size();
    if (n + 1 > size)
        n = size - 1; // cut, never overrun
    std::memcpy(text, t.data(), n);
    text[n] = '\0';
    return uint32_t(n);
}

int GetMailboxManagerErrorString(uint32_t code, char* text, uint32_t size)
{
    return managerText(code, 0x00100000u, text, size);
}

int GetMailingListManagerErrorString(uint32_t code, char* text, uint32_t size)
{
    return managerText(code, 0x00200000u, text, size);
}

} // extern "C"
