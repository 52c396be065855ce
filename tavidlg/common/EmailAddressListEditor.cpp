#include "common/EmailAddressListEditor.h"

#include "common/PlatformServices.h"
#include "common/SubnetCsv.h"
#include "config/AccessLayer.h"
#include "config/MessageFormat.h"
#include "res/ListStringIds.h"
#include "res/StringTable.h"

#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QRegularExpression>
#include <QSaveFile>
#include <QUrl>
#include <QVBoxLayout>

#include <velbrook/MailToolkit.h>
#include <velbrook/ServerStore.h>

#include <array>
#include <string_view>
#include <vector>

namespace {

constexpr unsigned kHelpContextEditor = 2190;
constexpr unsigned kHelpContextEntry = 2191;
constexpr qsizetype kMaxAddressLength = 254;
constexpr qsizetype kMaxLocalLength = 64;
constexpr qint64 kProgressIntervalMs = 40;
constexpr qint64 kReadChunk = 1 << 20;

const char* const kStandardLists = "Whitelist, Blacklist, PreferredSenders";

QString trText(const char* text)
{
    return QCoreApplication::translate("CEmailAddressListEditor", text);
}

// The characters an unquoted local part may hold (letters, digits and these), with the pattern's "*"
// and "?" among them.
constexpr std::string_view kLocalSpecials = "!#$%&'*+/=?^_`{|}~.-";

bool isLocalChar(QChar c)
{
    static const auto table = [] {
        std::array<bool, 128> t{};
        for (char ch = 'a'; ch <= 'z'; ++ch)
            t[std::size_t(ch)] = true;
        for (char ch = '0'; ch <= '9'; ++ch)
            t[std::size_t(ch)] = true;
        for (char ch : kLocalSpecials)
            t[std::size_t(ch)] = true;
        return t;
    }();
    return c.unicode() < 128 && table[c.unicode()];
}

bool checkLocal(const QString& local, QString& reason)
{
    if (local.isEmpty()) {
        reason = trText("The part before \"@\" is empty; write \"*\" for any sender of the domain.");
        return false;
    }
    if (local.size() > kMaxLocalLength) {
        reason = trText("The part before \"@\" is longer than 64 characters.");
        return false;
    }
    for (const QChar c : local) {
        if (!isLocalChar(c)) {
            reason = trText("The part before \"@\" may hold letters, digits and !#$%&'*+/=?^_`{|}~.- only.");
            return false;
        }
    }
    if (local.startsWith(QLatin1Char('.')) || local.endsWith(QLatin1Char('.')) || local.contains(QStringLiteral(".."))) {
        reason = trText("The part before \"@\" may not begin or end with a dot or hold two dots in a row.");
        return false;
    }
    return true;
}

bool isDomainLabel(QStringView label)
{
    if (label.isEmpty() || label.size() > 63 || label.startsWith(u'-') || label.endsWith(u'-'))
        return false;
    for (const QChar c : label) {
        if (!((c >= QLatin1Char('a') && c <= QLatin1Char('z')) || (c >= QLatin1Char('0') && c <= QLatin1Char('9'))
              || c == QLatin1Char('-')))
            return false;
    }
    return true;
}

bool checkDomain(QString& domain, QString& reason)
{
    const QString badDomain = trText("The part after \"@\" is not a domain name such as example.com, *.example.com "
                                     "or [192.0.2.1].");
    if (domain == QLatin1String("*"))
        return true;
    if (domain.startsWith(QLatin1Char('[')) && domain.endsWith(QLatin1Char(']'))) {
        uint32_t address = 0;
        const QByteArray ip = domain.mid(1, domain.size() - 2).toLatin1();
        if (IpAddressToDword(ip.constData(), &address))
            return true;
        reason = badDomain;
        return false;
    }
    // An international name is kept in its ASCII form, which is what mail carries.
    for (const QChar c : std::as_const(domain)) {
        if (c.unicode() > 0x7F) {
            const QByteArray ace = QUrl::toAce(domain);
            if (ace.isEmpty()) {
                reason = badDomain;
                return false;
            }
            domain = QString::fromLatin1(ace).toLower();
            break;
        }
    }
    const QList<QStringView> labels = QStringView(domain).split(u'.');
    for (qsizetype i = 0; i < labels.size(); ++i) {
        // "*" may stand for the leading labels only: "*.example.com".
        if (labels[i] == u"*" && i == 0 && labels.size() > 1)
            continue;
        if (!isDomainLabel(labels[i])) {
            reason = badDomain;
            return false;
        }
    }
    return true;
}

// The lists' multi-string form: each item followed by a zero, and one more zero at the end.
QByteArray multiString(const QStringList& items)
{
    QByteArray bytes;
    for (const QString& item : items) {
        bytes.append(item.toUtf8());
        bytes.append('\0');
    }
    bytes.append('\0');
    return bytes;
}

QStringList parseItems(const QByteArray& bytes, uint32_t type)
{
    QStringList items;
    if (type == VB_TYPE_MULTI_STRING) {
        const char* p = bytes.constData();
        const char* end = p + bytes.size();
        while (p < end && *p) {
            const qsizetype length = qsizetype(::strnlen(p, std::size_t(end - p)));
            items.append(QString::fromUtf8(p, length));
            p += length + 1;
        }
    } else if (type == VB_TYPE_STRING) {
        // A list kept as text: entries between commas and white space.
        static const QRegularExpression separators(QStringLiteral("[,\\s]+"));
        items = QString::fromUtf8(bytes.constData()).split(separators, Qt::SkipEmptyParts);
    }
    return items;
}

} // namespace

