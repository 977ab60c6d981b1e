// The margin calibration, step by step: a sheet to print, two rulers to read, the two margins, arrows around a drawing
// of the sheet, and the tabs that follow.
#pragma once

#include "print/PrintModule.h"
#include "report/Sheet.h"
#include "setup/Calibration.h"
#include "widgets/AnswerLabel.h"
#include "widgets/FormPlace.h"

#include <functional>
#include <optional>
#include <string>

class QBoxLayout;
class QLabel;
class QLayout;
class QLineEdit;
class QPushButton;
class QToolButton;

namespace velmora {

/// The whole sheet as it is read, in its true proportions in the middle of the widget, with all tabs where margins put
/// them: one scale from twips for all of it. The paper's edge cuts what lies outside.
class SheetPicture : public QWidget {
public:
    /// `sheet`: the tabs as they are printed without margins.
    SheetPicture(Sheet sheet, QWidget* parent);

    /// Moves all tabs as far as the samples stand from their places without margins.
    void Place(const std::array<SamplePosition, 4>& samples);
    QSize sizeHint() const override;

protected:
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QRect Pixels(const Box& box) const;
    /// The tab that a sample stands for.
    const Box& SampleTab(std::size_t sample) const;
    Box Moved(const Box& tab) const;
    void PlaceFrames();
    void PaintPaper();

    Sheet sheet_;
    QSizeF size_; ///< of the sheet, in twips
    std::size_t columns_;
    std::array<SamplePosition, 4> samples_ = Calibration::kUnshifted;
    QWidget* paper_;                     ///< holds the frames and cuts them
    std::array<QLabel*, 4> frames_ = {}; ///< famPreview1 to famPreview4: the first two tabs of the first two rows
};

class frmFix3 : public PlacedDialog {
    Q_OBJECT

public:
    frmFix3(PrintModule& print, QWidget* parent);

private:
    void BuildUi();
    QLayout* BuildDrawing();
    QWidget* BuildSteps();
    void AddDefaults(QBoxLayout& column);
    static QLabel* AddText(QBoxLayout& column, const QString& text, int width);
    QLayout* BuildEntries();
    QPushButton* AddButton(QBoxLayout& row, const char* name, const QString& caption,
                           const std::function<void()>& work);
    QPushButton* AddSheet(QBoxLayout& column, const char* name, const QString& caption,
                          const std::function<std::optional<std::string>()>& print);
    AnswerLabel* AddAnswer(QBoxLayout& column, const char* name, int lines);
    QToolButton* ArrowButton(const char* name, const QString& word, Qt::ArrowType look, MarginArrow arrow);
    void ShowMargins();
    void ShowMove();
    void Ok();

    PrintModule& print_;
    Calibration calibration_;
    SheetPicture* picture_ = nullptr;
    QLineEdit* txtMarLeft_ = nullptr;
    QLineEdit* txtMarTop_ = nullptr;
    QPushButton* cmdCheckSheet_ = nullptr;
    AnswerLabel* lblMove_ = nullptr;
    AnswerLabel* lblDefaults_ = nullptr;
    Description printed_;
};

} // namespace velmora
