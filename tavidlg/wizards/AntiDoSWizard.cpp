#include "wizards/AntiDoSWizard.h"

#include "res/StringTable.h"
#include "res/WizardStringIds.h"

#include <QButtonGroup>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QSlider>
#include <QVBoxLayout>

#include <array>

namespace {

const char kSmtpReceiver[] = "SMTPRA";

// kbytes/sec; one kbyte is 1000 bytes. Single precision on purpose: the stored values follow from it.
constexpr std::array<float, 27> kRates = {0.5f, 0.6f, 0.7f, 0.8f, 0.9f, 1.0f, 1.2f, 1.5f, 2.0f, 2.5f,
                                          3.0f, 3.5f, 4.0f, 5.0f, 6.0f, 7.0f, 8.0f, 9.0f, 10.0f, 12.0f,
                                          15.0f, 20.0f, 25.0f, 30.0f, 35.0f, 40.0f, 50.0f};

} // namespace

quint32 parseLenientNumber(const QString& text)
{
    qsizetype i = 0;
    while (i < text.size() && text.at(i).isSpace())
        ++i;
    bool negative = false;
    if (i < text.size() && (text.at(i) == QLatin1Char('-') || text.at(i) == QLatin1Char('+')))
        negative = text.at(i++) == QLatin1Char('-');
    quint64 value = 0;
    for (; i < text.size() && text.at(i) >= QLatin1Char('0') && text.at(i) <= QLatin1Char('9'); ++i)
        value = qMin<quint64>(value * 10 + quint64(text.at(i).unicode() - '0'), 0xFFFFFFFFu);
    return negative ? quint32(0u - quint32(value)) : quint32(value);
}

float throughputRate(int position)
{
    return position >= 0 && position < int(kRates.size()) ? kRates[std::size_t(position)] : 0.0f;
}

int throughputPosition(quint32 maxThroughput)
{
    if (maxThroughput == 0)
        return kThroughputUnlimited;
    const float rate = float(double(maxThroughput) / 1000.0);
    for (int i = 0; i < int(kRates.size()); ++i) {
        if (kRates[std::size_t(i)] >= rate)
            return i;
    }
    return kThroughputUnlimited;
}

quint32 throughputValue(int position)
{
    if (position < 0 || position >= int(kRates.size()))
        return 0;
    // The float widened before the multiplication: 0.7f is a little below 0.7, so 699.
    return quint32(double(kRates[std::size_t(position)]) * 1000.0);
}

CAntiDoSWizard::CAntiDoSWizard(QWidget* parent, const QPixmap& watermark, const QPixmap& header)
    : CWizard(tr("AntiDoS Wizard"), parent, 0, header, watermark)
{
    setObjectName(QStringLiteral("CAntiDoSWizard"));
    setPageTitle(TaviString(IDS_WIZ_PAGE_TITLE));
    setHeaderTitle(TaviString(IDS_WIZ_DOS_HEADER_TITLE));
    addWizardPage(new CAntiDoSWizard_1(this));
    addWizardPage(new CAntiDoSWizard_2(this));
    addWizardPage(new CAntiDoSWizard_3(this));
    addWizardPage(new CAntiDoSWizard_4(this));
    addWizardPage(new CAntiDoSWizard_5(this));
}

CAntiDoSWizard::~CAntiDoSWizard() = default;

// ---- 1 Start --------------------------------------------------------------------------------------

CAntiDoSWizard_1::CAntiDoSWizard_1(CWizard* wizard) : CWizardPage(10138, wizard, tr("Start"))
{
    setObjectName(QStringLiteral("CAntiDoSWizard_1"));
    setWindowTitle(tr("Initial qualification"));
    buildWizardExterior(this, tr("Welcome to the Anti Denial of Service Wizard"),
                        tr("A flood of connections or of data from one host can keep the SMTP receiver from "
                           "serving everybody else. This wizard limits the number of connections, drops idle "
                           "connections after a timeout and limits the throughput accepted from one host.\n\n"
                           "Nothing is changed until you click Finish on the last page.\n\n"
                           "To continue, click Next."));
}

// ---- numbers pages --------------------------------------------------------------------------------

CWizardNumbersPage::CWizardNumbersPage(unsigned templateId, CWizard* wizard, const QString& subtitle)
    : CWizardPage(templateId, wizard, subtitle)
{
    m_layout = new QVBoxLayout(this);
}

