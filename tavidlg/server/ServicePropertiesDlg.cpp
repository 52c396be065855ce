#include "server/ServicePropertiesDlg.h"

#include "common/PlatformServices.h"
#include "config/AccessLayer.h"
#include "config/MessageFormat.h"
#include "res/ServicePropertyStrings.h"
#include "res/StringTable.h"
#include "security/PropertyWrites.h"
#include "server/ServiceDlg.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QHostAddress>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QSpinBox>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {
constexpr unsigned kHelpContext = 2116;
constexpr quint32 kMaxWorkers = 10000;
constexpr quint32 kMaxTimeout = 86400;

bool isEveryAddress(const QString& address)
{
    return address.isEmpty();
}

// Every address is stored as "*"; the two unspecified literals mean the same.
QString normaliseAddress(const QString& text, bool* ok)
{
    *ok = true;
    if (text.isEmpty() || text == QLatin1String("*") || text == QLatin1String("0.0.0.0") || text == QLatin1String("::"))
        return QString();
    QHostAddress address;
    if (!address.setAddress(text) || address.protocol() == QAbstractSocket::UnknownNetworkLayerProtocol
        || text.contains(QLatin1Char('%'))) {
        *ok = false;
        return QString();
    }
    return address.toString();
}
} // namespace

QString formatListenEndpoint(const ListenEndpoint& endpoint)
{
    const QString port = QString::number(endpoint.port);
    if (isEveryAddress(endpoint.address))
        return QStringLiteral("*:") + port;
    if (endpoint.address.contains(QLatin1Char(':')))
        return QStringLiteral("[%1]:%2").arg(endpoint.address, port);
    return endpoint.address + QLatin1Char(':') + port;
}

bool parseListenEndpoint(const QString& text, ListenEndpoint& endpoint)
{
    QString address, port;
    const QString t = text.trimmed();
    if (t.startsWith(QLatin1Char('['))) {
        const qsizetype close = t.indexOf(QLatin1String("]:"));
        if (close < 0)
            return false;
        address = t.mid(1, close - 1);
        port = t.mid(close + 2);
        if (!address.contains(QLatin1Char(':')))
            return false;
    } else if (const qsizetype colon = t.lastIndexOf(QLatin1Char(':')); colon >= 0) {
        address = t.left(colon);
        port = t.mid(colon + 1);
        if (address.contains(QLatin1Char(':'))) // an IPv6 address needs its brackets
            return false;
    } else {
        port = t;
    }
    bool ok = false;
    const uint number = port.toUInt(&ok);
    if (!ok || number < 1 || number > 65535 || port.startsWith(QLatin1Char('+')))
        return false;
    const QString normal = normaliseAddress(address, &ok);
    if (!ok)
        return false;
    endpoint = {normal, quint16(number)};
    return true;
}

QList<ListenEndpoint> parseListenList(const QString& text, int* bad)
{
    static const QRegularExpression separators(QStringLiteral("[,\\s]+"));
    QList<ListenEndpoint> out;
    int errors = 0;
    for (const QString& entry : text.split(separators, Qt::SkipEmptyParts)) {
        ListenEndpoint endpoint;
        if (parseListenEndpoint(entry, endpoint) && !out.contains(endpoint))
            out.append(endpoint);
        else
            ++errors;
    }
    if (bad)
        *bad = errors;
    return out;
}

QString formatListenList(const QList<ListenEndpoint>& endpoints)
{
    QStringList parts;
    parts.reserve(endpoints.size());
    for (const ListenEndpoint& e : endpoints)
        parts.append(formatListenEndpoint(e));
    return parts.join(QLatin1String(", "));
}

bool listenEndpointsClash(const ListenEndpoint& a, const ListenEndpoint& b)
{
    if (a.port != b.port)
        return false;
    return isEveryAddress(a.address) || isEveryAddress(b.address)
        || QHostAddress(a.address).isEqual(QHostAddress(b.address));
}

