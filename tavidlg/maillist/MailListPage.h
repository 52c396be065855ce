// Base of the mailing list's simpler pages: each control is bound to one list property, read when the
// page is first shown, and written through the sheet only when it changed, in the order of binding.
#pragma once

#include "common/PropertySheet.h"

#include <QStringList>

#include <vector>

class CMailListSheet;
class QCheckBox;
class QComboBox;
class QLineEdit;
class QPlainTextEdit;
class QSpinBox;

class TAVI_EXPORT CMailListPage : public CTaviPropertyPage {
    Q_OBJECT
public:
    CMailListPage(CMailListSheet* sheet, const QString& title);

    CMailListSheet* listSheet() const { return m_sheet; }

protected:
    // Binds a control to a property: a text (trimmed for a line edit, as typed in a text box), a number,
    // a flag, a choice (the item's data is the stored number) or lines written as a multi-string.
    void bindText(QLineEdit* edit, const char* property);
    void bindText(QPlainTextEdit* edit, const char* property);
    void bindNumber(QSpinBox* spin, const char* property);
    void bindFlag(QCheckBox* box, const char* property);
    void bindChoice(QComboBox* combo, const char* property);
    void bindLines(QPlainTextEdit* edit, const char* property);
    // The lines of a text box without blanks around them and without empty ones.
    static QStringList lines(const QPlainTextEdit* edit);
    bool isLoading() const { return m_loading; }

    void initPage() override;
    bool exchange(bool save) override;
    bool apply() override;

private:
    enum class Kind { LineText, BoxText, Number, Flag, Choice, Lines };
    struct Binding {
        Kind kind;
        QWidget* widget;
        const char* property;
        QString text;
        quint32 number = 0;
        QStringList lines;
    };
    void bind(Kind kind, QWidget* widget, const char* property);
    void markModified();

    CMailListSheet* m_sheet;
    std::vector<Binding> m_bindings;
    bool m_loading = false;
};