void CWizardNumbersPage::addNumber(const char* property, const QString& label, const char* editName)
{
    auto* edit = new QLineEdit(this);
    edit->setObjectName(QLatin1String(editName));
    edit->setMaxLength(20);
    edit->setMaximumWidth(fontMetrics().averageCharWidth() * 14);
    QLabel* text = makeWizardText(label, "lblNumber", this);
    text->setBuddy(edit);
    m_layout->addWidget(text);
    m_layout->addWidget(edit);
    m_layout->addSpacing(8);
    m_fields.append({property, edit});
}

void CWizardNumbersPage::addNote(const QString& note)
{
    m_layout->addWidget(makeWizardText(note, "lblNote", this));
    m_layout->addStretch(1);
}

void CWizardNumbersPage::LoadSettings()
{
    for (Field& field : m_fields)
        sheet()->GetDword(field.property, kSmtpReceiver, field.value);
}

void CWizardNumbersPage::RememberInitialValues()
{
    for (Field& field : m_fields)
        field.first = field.value;
}

void CWizardNumbersPage::UpdateControls()
{
    // 0 (no limit) is shown as an empty box.
    for (const Field& field : std::as_const(m_fields))
        field.edit->setText(field.value ? QString::number(field.value) : QString());
}

bool CWizardNumbersPage::ReadControls()
{
    // Nothing is refused: what is not a number means no limit.
    for (Field& field : m_fields)
        field.value = parseLenientNumber(field.edit->text());
    return true;
}

void CWizardNumbersPage::SaveSettings()
{
    for (const Field& field : std::as_const(m_fields))
        sheet()->SetDword(field.property, kSmtpReceiver, field.value);
}

void CWizardNumbersPage::RestoreInitialValues()
{
    for (const Field& field : std::as_const(m_fields))
        sheet()->SetDword(field.property, kSmtpReceiver, field.first);
}

// ---- 2 Maximum connections ------------------------------------------------------------------------

CAntiDoSWizard_2::CAntiDoSWizard_2(CWizard* wizard) : CWizardNumbersPage(10139, wizard, tr("Maximum connections"))
{
    setObjectName(QStringLiteral("CAntiDoSWizard_2"));
    setWindowTitle(tr("Maximum connections"));
    addNumber("MaxTotalConnections",
              tr("Enter the maximum number of connections allowed to SMTPRA from &all IP addresses"),
              "edtMaxTotalConnections");
    addNumber("MaxClientConnections",
              tr("Enter the maximum number of connections allowed to SMTPRA from any &one IP address"),
              "edtMaxClientConnections");
    addNote(tr("Note: for either value, zero or empty implies no limit."));
}

// ---- 3 Connection timeout -------------------------------------------------------------------------

CAntiDoSWizard_3::CAntiDoSWizard_3(CWizard* wizard) : CWizardNumbersPage(10141, wizard, tr("Connection timeout"))
{
    setObjectName(QStringLiteral("CAntiDoSWizard_3"));
    setWindowTitle(tr("Connection timeout"));
    addNumber("Timeout",
              tr("Enter the &timeout period (in seconds) after which idle connections will be disconnected."),
              "edtTimeout");
    addNote(tr("Note: A value of zero or empty  causes timeouts to be disabled. The default timeout value is 900 "
               "seconds, ie 15 minutes"));
}

// ---- 4 Maximum throughput -------------------------------------------------------------------------

