// The domain sheet's forwarding page: non-local mail for the domain forwarded to one relay host, and a
// request to the server to retry delivery to that host at once.
#pragma once

#include "common/PropertySheet.h"

class CDomainSheet;
class QCheckBox;
class QLineEdit;
class QPushButton;

class TAVI_EXPORT CDomainForwardingPage : public CTaviPropertyPage {
    Q_OBJECT
public:
    explicit CDomainForwardingPage(CDomainSheet* sheet);
    ~CDomainForwardingPage() override;

protected:
    void initPage() override;
    bool apply() override;

private:
    void onEnableClicked(bool checked);
    void onRetry();
    void enableHostControls(bool on);

    CDomainSheet* m_sheet = nullptr;
    QCheckBox* m_enableCheck = nullptr;
    QLineEdit* m_hostEdit = nullptr;
    QPushButton* m_retryButton = nullptr;

    bool m_enabled = false;
    QString m_host;
    bool m_originalEnabled = false;
    QString m_originalHost;
};
