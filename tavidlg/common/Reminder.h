// The reminder box: a warning the administrator can silence for good with "&Don't show this dialog
// again". The choice is remembered per key (a name ending in "Reminder") in the per-user settings, as a
// number: 0 or no value shows the reminder, anything else silences it. An empty key remembers nothing.
#pragma once

#include "entry/TaviGlobal.h"

#include <QDialog>
#include <QString>

class QCheckBox;
class QLabel;
class QPushButton;

class TAVI_EXPORT CReminder : public QDialog {
    Q_OBJECT
public:
    // flags are message-box styles: the low four bits 0 show OK only (else OK and Cancel), the bits
    // 0xF0 choose the icon. A captionId of 0 keeps the caption "Reminder".
    CReminder(QWidget* parent, unsigned messageId, const QString& rememberKey, unsigned captionId,
              unsigned flags);
    // Remembers the silencing choice when OK was pressed with the box checked.
    ~CReminder() override;

    // Runs the reminder: 1 at once, without a window, when it was silenced earlier; else the button
    // pressed (1 OK, 2 Cancel or closed).
    int run();
    bool isToBeShown() const { return m_show; }

    // Prepares the window the first time it is shown (also when shown other than by run()).
    void setVisible(bool visible) override;

public Q_SLOTS:
    void accept() override;

private:
    void initDialog();

    QLabel* m_icon = nullptr;
    QPushButton* m_cancelButton = nullptr;
    QPushButton* m_okButton = nullptr;
    QCheckBox* m_dontShowCheck = nullptr;
    bool m_dontShow = false;
    QString m_message;
    bool m_settingsOpen = false;
    bool m_show = true;
    QString m_rememberKey;
    unsigned m_flags = 0;
    unsigned m_captionId = 0;
    QLabel* m_messageLabel = nullptr;
    bool m_initialised = false;
};
