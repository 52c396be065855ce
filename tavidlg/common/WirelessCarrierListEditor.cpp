#include "common/WirelessCarrierListEditor.h"

#include "common/EmailAddressListEditor.h"
#include "common/PlatformServices.h"
#include "common/SubnetCsv.h"
#include "config/AccessLayer.h"
#include "config/MessageFormat.h"
#include "res/ListStringIds.h"
#include "res/StringTable.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QSaveFile>
#include <QStandardPaths>
#include <QVBoxLayout>

#include <velbrook/MailToolkit.h>
#include <velbrook/ServerStore.h>

namespace {

constexpr unsigned kHelpContextEditor = 2192;
constexpr unsigned kHelpContextEntry = 2193;
constexpr qsizetype kMaxName = 64;
const char* const kCarriersProperty = "MobileCarriers";
const char* const kTableFileName = "MobileCarriers.txt";

QString displayText(const CWirelessCarrier& c)
{
    return c.name + QStringLiteral(" <") + c.gateway + QLatin1Char('>');
}

// Splits "Name <gateway>" (as shown) back into its parts.
bool splitDisplayText(const QString& text, CWirelessCarrier& carrier)
{
    const qsizetype open = text.lastIndexOf(QStringLiteral(" <"));
    if (open <= 0 || !text.endsWith(QLatin1Char('>')))
        return false;
    carrier.name = text.left(open);
    carrier.gateway = text.mid(open + 2, text.size() - open - 3);
    return true;
}

bool validGateway(const QString& domain)
{
    // A gateway is a real domain: at least two labels.
    return domain.contains(QLatin1Char('.')) && IsValidDomainName(domain);
}

class CCarrierElement : public CListElement {
public:
    CCarrierElement(const CWirelessCarrier& carrier, bool added)
        : CListElement(added ? 1 : 0), m_carrier(carrier), m_text(displayText(carrier))
    {
    }
    const QString& text() const override { return m_text; }
    const CWirelessCarrier& carrier() const { return m_carrier; }

    bool store(CListManager* manager) override
    {
        auto* carriers = dynamic_cast<CWirelessCarrierListManager*>(manager);
        if (!carriers) {
            SetLastError(VB_ERROR_INVALID_PARAMETER);
            return false;
        }
        if (state() == Added)
            carriers->putCarrier(m_carrier);
        else if (state() == Removed && !carriers->dropCarrier(m_carrier.id))
            return false;
        return true;
    }

private:
    CWirelessCarrier m_carrier;
    QString m_text;
};

} // namespace

bool CheckWirelessCarrier(CWirelessCarrier& carrier, unsigned* messageId)
{
    carrier.name = carrier.name.simplified();
    carrier.gateway = carrier.gateway.trimmed().toLower();
    if (carrier.gateway.startsWith(QLatin1Char('@')))
        carrier.gateway.remove(0, 1);
    bool nameOk = !carrier.name.isEmpty() && carrier.name.size() <= kMaxName && !carrier.name.contains(QLatin1Char('<'));
    for (const QChar c : std::as_const(carrier.name))
        nameOk = nameOk && !c.isNonCharacter() && c.category() != QChar::Other_Control;
    if (!nameOk) {
        if (messageId)
            *messageId = IDS_CARRIER_BAD_NAME;
        SetLastError(VB_ERROR_INVALID_DATA);
        return false;
    }
    if (!validGateway(carrier.gateway)) {
        if (messageId)
            *messageId = IDS_CARRIER_BAD_GATEWAY;
        SetLastError(VB_ERROR_INVALID_DATA);
        return false;
    }
    return true;
}

bool ParseWirelessCarrierTable(const QByteArray& text, QList<CWirelessCarrier>& carriers, quint32& nextId,
                               qint64* errorLine)
{
    carriers.clear();
    nextId = 1;
    QByteArray body = text;
    if (body.startsWith("\xEF\xBB\xBF"))
        body.remove(0, 3);
    const QList<QByteArray> lines = body.split('\n');
    quint32 highest = 0;
    qint64 number = 0;
    auto fail = [&] {
        if (errorLine)
            *errorLine = number;
        carriers.clear();
        SetLastError(VB_ERROR_INVALID_DATA);
        return false;
    };
    for (QByteArray line : lines) {
        ++number;
        if (line.endsWith('\r'))
            line.chop(1);
        if (line.trimmed().isEmpty())
            continue;
        if (line.startsWith('#')) {
            const QList<QByteArray> parts = line.split('\t');
            if (parts.size() == 2 && parts[0] == "#sms" && !carriers.isEmpty())
                carriers.last().gateway = QString::fromUtf8(parts[1]).trimmed();
            else if (parts.size() == 2 && parts[0] == "#next-id")
                nextId = std::max(nextId, parts[1].trimmed().toUInt());
            continue;
        }
        const qsizetype tab = line.indexOf('\t');
        bool ok = false;
        const quint32 id = tab > 0 ? line.left(tab).toUInt(&ok) : 0;
        if (!ok || tab + 1 >= line.size())
            return fail();
        for (const CWirelessCarrier& c : std::as_const(carriers)) {
            if (c.id == id)
                return fail();
        }
        carriers.append({id, QString::fromUtf8(line.mid(tab + 1)), QString()});
        highest = std::max(highest, id);
    }
    nextId = std::max(nextId, highest + 1);
    return true;
}

