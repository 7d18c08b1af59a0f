#pragma once
// A layout that sets its widgets side by side and goes on in a new line where the width ends, as words in a paragraph.
// With letters several times the normal size the panel and the bars of the views grow downwards instead of off the
// screen.

#include <QLayout>
#include <QList>

/// The flowing layout. Every widget gets its preferred size, but never more than the line is wide.
class FlowLayout : public QLayout {
public:
    explicit FlowLayout(QWidget* parent = nullptr);
    ~FlowLayout() override;
    FlowLayout(const FlowLayout&) = delete;
    FlowLayout& operator=(const FlowLayout&) = delete;

    /// Begins a new line with `widget`, whatever room the line before has.
    void breakBefore(const QWidget* widget) { lineStart_ = widget; }

    void addItem(QLayoutItem* item) override;
    int count() const override;
    QLayoutItem* itemAt(int index) const override;
    QLayoutItem* takeAt(int index) override;
    Qt::Orientations expandingDirections() const override { return {}; }
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;
    QSize minimumSize() const override;
    QSize sizeHint() const override;
    void setGeometry(const QRect& rect) override;

private:
    int arrange(const QRect& rect, bool move) const;
    QList<QLayoutItem*> items_;
    const QWidget* lineStart_ = nullptr;
};
