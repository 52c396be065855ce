#include "maillist/MailListMembersPage.h"

#include "common/PlatformServices.h"
#include "config/ErrorReport.h"
#include "config/MessageFormat.h"
#include "maillist/MailListSheet.h"
#include "maillist/MemberCsv.h"
#include "res/MailListStringIds.h"
#include "res/StringTable.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QFormLayout>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSaveFile>
#include <QTreeView>
#include <QVBoxLayout>

#include <algorithm>

#include <velbrook/ListStore.h>
#include <velbrook/MailToolkit.h>

namespace {

// The member property that holds a member's name.
const char kNameProperty[] = "FullName";
constexpr int kLinesShown = 10;

QString badLinesText(const QList<MemberCsv::BadLine>& bad)
{
    QStringList lines;
    for (const MemberCsv::BadLine& b : bad.mid(0, kLinesShown))
        lines.append(QCoreApplication::translate("CMailListMembersPage", "Line %1: %2").arg(b.line).arg(b.reason));
    if (bad.size() > kLinesShown)
        lines.append(QCoreApplication::translate("CMailListMembersPage", "... and %1 more").arg(bad.size() - kLinesShown));
    return lines.join(QLatin1Char('\n'));
}

} // namespace

// ---- the model ------------------------------------------------------------------------------------

int CMemberModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(m_shown.size());
}

int CMemberModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : 2;
}

QVariant CMemberModel::data(const QModelIndex& index, int role) const
{
    if (role != Qt::DisplayRole || !index.isValid() || size_t(index.row()) >= m_shown.size())
        return {};
    const Member& m = shown(index.row());
    return index.column() == 0 ? m.address : m.name;
}

QVariant CMemberModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    return section == 0 ? tr("Address") : tr("Name");
}

void CMemberModel::setMembers(std::vector<Member> members)
{
    beginResetModel();
    m_members = std::move(members);
    refilter();
    endResetModel();
}

void CMemberModel::append(const std::vector<Member>& members)
{
    beginResetModel();
    m_members.insert(m_members.end(), members.begin(), members.end());
    refilter();
    endResetModel();
}

void CMemberModel::removeShownRows(QList<int> rows)
{
    std::vector<char> gone(m_members.size(), 0);
    for (int row : rows)
        if (row >= 0 && size_t(row) < m_shown.size())
            gone[size_t(m_shown[size_t(row)])] = 1;
    beginResetModel();
    size_t out = 0;
    for (size_t i = 0; i < m_members.size(); ++i)
        if (!gone[i])
            m_members[out++] = std::move(m_members[i]);
    m_members.resize(out);
    refilter();
    endResetModel();
}

void CMemberModel::setFilter(const QString& text)
{
    const QString filter = text.trimmed();
    // Typing on narrows what is shown: only the members shown so far need to be looked at again.
    const bool narrowing = !m_filter.isEmpty() && filter.contains(m_filter, Qt::CaseInsensitive);
    beginResetModel();
    m_filter = filter;
    if (narrowing) {
        std::erase_if(m_shown, [this](int i) { return !matches(m_members[size_t(i)]); });
    } else {
        refilter();
    }
    endResetModel();
}

bool CMemberModel::matches(const Member& m) const
{
    return m_filter.isEmpty() || m.address.contains(m_filter, Qt::CaseInsensitive)
           || m.name.contains(m_filter, Qt::CaseInsensitive);
}

void CMemberModel::refilter()
{
    m_shown.clear();
    m_shown.reserve(m_members.size());
    for (size_t i = 0; i < m_members.size(); ++i)
        if (matches(m_members[i]))
            m_shown.push_back(int(i));
}

// ---- the page -------------------------------------------------------------------------------------

