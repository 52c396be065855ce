// The anti-relay wizard: who may relay mail through the SMTP receiver (the authentication policy, the
// local subnets and friendly sites that relay without authenticating), the non-local domains the server
// relays to, and how strictly a relaying user's return address is checked. Seven pages.
#pragma once

#include "wizards/WizardPages.h"

class TAVI_EXPORT CAntiRelayWizard : public CWizard {
    Q_OBJECT
public:
    enum Page { Start, Policy, LocalSubnets, FriendlySites, OtherDomains, ThirdParty, End, PageCount };

    CAntiRelayWizard(QWidget* parent, const QPixmap& watermark, const QPixmap& header);
    ~CAntiRelayWizard() override;
};

// The subnet pattern of a host address: everything after its last "." replaced by "*" (10.1.2.33 gives
// 10.1.2.*); an address without a ".", or ending in one, stays as it is.
TAVI_EXPORT QString subnetPatternOf(const QString& address);

class TAVI_EXPORT CAntiRelayWizard_1 : public CWizardPage {
    Q_OBJECT
public:
    explicit CAntiRelayWizard_1(CWizard* wizard);
};

class TAVI_EXPORT CAntiRelayWizard_2 : public CWizardPage {
    Q_OBJECT
public:
    explicit CAntiRelayWizard_2(CWizard* wizard);

protected:
    void LoadSettings() override;
    void RememberInitialValues() override;
    void UpdateControls() override;
    bool ReadControls() override;
    void SaveSettings() override;
    void RestoreInitialValues() override;
    CWizardPage* GetJumpTarget() override;

private:
    QRadioButton* m_always = nullptr;
    QRadioButton* m_unlessFriendly = nullptr;
    QRadioButton* m_none = nullptr;
    quint32 m_policy = 0, m_firstPolicy = 0;
};

// Shown once for each address of the server's host, stepping through them with Next and Back.
class TAVI_EXPORT CAntiRelayWizard_2_1 : public CWizardChoicePage {
    Q_OBJECT
public:
    explicit CAntiRelayWizard_2_1(CWizard* wizard);

    int step() const { return m_step; }
    QStringList subnets() const { return m_subnets; }

protected:
    void InitPage() override;
    void LoadSettings() override;
    void RememberInitialValues() override;
    void UpdateControls() override;
    bool ReadControls() override;
    void SaveSettings() override;
    void RestoreInitialValues() override;
    CWizardPage* GetJumpTarget() override;

private:
    QLabel* m_question = nullptr;
    QString m_template;
    QStringList m_subnets;
    int m_step = 0;
    QString m_text, m_firstText;
};

class TAVI_EXPORT CAntiRelayWizard_2_2 : public CWizardHostListPage {
    Q_OBJECT
public:
    explicit CAntiRelayWizard_2_2(CWizard* wizard);
};

class TAVI_EXPORT CAntiRelayWizard_3 : public CWizardListPage {
    Q_OBJECT
public:
    explicit CAntiRelayWizard_3(CWizard* wizard);
};

class TAVI_EXPORT CAntiRelayWizard_4 : public CWizardPage {
    Q_OBJECT
public:
    explicit CAntiRelayWizard_4(CWizard* wizard);

protected:
    void LoadSettings() override;
    void RememberInitialValues() override;
    void UpdateControls() override;
    bool ReadControls() override;
    void SaveSettings() override;
    void RestoreInitialValues() override;

private:
    QRadioButton* m_qualified = nullptr;
    QRadioButton* m_mailbox = nullptr;
    QRadioButton* m_any = nullptr;
    quint32 m_noThirdParty = 0, m_noUnqualified = 0;
    quint32 m_firstNoThirdParty = 0, m_firstNoUnqualified = 0;
};

class TAVI_EXPORT CAntiRelayWizard_5 : public CWizardPage {
    Q_OBJECT
public:
    explicit CAntiRelayWizard_5(CWizard* wizard);
};