CServicePropertiesDlg::CServicePropertiesDlg(QWidget* parent, _tMailServer* server, const char* service)
    : CTaviDialog(parent, server), m_service(service ? service : "")
{
    setObjectName(QStringLiteral("CServicePropertiesDlg"));
    // The caption is the service's name followed by " service on %1".
    setWindowTitle(QString::fromUtf8(m_service) + tr(" service on %1"));

    auto* listenGroup = new QGroupBox(tr("Listening addresses"), this);
    listenGroup->setObjectName(QStringLiteral("grpListen"));
    m_endpointList = new QTreeWidget(listenGroup);
    m_endpointList->setObjectName(QStringLiteral("lstEndpoints"));
    m_endpointList->setHeaderLabels({tr("Address"), tr("Port")});
    m_endpointList->setRootIsDecorated(false);
    m_endpointList->setUniformRowHeights(true);
    m_endpointList->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_endpointList->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    m_endpointList->header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    m_endpointList->setMinimumHeight(fontMetrics().height() * 6);
    auto* addressLabel = new QLabel(tr("A&ddress:"), listenGroup);
    m_addressEdit = new QLineEdit(listenGroup);
    m_addressEdit->setObjectName(QStringLiteral("edtAddress"));
    m_addressEdit->setPlaceholderText(tr("every address"));
    m_addressEdit->setMaxLength(64);
    addressLabel->setBuddy(m_addressEdit);
    auto* portLabel = new QLabel(tr("&Port:"), listenGroup);
    m_portSpin = new QSpinBox(listenGroup);
    m_portSpin->setObjectName(QStringLiteral("spnPort"));
    m_portSpin->setRange(1, 65535);
    m_portSpin->setValue(25);
    portLabel->setBuddy(m_portSpin);
    m_addButton = new QPushButton(tr("&Add"), listenGroup);
    m_addButton->setObjectName(QStringLiteral("btnAdd"));
    m_removeButton = new QPushButton(tr("&Remove"), listenGroup);
    m_removeButton->setObjectName(QStringLiteral("btnRemove"));
    m_removeButton->setEnabled(false);
    auto* listenGrid = new QGridLayout(listenGroup);
    listenGrid->addWidget(m_endpointList, 0, 0, 1, 5);
    listenGrid->addWidget(addressLabel, 1, 0);
    listenGrid->addWidget(m_addressEdit, 1, 1);
    listenGrid->addWidget(portLabel, 1, 2);
    listenGrid->addWidget(m_portSpin, 1, 3);
    auto* listButtons = new QHBoxLayout;
    listButtons->addStretch(1);
    listButtons->addWidget(m_addButton);
    listButtons->addWidget(m_removeButton);
    listenGrid->addLayout(listButtons, 2, 0, 1, 5);
    listenGrid->setColumnStretch(1, 1);

    auto* runGroup = new QGroupBox(tr("Running"), this);
    runGroup->setObjectName(QStringLiteral("grpRunning"));
    m_startModeCombo = new QComboBox(runGroup);
    m_startModeCombo->setObjectName(QStringLiteral("cboStartMode"));
    m_startModeCombo->addItems({tr("Automatic (with the server)"), tr("Manual"), tr("Disabled")});
    m_workersSpin = new QSpinBox(runGroup);
    m_workersSpin->setObjectName(QStringLiteral("spnMaxWorkers"));
    m_workersSpin->setRange(0, int(kMaxWorkers));
    m_workersSpin->setSpecialValueText(tr("Server default"));
    m_timeoutSpin = new QSpinBox(runGroup);
    m_timeoutSpin->setObjectName(QStringLiteral("spnTimeout"));
    m_timeoutSpin->setRange(0, int(kMaxTimeout));
    m_timeoutSpin->setSuffix(tr(" seconds"));
    m_timeoutSpin->setSpecialValueText(tr("Never"));
    m_logFileCheck = new QCheckBox(tr("Write the service's own &log file"), runGroup);
    m_logFileCheck->setObjectName(QStringLiteral("chkLogToFile"));
    auto* runForm = new QFormLayout(runGroup);
    runForm->addRow(tr("&Start mode:"), m_startModeCombo);
    runForm->addRow(tr("&Worker limit:"), m_workersSpin);
    runForm->addRow(tr("Drop &idle connections after:"), m_timeoutSpin);
    runForm->addRow(m_logFileCheck);

    auto* stateGroup = new QGroupBox(tr("State"), this);
    stateGroup->setObjectName(QStringLiteral("grpState"));
    auto* stateLabel = new QLabel(tr("Service status:"), stateGroup);
    m_stateText = new QLabel(stateGroup);
    m_stateText->setObjectName(QStringLiteral("lblState"));
    m_controlButton = new QPushButton(tr("Service &Control..."), stateGroup);
    m_controlButton->setObjectName(QStringLiteral("btnServiceControl"));
    auto* stateRow = new QHBoxLayout(stateGroup);
    stateRow->addWidget(stateLabel);
    stateRow->addWidget(m_stateText, 1);
    stateRow->addWidget(m_controlButton);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(listenGroup, 1);
    layout->addWidget(runGroup);
    layout->addWidget(stateGroup);
    layout->addWidget(createButtonBox(true));
    setTabOrder(m_endpointList, m_addressEdit);
    setTabOrder(m_addressEdit, m_portSpin);
    setTabOrder(m_portSpin, m_addButton);
    setTabOrder(m_addButton, m_removeButton);
    setTabOrder(m_removeButton, m_startModeCombo);
    setTabOrder(m_startModeCombo, m_workersSpin);
    setTabOrder(m_workersSpin, m_timeoutSpin);
    setTabOrder(m_timeoutSpin, m_logFileCheck);
    setTabOrder(m_logFileCheck, m_controlButton);
    resize(480, sizeHint().height());

    connect(m_addButton, &QPushButton::clicked, this, &CServicePropertiesDlg::onAdd);
    connect(m_removeButton, &QPushButton::clicked, this, &CServicePropertiesDlg::onRemove);
    connect(m_endpointList, &QTreeWidget::itemSelectionChanged, this, &CServicePropertiesDlg::onSelectionChanged);
    connect(m_controlButton, &QPushButton::clicked, this, &CServicePropertiesDlg::onServiceControl);
}