CMailListMembersPage::CMailListMembersPage(CMailListSheet* sheet) : CTaviPropertyPage(tr("Members"), sheet), m_sheet(sheet)
{
    setObjectName(QStringLiteral("CMailListMembersPage"));
    setHelpContext(0x2804);
    m_model = new CMemberModel(this);
    m_search = new QLineEdit(this);
    m_search->setObjectName(QStringLiteral("edtSearch"));
    m_search->setPlaceholderText(tr("Part of an address or a name"));
    m_search->setClearButtonEnabled(true);
    auto* searchLabel = new QLabel(tr("&Search:"), this);
    searchLabel->setBuddy(m_search);
    m_view = new QTreeView(this);
    m_view->setObjectName(QStringLiteral("lstMembers"));
    m_view->setModel(m_model);
    m_view->setRootIsDecorated(false);
    m_view->setUniformRowHeights(true);
    m_view->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_view->header()->resizeSection(0, 260);
    m_count = new QLabel(this);
    m_count->setObjectName(QStringLiteral("lblMemberCount"));

    m_newAddress = new QLineEdit(this);
    m_newAddress->setObjectName(QStringLiteral("edtNewAddress"));
    m_newName = new QLineEdit(this);
    m_newName->setObjectName(QStringLiteral("edtNewName"));
    m_add = new QPushButton(tr("&Add"), this);
    m_add->setObjectName(QStringLiteral("btnAddMember"));
    m_add->setEnabled(false);
    m_remove = new QPushButton(tr("&Remove"), this);
    m_remove->setObjectName(QStringLiteral("btnRemoveMembers"));
    m_remove->setEnabled(false);
    auto* import = new QPushButton(tr("&Import..."), this);
    import->setObjectName(QStringLiteral("btnImport"));
    auto* exportButton = new QPushButton(tr("E&xport..."), this);
    exportButton->setObjectName(QStringLiteral("btnExport"));

    auto* searchRow = new QHBoxLayout;
    searchRow->addWidget(searchLabel);
    searchRow->addWidget(m_search, 1);
    auto* addGrid = new QGridLayout;
    auto* addressLabel = new QLabel(tr("New member's a&ddress:"), this);
    addressLabel->setBuddy(m_newAddress);
    auto* nameLabel = new QLabel(tr("&Name:"), this);
    nameLabel->setBuddy(m_newName);
    addGrid->addWidget(addressLabel, 0, 0);
    addGrid->addWidget(m_newAddress, 0, 1);
    addGrid->addWidget(nameLabel, 1, 0);
    addGrid->addWidget(m_newName, 1, 1);
    addGrid->addWidget(m_add, 0, 2);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(m_count, 1);
    buttons->addWidget(m_remove);
    buttons->addWidget(import);
    buttons->addWidget(exportButton);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(searchRow);
    layout->addWidget(m_view, 1);
    layout->addLayout(buttons);
    layout->addLayout(addGrid);

    connect(m_search, &QLineEdit::textChanged, this, [this](const QString& text) {
        m_model->setFilter(text);
        updateCount();
    });
    connect(m_newAddress, &QLineEdit::textChanged, this,
            [this](const QString& text) { m_add->setEnabled(!text.trimmed().isEmpty()); });
    for (QLineEdit* edit : {m_search, m_newAddress, m_newName})
        edit->installEventFilter(this);
    connect(m_add, &QPushButton::clicked, this, &CMailListMembersPage::addMember);
    connect(m_remove, &QPushButton::clicked, this, &CMailListMembersPage::removeMembers);
    connect(import, &QPushButton::clicked, this, &CMailListMembersPage::importMembers);
    connect(exportButton, &QPushButton::clicked, this, &CMailListMembersPage::exportMembers);
    connect(m_model, &QAbstractItemModel::modelReset, this, [this] { m_remove->setEnabled(false); });
    connect(m_view->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            [this] { m_remove->setEnabled(m_view->selectionModel()->hasSelection()); });
}

bool CMailListMembersPage::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            if (watched != m_search)
                addMember();
            return true;
        }
    }
    return CTaviPropertyPage::eventFilter(watched, event);
}

void CMailListMembersPage::initPage()
{
    CWaitCursor wait;
    std::vector<CMemberModel::Member> members;
    auto row = [](void* context, const char* address, const char* value) -> int {
        static_cast<std::vector<CMemberModel::Member>*>(context)->push_back(
            {QString::fromUtf8(address), QString::fromUtf8(value)});
        return 1;
    };
    if (!ReadMailingListMembers(m_sheet->list(), kNameProperty, row, &members)) {
        ReportErrorFormat1(GetLastError(), IDS_MAILLIST_CANNOT_READ_MEMBERS, m_sheet->displayName());
        members.clear();
    }
    m_keys.clear();
    m_keys.reserve(qsizetype(members.size()));
    for (const CMemberModel::Member& m : members)
        m_keys.insert(MemberCsv::addressKey(m.address));
    m_model->setMembers(std::move(members));
    updateCount();
}

