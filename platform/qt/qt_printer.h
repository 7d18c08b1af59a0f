#pragma once
// The printer of the desktop: the user chooses one in the desktop's own dialog. Where there is none, the same pages go
// into a PDF file. One unit of the page is a twip on both roads.

#include "platform/printer.h"

#include <QBuffer>
#include <QFont>
#include <QPainter>

#include <functional>
#include <memory>

class QDialog;
class QPagedPaintDevice;
class QPrinter;

/// What the program asks, says and keeps round a printed document.
struct PrintTalk {
    std::function<bool(QDialog& dialog)> runDialog{};   ///< runs the desktop's dialog; false: given up
    std::function<Text()> askPdfPath{};                 ///< empty: given up
    /// Puts the finished file on the disk and says so.
    std::function<void(const Text& path, BytesView bytes)> keepPdf{};
};

/// Prints by the toolkit.
class QtPrinter : public Printer {
public:
    QtPrinter();
    ~QtPrinter() override;
    /// Must be called before the first document. The words can't be had earlier: they need the shared state, which is
    /// made with a Platform that names this very object.
    void setTalk(PrintTalk talk) { talk_ = std::move(talk); }

    bool begin(const Text& title) override;
    void setFont(const Text& name) override;
    void setFontSize(double points) override;
    int pageWidth() override;
    int pageHeight() override;
    int textWidth(const Text& text) override;
    int textHeight(const Text& text) override;
    void moveTo(int x, int y) override { place_ = {x, y}; }
    void print(const Text& text) override;
    void newPage() override;
    void end() override;

protected:
    /// True if the desktop knows a printer.
    virtual bool hasPrinter() const;

private:
    void discard();
    std::unique_ptr<QPagedPaintDevice> chosenPrinter(const Text& title);
    std::unique_ptr<QPagedPaintDevice> pdfFile(const Text& title);

    PrintTalk talk_;
    Text pdfPath_; ///< empty while a real printer prints
    QBuffer pdf_;
    std::unique_ptr<QPagedPaintDevice> device_;
    QPainter painter_;
    QFont font_;
    QPoint place_;
};
