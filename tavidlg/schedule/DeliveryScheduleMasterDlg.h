// Delivery schedule management: which domains use the elapsed-time retry schedule (all others use the
// time-of-day schedule), and an immediate retry of delivery to chosen domains.
#pragma once

#include "common/TaviDialog.h"

#include <QString>
#include <QStringList>

class QLineEdit;
class QPushButton;

class TAVI_EXPORT CDeliveryScheduleMasterDlg : public CTaviDialog {
    Q_OBJECT
public:
    CDeliveryScheduleMasterDlg(QWidget* parent, _tMailServer* server);
    ~CDeliveryScheduleMasterDlg() override;

    // The names of a reattempt list: split at blanks and commas, empty pieces dropped.
    static QStringList splitNames(const QString& text);

protected:
    void initDialog() override;
    void onOK() override;

private:
    void reattempt();

    QLineEdit* m_maskEdit = nullptr;
    QLineEdit* m_retryEdit = nullptr;
    QPushButton* m_retryButton = nullptr;
    // The mask text as shown at opening ("*" when it could not be read).
    QString m_shownMask;
};