CServicePropertiesDlg::~CServicePropertiesDlg() = default;

void CServicePropertiesDlg::initDialog()
{
    setHelpContext(kHelpContext);
    CTaviDialog::initDialog();
    const char* section = m_service.constData();
    ReadServerString(server(), section, "ListenAddresses", m_listenRead, kCommandBufferSize);
    ReadServerNumber(server(), section, "StartMode", m_startModeRead, 0);
    ReadServerNumber(server(), section, "MaxWorkers", m_workersRead, 0);
    ReadServerNumber(server(), section, "Timeout", m_timeoutRead, 900);
    ReadServerNumber(server(), section, "LogToFile", m_logFileRead, 1);
    m_startModeRead = qMin<quint32>(m_startModeRead, 2);
    int bad = 0;
    m_endpoints = parseListenList(m_listenRead, &bad);
    if (bad > 0)
        taviMessageBox(TaviFormat(TaviString(IDS_SVCPROP_BAD_STORED), {QString::number(bad)}), Mb::Ok | Mb::IconExclamation);
    refreshState();
}

bool CServicePropertiesDlg::exchange(bool save)
{
    if (!save) {
        fillEndpoints();
        m_startModeCombo->setCurrentIndex(int(m_startModeRead));
        m_workersSpin->setValue(int(qMin(m_workersRead, kMaxWorkers)));
        m_timeoutSpin->setValue(int(qMin(m_timeoutRead, kMaxTimeout)));
        m_logFileCheck->setChecked(m_logFileRead != 0);
        return true;
    }
    const quint32 startMode = quint32(m_startModeCombo->currentIndex());
    int clashing = -1;
    if (const QString clash = clashWithOtherServices(m_endpoints, &clashing); !clash.isEmpty()) {
        taviMessageBox(clash, Mb::Ok | Mb::IconExclamation);
        m_endpointList->setCurrentItem(m_endpointList->topLevelItem(clashing));
        m_endpointList->setFocus();
        return false;
    }
    const char* section = m_service.constData();
    // Each is written only when changed; a failure is reported and keeps the dialog open.
    bool ok = writeChangedString(server(), section, "ListenAddresses", formatListenList(m_endpoints), m_listenRead);
    ok = writeChangedNumber(server(), section, "StartMode", startMode, m_startModeRead) && ok;
    ok = writeChangedNumber(server(), section, "MaxWorkers", quint32(m_workersSpin->value()), m_workersRead) && ok;
    ok = writeChangedNumber(server(), section, "Timeout", quint32(m_timeoutSpin->value()), m_timeoutRead) && ok;
    ok = writeChangedNumber(server(), section, "LogToFile", m_logFileCheck->isChecked() ? 1 : 0, m_logFileRead) && ok;
    return ok;
}

void CServicePropertiesDlg::fillEndpoints()
{
    m_endpointList->clear();
    for (const ListenEndpoint& e : std::as_const(m_endpoints)) {
        auto* item = new QTreeWidgetItem(m_endpointList,
                                         {e.address.isEmpty() ? tr("(every address)") : e.address, QString::number(e.port)});
        item->setTextAlignment(1, Qt::AlignRight | Qt::AlignVCenter);
    }
    onSelectionChanged();
}

