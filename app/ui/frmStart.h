// The start page, which lies in the sheet's place while nobody has typed or opened anything: recent files, the most
// likely first commands, and the stationeries.
#pragma once

#include "workspace/mdlMain.h"

#include <QScrollArea>

#include <filesystem>

class QButtonGroup;
class QToolButton;
class QVBoxLayout;

namespace velmora {

class frmGrid2a4;

class frmStart : public QScrollArea {
    Q_OBJECT

public:
    /// Takes the place of `grid`, and gives it back and goes for good once a box of it is entered. `window` has the
    /// commands that the page's buttons give; both must outlive the page.
    frmStart(MainModule& main, frmGrid2a4& grid, QWidget& window);

signals:
    void FileWanted(const std::filesystem::path& file);
    void Begun(); ///< a stationery or a number of fields was set up

protected:
    bool event(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;

private:
    void BuildUi();
    QWidget* BuildCommands();
    QWidget* BuildStationeries();
    QLayout* BuildFields();
    void ChooseFields(int fields);
    void AddCommand(QVBoxLayout* column, const QString& caption, const char* name, const char* icon,
                    const char* command);
    void AddRecentFiles(QVBoxLayout* column);
    QToolButton* MakeStationery(int type);
    bool HasRoom() const;
    void SizePictures(int lines);
    void FitPictures();
    void ShowPictures();
    void PassOn(QEvent& event);
    void Close();

    MainModule& main_;
    frmGrid2a4& grid_;
    QWidget& window_;
    QButtonGroup* stationeries_ = nullptr;
    QButtonGroup* fields_ = nullptr;
};

} // namespace velmora
