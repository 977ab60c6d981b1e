// A key held with Alt is for menus and buttons: where none has it, it types nothing.
#pragma once

#include <QObject>

namespace velmora {

/// Watches every entry of the program.
class AltKeys : public QObject {
    Q_OBJECT

public:
    AltKeys();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace velmora
