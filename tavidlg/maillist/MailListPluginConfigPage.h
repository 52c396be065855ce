// The configuration page of the list's plug-in, shown when the plug-in names one: the membership rules
// of a list without a roster (which mailboxes or addresses receive its mail), as names and values.
#pragma once

#include "common/PropertySheet.h"

#include <velbrook/ListStore.h>

class CMailListSheet;
class QTableWidget;

class TAVI_EXPORT CMailListPluginConfigPage : public CTaviPropertyPage {
    Q_OBJECT
public:
    explicit CMailListPluginConfigPage(CMailListSheet* sheet);
    ~CMailListPluginConfigPage() override;

protected:
    void initPage() override;
    bool exchange(bool save) override;
    bool apply() override;

private:
    CMailListSheet* m_sheet;
    QTableWidget* m_rules = nullptr;
    _tMembershipConfig* m_config = nullptr;
    QStringList m_loadedNames;
    bool m_loading = false;
};
