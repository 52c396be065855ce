// Database log configuration: whether the server also logs events to a database, which database (the
// configuration store's own, a separate SQLite file or a PostgreSQL database), how long events are kept
// and which kinds are logged. Settings in section "DbLog".
#pragma once

#include "common/TaviDialog.h"

#include <QList>

class QCheckBox;
class QComboBox;
class QGroupBox;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QSpinBox;

// The kinds of events, as the bits of "EventKinds".
namespace DbLogEvents {
enum : quint32 {
    Receipt = 0x01,        // messages received
    Delivery = 0x02,       // messages delivered or bounced
    Rejection = 0x04,      // connections, senders and recipients refused
    Authentication = 0x08, // logins and failed logins
    Security = 0x10,       // lockouts, bans and harvest probation
    Service = 0x20,        // services started and stopped
    Configuration = 0x40,  // configuration changes picked up
    All = 0x7F,
};
}

// Where the events go, as the values of "Target".
namespace DbLogTarget {
enum : quint32 { StoreDatabase = 0, SqliteFile = 1, Postgres = 2 };
}

class TAVI_EXPORT CDbLogConfigDlg : public CTaviDialog {
    Q_OBJECT
public:
    CDbLogConfigDlg(QWidget* parent, _tMailServer* server);
    ~CDbLogConfigDlg() override;

protected:
    void initDialog() override;
    bool exchange(bool save) override;

private:
    void updateControls();
    void onBrowse();
    void onTestConnection();
    quint32 chosenTarget() const;
    // Checks the chosen database (file or connection); false after telling the person why.
    bool checkTarget(quint32 target);

    QCheckBox* m_enabledCheck = nullptr;
    QGroupBox* m_targetGroup = nullptr;
    QRadioButton* m_storeRadio = nullptr;
    QRadioButton* m_sqliteRadio = nullptr;
    QRadioButton* m_postgresRadio = nullptr;
    QLineEdit* m_fileEdit = nullptr;
    QPushButton* m_browseButton = nullptr;
    QLineEdit* m_uriEdit = nullptr;
    QPushButton* m_testButton = nullptr;
    QSpinBox* m_retentionSpin = nullptr;
    QGroupBox* m_eventsGroup = nullptr;
    QList<QPair<QCheckBox*, quint32>> m_eventBoxes;

    quint32 m_enabledRead = 0, m_targetRead = 0, m_retentionRead = 30, m_eventsRead = DbLogEvents::All;
    QString m_fileRead, m_uriRead;
};