bool IsValidDomainName(QStringView domain)
{
    if (domain.isEmpty() || domain.size() > 253)
        return false;
    const QList<QStringView> labels = domain.split(u'.');
    return std::all_of(labels.begin(), labels.end(), isDomainLabel);
}

bool NormaliseEmailAddressPattern(QString& text, QString* reason)
{
    QString why;
    QString t = text.trimmed();
    if (t.startsWith(QLatin1Char('<')) && t.endsWith(QLatin1Char('>')))
        t = t.mid(1, t.size() - 2).trimmed();
    t = t.toLower();
    bool ok = true;
    if (t.isEmpty()) {
        why = trText("Enter an e-mail address or a pattern.");
        ok = false;
    } else if (t.size() > kMaxAddressLength) {
        why = trText("An address is at most 254 characters long.");
        ok = false;
    } else {
        const qsizetype at = t.lastIndexOf(QLatin1Char('@'));
        if (at < 0 && !t.contains(QLatin1Char('.'))) {
            // A single word is neither an address nor a domain (and is how a file's header row looks).
            why = trText("An address needs an \"@\"; a domain on its own needs at least one dot.");
            ok = false;
        } else if (at < 0) {
            // A bare domain stands for every sender of it.
            t = QStringLiteral("*@") + t;
        } else if (at == 0) {
            t.prepend(QLatin1Char('*'));
        }
    }
    if (ok) {
        const qsizetype split = t.lastIndexOf(QLatin1Char('@'));
        QString local = t.left(split);
        QString domain = t.mid(split + 1);
        if (local.contains(QLatin1Char('@'))) {
            why = trText("An address holds one \"@\" only.");
            ok = false;
        } else if (domain.isEmpty()) {
            why = trText("The part after \"@\" is empty; write \"*\" for any domain.");
            ok = false;
        } else {
            ok = checkLocal(local, why) && checkDomain(domain, why);
            t = local + QLatin1Char('@') + domain;
            if (ok && t.size() > kMaxAddressLength) {
                why = trText("An address is at most 254 characters long.");
                ok = false;
            }
        }
    }
    if (!ok) {
        if (reason)
            *reason = why;
        SetLastError(VB_ERROR_INVALID_DATA);
        return false;
    }
    text = t;
    return true;
}

// ---- the manager --------------------------------------------------------------------------------

const char* const CEmailAddressListManager::kListsSection = "AddressLists";
const char* const CEmailAddressListManager::kNamesProperty = "AddressListNames";

CEmailAddressListManager::CEmailAddressListManager(_tMailServer* server)
    : CListManager(TaviString(IDS_ADDR_CAPTION_SERVER)), m_level(Level::Server), m_server(server)
{
}

CEmailAddressListManager::CEmailAddressListManager(_tMailServer* server, _tDomain* domain)
    : CListManager(TaviString(IDS_ADDR_CAPTION_DOMAIN)), m_level(Level::Domain), m_server(server), m_domain(domain)
{
}

CEmailAddressListManager::CEmailAddressListManager(_tMailServer* server, _tMailbox* mailbox)
    : CListManager(TaviString(IDS_ADDR_CAPTION_MAILBOX)), m_level(Level::Mailbox), m_server(server),
      m_mailbox(mailbox)
{
}