bool CServicePropertiesDlg::readEndpointInput(ListenEndpoint& endpoint)
{
    const QString typed = m_addressEdit->text().trimmed();
    bool ok = false;
    const QString address = normaliseAddress(typed, &ok);
    if (!ok) {
        taviMessageBox(TaviFormat(TaviString(IDS_SVCPROP_BAD_ADDRESS), {typed}), Mb::Ok | Mb::IconExclamation);
        m_addressEdit->setFocus();
        m_addressEdit->selectAll();
        return false;
    }
    endpoint = {address, quint16(m_portSpin->value())};
    return true;
}

void CServicePropertiesDlg::onAdd()
{
    ListenEndpoint endpoint;
    if (!readEndpointInput(endpoint))
        return;
    for (const ListenEndpoint& e : std::as_const(m_endpoints)) {
        if (listenEndpointsClash(e, endpoint)) {
            taviMessageBox(TaviFormat(TaviString(IDS_SVCPROP_DUPLICATE), {formatListenEndpoint(e)}), Mb::Ok | Mb::IconExclamation);
            m_portSpin->setFocus();
            return;
        }
    }
    int index = -1;
    if (const QString clash = clashWithOtherServices({endpoint}, &index); !clash.isEmpty()) {
        taviMessageBox(clash, Mb::Ok | Mb::IconExclamation);
        m_portSpin->setFocus();
        return;
    }
    m_endpoints.append(endpoint);
    fillEndpoints();
    m_endpointList->setCurrentItem(m_endpointList->topLevelItem(int(m_endpoints.size()) - 1));
    m_addressEdit->clear();
}

void CServicePropertiesDlg::onRemove()
{
    QList<int> rows;
    for (QTreeWidgetItem* item : m_endpointList->selectedItems())
        rows.append(m_endpointList->indexOfTopLevelItem(item));
    std::sort(rows.begin(), rows.end(), std::greater<int>());
    for (int row : rows)
        m_endpoints.removeAt(row);
    fillEndpoints();
}

void CServicePropertiesDlg::onSelectionChanged()
{
    m_removeButton->setEnabled(!m_endpointList->selectedItems().isEmpty());
}

QString CServicePropertiesDlg::clashWithOtherServices(const QList<ListenEndpoint>& ours, int* index) const
{
    uint32_t size = 0;
    GetMailServiceList(server(), nullptr, &size);
    QByteArray names(qsizetype(size) + 2, '\0');
    size = uint32_t(names.size());
    if (!GetMailServiceList(server(), names.data(), &size))
        return QString();
    for (const QByteArray& other : names.split('\0')) {
        if (other.isEmpty())
            break;
        if (other.compare(m_service, Qt::CaseInsensitive) == 0)
            continue;
        QString text, display;
        ReadServerString(server(), other.constData(), "ListenAddresses", text, kCommandBufferSize);
        const QList<ListenEndpoint> theirs = parseListenList(text);
        for (int i = 0; i < ours.size(); ++i) {
            for (const ListenEndpoint& t : theirs) {
                if (!listenEndpointsClash(ours[i], t))
                    continue;
                ReadServerString(server(), other.constData(), "DisplayName", display, kCommandBufferSize);
                *index = i;
                return TaviFormat(TaviString(IDS_SVCPROP_PORT_IN_USE),
                                  {QString::number(ours[i].port), display.isEmpty() ? QString::fromUtf8(other) : display,
                                   QString::fromUtf8(other), formatListenEndpoint(t)});
            }
        }
    }
    return QString();
}

QString CServicePropertiesDlg::displayName() const
{
    QString display;
    ReadServerString(server(), m_service.constData(), "DisplayName", display, kCommandBufferSize);
    return display.isEmpty() ? QString::fromUtf8(m_service) : display;
}

void CServicePropertiesDlg::refreshState()
{
    uint32_t state = 0;
    const int known = GetMailServiceStatus(server(), m_service.constData(), &state) ? int(state) : -1;
    m_stateText->setText(serviceStateWord(known));
}

void CServicePropertiesDlg::onServiceControl()
{
    const QByteArray caption = (displayName() + tr(" service")).toUtf8();
    CServiceDlg dialog(this, server(), m_service.constData(), caption.constData());
    dialog.exec();
    refreshState();
}
