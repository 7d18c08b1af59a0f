#pragma once
// Stands in for the edit screen while the program is being put together: the shared state needs a Screen when it is
// made, and Form1, which is the screen, needs the shared state. main makes the link first and connects Form1 to it.

#include "platform/screen.h"

/// Hands every call on to the screen that is connected; without one the calls do nothing.
class ScreenLink : public Screen {
public:
    /// Connects `screen`; null takes it away, as Form1 does when it is destroyed.
    void connectTo(Screen* screen) { screen_ = screen; }

    void setTitle(const Text& title) override;
    void showField(PanelField field, const Text& text) override;
    void colourLabel(PanelField field, LabelGround ground) override;
    void focusField(PanelField field) override;
    void setInputBoxWidth(int bytes) override;
    void showCurrentCell() override;
    void redrawView() override;
    void redrawCurrentRow() override;
    void showEcho(const Text& text) override;
    void showCellInEcho() override;
    void paintMask(MaskKind kind, const CellRange& range) override;
    void hideMask() override;
    void showReadingMode(int speechMode) override;
    void showSpeek(bool visible) override;
    void showPinnedAutoRead(bool on) override;

private:
    Screen* screen_ = nullptr;
};
