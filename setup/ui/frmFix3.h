// The margin calibration: the two margins, arrows around a picture of the sheet, and four sample tabs that follow.
#pragma once

#include "print/PrintModule.h"
#include "report/Sheet.h"
#include "setup/Calibration.h"
#include "widgets/FormPlace.h"

class QGridLayout;
class QLabel;
class QLayout;
class QLineEdit;
class QToolButton;

namespace velmora {

/// The upper part of a sheet as it is read, over the widget's whole width, with the sample tabs on it: one scale from
/// twips for all of it. The paper's edge cuts what lies outside.
class SheetPicture : public QWidget {
public:
    /// Paper and height of the tabs are those of `sheet`, which need not outlive this.
    SheetPicture(const Sheet& sheet, QWidget* parent);

    void Place(const std::array<SamplePosition, 4>& samples);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    QRect Pixels(const SamplePosition& sample) const;
    void PlaceFrames();

    QSizeF paper_; ///< twips, like the samples
    QSizeF tab_;
    std::array<SamplePosition, 4> samples_ = Calibration::kUnshifted;
    std::array<QLabel*, 4> frames_ = {}; ///< famPreview1 to famPreview4
};

class frmFix3 : public PlacedDialog {
    Q_OBJECT

public:
    /// Raises TypeMismatchError for a stored tab top that is no number.
    frmFix3(PrintModule& print, QWidget* parent);

private:
    void BuildUi(const Sheet& sheet);
    QLayout* BuildEntries();
    QToolButton* ArrowButton(const char* name, const QString& word, Qt::ArrowType look, MarginArrow arrow);
    void ShowMargins();
    void ShowSamples() { picture_->Place(calibration_.Samples()); }
    void Ok();

    PrintModule& print_;
    Calibration calibration_;
    SheetPicture* picture_ = nullptr;
    QLineEdit* txtMarLeft_ = nullptr;
    QLineEdit* txtMarTop_ = nullptr;
};

} // namespace velmora
