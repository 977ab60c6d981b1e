// A closed list is searched by typing: a blank within a name belongs to it, and opens the list only on its own.
#pragma once

#include <QElapsedTimer>
#include <QObject>

namespace velmora {

/// Watches every list of the program.
class ListSearch : public QObject {
    Q_OBJECT

public:
    ListSearch();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QElapsedTimer sinceLetter_; ///< invalid: the last key was none
};

} // namespace velmora
