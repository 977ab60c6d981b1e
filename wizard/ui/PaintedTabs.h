// Tabs as they will be printed, painted by the report's painter, with the field at work marked: what stands at the left
// of the wizard's pages.
#pragma once

#include "report/ui/PainterCanvas.h"
#include "wizard/TabSample.h"
#include "workspace/GridEditor.h"

#include <QWidget>

#include <vector>

namespace velmora {

struct PaintedTab {
    QString caption; ///< may be empty
    TabTexts texts;
    bool operator==(const PaintedTab&) const = default;
};

class PaintedTabs : public QWidget {
public:
    PaintedTabs();

    /// Field 0, 1 or 2 is at work; -1: none. The sample must outlive the widget, or the next call.
    void Show(TabSample& sample, std::vector<PaintedTab> tabs, int field);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int Width() const;
    double Scale() const;
    int TabHeight() const;
    int CaptionHeight(const PaintedTab& tab) const;
    void PaintTab(QPainter& painter, const PaintedTab& tab);
    void PaintField(QPainter& painter, PainterCanvas& canvas, const PlacedText& field, const std::string& text) const;
    QString Spoken() const;

    TabSample* sample_ = nullptr;
    std::vector<PaintedTab> tabs_;
    int field_ = -1;
    PainterFonts fonts_;
};

} // namespace velmora