QByteArray FormatWirelessCarrierTable(const QList<CWirelessCarrier>& carriers, quint32 nextId)
{
    QByteArray text = "# Velbrook wireless carriers: id<TAB>name, then #sms<TAB>the SMS gateway domain\n";
    text += "#next-id\t" + QByteArray::number(nextId) + '\n';
    for (const CWirelessCarrier& c : carriers) {
        text += QByteArray::number(c.id) + '\t' + c.name.toUtf8() + '\n';
        if (!c.gateway.isEmpty())
            text += "#sms\t" + c.gateway.toUtf8() + '\n';
    }
    return text;
}

QList<CWirelessCarrier> DefaultWirelessCarriers()
{
    // Carriers whose e-mail to SMS gateways are long established; ids are assigned on loading.
    return {
        {0, QStringLiteral("AT&T"), QStringLiteral("txt.att.net")},
        {0, QStringLiteral("Bell"), QStringLiteral("txt.bell.ca")},
        {0, QStringLiteral("Cricket Wireless"), QStringLiteral("sms.cricketwireless.net")},
        {0, QStringLiteral("Rogers"), QStringLiteral("pcs.rogers.com")},
        {0, QStringLiteral("T-Mobile"), QStringLiteral("tmomail.net")},
        {0, QStringLiteral("Telus"), QStringLiteral("msg.telus.com")},
        {0, QStringLiteral("US Cellular"), QStringLiteral("email.uscc.net")},
        {0, QStringLiteral("Verizon Wireless"), QStringLiteral("vtext.com")},
    };
}

// ---- the manager --------------------------------------------------------------------------------

CWirelessCarrierListManager::CWirelessCarrierListManager(_tMailServer* server)
    : CListManager(TaviString(IDS_CARRIER_CAPTION)), m_server(server)
{
}

QString CWirelessCarrierListManager::tablePath() const
{
    QString path;
    if (ReadServerString(m_server, nullptr, kCarriersProperty, path, kPathBufferSize) && !path.trimmed().isEmpty())
        return path.trimmed();
    const char* location = GetMailServerLocation(m_server);
    const QString store = QString::fromUtf8(location ? location : "");
    if (!store.isEmpty() && !store.contains(QStringLiteral("://")))
        return QFileInfo(store).absoluteDir().filePath(QLatin1String(kTableFileName));
    return QDir(QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation))
        .filePath(QStringLiteral("velbrook/") + QLatin1String(kTableFileName));
}

bool CWirelessCarrierListManager::loadTable(QList<CWirelessCarrier>& carriers)
{
    QString stored;
    m_pathStored = ReadServerString(m_server, nullptr, kCarriersProperty, stored, kPathBufferSize)
        && !stored.trimmed().isEmpty();
    m_path = tablePath();
    m_table.clear();
    m_nextId = 1;
    QFile file(m_path);
    if (!file.exists()) {
        carriers.clear();
        return true; // no table yet: an empty one
    }
    if (!file.open(QIODevice::ReadOnly)) {
        SetLastError(VB_ERROR_ACCESS_DENIED);
        return false;
    }
    if (!ParseWirelessCarrierTable(file.readAll(), m_table, m_nextId))
        return false;
    carriers = m_table;
    return true;
}

void CWirelessCarrierListManager::putCarrier(const CWirelessCarrier& carrier)
{
    for (CWirelessCarrier& c : m_table) {
        if (c.id == carrier.id) {
            c = carrier;
            return;
        }
    }
    m_table.append(carrier);
}

bool CWirelessCarrierListManager::dropCarrier(quint32 id)
{
    for (qsizetype i = 0; i < m_table.size(); ++i) {
        if (m_table[i].id == id) {
            m_table.removeAt(i);
            return true;
        }
    }
    SetLastError(VB_ERROR_NOT_FOUND);
    return false;
}

