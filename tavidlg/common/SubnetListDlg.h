// The editor of a list of IPv4 subnets with comments (trusted networks, relay clients ...): add, modify
// and delete entries, and import or export the whole list as a comma-separated file. It works on a copy
// of the caller's list and hands the copy over only on OK; it reads and writes no properties itself.
#pragma once

#include "common/TaviDialog.h"

#include <velbrook/MailToolkit.h>

class CIp4AddressEdit;
class CSubnetListModel;
class QLabel;
class QLineEdit;
class QPushButton;
class QTreeView;
namespace SubnetCsv {
class Importer;
}

class TAVI_EXPORT CSubnetListDlg : public CTaviDialog {
    Q_OBJECT
public:
    // list: the caller's pointer to the first element of its list (null or pointing to null for an
    // empty list). On OK *list holds the edited list and the former one has been freed; on Cancel the
    // caller's list is untouched. captionId: the caption's string id (0 keeps the default caption).
    CSubnetListDlg(QWidget* parent, _tIp4Subnet** list, unsigned captionId, unsigned helpContext);
    ~CSubnetListDlg() override;

    // The list as edited so far (owned by the dialog until OK).
    const _tIp4Subnet* workingList() const { return m_working; }
    int rowCount() const;

protected:
    void initDialog() override;
    void onOK() override;
    void onCancel() override;

private:
    enum class ReadOutcome { Complete, Cancelled, Failed };

    void buildWidgets();
    void onSelectionChanged();
    void onAdd();
    void onModify();
    void onDelete();
    void onClear();
    void onImport();
    void onExport();
    // Checks both addresses and the comment; on failure shows the subnet message, focuses the control
    // at fault and returns false.
    bool readInputs(quint32& address, quint32& mask, QByteArray& comment);
    // The selected row, or -1.
    int selectedRow() const;
    // Position of the first element with this address and mask in the working copy, or -1.
    int positionOf(quint32 address, quint32 mask) const;
    bool selectedSubnet(int row, uint32_t& address, uint32_t& mask) const;
    ReadOutcome readImportFile(const QString& path, SubnetCsv::Importer& importer);
    bool writeExportFile(const QString& path, const QByteArray& text);
    void releaseWorkingCopy();

    _tIp4Subnet** m_callerList = nullptr;
    _tIp4Subnet* m_working = nullptr;
    unsigned m_captionId = 0;
    unsigned m_subnetHelpContext = 0;
    QTreeView* m_listView = nullptr;
    QPushButton* m_addButton = nullptr;
    QLineEdit* m_commentEdit = nullptr;
    CIp4AddressEdit* m_networkEdit = nullptr;
    CIp4AddressEdit* m_maskEdit = nullptr;
    QPushButton* m_modifyButton = nullptr;
    CSubnetListModel* m_model = nullptr;
};
