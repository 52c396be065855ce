// The domain sheet's first page: where the domain's mailboxes and lists live, the address it is bound
// to, counts and quotas, real-time size tracking and calendaring. Loaded once per sheet; Apply writes
// only what differs from what was last read or written.
#pragma once

#include "common/BrowseForDir.h"
#include "common/PropertySheet.h"

class CDomainSheet;
class QButtonGroup;
class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;

class TAVI_EXPORT CDomainGeneralPage : public CTaviPropertyPage {
    Q_OBJECT
public:
    explicit CDomainGeneralPage(CDomainSheet* sheet);
    ~CDomainGeneralPage() override;

protected:
    void initPage() override;
    bool exchange(bool save) override;
    bool apply() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct QuotaField {
        const char* property;
        QComboBox* combo = nullptr;
        quint32 value = 0xFFFFFFFFu;
        unsigned failureId = 0;
        bool defaultAfterApply = true; // whether "default" is shown after Apply rewrites the field
    };
    enum { DomainLimit, DomainTrigger, DefaultLimit, DefaultTrigger, QuotaFieldCount };

    void buildControls();
    void buildQuotaGroup();
    void load();
    void countObjects();
    void fillAddressList();
    void showStatus();
    void hideAll(std::initializer_list<QWidget*> widgets);
    void markModified();
    void onMultiLevelClicked(bool checked);
    void browse(QLineEdit* edit, QLabel* label);
    void noteCountBelow(QLineEdit* edit);
    // Steps 1 and 12 of Apply: a root directory; false when a network drive refused it.
    bool applyDirectory(QLineEdit* edit, const char* property, QString& member);
    bool applyCount(QLineEdit* edit, const char* property, quint32& member, unsigned failureId);
    void applyQuota(QuotaField& field);
    bool confirmUncPath(QLineEdit* edit, unsigned messageId, const char* rememberKey);

    CDomainSheet* m_sheet = nullptr;
    CBrowseForDir m_browse;

    QLabel* m_mailboxRootLabel = nullptr;
    QLineEdit* m_mailboxRootEdit = nullptr;
    QPushButton* m_mailboxBrowse = nullptr;
    QCheckBox* m_multiLevelCheck = nullptr;
    QLabel* m_ipLabel = nullptr;
    QComboBox* m_ipCombo = nullptr;
    QCheckBox* m_copyFailuresCheck = nullptr;
    QLabel* m_statusLabel = nullptr;
    QGroupBox* m_quotaGroup = nullptr;
    QLabel* m_quotaNote = nullptr;
    QCheckBox* m_realTimeCheck = nullptr;
    QLabel* m_realTimeNote = nullptr;
    QLabel* m_quotaLabels[QuotaFieldCount] = {};
    QLabel* m_maxMailboxesLabel = nullptr;
    QLineEdit* m_maxMailboxesEdit = nullptr;
    QLabel* m_maxListsLabel = nullptr;
    QLineEdit* m_maxListsEdit = nullptr;
    QGroupBox* m_calendarGroup = nullptr;
    QRadioButton* m_calendarRadios[3] = {};
    QLabel* m_listRootLabel = nullptr;
    QLineEdit* m_listRootEdit = nullptr;
    QPushButton* m_listBrowse = nullptr;

    // Values as last read or written.
    QString m_mailboxRoot;
    QString m_listRoot;
    QString m_ipAddress;
    bool m_copyFailures = false;
    quint32 m_maxMailboxes = 0xFFFFFFFFu;
    quint32 m_maxLists = 0xFFFFFFFFu;
    QuotaField m_quotas[QuotaFieldCount];
    quint32 m_totalSize = 0;
    quint32 m_messageSize = 0;
    quint32 m_messageCount = 0;
    quint32 m_lastVerified = 0;
    bool m_realTime = false;
    bool m_multiLevel = false;
    bool m_perDomainCalendaring = false;
    quint32 m_calendarMode = 0;
    quint32 m_calendarSelection = 0;
    quint32 m_mailboxCount = 0;
    quint32 m_listCount = 0;
    int m_ipIndex = -1;
    int m_noneIndex = -1;
    bool m_loaded = false;
    bool m_criticalChanged = false;
};