void CMailListMembersPage::updateCount()
{
    m_count->setText(TaviFormat(TaviString(IDS_MAILLIST_MEMBER_COUNT),
                                {QString::number(m_model->rowCount()), QString::number(m_model->total())}));
}

void CMailListMembersPage::addMember()
{
    const QString address = m_newAddress->text().trimmed(), name = m_newName->text().trimmed();
    if (address.isEmpty())
        return;
    auto refuse = [this](unsigned id, const QString& insert) {
        m_newAddress->setFocus();
        m_newAddress->selectAll();
        taviMessageBox(TaviFormat(TaviString(id), {insert}), Mb::Ok | Mb::IconExclamation);
    };
    if (!MemberCsv::isValidAddress(address))
        return refuse(IDS_MAILLIST_BAD_ADDRESS, address);
    if (m_keys.contains(MemberCsv::addressKey(address)))
        return refuse(IDS_MAILLIST_ALREADY_MEMBER, address);
    const QByteArray a = address.toUtf8(), n = name.toUtf8();
    const char* addresses[] = {a.constData()};
    const char* names[] = {n.constData()};
    // One member is added like an import of one, so that a member never exists without its name.
    if (!AddMailingListMembers(m_sheet->list(), kNameProperty, addresses, names, 1, nullptr, nullptr, nullptr)) {
        m_newAddress->setFocus();
        ReportErrorFormat1(GetLastError(), IDS_MAILLIST_CANNOT_ADD_MEMBER, address);
        return;
    }
    m_keys.insert(MemberCsv::addressKey(address));
    m_model->append({{address, name}});
    updateCount();
    m_newAddress->clear();
    m_newName->clear();
    m_newAddress->setFocus();
    cancelToClose();
}

void CMailListMembersPage::removeMembers()
{
    QList<int> rows;
    for (const QModelIndex& index : m_view->selectionModel()->selectedRows())
        rows.append(index.row());
    if (rows.isEmpty())
        return;
    std::sort(rows.begin(), rows.end());
    const QString question = rows.size() == 1
        ? TaviFormat(TaviString(IDS_MAILLIST_REMOVE_ONE), {m_model->shown(rows.first()).address})
        : TaviFormat(TaviString(IDS_MAILLIST_REMOVE_MANY), {QString::number(rows.size())});
    if (taviMessageBox(question, Mb::YesNo | Mb::IconQuestion) != Id::Yes)
        return;
    std::vector<QByteArray> bytes;
    std::vector<const char*> addresses;
    bytes.reserve(size_t(rows.size()));
    addresses.reserve(size_t(rows.size()));
    for (int row : std::as_const(rows)) {
        bytes.push_back(m_model->shown(row).address.toUtf8());
        addresses.push_back(bytes.back().constData());
    }
    uint32_t failed = 0;
    bool ok = false;
    {
        CWaitCursor wait;
        ok = RemoveMailingListMembers(m_sheet->list(), addresses.data(), uint32_t(addresses.size()), &failed) != 0;
    }
    if (!ok) {
        // Nothing was removed: the members go all at once or not at all.
        const QString who = failed < addresses.size() ? QString::fromUtf8(addresses[failed])
                            : addresses.size() == 1 ? QString::fromUtf8(addresses.front())
                            : TaviFormat(TaviString(IDS_MAILLIST_SELECTED_MEMBERS), {QString::number(addresses.size())});
        ReportErrorFormat1(GetLastError(), IDS_MAILLIST_CANNOT_REMOVE_MEMBER, who);
        return;
    }
    for (int row : std::as_const(rows))
        m_keys.remove(MemberCsv::addressKey(m_model->shown(row).address));
    m_model->removeShownRows(rows);
    updateCount();
    cancelToClose();
}

