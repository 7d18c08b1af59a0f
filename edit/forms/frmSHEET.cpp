#include "edit/forms/frmSHEET.h"

#include "edit/font_sizes.h"
#include "edit/forms/sheet_mouse.h"
#include "platform/beeper.h"
#include "platform/qt/guard.h"
#include "platform/qt/qt_text.h"

#include <QGridLayout>
#include <QLabel>
#include <QScrollBar>
#include <QVBoxLayout>

#include <algorithm>

namespace {

FormVoice sheetVoice() {
    return {.description = [] { return Text(u"ﾃﾞｰﾀ入力ボックスの下にあるｽﾌﾟﾚｯﾄﾞｼｰﾄにﾌｫｰｶｽがあります。"); },
            .captionFirst = false};
}

} // namespace

frmSHEET::frmSHEET(const FormContext& context, const ViewActions& actions, QWidget* parent)
    : View(QStringLiteral("frmSHEET"), u"ワークシート", sheetVoice(), context, actions, parent),
      size_(startSize(*this)), corner_(new QWidget(this)), scrollBar_(new QScrollBar(Qt::Horizontal, this)) {
    const ZORMOD& zormod = context.zormod;
    Picture1 = new SheetLines(QStringLiteral("Picture1"), zormod, place_, this);
    Picture2 = new EchoCell(QStringLiteral("Picture2"), zormod, place_, Picture1);
    Picture3 = new RecordNumbers(QStringLiteral("Picture3"), zormod, place_, this);
    Picture4 = new ItemHeader(QStringLiteral("Picture4"), zormod, place_, this);
    LblMUSK = new CellMask(QStringLiteral("LblMUSK"), zormod, place_, Picture1);
    LblPMUSK = new CellMask(QStringLiteral("LblPMUSK"), zormod, place_, Picture1);
    addFocusable(*Picture1, Picture1->objectName(), u"ワークシート");
    Picture2->setAccessibleName(toQt(u"現在のセル"));
    Picture3->setAccessibleName(toQt(u"記録番号"));
    Picture4->setAccessibleName(toQt(u"項目名"));
    addButton(QStringLiteral("Command1"), u"拡大", [this] { changeSize(largerFontSize(size_)); });
    addButton(QStringLiteral("Command2"), u"縮小", [this] { changeSize(smallerFontSize(size_)); });
    addButton(QStringLiteral("Command3"), u"カード", [this] { actions_.switchView(1); });
    addLabel(QStringLiteral("Label1"))->setText(toQt(u"ｾﾙ指定=左ｸﾘｯｸ　右ﾄﾞﾗｯｸﾞ=ｼｰﾄ移動"));

    auto* pictures = new QGridLayout;
    pictures->setSpacing(0);
    pictures->addWidget(corner_, 0, 0);
    pictures->addWidget(Picture4, 0, 1);
    pictures->addWidget(Picture3, 1, 0);
    pictures->addWidget(Picture1, 1, 1);
    pictures->addWidget(scrollBar_, 2, 1);
    pictures->setColumnStretch(1, 1);
    pictures->setRowStretch(1, 1);
    body_->addLayout(pictures, 1);

    new SheetMouse(*Picture1, {.pick = [this](QPoint point) { context_.guard.run([&] { pickAt(point); }); },
                               .corner = [this] { return QPoint(place_.left, place_.top); },
                               .moveTo = [this](QPoint corner) { scrollTo(corner.x(), corner.y()); }});
    scrollBar_->setFocusPolicy(Qt::NoFocus);
    connect(scrollBar_, &QScrollBar::valueChanged, this, [this](int left) { scrollTo(left, place_.top); });
    useSize(size_);
}

void frmSHEET::redraw() {
    layPictures();
    keepCellInView();
    moveOverlays();
    Picture1->update();
    Picture2->update();
    Picture3->update();
    Picture4->update();
}

void frmSHEET::redrawCurrentRow() {
    Picture1->updateRow(currentRow(context_.zormod));
    Picture2->update();
}