void CWirelessCarrierListManager::replaceTable(const QList<CWirelessCarrier>& carriers)
{
    m_table = carriers;
}

bool CWirelessCarrierListManager::readListNames(QString& names)
{
    names = TaviString(IDS_CARRIER_LIST_NAME);
    return true;
}

bool CWirelessCarrierListManager::loadItems(QStringList& items)
{
    QList<CWirelessCarrier> carriers;
    if (!loadTable(carriers))
        return false;
    items.clear();
    for (const CWirelessCarrier& c : std::as_const(carriers))
        items.append(displayText(c));
    return true;
}

bool CWirelessCarrierListManager::addItem(const QString& item)
{
    CWirelessCarrier carrier;
    if (!splitDisplayText(item, carrier) || !CheckWirelessCarrier(carrier))
        return false;
    carrier.id = takeNextId();
    putCarrier(carrier);
    return true;
}

bool CWirelessCarrierListManager::removeItem(const QString& item)
{
    for (const CWirelessCarrier& c : std::as_const(m_table)) {
        if (displayText(c) == item)
            return dropCarrier(c.id);
    }
    SetLastError(VB_ERROR_NOT_FOUND);
    return false;
}

bool CWirelessCarrierListManager::storeWhole(const QString& joined)
{
    // Carriers are written from their records (names may hold commas); the editor hands them over with
    // replaceTable, so the joined texts only say whether the table is to be empty.
    if (joined.isEmpty())
        m_table.clear();
    return commit();
}

bool CWirelessCarrierListManager::loadDefaultItems(QStringList& items)
{
    items.clear();
    for (const CWirelessCarrier& c : DefaultWirelessCarriers())
        items.append(displayText(c));
    return true;
}

bool CWirelessCarrierListManager::commit()
{
    if (m_path.isEmpty())
        m_path = tablePath();
    QDir().mkpath(QFileInfo(m_path).absolutePath());
    QSaveFile file(m_path);
    const QByteArray text = FormatWirelessCarrierTable(m_table, m_nextId);
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size() || !file.commit()) {
        taviMessageBox(TaviFormat(TaviString(IDS_CARRIER_WRITE_FAILED), {QDir::toNativeSeparators(m_path)}),
                       Mb::Ok | Mb::IconExclamation);
        SetLastError(VB_ERROR_ACCESS_DENIED);
        return false;
    }
    // The mailbox pages find the table through the server property.
    if (!m_pathStored) {
        if (!WriteServerString(m_server, nullptr, kCarriersProperty, m_path))
            return false;
        m_pathStored = true;
    }
    return true;
}

// ---- the editor ---------------------------------------------------------------------------------

CWirelessCarrierListEditor::CWirelessCarrierListEditor(QWidget* parent, _tMailServer* server)
    : CListEditor(parent, server, new CWirelessCarrierListManager(server), TaviString(IDS_CARRIER_LIST_NAME))
{
    setObjectName(QStringLiteral("CWirelessCarrierListEditor"));
    setHelpContext(kHelpContextEditor);
}

CWirelessCarrierListEditor::~CWirelessCarrierListEditor() = default;

CWirelessCarrierListManager* CWirelessCarrierListEditor::carriers() const
{
    return static_cast<CWirelessCarrierListManager*>(manager());
}

bool CWirelessCarrierListEditor::loadList()
{
    QList<CWirelessCarrier> table;
    if (!carriers()->loadTable(table))
        return false;
    mutableElements().clear();
    for (const CWirelessCarrier& c : std::as_const(table))
        insertElement(std::make_unique<CCarrierElement>(c, false));
    return true;
}

bool CWirelessCarrierListEditor::nameTaken(const QString& name, const QString& exceptText) const
{
    for (const CListElement* e : elements()) {
        if (e->text() != exceptText
            && static_cast<const CCarrierElement*>(e)->carrier().name.compare(name, Qt::CaseInsensitive) == 0)
            return true;
    }
    return false;
}

bool CWirelessCarrierListEditor::runCarrierDialog(bool edit, CWirelessCarrier& carrier)
{
    const QString except = edit ? displayText(carrier) : QString();
    CWirelessCarrierDlg dialog(this, edit, carrier, kHelpContextEntry,
                               [this, except](const QString& name) { return nameTaken(name, except); });
    if (dialog.exec() != Id::Ok)
        return false;
    carrier = dialog.value();
    return true;
}

