// The anti-spam wizard: blocking anonymous servers, DNS blacklist services, a private blacklist of
// hosts, blocked return addresses, qualified return and recipient addresses and a per-message
// recipient limit, in twelve pages. Everything is written at Finish, and only what changed.
#pragma once

#include "wizards/WizardPages.h"

class QCheckBox;
class QComboBox;
class QLineEdit;
class QRadioButton;

class TAVI_EXPORT CAntiSpamWizard : public CWizard {
    Q_OBJECT
public:
    enum Page { Start, Anonymous, Blacklist, SelectBlacklist, Private, SpecifyPrivate, ErasePrivate,
                ReturnAddresses, BlockReturnAddresses, Recipients, MaxRecipients, End, PageCount };

    CAntiSpamWizard(QWidget* parent, const QPixmap& watermark, const QPixmap& header);
    ~CAntiSpamWizard() override;
};

// The well-known DNS blacklist zones offered on the blacklist services page: hosts known to send spam,
// dial-up and other dynamic address ranges, open relays.
TAVI_EXPORT QStringList wellKnownBlacklistZones();

class TAVI_EXPORT CAntiSpamWizard_1 : public CWizardPage {
    Q_OBJECT
public:
    explicit CAntiSpamWizard_1(CWizard* wizard);
};

class TAVI_EXPORT CAntiSpamWizard_2 : public CWizardChoicePage {
    Q_OBJECT
public:
    explicit CAntiSpamWizard_2(CWizard* wizard);

protected:
    void LoadSettings() override;
    void RememberInitialValues() override;
    void UpdateControls() override;
    bool ReadControls() override;
    void SaveSettings() override;
    void RestoreInitialValues() override;

private:
    quint32 m_accept = 0, m_lookup = 0;
    quint32 m_firstAccept = 0, m_firstLookup = 0;
};

class TAVI_EXPORT CAntiSpamWizard_3 : public CWizardChoicePage {
    Q_OBJECT
public:
    explicit CAntiSpamWizard_3(CWizard* wizard);

protected:
    void LoadSettings() override;
    void RememberInitialValues() override;
    void UpdateControls() override;
    bool ReadControls() override;
    void SaveSettings() override;
    void RestoreInitialValues() override;
    CWizardPage* GetJumpTarget() override;

private:
    void enableFriends();

    QCheckBox* m_friends = nullptr;
    quint32 m_rbl = 0, m_noRblForFriends = 0;
    quint32 m_firstRbl = 0, m_firstNoRblForFriends = 0;
};

class TAVI_EXPORT CAntiSpamWizard_3_1 : public CWizardListPage {
    Q_OBJECT
public:
    explicit CAntiSpamWizard_3_1(CWizard* wizard);

protected:
    void InitPage() override;

private:
    QComboBox* m_known = nullptr;
};

class TAVI_EXPORT CAntiSpamWizard_4 : public CWizardChoicePage {
    Q_OBJECT
public:
    explicit CAntiSpamWizard_4(CWizard* wizard);

protected:
    void InitPage() override;
    void LoadSettings() override;
    CWizardPage* GetJumpTarget() override;

private:
    QString m_text;
};

class TAVI_EXPORT CAntiSpamWizard_4_1 : public CWizardHostListPage {
    Q_OBJECT
public:
    explicit CAntiSpamWizard_4_1(CWizard* wizard);

protected:
    CWizardPage* GetJumpTarget() override;
};

class TAVI_EXPORT CAntiSpamWizard_4_2 : public CWizardChoicePage {
    Q_OBJECT
public:
    explicit CAntiSpamWizard_4_2(CWizard* wizard);

    bool isComplete() const override;

protected:
    void LoadSettings() override;
    void RememberInitialValues() override;
    void UpdateControls() override;
    bool ReadControls() override;
    void SaveSettings() override;
    void RestoreInitialValues() override;

private:
    class CWizardListEditor* m_list = nullptr;
    QString m_text, m_chosen, m_firstText;
};

class TAVI_EXPORT CAntiSpamWizard_5 : public CWizardSwitchPage {
    Q_OBJECT
public:
    explicit CAntiSpamWizard_5(CWizard* wizard);
};

class TAVI_EXPORT CAntiSpamWizard_5_1 : public CWizardListPage {
    Q_OBJECT
public:
    explicit CAntiSpamWizard_5_1(CWizard* wizard);
};

class TAVI_EXPORT CAntiSpamWizard_6 : public CWizardSwitchPage {
    Q_OBJECT
public:
    explicit CAntiSpamWizard_6(CWizard* wizard);
};

class TAVI_EXPORT CAntiSpamWizard_6_1 : public CWizardPage {
    Q_OBJECT
public:
    explicit CAntiSpamWizard_6_1(CWizard* wizard);

protected:
    void LoadSettings() override;
    void UpdateControls() override;
    bool ReadControls() override;
    void SaveSettings() override;

private:
    QLineEdit* m_edit = nullptr;
    quint32 m_max = 0;
};

class TAVI_EXPORT CAntiSpamWizard_7 : public CWizardPage {
    Q_OBJECT
public:
    explicit CAntiSpamWizard_7(CWizard* wizard);
};
