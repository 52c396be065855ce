// Service properties: where one mail service listens, how it starts, how many workers it may run, when
// an idle connection is dropped, whether it writes its own log file, and its state.
#pragma once

#include "common/TaviDialog.h"

#include <QByteArray>
#include <QList>
#include <QString>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QSpinBox;
class QTreeWidget;

// One listening endpoint. address: an IPv4 or IPv6 literal, or empty for every address of the host.
struct TAVI_EXPORT ListenEndpoint {
    QString address;
    quint16 port = 0;
    bool operator==(const ListenEndpoint&) const = default;
};

// "192.0.2.1:25", "[2001:db8::1]:25", "*:25".
TAVI_EXPORT QString formatListenEndpoint(const ListenEndpoint& endpoint);
// Parses one entry as formatListenEndpoint writes it ("0.0.0.0" and "::" also mean every address; a
// bare port means every address). False for anything else (the port must be 1 to 65535).
TAVI_EXPORT bool parseListenEndpoint(const QString& text, ListenEndpoint& endpoint);
// Entries separated by commas and white space; entries that do not parse are counted in *bad.
TAVI_EXPORT QList<ListenEndpoint> parseListenList(const QString& text, int* bad = nullptr);
TAVI_EXPORT QString formatListenList(const QList<ListenEndpoint>& endpoints);
// Two endpoints cannot both be bound: the same port on the same address, or either on every address.
TAVI_EXPORT bool listenEndpointsClash(const ListenEndpoint& a, const ListenEndpoint& b);

class TAVI_EXPORT CServicePropertiesDlg : public CTaviDialog {
    Q_OBJECT
public:
    // service: the store's name of the service (its section); null is taken as empty.
    CServicePropertiesDlg(QWidget* parent, _tMailServer* server, const char* service);
    ~CServicePropertiesDlg() override;

    // Reads the service's state again and shows it.
    void refreshState();

protected:
    void initDialog() override;
    bool exchange(bool save) override;

private:
    void onAdd();
    void onRemove();
    void onSelectionChanged();
    void onServiceControl();
    void fillEndpoints();
    // Reads the input fields into an endpoint; on failure says why, focuses the field and returns false.
    bool readEndpointInput(ListenEndpoint& endpoint);
    // The first endpoint of another service that clashes with one of ours, as a message; empty if none.
    QString clashWithOtherServices(const QList<ListenEndpoint>& ours, int* index) const;
    QString displayName() const;

    QByteArray m_service;
    QTreeWidget* m_endpointList = nullptr;
    QLineEdit* m_addressEdit = nullptr;
    QSpinBox* m_portSpin = nullptr;
    QPushButton* m_addButton = nullptr;
    QPushButton* m_removeButton = nullptr;
    QComboBox* m_startModeCombo = nullptr;
    QSpinBox* m_workersSpin = nullptr;
    QSpinBox* m_timeoutSpin = nullptr;
    QCheckBox* m_logFileCheck = nullptr;
    QLabel* m_stateText = nullptr;
    QPushButton* m_controlButton = nullptr;

    QList<ListenEndpoint> m_endpoints;
    QString m_listenRead;
    quint32 m_startModeRead = 0, m_workersRead = 0, m_timeoutRead = 900, m_logFileRead = 1;
};