CListElement* CWirelessCarrierListEditor::newElement()
{
    SetLastError(0);
    CWirelessCarrier carrier;
    if (!runCarrierDialog(false, carrier))
        return nullptr;
    carrier.id = carriers()->takeNextId();
    auto element = std::make_unique<CCarrierElement>(carrier, true);
    CListElement* raw = element.get();
    return insertElement(std::move(element)) ? raw : nullptr;
}

CListElement* CWirelessCarrierListEditor::editElement(const QString& oldText)
{
    SetLastError(0);
    auto* old = static_cast<CCarrierElement*>(elements().find(oldText));
    if (!old) {
        SetLastError(VB_ERROR_NOT_FOUND);
        return nullptr;
    }
    CWirelessCarrier carrier = old->carrier();
    if (!runCarrierDialog(true, carrier))
        return nullptr;
    if (displayText(carrier) == oldText)
        return nullptr; // unchanged
    if (elements().find(displayText(carrier))) {
        SetLastError(VB_ERROR_ALREADY_EXISTS);
        return nullptr;
    }
    // The carrier keeps its id: mailboxes that chose it keep it.
    if (!removeElement(oldText))
        return nullptr;
    auto element = std::make_unique<CCarrierElement>(carrier, true);
    CListElement* raw = element.get();
    return insertElement(std::move(element)) ? raw : nullptr;
}

std::unique_ptr<CListElement> CWirelessCarrierListEditor::makeElement(const QString& text, bool added)
{
    CWirelessCarrier carrier;
    splitDisplayText(text, carrier);
    carrier.id = carriers()->takeNextId();
    return std::make_unique<CCarrierElement>(carrier, added);
}

bool CWirelessCarrierListEditor::normalise(QString& text)
{
    CWirelessCarrier carrier;
    if (!splitDisplayText(text, carrier) || !CheckWirelessCarrier(carrier)) {
        SetLastError(VB_ERROR_INVALID_DATA);
        return false;
    }
    text = displayText(carrier);
    return true;
}

bool CWirelessCarrierListEditor::addEntry(const QString& text)
{
    QString normalised = text;
    if (!normalise(normalised))
        return false;
    CWirelessCarrier carrier;
    splitDisplayText(normalised, carrier);
    if (nameTaken(carrier.name, QString())) {
        SetLastError(VB_ERROR_ALREADY_EXISTS);
        return false;
    }
    return insertElement(makeElement(normalised, true));
}

bool CWirelessCarrierListEditor::runEntryDialog(bool edit, QString& text)
{
    CWirelessCarrier carrier;
    splitDisplayText(text, carrier);
    if (!runCarrierDialog(edit, carrier))
        return false;
    text = displayText(carrier);
    return true;
}

bool CWirelessCarrierListEditor::loadDefault()
{
    // Carriers already in the table keep their ids; the others get new ones.
    QList<CWirelessCarrier> table;
    for (CWirelessCarrier c : DefaultWirelessCarriers()) {
        c.id = 0;
        for (const CListElement* e : elements()) {
            const CWirelessCarrier& old = static_cast<const CCarrierElement*>(e)->carrier();
            if (old.name.compare(c.name, Qt::CaseInsensitive) == 0)
                c.id = old.id;
        }
        table.append(c);
    }
    for (CWirelessCarrier& c : table) {
        if (c.id == 0)
            c.id = carriers()->takeNextId();
    }
    mutableElements().clear();
    for (const CWirelessCarrier& c : std::as_const(table))
        insertElement(std::make_unique<CCarrierElement>(c, true));
    return true;
}

bool CWirelessCarrierListEditor::storeWhole()
{
    QList<CWirelessCarrier> table;
    for (const CListElement* e : elements())
        table.append(static_cast<const CCarrierElement*>(e)->carrier());
    carriers()->replaceTable(table);
    return carriers()->commit();
}

