// The server panel's list of configuration warnings, each with a button that opens the dialog that
// fixes it.
#pragma once

#include "HealthRules.h"

#include <QGroupBox>

#include <functional>

class QVBoxLayout;

class HealthPanel : public QGroupBox {
    Q_OBJECT
public:
    explicit HealthPanel(QWidget* parent = nullptr);

    // Whether the loaded library exports an entry point; a fix whose dialog is missing is disabled.
    void setAvailability(std::function<bool(const QString& entry)> available) { m_available = std::move(available); }
    // Checks the server again and shows what is wrong (nothing when server is null).
    void refresh(_tMailServer* server);
    const QList<HealthWarning>& warnings() const { return m_warnings; }

signals:
    void fixRequested(const QString& entry);

private:
    void addRow(const HealthWarning& warning);

    QVBoxLayout* m_rows = nullptr;
    QList<HealthWarning> m_warnings;
    std::function<bool(const QString&)> m_available;
};
