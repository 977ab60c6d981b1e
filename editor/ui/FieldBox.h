// The box of one field of one tab. At rest the sheet behind shows its text, as it will be printed; where a person
// types, the box shows itself.
#pragma once

#include <QLineEdit>

namespace velmora {

class FieldBox : public QLineEdit {
    Q_OBJECT

public:
    /// `slot` from 1, `field` 0 to 2.
    FieldBox(int slot, int field, QWidget* sheet);

    int Slot() const { return slot_; }
    int Field() const { return field_; }

    /// In the font of its field, as large as the sheet shows it.
    void Open(const QFont& font);
    void Close();
    bool IsOpen() const { return open_; }
    /// Of an open box.
    void SetEdge(const QColor& colour);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int slot_;
    int field_;
    bool open_ = false;
    QColor edge_;
};

} // namespace velmora