CAntiDoSWizard_4::CAntiDoSWizard_4(CWizard* wizard) : CWizardPage(10140, wizard, tr("Maximum throughput"))
{
    setObjectName(QStringLiteral("CAntiDoSWizard_4"));
    setWindowTitle(tr("Maximum throughput"));
    m_slider = new QSlider(Qt::Horizontal, this);
    m_slider->setObjectName(QStringLiteral("sldMaxThroughput"));
    m_slider->setRange(0, kThroughputUnlimited);
    m_slider->setPageStep(3);
    m_slider->setTickPosition(QSlider::TicksBelow);
    m_slider->setAccessibleName(tr("Maximum throughput"));
    m_rate = new QLineEdit(this);
    m_rate->setObjectName(QStringLiteral("edtThroughput"));
    m_rate->setReadOnly(true);
    m_rate->setMaximumWidth(fontMetrics().horizontalAdvance(QStringLiteral("Unlimited")) + 24);
    QLabel* label = makeWizardText(tr("Maximum &throughput accepted from one host:"), "lblThroughput", this);
    label->setBuddy(m_slider);

    auto* grid = new QGridLayout;
    grid->addWidget(makeWizardText(tr("0.5"), "lblSlowest", this), 0, 0);
    grid->addWidget(m_slider, 0, 1);
    grid->addWidget(makeWizardText(tr("Unlimited"), "lblUnlimited", this), 0, 2);
    grid->setColumnStretch(1, 1);
    auto* rateRow = new QHBoxLayout;
    rateRow->addWidget(m_rate);
    QLabel* unit = makeWizardText(tr("kbytes/sec"), "lblUnit", this);
    unit->setWordWrap(false);
    rateRow->addWidget(unit);
    rateRow->addStretch(1);

    m_yes = new QRadioButton(tr("&Yes, apply this restriction to friendly hosts."), this);
    m_yes->setObjectName(QStringLiteral("radFriendsLimited"));
    m_no = new QRadioButton(tr("&No, allow friendly hosts unlimited throughput"), this);
    m_no->setObjectName(QStringLiteral("radFriendsUnlimited"));
    auto* group = new QButtonGroup(this);
    group->addButton(m_yes);
    group->addButton(m_no);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(label);
    layout->addLayout(grid);
    layout->addLayout(rateRow);
    layout->addSpacing(12);
    layout->addWidget(makeWizardText(tr("Do you wish to apply this throughput restriction to Friendly hosts ?"),
                                     "lblQuestion", this));
    layout->addWidget(m_yes);
    layout->addWidget(m_no);
    layout->addStretch(1);
    // The rate follows the thumb while it is dragged, and every other move once it is made.
    connect(m_slider, &QSlider::valueChanged, this, &CAntiDoSWizard_4::showRate);
}

void CAntiDoSWizard_4::showRate()
{
    const int position = m_slider->value();
    const bool unlimited = position >= kThroughputUnlimited;
    m_rate->setText(unlimited ? tr("Unlimited") : QString::asprintf("%.2f", double(throughputRate(position))));
    m_yes->setEnabled(!unlimited);
    m_no->setEnabled(!unlimited);
}

void CAntiDoSWizard_4::LoadSettings()
{
    sheet()->GetDword("MaxThroughput", kSmtpReceiver, m_throughput);
    sheet()->GetDword("NoMaxThroughputForFriends", kSmtpReceiver, m_noForFriends);
}

void CAntiDoSWizard_4::RememberInitialValues()
{
    m_firstThroughput = m_throughput;
    m_firstNoForFriends = m_noForFriends;
}

void CAntiDoSWizard_4::UpdateControls()
{
    {
        const QSignalBlocker block(m_slider);
        m_slider->setValue(throughputPosition(m_throughput));
    }
    (m_noForFriends == 0 ? m_yes : m_no)->setChecked(true);
    showRate();
}

bool CAntiDoSWizard_4::ReadControls()
{
    // The throughput is snapped to the slider's steps (a stored 1100 becomes 1200).
    m_throughput = throughputValue(m_slider->value());
    m_noForFriends = m_no->isChecked() ? 1 : 0;
    return true;
}

void CAntiDoSWizard_4::SaveSettings()
{
    sheet()->SetDword("MaxThroughput", kSmtpReceiver, m_throughput);
    sheet()->SetDword("NoMaxThroughputForFriends", kSmtpReceiver, m_noForFriends);
}

void CAntiDoSWizard_4::RestoreInitialValues()
{
    sheet()->SetDword("MaxThroughput", kSmtpReceiver, m_firstThroughput);
    sheet()->SetDword("NoMaxThroughputForFriends", kSmtpReceiver, m_firstNoForFriends);
}

// ---- 5 Finish -------------------------------------------------------------------------------------

CAntiDoSWizard_5::CAntiDoSWizard_5(CWizard* wizard) : CWizardPage(10142, wizard, tr("Finish"))
{
    setObjectName(QStringLiteral("CAntiDoSWizard_5"));
    setWindowTitle(tr("Finish"));
    buildWizardExterior(this, tr("Exit the Anti \"Denial of Service\" Wizard"),
                        tr("You have completed configuring Velbrook’s Anti \"Denial of Service\" features.  Click "
                           "Finish to start using the new configuation."));
}