bool CEmailAddressListManager::readOwnerProperty(const char* name, QByteArray& bytes, uint32_t& type) const
{
    auto get = [&](void* buffer, uint32_t* size) -> int {
        switch (m_level) {
        case Level::Server:
            return GetMailServerProperty(m_server, kListsSection, name, buffer, size, &type);
        case Level::Domain:
            return GetDomainProperty(m_domain, name, buffer, size, &type);
        case Level::Mailbox:
            return GetMailboxProperty(m_mailbox, name, buffer, size, &type);
        }
        return 0;
    };
    if ((m_level == Level::Domain && !m_domain) || (m_level == Level::Mailbox && !m_mailbox)) {
        SetLastError(VB_ERROR_INVALID_PARAMETER);
        return false;
    }
    // The size first, then the value: a list of 100 000 addresses is read in one call.
    for (int attempt = 0; attempt < 3; ++attempt) {
        uint32_t size = 0;
        if (!get(nullptr, &size) && GetLastError() != VB_ERROR_MORE_DATA)
            return false;
        bytes.resize(qsizetype(size) + 1);
        size = uint32_t(bytes.size());
        if (get(bytes.data(), &size)) {
            bytes.resize(size);
            return true;
        }
        if (GetLastError() != VB_ERROR_MORE_DATA) // grown in between: ask again
            return false;
    }
    return false;
}

bool CEmailAddressListManager::readListNames(QString& names)
{
    QByteArray bytes;
    uint32_t type = 0;
    if (!readOwnerProperty(kNamesProperty, bytes, type)) {
        if (GetLastError() != VB_ERROR_FILE_NOT_FOUND)
            return false;
        names = QLatin1String(kStandardLists);
        return true;
    }
    names = parseItems(bytes, type == VB_TYPE_MULTI_STRING ? type : VB_TYPE_STRING).join(QLatin1Char(','));
    return true;
}

bool CEmailAddressListManager::loadItems(QStringList& items)
{
    const QByteArray name = selectedList().toUtf8();
    QByteArray bytes;
    uint32_t type = 0;
    items.clear();
    if (!readOwnerProperty(name.constData(), bytes, type))
        return GetLastError() == VB_ERROR_FILE_NOT_FOUND; // a list never written is empty
    items = parseItems(bytes, type);
    // Entries are kept in lower case; one stored otherwise by another tool is shown (and matched by
    // the store, which ignores case) the same way.
    for (QString& item : items)
        item = item.toLower();
    return true;
}

bool CEmailAddressListManager::addItem(const QString& item)
{
    const QByteArray name = selectedList().toUtf8(), element = item.toUtf8();
    switch (m_level) {
    case Level::Server:
        return AddToMailServerListProperty(m_server, kListsSection, name.constData(), element.constData()) != 0;
    case Level::Domain:
        return AddToDomainListProperty(m_domain, name.constData(), element.constData()) != 0;
    case Level::Mailbox:
        return AddToMailboxListProperty(m_mailbox, name.constData(), element.constData()) != 0;
    }
    return false;
}

bool CEmailAddressListManager::removeItem(const QString& item)
{
    const QByteArray name = selectedList().toUtf8(), element = item.toUtf8();
    switch (m_level) {
    case Level::Server:
        return RemoveFromMailServerListProperty(m_server, kListsSection, name.constData(), element.constData()) != 0;
    case Level::Domain:
        return RemoveFromDomainListProperty(m_domain, name.constData(), element.constData()) != 0;
    case Level::Mailbox:
        return RemoveFromMailboxListProperty(m_mailbox, name.constData(), element.constData()) != 0;
    }
    return false;
}

bool CEmailAddressListManager::storeWhole(const QString& joined)
{
    const QByteArray name = selectedList().toUtf8();
    const QByteArray bytes = multiString(joined.split(QLatin1Char(','), Qt::SkipEmptyParts));
    const uint32_t size = uint32_t(bytes.size());
    switch (m_level) {
    case Level::Server:
        return SetMailServerProperty(m_server, kListsSection, VB_TYPE_MULTI_STRING, name.constData(), bytes.constData(),
                                     size) == 1;
    case Level::Domain:
        return SetDomainProperty(m_domain, VB_TYPE_MULTI_STRING, name.constData(), bytes.constData(), size) == 1;
    case Level::Mailbox:
        return SetMailboxProperty(m_mailbox, VB_TYPE_MULTI_STRING, name.constData(), bytes.constData(), size) == 1;
    }
    return false;
}

bool CEmailAddressListManager::loadDefaultItems(QStringList& items)
{
    items.clear();
    if (m_level == Level::Server) {
        SetLastError(VB_ERROR_NOT_SUPPORTED);
        return false;
    }
    CEmailAddressListManager serverLists(m_server);
    return serverLists.determineKnownLists(selectedList()) && serverLists.selectList(selectedList())
        && serverLists.loadItems(items);
}

