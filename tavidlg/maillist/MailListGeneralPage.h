// The mailing list's general page: non-delivery handling, moderation, who may post, the list agents,
// the maximum message size and the list's behaviour flags. Keeps the values as read and writes only
// those that changed.
#pragma once

#include "common/PropertySheet.h"

class CMailListSheet;
class QCheckBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QRadioButton;

class TAVI_EXPORT CMailListGeneralPage : public CTaviPropertyPage {
    Q_OBJECT
public:
    explicit CMailListGeneralPage(CMailListSheet* sheet);

    // The maximum message size as typed: trimmed, a decimal integer that the first non-digit ends.
    static qint64 parseSize(const QString& text);
    // Removes the first character an address may not hold (commas too unless allowComma); true when one
    // was removed.
    static bool filterAddress(QString& text, bool allowComma);

protected:
    void initPage() override;
    bool exchange(bool save) override;
    bool onKillActive() override;
    bool apply() override;

private:
    enum Flag { LocalLanguageJournal, LogRequestCommands, NoMultipleCommands, ModeratorControlJoin,
                ModeratorControlLeave, NotifyOnNewMember, NotifyOnMemberLeave, Disable, ConfirmToSender,
                SecureSubmission, ModeratorControlContent, FlagCount };

    void buildControls();
    void applyVisibility();
    void updateForce();
    void updateNotify();
    void updateSecureSubmission();
    void filterEdit(QLineEdit* edit, bool allowComma);
    bool uncReminderAccepted(QLineEdit* edit, unsigned messageId, const char* key);
    quint32 whoCanSendFromControls() const;
    QCheckBox* flagBox(int flag) const { return m_flagBoxes[flag]; }

    CMailListSheet* m_sheet;
    bool m_loading = false;
    bool m_digest = false;
    bool m_hasDigest = false;
    quint32 m_version = 0;

    // Cached values, as read.
    quint32 m_joinAllowed = 0;
    quint32 m_leaveAllowed = 0;
    bool m_contentModeration = false;
    quint32 m_replyMode = 0;
    QString m_moderators;
    QString m_bouncesTo;
    quint32 m_bounceAction = 0;
    quint32 m_whoCanSend = 0;
    QString m_commandLine;
    QString m_requestCommandLine;
    quint32 m_maxMessageSize = 0;
    quint32 m_flags[FlagCount] = {};

    QCheckBox* m_replyToList = nullptr;
    QCheckBox* m_force = nullptr;
    QLineEdit* m_moderatorEdit = nullptr;
    QRadioButton* m_returnToSender = nullptr;
    QRadioButton* m_sendTo = nullptr;
    QLineEdit* m_sendToEdit = nullptr;
    QLabel* m_whoLabel = nullptr;
    QRadioButton* m_anyone = nullptr;
    QRadioButton* m_members = nullptr;
    QRadioButton* m_membersDigesters = nullptr;
    QRadioButton* m_moderatorsOnly = nullptr;
    QLabel* m_controlLabel = nullptr;
    QLabel* m_notifyLabel = nullptr;
    QGroupBox* m_agents = nullptr;
    QLineEdit* m_agentEdit = nullptr;
    QLineEdit* m_processorEdit = nullptr;
    QLabel* m_sizeLabel = nullptr;
    QLineEdit* m_sizeEdit = nullptr;
    QCheckBox* m_flagBoxes[FlagCount] = {};
};
