#include "platform/screen_link.h"

void ScreenLink::setTitle(const Text& title) {
    if (screen_) {
        screen_->setTitle(title);
    }
}

void ScreenLink::showField(PanelField field, const Text& text) {
    if (screen_) {
        screen_->showField(field, text);
    }
}

void ScreenLink::colourLabel(PanelField field, LabelGround ground) {
    if (screen_) {
        screen_->colourLabel(field, ground);
    }
}

void ScreenLink::focusField(PanelField field) {
    if (screen_) {
        screen_->focusField(field);
    }
}

void ScreenLink::setInputBoxWidth(int bytes) {
    if (screen_) {
        screen_->setInputBoxWidth(bytes);
    }
}

void ScreenLink::showCurrentCell() {
    if (screen_) {
        screen_->showCurrentCell();
    }
}

void ScreenLink::redrawView() {
    if (screen_) {
        screen_->redrawView();
    }
}

void ScreenLink::redrawCurrentRow() {
    if (screen_) {
        screen_->redrawCurrentRow();
    }
}

void ScreenLink::showEcho(const Text& text) {
    if (screen_) {
        screen_->showEcho(text);
    }
}

void ScreenLink::showCellInEcho() {
    if (screen_) {
        screen_->showCellInEcho();
    }
}

void ScreenLink::paintMask(MaskKind kind, const CellRange& range) {
    if (screen_) {
        screen_->paintMask(kind, range);
    }
}

void ScreenLink::hideMask() {
    if (screen_) {
        screen_->hideMask();
    }
}

void ScreenLink::showReadingMode(int speechMode) {
    if (screen_) {
        screen_->showReadingMode(speechMode);
    }
}

void ScreenLink::showSpeek(bool visible) {
    if (screen_) {
        screen_->showSpeek(visible);
    }
}

void ScreenLink::showPinnedAutoRead(bool on) {
    if (screen_) {
        screen_->showPinnedAutoRead(on);
    }
}
