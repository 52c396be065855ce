// The log flags sheet: which kinds of events the services write to their logs, one page per area with a
// check box per flag. It edits a 32-bit mask handed in by pointer and writes no property itself.
#pragma once

#include "common/PropertySheet.h"

#include <QList>

#include <cstdint>

class QCheckBox;

// One flag as the sheet shows it.
struct TAVI_EXPORT LogFlagInfo {
    uint32_t bit;
    const char* objectName; // of its check box
    const char* text;       // check box text (translated through "TaviStrings")
};

// One area: a page title and its flags.
struct TAVI_EXPORT LogFlagArea {
    const char* title;
    const char* objectName; // of its page
    QList<LogFlagInfo> flags;
};

// Every area with its flags, in page order.
TAVI_EXPORT const QList<LogFlagArea>& logFlagAreas();

class TAVI_EXPORT CLogFlagsPage : public CTaviPropertyPage {
    Q_OBJECT
public:
    CLogFlagsPage(const LogFlagArea& area, uint32_t* working, uint32_t allowed);

protected:
    bool exchange(bool save) override;

private:
    void setAll(bool on);

    uint32_t* m_working;
    uint32_t m_allowed;
    QList<QPair<QCheckBox*, uint32_t>> m_boxes;
};

class TAVI_EXPORT CLogFlagsPropertySheet : public CTaviPropertySheet {
    Q_OBJECT
public:
    // caption: the sheet's caption as it stands; flags: the caller's mask (written on OK only);
    // allowed: the bits the administrator may change.
    CLogFlagsPropertySheet(QWidget* parent, _tMailServer* server, const QString& caption, uint32_t* flags,
                           uint32_t allowed);
    ~CLogFlagsPropertySheet() override;

    // The mask as edited so far.
    uint32_t workingFlags() const { return m_working; }

public Q_SLOTS:
    void accept() override;

private:
    uint32_t* m_flags;
    uint32_t m_allowed;
    uint32_t m_working;
};
