// Every window comes back where it was left; the dialogs share one class for it.
#pragma once

#include "settings/mdlSettings.h"

#include <QDialog>

namespace velmora {

/// Puts the window, which is not shown yet, where it was closed last, or in the middle of the screen with the size that
/// it has; never outside the screen or larger than it. One that filled the screen does so again. The `beside`-th of
/// several windows stands so many title bars down and to the right, as far as the screen has room.
void RestorePlace(QWidget& window, SettingsStore& settings, const char* key, int beside = 0);
void SavePlace(const QWidget& window, SettingsStore& settings, const char* key);

/// Where a window with this frame hides nothing of `spot`: where it is, else beside it, as near as there is room on the
/// screen; where it is when there is none.
QPoint PlaceBeside(const QRect& frame, const QRect& spot, const QRect& screen);

/// A dialog that keeps its place, under its position key in section "Form Position", as of its first showing.
class PlacedDialog : public QDialog {
public:
    void setVisible(bool visible) override;

protected:
    /// `key` must outlive the dialog.
    PlacedDialog(SettingsStore& settings, const char* key, QWidget* parent);

    /// Is about to be shown.
    virtual void Place();
    void hideEvent(QHideEvent* event) override;

private:
    SettingsStore& settings_;
    const char* key_;
};

} // namespace velmora
