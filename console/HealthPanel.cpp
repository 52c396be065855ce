#include "HealthPanel.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>

HealthPanel::HealthPanel(QWidget* parent) : QGroupBox(parent)
{
    setObjectName(QStringLiteral("grpHealth"));
    setTitle(tr("Configuration health"));
    m_rows = new QVBoxLayout(this);
}

void HealthPanel::refresh(_tMailServer* server)
{
    // Rebuilt whole: the list is short and a rule's text changes with what it found. Widgets go later,
    // since the button whose dialog just closed may still be inside its click.
    const auto discard = [](QLayoutItem* item) {
        if (QWidget* w = item->widget()) {
            w->hide();
            w->setObjectName(QString()); // no longer one of the panel's controls
            w->deleteLater();
        }
        delete item;
    };
    while (QLayoutItem* item = m_rows->takeAt(0)) {
        if (QLayout* row = item->layout()) {
            while (QLayoutItem* inner = row->takeAt(0))
                discard(inner);
            delete row;
            continue;
        }
        discard(item);
    }
    m_warnings = checkConfigurationHealth(server);
    setVisible(server != nullptr);
    if (m_warnings.isEmpty()) {
        auto* ok = new QLabel(tr("No configuration problems found."), this);
        ok->setObjectName(QStringLiteral("lblHealthOk"));
        m_rows->addWidget(ok);
        return;
    }
    for (const HealthWarning& w : m_warnings)
        addRow(w);
}

void HealthPanel::addRow(const HealthWarning& warning)
{
    auto* row = new QHBoxLayout;
    auto* icon = new QLabel(this);
    const int size = style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, this);
    icon->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxWarning, nullptr, this).pixmap(size, size));
    icon->setAlignment(Qt::AlignTop);
    auto* text = new QLabel(warning.text, this);
    text->setObjectName(QStringLiteral("lblWarning_") + warning.id);
    text->setWordWrap(true);
    text->setTextInteractionFlags(Qt::TextSelectableByMouse);
    auto* fix = new QPushButton(warning.fixLabel, this);
    fix->setObjectName(QStringLiteral("btnFix_") + warning.id);
    const bool available = !m_available || m_available(warning.fixEntry);
    fix->setEnabled(available);
    fix->setToolTip(available ? warning.fixEntry
                              : tr("The dialog library does not offer %1.").arg(warning.fixEntry));
    const QString entry = warning.fixEntry;
    connect(fix, &QPushButton::clicked, this, [this, entry] { emit fixRequested(entry); });
    row->addWidget(icon);
    row->addWidget(text, 1);
    row->addWidget(fix, 0, Qt::AlignTop);
    m_rows->addLayout(row);
}
