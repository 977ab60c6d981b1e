// Go to a page, a tab or a text: what is typed is answered with the places where it may lead.
#pragma once

#include "widgets/FormPlace.h"
#include "workspace/GoToPlace.h"

class QLineEdit;
class QListWidget;
class QPushButton;

namespace velmora {

class AnswerLabel;

class frmGoTo : public PlacedDialog {
    Q_OBJECT

public:
    frmGoTo(MainModule& main, QWidget* parent);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void BuildUi();
    void ListPlaces();
    void Go();

    MainModule& main_;
    std::vector<FoundPlace> places_;
    QLineEdit* txtPlace_;
    QListWidget* lstPlaces_;
    AnswerLabel* lblResult_;
    QPushButton* cmdGo_;
};

} // namespace velmora