// ---- the editor ---------------------------------------------------------------------------------

class CEmailAddressElement : public CListElement {
public:
    CEmailAddressElement(const QString& text, bool added) : CListElement(added ? 1 : 0), m_text(text) {}
    const QString& text() const override { return m_text; }

private:
    QString m_text;
};

CEmailAddressListEditor::CEmailAddressListEditor(QWidget* parent, _tMailServer* server, const char* listName)
    : CListEditor(parent, server, new CEmailAddressListManager(server), QString::fromUtf8(listName))
{
    setUp();
}

CEmailAddressListEditor::CEmailAddressListEditor(QWidget* parent, _tMailServer* server, _tDomain* domain,
                                                 const char* listName)
    : CListEditor(parent, server, new CEmailAddressListManager(server, domain), QString::fromUtf8(listName))
{
    setUp();
}

CEmailAddressListEditor::CEmailAddressListEditor(QWidget* parent, _tMailServer* server, _tMailbox* mailbox,
                                                 const char* listName)
    : CListEditor(parent, server, new CEmailAddressListManager(server, mailbox), QString::fromUtf8(listName))
{
    setUp();
}

CEmailAddressListEditor::~CEmailAddressListEditor() = default;

void CEmailAddressListEditor::setUp()
{
    setObjectName(QStringLiteral("CEmailAddressListEditor"));
    setHelpContext(kHelpContextEditor);
}

std::unique_ptr<CListElement> CEmailAddressListEditor::makeElement(const QString& text, bool added)
{
    return std::make_unique<CEmailAddressElement>(text, added);
}

bool CEmailAddressListEditor::normalise(QString& text)
{
    return NormaliseEmailAddressPattern(text);
}

bool CEmailAddressListEditor::runEntryDialog(bool edit, QString& text)
{
    CEmailAddressEntryDlg dialog(this, edit, text, kHelpContextEntry);
    if (dialog.exec() != Id::Ok)
        return false;
    text = dialog.value();
    return true;
}

bool CEmailAddressListEditor::loadDefault()
{
    QStringList items;
    bool loaded = false;
    {
        CWaitCursor wait;
        loaded = manager()->loadDefaultItems(items);
    }
    if (!loaded)
        return false;
    // The defaults replace the list; whatever was stored is rewritten as a whole on saving.
    mutableElements().clear();
    for (QString item : std::as_const(items)) {
        if (NormaliseEmailAddressPattern(item))
            insertElement(makeElement(item, true));
    }
    return true;
}

namespace {

// Reads an address file line by line: the first field of each line (double quotes allowed) is an
// address or pattern. A first line that is not one and has no "@" is a header and is skipped.
struct AddressFileReader {
    std::vector<QString> accepted;
    QList<qint64> badLines;
    qint64 line = 0;
    bool seenContent = false;
    QByteArray pending;

    void addLine(QByteArrayView bytes)
    {
        ++line;
        if (bytes.endsWith('\r'))
            bytes.chop(1);
        if (bytes.trimmed().isEmpty())
            return;
        const SubnetCsv::Field field = SubnetCsv::readField(std::string_view(bytes.data(), std::size_t(bytes.size())), 0);
        QString text = QString::fromUtf8(field.text.data(), qsizetype(field.text.size()));
        const bool first = !seenContent;
        seenContent = true;
        if (NormaliseEmailAddressPattern(text)) {
            accepted.push_back(text);
        } else if (!(first && !text.contains(QLatin1Char('@')))) {
            badLines.append(line);
        }
    }
    void feed(QByteArrayView bytes)
    {
        qsizetype start = 0;
        for (;;) {
            const qsizetype end = bytes.indexOf('\n', start);
            if (end < 0)
                break;
            if (pending.isEmpty()) {
                addLine(bytes.sliced(start, end - start));
            } else {
                pending.append(bytes.sliced(start, end - start));
                addLine(pending);
                pending.clear();
            }
            start = end + 1;
        }
        pending.append(bytes.sliced(start));
    }
    void finish()
    {
        if (!pending.isEmpty())
            addLine(pending);
        pending.clear();
    }
};

enum class ReadOutcome { Complete, Cancelled, Failed };

ReadOutcome readAddressFile(QWidget* owner, const QString& path, AddressFileReader& reader)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return ReadOutcome::Failed;
    const qint64 total = file.size();
    const auto progress =
        platform().beginProgress(owner, TaviFormat(TaviString(IDS_LIST_IMPORTING), {QFileInfo(path).fileName()}));
    QByteArray chunk(kReadChunk, Qt::Uninitialized);
    qint64 done = 0;
    QElapsedTimer sinceReport;
    sinceReport.start();
    bool reported = false;
    for (;;) {
        const qint64 got = file.read(chunk.data(), chunk.size());
        if (got < 0)
            return ReadOutcome::Failed;
        if (got == 0)
            break;
        // Lines are taken in slices, so that the progress (and its Cancel) stays alive.
        for (qint64 at = 0; at < got;) {
            const qint64 piece = std::min<qint64>(got - at, 64 * 1024);
            reader.feed(QByteArrayView(chunk.constData() + at, piece));
            at += piece;
            done += piece;
            if (!reported || sinceReport.elapsed() >= kProgressIntervalMs) {
                reported = true;
                sinceReport.restart();
                if (!progress->setProgress(done, std::max(total, done)))
                    return ReadOutcome::Cancelled;
            }
        }
    }
    if (file.error() != QFileDevice::NoError)
        return ReadOutcome::Failed;
    reader.finish();
    // A Cancel pressed while the last slice was read still cancels.
    if (!progress->setProgress(done, std::max(total, done)))
        return ReadOutcome::Cancelled;
    return ReadOutcome::Complete;
}

} // namespace

