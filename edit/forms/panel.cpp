#include "edit/forms/panel.h"

#include "edit/forms/field_pair.h"
#include "edit/forms/flow_layout.h"
#include "platform/qt/guard.h"
#include "platform/qt/key_line_edit.h"
#include "platform/qt/qt_text.h"

#include <QApplication>
#include <QEvent>
#include <QLabel>
#include <QScrollBar>

#include <algorithm>

namespace {

/// Half-width characters that a box shows.
int boxBytes(PanelField field) {
    switch (field) {
    case PanelField::txtREC:
        return 9;
    case PanelField::RichTextBox1:
        return 20;
    case PanelField::RichTextBox2:
        return 40;
    default:
        return 4;
    }
}

/// Half-width characters that a label has room for before anything moves.
int labelBytes(PanelField field) {
    return field == PanelField::Label11 ? 14 : 20;
}

} // namespace

Panel::Panel(const FormContext& context, QWidget* parent)
    : QScrollArea(parent), context_(context), content_(new QWidget), lblSpeek(nullptr),
      focusWatch_([this](QWidget*, QWidget* now) { keepInView(now); }) {
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setWidgetResizable(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    auto* flow = new FlowLayout;
    content_->setLayout(flow);
    addPair(addMouseLabel(PanelLabel::Label2, "Label2", u"記録番号"), PanelField::txtREC);
    addPair(addMouseLabel(PanelLabel::Label3, "Label3", u"項目番号"), PanelField::txtItemnum);
    addPair(addLabel("lblName", u"項目名"), PanelField::RichTextBox1);
    addPair(addMouseLabel(PanelLabel::lblWIDTH, "lblWIDTH", u"項目幅"), PanelField::txtWIDTH);
    addPair(addLabel("lblLR", u"配置"), PanelField::txtLR);
    addPair(addLabel("lblCount", u"項目数"), PanelField::Text1);
    addPair(addMouseLabel(PanelLabel::Label4, "Label4", u"ＩＤ :"), PanelField::Label13);
    addPair(addMouseLabel(PanelLabel::Label6, "Label6", u"記入項目:"), PanelField::Label11);
    content_->layout()->addWidget(labels_[PanelField::Label8] = addLabel("Label8", {}));
    addPair(addMouseLabel(PanelLabel::lblJITEM, "lblJITEM", u"表メモ"), PanelField::RichTextBox2);
    lblSpeek = addLabel("lblSpeek", u"Speek!");
    content_->layout()->addWidget(lblSpeek);
    addPair(addLabel("lblInput", u"データ入力"), PanelField::txtinputbox);
    // Its width follows the item. On a line of its own it never moves what stands round it, nor the view.
    flow->breakBefore(boxes_[PanelField::txtinputbox]->parentWidget());
    for (const PanelField readOnly : {PanelField::Text1, PanelField::RichTextBox1}) {
        boxes_[readOnly]->setReadOnly(true);
    }
    setWidget(content_);
    content_->installEventFilter(this);
    for (std::size_t i = 1; i < boxOrder().size(); ++i) {
        QWidget::setTabOrder(box(boxOrder()[i - 1]), box(boxOrder()[i]));
    }
    fitBoxes();
}

const std::vector<PanelField>& Panel::boxOrder() {
    static const std::vector<PanelField> order = {
        PanelField::txtinputbox, PanelField::txtREC, PanelField::txtItemnum,   PanelField::txtWIDTH,
        PanelField::txtLR,       PanelField::Text1,  PanelField::RichTextBox1, PanelField::RichTextBox2};
    return order;
}

KeyLineEdit* Panel::box(PanelField field) const {
    const auto found = boxes_.find(field);
    return found == boxes_.end() ? nullptr : found->second;
}

void Panel::addPair(QLabel* label, PanelField field) {
    QWidget* named = nullptr;
    if (field == PanelField::Label11 || field == PanelField::Label13) {
        named = labels_[field] = addLabel(field == PanelField::Label11 ? "Label11" : "Label13", {});
    } else {
        named = addBox(field);
        label->setBuddy(named);
    }
    content_->layout()->addWidget(new FieldPair(label, named, content_));
}

KeyLineEdit* Panel::addBox(PanelField field) {
    auto* box = new KeyLineEdit(context_, content_);
    box->setFrame(false);
    return boxes_[field] = box;
}

QLabel* Panel::addLabel(const char* name, TextView text) {
    auto* label = new QLabel(toQt(text), content_);
    label->setObjectName(QLatin1StringView(name));
    label->setTextFormat(Qt::PlainText);
    return label;
}

QLabel* Panel::addMouseLabel(PanelLabel kind, const char* name, TextView text) {
    QLabel* label = addLabel(name, text);
    mouseLabels_[label] = kind;
    label->installEventFilter(this);
    return label;
}

void Panel::showText(PanelField field, TextView text) {
    if (KeyLineEdit* shown = box(field)) {
        shown->setProgramText(text);
    } else if (const auto label = labels_.find(field); label != labels_.end()) {
        label->second->setText(toQt(text));
    }
}

void Panel::colourLabel(PanelField field, LabelGround ground) {
    const auto label = labels_.find(field);
    if (label == labels_.end()) {
        return;
    }
    QPalette palette;
    if (ground != LabelGround::plain) {
        const QColor colour = ground == LabelGround::green ? QColor(0x00, 0xFF, 0x00) : QColor(0xFF, 0xFF, 0x00);
        palette.setColor(QPalette::Window, colour);
        palette.setColor(QPalette::WindowText, QColor(0x00, 0x00, 0x00));
    }
    label->second->setPalette(palette);
    label->second->setAutoFillBackground(ground != LabelGround::plain);
}

void Panel::setInputBoxWidth(int bytes) {
    inputBytes_ = bytes;
    fitBoxes();
}

void Panel::showSpeek(bool visible) {
    lblSpeek->setVisible(visible);
}

void Panel::fitBoxes() {
    constexpr int gaps = 8; // of the line
    bool changed = false;
    const auto setWidth = [&changed](QWidget& widget, int least, int most) {
        changed = changed || widget.minimumWidth() != least || widget.maximumWidth() != most;
        widget.setMinimumWidth(least);
        widget.setMaximumWidth(most);
    };
    for (const auto& [field, shown] : boxes_) {
        const QFontMetrics metrics(shown->font());
        const int unit = metrics.horizontalAdvance(QLatin1Char('0'));
        const int bytes = std::max(2, field == PanelField::txtinputbox ? inputBytes_ + 1 : boxBytes(field));
        const int extra = static_cast<const FieldPair*>(shown->parentWidget())->extraWidth();
        const int room = std::max(unit * 2, viewport()->width() - extra - gaps);
        const int width = std::min(bytes * unit + 12, room);
        setWidth(*shown, width, width);
    }
    // A text that is longer or shorter than the last one must not move everything behind it.
    const int unit = content_->fontMetrics().horizontalAdvance(QLatin1Char('0'));
    for (const auto& [field, label] : labels_) {
        setWidth(*label, std::min(labelBytes(field) * unit, viewport()->width() / 2), QWIDGETSIZE_MAX);
    }
    // A change asks the toolkit to lay everything out, and that comes back here: it must not go round for ever.
    if (changed) {
        content_->layout()->invalidate();
    }
    // The line of a mark that has come or gone takes or gives room without any box being another.
    const int height = sizeHint().height();
    if (changed || height != askedHeight_) {
        askedHeight_ = height;
        updateGeometry();
    }
}

QSize Panel::sizeHint() const {
    return QSize(width(), content_->layout()->heightForWidth(viewport()->width()));
}

QSize Panel::minimumSizeHint() const {
    // Never more than half the window, or the view would be pushed out; the rest scrolls.
    const int half = window()->height() / 2;
    return QSize(200, std::min(sizeHint().height(), half));
}

void Panel::resizeEvent(QResizeEvent* event) {
    QScrollArea::resizeEvent(event);
    settleSoon();
}

// The boxes get their letters and places from the toolkit one after the other; only then is there something to measure.
void Panel::settleSoon() {
    QMetaObject::invokeMethod(
        this,
        [this] {
            fitBoxes();
            keepInView(QApplication::focusWidget());
        },
        Qt::QueuedConnection);
}

void Panel::changeEvent(QEvent* event) {
    QScrollArea::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::ApplicationFontChange) {
        settleSoon();
    }
}

void Panel::keepInView(const QWidget* control) {
    if (control != nullptr && content_->isAncestorOf(control)) {
        content_->layout()->activate();
        const QPoint corner = control->mapTo(content_, QPoint());
        ensureVisible(corner.x() + control->width() / 2, corner.y() + control->height() / 2, control->width() / 2 + 4,
                      control->height() / 2 + 4);
    }
}

bool Panel::eventFilter(QObject* watched, QEvent* event) {
    if (watched == content_ && event->type() == QEvent::LayoutRequest) {
        settleSoon();
    }
    const auto label = mouseLabels_.find(watched);
    if (label == mouseLabels_.end()) {
        return QScrollArea::eventFilter(watched, event);
    }
    const bool needsDouble = label->second == PanelLabel::Label3;
    const auto wanted = needsDouble ? QEvent::MouseButtonDblClick : QEvent::MouseButtonPress;
    if (event->type() == wanted && labelRule_) {
        context_.guard.run([&] { labelRule_(label->second); });
        return true;
    }
    return false;
}