void frmSHEET::showEcho(const Text& typed) {
    Picture2->setTyped(typed);
}

void frmSHEET::showCellInEcho() {
    Picture2->setTyped(std::nullopt);
}

void frmSHEET::hideMask() {
    LblMUSK->uncover();
    LblPMUSK->uncover();
}

void frmSHEET::paintMask(MaskKind kind, const CellRange& range) {
    CellMask* mask = kind == MaskKind::target ? LblPMUSK : LblMUSK;
    mask->cover(range, maskColour(kind));
    Picture2->raise();
}

void frmSHEET::changeSize(std::optional<int> size) {
    if (!size) {
        context_.zormod.platform.beeper.beep();
        return;
    }
    useSize(*size);
    actions_.cancelRange();
    tellRows();
    redraw();
}

void frmSHEET::followLetters() {
    changeSize(startSize(*this));
}

void frmSHEET::useSize(int size) {
    size_ = size;
    place_.font = sheetFont(fontPixels(size));
    for (QWidget* picture :
         std::initializer_list<QWidget*>{Picture1, Picture2, Picture3, Picture4, LblMUSK, LblPMUSK}) {
        picture->setFont(place_.font.font);
    }
    Picture4->setFixedHeight(place_.font.rowHeight);
    layPictures();
}

void frmSHEET::tellRows() {
    actions_.rowsChanged(rowsThatFit(Picture1->height(), place_.font.rowHeight));
}

void frmSHEET::layPictures() {
    const ZORMOD& zormod = context_.zormod;
    Picture3->setFixedWidth(Picture3->neededWidth());
    corner_->setFixedWidth(Picture3->neededWidth());
    const int sheetWidth = sheetColumns(zormod) * place_.font.unit + EchoCell::frame;
    scrollBar_->setPageStep(Picture1->width());
    scrollBar_->setSingleStep(place_.font.unit * 4);
    scrollBar_->setRange(0, std::max(0, sheetWidth - Picture1->width()));
    scrollBar_->setVisible(scrollBar_->maximum() > 0);
}

void frmSHEET::keepCellInView() {
    const ZORMOD& zormod = context_.zormod;
    const int row = std::max(1, currentRow(zormod));
    const int item = zormod.position.curItem;
    const QRect cell = place_.cells(zormod, row, row, item, item).translated(place_.left, place_.top);
    // The beginning of a cell that is wider than the view comes first.
    int left = std::max(place_.left, cell.right() + 1 + EchoCell::frame - Picture1->width());
    left = std::min(left, std::max(0, cell.left() - EchoCell::frame));
    int top = std::max(place_.top, cell.bottom() + 1 - Picture1->height());
    top = std::min(top, cell.top());
    scrollTo(left, top);
}

void frmSHEET::scrollTo(int left, int top) {
    const int spare = shownRows(context_.zormod) * place_.font.rowHeight - Picture1->height();
    left = std::clamp(left, 0, scrollBar_->maximum());
    top = std::clamp(top, 0, std::max(0, spare));
    if (left == place_.left && top == place_.top) {
        return;
    }
    place_.left = left;
    place_.top = top;
    scrollBar_->setValue(left);
    moveOverlays();
    Picture1->update();
    Picture3->update();
    Picture4->update();
}

void frmSHEET::moveOverlays() {
    LblMUSK->place();
    LblPMUSK->place();
    Picture2->place();
}

void frmSHEET::resizeEvent(QResizeEvent* event) {
    View::resizeEvent(event);
    // The pictures get their new sizes from the layout; only then is there something to measure.
    QMetaObject::invokeMethod(
        this, [this] { context_.guard.run([this] { tellRows(), redraw(); }); }, Qt::QueuedConnection);
}

void frmSHEET::pickAt(QPoint point) {
    const ZORMOD& zormod = context_.zormod;
    const int row = rowAtHeight(zormod, point.y() + place_.top, place_.font.rowHeight);
    if (row != 0) {
        actions_.pick(recordOfRow(zormod, row), itemAtColumn(zormod, (point.x() + place_.left) / place_.font.unit));
    }
}