bool CWirelessCarrierListEditor::importFile(const QString& path)
{
    QFile file(path);
    while (!file.open(QIODevice::ReadOnly)) {
        if (taviMessageBox(TaviString(IDS_LIST_IO_ERRORS), Mb::RetryCancel | Mb::IconExclamation) != Id::Retry) {
            SetLastError(0);
            return false;
        }
    }
    // Rows "name,gateway" or "id,name,gateway" (the export's form; ids are handed out anew). A first
    // row that is not a carrier is a header.
    const QList<QByteArray> lines = file.readAll().split('\n');
    QList<CWirelessCarrier> accepted;
    QList<qint64> badLines;
    qint64 number = 0;
    bool seenContent = false;
    for (QByteArray line : lines) {
        ++number;
        if (line.endsWith('\r'))
            line.chop(1);
        if (line.trimmed().isEmpty())
            continue;
        std::vector<std::string> fields;
        const std::string_view view(line.constData(), std::size_t(line.size()));
        for (SubnetCsv::Field f = SubnetCsv::readField(view, 0);; f = SubnetCsv::readField(view, f.next)) {
            fields.push_back(f.text);
            if (!f.hasNext || fields.size() > 3)
                break;
        }
        const bool first = !seenContent;
        seenContent = true;
        CWirelessCarrier c;
        const std::size_t at = fields.size() == 3 ? 1 : 0;
        if (fields.size() >= 2 && fields.size() <= 3) {
            c.name = QString::fromUtf8(fields[at].data(), qsizetype(fields[at].size()));
            c.gateway = QString::fromUtf8(fields[at + 1].data(), qsizetype(fields[at + 1].size()));
        }
        if ((fields.size() == 2 || fields.size() == 3) && CheckWirelessCarrier(c)) {
            accepted.append(c);
        } else if (!first) {
            badLines.append(number);
        }
    }
    if (!confirmBadRows(badLines, std::size_t(accepted.size()))) {
        SetLastError(0);
        return false;
    }
    int added = 0;
    for (CWirelessCarrier c : std::as_const(accepted)) {
        if (nameTaken(c.name, QString()))
            continue;
        c.id = carriers()->takeNextId();
        if (insertElement(std::make_unique<CCarrierElement>(c, true)))
            ++added;
    }
    SetLastError(0);
    return added > 0;
}

bool CWirelessCarrierListEditor::exportFile(const QString& path)
{
    QByteArray text = "id,name,gateway\n";
    for (const CListElement* e : elements()) {
        const CWirelessCarrier& c = static_cast<const CCarrierElement*>(e)->carrier();
        QString name = c.name;
        name.replace(QLatin1Char('"'), QStringLiteral("\"\""));
        text += QByteArray::number(c.id) + ",\"" + name.toUtf8() + "\"," + c.gateway.toUtf8() + '\n';
    }
    return writeFile(path, text);
}

// ---- the Add and Edit dialog --------------------------------------------------------------------

CWirelessCarrierDlg::CWirelessCarrierDlg(QWidget* parent, bool edit, const CWirelessCarrier& carrier,
                                         unsigned helpContext, std::function<bool(const QString&)> nameTaken)
    : CTaviDialog(parent, nullptr), m_value(carrier), m_nameTaken(std::move(nameTaken))
{
    setObjectName(QStringLiteral("CWirelessCarrierDlg"));
    setHelpContext(helpContext);
    setUsesServerCaption(false);
    setWindowTitle(TaviString(edit ? IDS_CARRIER_EDIT_CAPTION : IDS_CARRIER_ADD_CAPTION));
    m_name = new QLineEdit(carrier.name, this);
    m_name->setObjectName(QStringLiteral("edtName"));
    m_name->setMaxLength(int(kMaxName));
    m_gateway = new QLineEdit(carrier.gateway, this);
    m_gateway->setObjectName(QStringLiteral("edtGateway"));
    m_gateway->setMinimumWidth(m_gateway->fontMetrics().averageCharWidth() * 36);
    auto* id = new QLabel(edit ? QString::number(carrier.id) : tr("(new)"), this);
    id->setObjectName(QStringLiteral("lblId"));
    auto* form = new QFormLayout;
    form->addRow(tr("&Name:"), m_name);
    form->addRow(tr("&SMS gateway domain:"), m_gateway);
    form->addRow(tr("Id:"), id);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(createButtonBox());
    m_name->setFocus();
}

void CWirelessCarrierDlg::onOK()
{
    CWirelessCarrier carrier = m_value;
    carrier.name = m_name->text();
    carrier.gateway = m_gateway->text();
    unsigned message = 0;
    if (!CheckWirelessCarrier(carrier, &message)) {
        // The field at fault has the focus while the message is up, and keeps it.
        QLineEdit* at = message == IDS_CARRIER_BAD_NAME ? m_name : m_gateway;
        at->setFocus();
        at->selectAll();
        taviMessageBox(TaviString(message), Mb::Ok | Mb::IconExclamation);
        return;
    }
    if (m_nameTaken && m_nameTaken(carrier.name)) {
        m_name->setFocus();
        m_name->selectAll();
        taviMessageBox(TaviFormat(TaviString(IDS_CARRIER_NAME_TAKEN), {carrier.name}), Mb::Ok | Mb::IconExclamation);
        return;
    }
    m_value = carrier;
    closeAsOK();
}
