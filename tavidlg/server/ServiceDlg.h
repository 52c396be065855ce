// Service control: the state of one of the server's mail services, with Start and Stop.
#pragma once

#include "common/TaviDialog.h"

#include <QByteArray>

class QLabel;
class QPushButton;

class TAVI_EXPORT CServiceDlg : public CTaviDialog {
    Q_OBJECT
public:
    // service: the store's name of the service, passed through unchanged; caption: the window caption
    // as it stands. Either may be null (taken as empty).
    CServiceDlg(QWidget* parent, _tMailServer* server, const char* service, const char* caption);
    ~CServiceDlg() override;

    // Reads the service's state again and shows it.
    void refresh();

protected:
    void initDialog() override;

private:
    void onStart();
    void onStop();
    void control(bool start);

    QLabel* m_statusText = nullptr;
    QPushButton* m_stopButton = nullptr;
    QPushButton* m_startButton = nullptr;
    QByteArray m_service;
    QString m_caption;
};

// The word for a service state number (1 to 7); "unknown" for any other.
TAVI_EXPORT QString serviceStateWord(int state);
