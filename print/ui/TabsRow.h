// The preview's choice of tabs that are printed alone: which, and where they come.
#pragma once

#include "report/LabelPlan.h"

#include <QWidget>

class QComboBox;
class QLineEdit;
class QRadioButton;

namespace velmora {

class TabsRow : public QWidget {
    Q_OBJECT

public:
    explicit TabsRow(QWidget* parent);

    QRadioButton& Option() { return *optTabs_; }
    /// Of the entries beside the option.
    void SetFocusPolicy(Qt::FocusPolicy policy);
    /// Without telling.
    void Show(const std::string& list, TabPlaces places);
    std::string List() const;
    TabPlaces Places() const;

signals:
    /// The person typed another list, or chose other places.
    void Edited();

private:
    QRadioButton* optTabs_;
    QLineEdit* txtTabs_;
    QComboBox* cboPlaces_;
};

} // namespace velmora
