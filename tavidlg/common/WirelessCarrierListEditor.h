// The wireless carriers a mailbox's SMS notifications can go through, edited in the list editor.
//
// The carrier table is a UTF-8 text file whose path the server property "MobileCarriers" (no section)
// holds; when the property is empty the editor keeps the table beside an SQLite store (else in the
// per-user data folder) and records the path on saving. The file is what CIdToStringMap::Load reads:
//
//   # Velbrook wireless carriers
//   #next-id<TAB>4
//   1<TAB>Example Wireless
//   #sms<TAB>txt.example.net
//
// one "id<TAB>name" line a carrier, each followed by a comment line with its SMS gateway domain (mail to
// number@gateway becomes a text message). Ids are never reused: "#next-id" keeps the next one to hand
// out, so a mailbox's "MobileCarrierId" never comes to name another carrier. Editing a carrier keeps
// its id.
#pragma once

#include "common/ListEditor.h"
#include "common/ListManager.h"

#include <QList>

struct TAVI_EXPORT CWirelessCarrier {
    quint32 id = 0;
    QString name;
    QString gateway;
};

// Reads a carrier table's text; false (last error 13 and the 1-based line in errorLine) when it is not
// one. nextId receives the next id to hand out.
TAVI_EXPORT bool ParseWirelessCarrierTable(const QByteArray& text, QList<CWirelessCarrier>& carriers,
                                           quint32& nextId, qint64* errorLine = nullptr);
TAVI_EXPORT QByteArray FormatWirelessCarrierTable(const QList<CWirelessCarrier>& carriers, quint32 nextId);
// The short built-in list "Load Default" offers.
TAVI_EXPORT QList<CWirelessCarrier> DefaultWirelessCarriers();
// Checks a carrier's name and gateway domain (normalised to lower case); false with a message id.
TAVI_EXPORT bool CheckWirelessCarrier(CWirelessCarrier& carrier, unsigned* messageId = nullptr);

class TAVI_EXPORT CWirelessCarrierListManager : public CListManager {
public:
    explicit CWirelessCarrierListManager(_tMailServer* server);

    // The table's path: the "MobileCarriers" property, else the default place.
    QString tablePath() const;
    bool loadTable(QList<CWirelessCarrier>& carriers);
    // Changes of the table in memory, written by commit().
    void putCarrier(const CWirelessCarrier& carrier);
    bool dropCarrier(quint32 id);
    void replaceTable(const QList<CWirelessCarrier>& carriers);
    // A new id, never handed out before.
    quint32 takeNextId() { return m_nextId++; }

    bool readListNames(QString& names) override;
    bool loadItems(QStringList& items) override;
    bool addItem(const QString& item) override;
    bool removeItem(const QString& item) override;
    bool storeWhole(const QString& joined) override;
    bool loadDefaultItems(QStringList& items) override;
    bool hasDefaults() const override { return true; }
    bool commit() override;

private:
    _tMailServer* m_server;
    QString m_path;
    bool m_pathStored = false;
    QList<CWirelessCarrier> m_table;
    quint32 m_nextId = 1;
};

class TAVI_EXPORT CWirelessCarrierListEditor : public CListEditor {
    Q_OBJECT
public:
    explicit CWirelessCarrierListEditor(QWidget* parent, _tMailServer* server);
    ~CWirelessCarrierListEditor() override;

    bool loadList() override;
    bool loadDefault() override;
    CListElement* newElement() override;
    CListElement* editElement(const QString& oldText) override;
    bool addEntry(const QString& text) override;

protected:
    bool importFile(const QString& path) override;
    bool exportFile(const QString& path) override;
    std::unique_ptr<CListElement> makeElement(const QString& text, bool added) override;
    bool normalise(QString& text) override;
    bool runEntryDialog(bool edit, QString& text) override;
    bool storeWhole() override;

private:
    CWirelessCarrierListManager* carriers() const;
    // Asks for a carrier's name and gateway; false when cancelled.
    bool runCarrierDialog(bool edit, CWirelessCarrier& carrier);
    bool nameTaken(const QString& name, const QString& exceptText) const;
};

// The Add and Edit dialog of a carrier.
class TAVI_EXPORT CWirelessCarrierDlg : public CTaviDialog {
    Q_OBJECT
public:
    CWirelessCarrierDlg(QWidget* parent, bool edit, const CWirelessCarrier& carrier, unsigned helpContext,
                        std::function<bool(const QString&)> nameTaken);
    CWirelessCarrier value() const { return m_value; }

protected:
    void onOK() override;

private:
    class QLineEdit* m_name = nullptr;
    class QLineEdit* m_gateway = nullptr;
    CWirelessCarrier m_value;
    std::function<bool(const QString&)> m_nameTaken;
};