void CMailListMembersPage::importMembers()
{
    CFileDialogRequest request;
    request.title = tr("Import members");
    request.filters = {{tr("Comma-separated values"), QStringLiteral("*.csv")}, {tr("All files"), QStringLiteral("*")}};
    request.defaultExtension = QStringLiteral("csv");
    request.flags = Ofn::FileMustExist | Ofn::HideReadOnly;
    if (!platform().fileDialog(this, request))
        return;
    QFile file(request.fileName);
    if (!file.open(QIODevice::ReadOnly)) {
        taviMessageBox(TaviFormat(TaviString(IDS_MAILLIST_FILE_UNREADABLE), {request.fileName}), Mb::Ok | Mb::IconStop);
        return;
    }
    const QByteArray text = file.readAll();
    MemberCsv::Parsed parsed;
    {
        CWaitCursor wait;
        parsed = MemberCsv::parse(text, m_keys);
    }
    if (parsed.rows.empty()) {
        if (!parsed.bad.isEmpty())
            taviMessageBox(TaviFormat(TaviString(IDS_MAILLIST_IMPORT_NOTHING), {badLinesText(parsed.bad)}),
                           Mb::Ok | Mb::IconExclamation);
        return;
    }
    if (!parsed.bad.isEmpty()
        && taviMessageBox(TaviFormat(TaviString(IDS_MAILLIST_IMPORT_BAD_LINES),
                                     {QString::number(parsed.bad.size()), badLinesText(parsed.bad),
                                      QString::number(parsed.rows.size())}),
                          Mb::OkCancel | Mb::IconQuestion) != Id::Ok)
        return;

    std::vector<QByteArray> bytes;
    bytes.reserve(parsed.rows.size() * 2);
    std::vector<const char*> addresses, names;
    addresses.reserve(parsed.rows.size());
    names.reserve(parsed.rows.size());
    for (const MemberCsv::Row& r : parsed.rows) {
        bytes.push_back(r.address.toUtf8());
        addresses.push_back(bytes.back().constData());
        bytes.push_back(r.name.toUtf8());
        names.push_back(bytes.back().constData());
    }
    std::unique_ptr<CProgressReporter> progress =
        platform().beginProgress(this, TaviFormat(TaviString(IDS_MAILLIST_IMPORTING), {QFileInfo(request.fileName).fileName()}));
    auto report = [](void* context, uint32_t done, uint32_t total) -> int {
        return static_cast<CProgressReporter*>(context)->setProgress(done, total) ? 1 : 0;
    };
    uint32_t failed = 0;
    const bool ok = AddMailingListMembers(m_sheet->list(), kNameProperty, addresses.data(), names.data(),
                                          uint32_t(addresses.size()), progress ? +report : nullptr,
                                          progress.get(), &failed) != 0;
    const uint32_t error = GetLastError();
    progress.reset();
    if (!ok) {
        // Nothing was added: the members go in all at once or not at all.
        if (error != VB_ERROR_CANCELLED) {
            const bool known = failed < parsed.rows.size();
            ReportErrorFormat2(error, IDS_MAILLIST_IMPORT_FAILED,
                               known ? QString::number(parsed.rows[failed].line) : QStringLiteral("-"),
                               known ? parsed.rows[failed].address : QString());
        }
        return;
    }
    std::vector<CMemberModel::Member> added;
    added.reserve(parsed.rows.size());
    for (const MemberCsv::Row& r : parsed.rows) {
        m_keys.insert(MemberCsv::addressKey(r.address));
        added.push_back({r.address, r.name});
    }
    m_model->append(added);
    updateCount();
    cancelToClose();
}

void CMailListMembersPage::exportMembers()
{
    CFileDialogRequest request;
    request.save = true;
    request.title = tr("Export members");
    request.filters = {{tr("Comma-separated values"), QStringLiteral("*.csv")}, {tr("All files"), QStringLiteral("*")}};
    request.defaultExtension = QStringLiteral("csv");
    request.flags = Ofn::OverwritePrompt | Ofn::HideReadOnly;
    if (!platform().fileDialog(this, request))
        return;
    CWaitCursor wait;
    // Written to a temporary file that replaces the old one only when complete.
    QSaveFile file(request.fileName);
    bool ok = file.open(QIODevice::WriteOnly);
    QByteArray out = "Address,Name\n";
    for (int row = 0; ok && row < m_model->rowCount(); ++row) {
        const CMemberModel::Member& m = m_model->shown(row);
        out += MemberCsv::exportLine(m.address, m.name);
        out += '\n';
        if (out.size() > (1 << 20)) {
            ok = file.write(out) == out.size();
            out.clear();
        }
    }
    ok = ok && file.write(out) == out.size() && file.commit();
    if (!ok)
        taviMessageBox(TaviFormat(TaviString(IDS_MAILLIST_FILE_UNWRITABLE), {request.fileName}), Mb::Ok | Mb::IconStop);
}
