// A four-field IPv4 address control: one small edit per octet between fixed full stops, inside one
// frame. Typing "." (or a space) moves to the next field, and so does a third digit; Backspace in an
// empty field and the arrow keys at a field's edge cross to the neighbouring field; Tab leaves the
// control. Pasting "a.b.c.d" into any field fills all four. Values are host-order numbers
// (192.168.0.1 is 0xC0A80001).
#pragma once

#include "entry/TaviGlobal.h"

#include <QWidget>

#include <array>

class QKeyEvent;
class QLineEdit;

class TAVI_EXPORT CIp4AddressEdit : public QWidget {
    Q_OBJECT
public:
    explicit CIp4AddressEdit(QWidget* parent = nullptr);
    ~CIp4AddressEdit() override;

    // Whether every field holds a number (the only state in which address() means anything).
    bool isComplete() const;
    // Whether no field holds anything.
    bool isBlank() const;
    // Number of fields that hold a number.
    int filledFieldCount() const;
    // The address; empty fields count as 0.
    quint32 address() const;
    void setAddress(quint32 address);
    // Fills the fields from "a.b.c.d"; false (and nothing changed) when the text is not an address.
    bool setAddressText(const QString& text);
    // "a.b.c.d" with empty fields left empty ("10..0.").
    QString text() const;
    void clear();

    // The edit of one octet, 0 being the leftmost (named fld0 ... fld3).
    QLineEdit* field(int index) const { return m_fields[std::size_t(index)]; }

Q_SIGNALS:
    void addressChanged();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    int indexOf(QObject* field) const;
    void focusField(int index, bool atStart);
    bool handleKey(int index, QKeyEvent* key);
    void onTextEdited(int index);

    std::array<QLineEdit*, 4> m_fields{};
    // The field the third digit just moved to: a "." typed next belongs to that move and is swallowed.
    int m_autoAdvancedTo = -1;
};
