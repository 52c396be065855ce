// The anti-DoS wizard: the SMTP receiver's connection limits, its idle-connection timeout and a per-host
// throughput limit, in five pages.
#pragma once

#include "wizards/WizardPages.h"

class QLineEdit;
class QSlider;

class TAVI_EXPORT CAntiDoSWizard : public CWizard {
    Q_OBJECT
public:
    enum Page { Start, Connections, Timeout, Throughput, End, PageCount };

    CAntiDoSWizard(QWidget* parent, const QPixmap& watermark, const QPixmap& header);
    ~CAntiDoSWizard() override;
};

// A number as the connection pages read it: leading blanks and a sign allowed, then the leading decimal
// digits; empty or non-numeric text gives 0. A minus sign negates modulo 2^32, as the C library does.
TAVI_EXPORT quint32 parseLenientNumber(const QString& text);

// The throughput slider: positions 0 to 26 are the rates below (kbytes/sec, single precision), 27 is
// "Unlimited".
inline constexpr int kThroughputUnlimited = 27;
TAVI_EXPORT float throughputRate(int position);
// The position of a stored MaxThroughput: 27 for 0, else the first step not below value / 1000, or 27
// when none is that large.
TAVI_EXPORT int throughputPosition(quint32 maxThroughput);
// The MaxThroughput a position stores: the single-precision rate times 1000, truncated (0.7 gives 699).
TAVI_EXPORT quint32 throughputValue(int position);

class TAVI_EXPORT CAntiDoSWizard_1 : public CWizardPage {
    Q_OBJECT
public:
    explicit CAntiDoSWizard_1(CWizard* wizard);
};

// A page of numbers of the SMTP receiver in edit boxes: empty for 0, read leniently.
class TAVI_EXPORT CWizardNumbersPage : public CWizardPage {
    Q_OBJECT
public:
    CWizardNumbersPage(unsigned templateId, CWizard* wizard, const QString& subtitle);

protected:
    void addNumber(const char* property, const QString& label, const char* editName);
    void addNote(const QString& note);

    void LoadSettings() override;
    void RememberInitialValues() override;
    void UpdateControls() override;
    bool ReadControls() override;
    void SaveSettings() override;
    void RestoreInitialValues() override;

private:
    struct Field {
        const char* property;
        QLineEdit* edit;
        quint32 value = 0, first = 0;
    };
    QList<Field> m_fields;
    QVBoxLayout* m_layout = nullptr;
};

class TAVI_EXPORT CAntiDoSWizard_2 : public CWizardNumbersPage {
    Q_OBJECT
public:
    explicit CAntiDoSWizard_2(CWizard* wizard);
};

class TAVI_EXPORT CAntiDoSWizard_3 : public CWizardNumbersPage {
    Q_OBJECT
public:
    explicit CAntiDoSWizard_3(CWizard* wizard);
};

class TAVI_EXPORT CAntiDoSWizard_4 : public CWizardPage {
    Q_OBJECT
public:
    explicit CAntiDoSWizard_4(CWizard* wizard);

protected:
    void LoadSettings() override;
    void RememberInitialValues() override;
    void UpdateControls() override;
    bool ReadControls() override;
    void SaveSettings() override;
    void RestoreInitialValues() override;

private:
    void showRate();

    QSlider* m_slider = nullptr;
    QLineEdit* m_rate = nullptr;
    QRadioButton* m_yes = nullptr;
    QRadioButton* m_no = nullptr;
    quint32 m_throughput = 0, m_noForFriends = 0;
    quint32 m_firstThroughput = 0, m_firstNoForFriends = 0;
};

class TAVI_EXPORT CAntiDoSWizard_5 : public CWizardPage {
    Q_OBJECT
public:
    explicit CAntiDoSWizard_5(CWizard* wizard);
};
