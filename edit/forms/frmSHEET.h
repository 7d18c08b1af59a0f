#pragma once
// The standard view: the records of the window below each other, their numbers, the names of the items, and the echo of
// the current cell, in a font that can be made as large as a person with low vision needs it. A left click picks a
// cell, a right drag moves the sheet. Form1 owns it.

#include "edit/forms/sheet_pictures.h"
#include "edit/forms/view.h"

class QScrollBar;

/// The standard view.
class frmSHEET : public View {
    Q_OBJECT
public:
    frmSHEET(const FormContext& context, const ViewActions& actions, QWidget* parent);

    void redraw() override;
    void redrawCurrentRow() override;
    void showEcho(const Text& typed) override;
    void showCellInEcho() override;
    void hideMask() override;
    void paintMask(MaskKind kind, const CellRange& range) override;
    /// Size of the font, one of the fixed ones.
    int fontSize() const { return size_; }
    /// Height of a row in pixels.
    int rowHeight() const { return place_.font.rowHeight; }

protected:
    void resizeEvent(QResizeEvent* event) override;
    void followLetters() override;

private:
    void changeSize(std::optional<int> size);
    void useSize(int size);
    void tellRows();
    void layPictures();
    void keepCellInView();
    void scrollTo(int left, int top);
    void moveOverlays();
    void pickAt(QPoint point);

    SheetPlace place_;
    int size_;
    SheetLines* Picture1;
    EchoCell* Picture2;
    RecordNumbers* Picture3;
    ItemHeader* Picture4;
    CellMask* LblMUSK;
    CellMask* LblPMUSK;
    QWidget* corner_;
    QScrollBar* scrollBar_;
};
