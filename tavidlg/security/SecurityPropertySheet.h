// The security sheet: authentication and login lockout, anti-spam, directory harvest attack protection
// and TLS, each page writing its own settings when OK or Apply Now is pressed.
#pragma once

#include "common/PropertySheet.h"

class TAVI_EXPORT SecurityPropertySheet : public CTaviPropertySheet {
    Q_OBJECT
public:
    SecurityPropertySheet(QWidget* parent, _tMailServer* server);
    ~SecurityPropertySheet() override;
};