bool CEmailAddressListEditor::importFile(const QString& path)
{
    AddressFileReader reader;
    for (;;) {
        reader = AddressFileReader();
        const ReadOutcome outcome = readAddressFile(this, path, reader);
        if (outcome == ReadOutcome::Cancelled) {
            SetLastError(0);
            return false; // nothing of the file is kept
        }
        if (outcome == ReadOutcome::Complete)
            break;
        const int answer = taviMessageBox(TaviString(IDS_LIST_IO_ERRORS), Mb::RetryCancel | Mb::IconExclamation);
        if (answer != Id::Retry) {
            SetLastError(0);
            return false;
        }
    }
    if (!confirmBadRows(reader.badLines, reader.accepted.size())) {
        SetLastError(0);
        return false;
    }
    // The file's entries join the list; those already in it (or repeated in the file) are kept once.
    std::size_t added = 0;
    {
        CWaitCursor wait;
        for (const QString& text : reader.accepted) {
            if (insertElement(makeElement(text, true)))
                ++added;
        }
    }
    SetLastError(0);
    return added > 0;
}

bool CEmailAddressListEditor::exportFile(const QString& path)
{
    QByteArray text;
    {
        CWaitCursor wait;
        for (const CListElement* e : elements()) {
            text.append(e->text().toUtf8());
            text.append('\n');
        }
    }
    return writeFile(path, text);
}

// ---- the Add and Edit dialog --------------------------------------------------------------------

CEmailAddressEntryDlg::CEmailAddressEntryDlg(QWidget* parent, bool edit, const QString& text, unsigned helpContext)
    : CTaviDialog(parent, nullptr), m_initial(text)
{
    setObjectName(QStringLiteral("CEmailAddressEntryDlg"));
    setHelpContext(helpContext);
    setUsesServerCaption(false);
    setWindowTitle(TaviString(edit ? IDS_ADDR_EDIT_CAPTION : IDS_ADDR_ADD_CAPTION));
    auto* prompt = new QLabel(TaviString(IDS_ADDR_PROMPT), this);
    prompt->setObjectName(QStringLiteral("lblAddress"));
    m_edit = new QLineEdit(text, this);
    m_edit->setObjectName(QStringLiteral("edtAddress"));
    m_edit->setMaxLength(int(kMaxAddressLength) + 2);
    m_edit->setMinimumWidth(m_edit->fontMetrics().averageCharWidth() * 44);
    m_edit->selectAll();
    prompt->setBuddy(m_edit);
    auto* hint = new QLabel(TaviString(IDS_ADDR_HINT), this);
    hint->setObjectName(QStringLiteral("lblHint"));
    hint->setEnabled(false);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(prompt);
    layout->addWidget(m_edit);
    layout->addWidget(hint);
    layout->addWidget(createButtonBox());
    m_edit->setFocus();
}

void CEmailAddressEntryDlg::onOK()
{
    QString value = m_edit->text();
    QString reason;
    if (!NormaliseEmailAddressPattern(value, &reason)) {
        m_edit->setFocus();
        m_edit->selectAll();
        taviMessageBox(TaviFormat(TaviString(IDS_ADDR_INVALID), {m_edit->text().trimmed(), reason}),
                       Mb::Ok | Mb::IconExclamation);
        return;
    }
    m_value = value;
    closeAsOK();
}
