#pragma once
// The printer of the desktop: the user chooses one in the desktop's own dialog. Where there is none, the same pages go
// into a PDF file. One unit of the page is a twip on both roads.

#include "platform/printer.h"
#include "platform/qt/form_context.h"

#include <QBuffer>
#include <QFont>
#include <QPainter>

#include <functional>
#include <memory>

class QPagedPaintDevice;
class QPrinter;

/// What the program says and asks round a printed document.
struct PrintTalk {
    std::function<void()> announceDialog{};             ///< before the desktop's dialog, which has no voice of ours
    std::function<Text()> askPdfPath{};                 ///< empty: given up
    std::function<void(const Text& path)> pdfWritten{}; ///< after the file is safely on the disk
};

/// Prints by the toolkit.
class QtPrinter : public Printer {
public:
    QtPrinter();
    ~QtPrinter() override;
    /// Must be called before the first document. The context can't be had earlier: the shared state in it is made with
    /// a Platform that names this very object.
    void connectTo(const FormContext& context, PrintTalk talk);

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

    const FormContext* context_ = nullptr;
    PrintTalk talk_;
    Text pdfPath_; ///< empty while a real printer prints
    QBuffer pdf_;
    std::unique_ptr<QPagedPaintDevice> device_;
    QPainter painter_;
    QFont font_;
    QPoint place_;
};
