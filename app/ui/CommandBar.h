// The toolbar: icons as large as the desktop's text asks for, and words beside those most used where there is room.
#pragma once

#include <QToolBar>

#include <vector>

class QToolButton;

namespace velmora {

class CommandBar : public QToolBar {
    Q_OBJECT

public:
    explicit CommandBar(QWidget* parent);

    /// `worded`: one of the most used.
    void AddCommand(QAction& command, const char* icon, bool worded);
    /// "Open (Ctrl+O)"; after the command's text has changed too.
    static void ShowToolTip(QAction& command);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void FitIcons();
    void ShowWords(bool shown);
    void FitWords();

    std::vector<QToolButton*> worded_;
    int roomForWords_ = 0; ///< pixels; 0: not measured
};

} // namespace velmora
