#include "platform/qt/qt_printer.h"

#include "platform/failure.h"
#include "platform/qt/qt_text.h"

#include <QFontDatabase>
#include <QFontInfo>
#include <QFontMetricsF>
#include <QPdfWriter>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>

#include <cmath>
#include <utility>

namespace {

constexpr int twipsPerInch = 1440;

void expect(bool worked) {
    if (!worked) {
        throw RuntimeFailure{FailureKind::printing};
    }
}

/// The first of these families that the system has; the program brings the last one along.
QString familyFor(const QString& name) {
    const bool isMincho = name.contains(QStringLiteral("明朝"));
    for (const QString& family : {name, isMincho ? QStringLiteral("IPAMincho") : QStringLiteral("IPAGothic")}) {
        if (QFontDatabase::hasFamily(family)) {
            return family;
        }
    }
    return QStringLiteral("IPAGothic");
}

} // namespace

QtPrinter::QtPrinter() = default;

QtPrinter::~QtPrinter() { discard(); }

bool QtPrinter::begin(const Text& title) {
    discard();
    device_ = hasPrinter() ? chosenPrinter(title) : pdfFile(title);
    if (!device_) {
        return false;
    }
    device_->setPageMargins(QMarginsF());
    expect(painter_.begin(device_.get()));
    place_ = {};
    setFont({});
    setFontSize(10);
    return true;
}

bool QtPrinter::hasPrinter() const { return !QPrinterInfo::availablePrinterNames().isEmpty(); }

std::unique_ptr<QPagedPaintDevice> QtPrinter::chosenPrinter(const Text& title) {
    auto printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
    printer->setDocName(toQt(title));
    printer->setResolution(twipsPerInch);
    printer->setFullPage(true);
    QPrintDialog dialog(printer.get());
    return talk_.runDialog(dialog) ? std::move(printer) : nullptr;
}

std::unique_ptr<QPagedPaintDevice> QtPrinter::pdfFile(const Text& title) {
    pdfPath_ = talk_.askPdfPath();
    if (pdfPath_.empty()) {
        return nullptr;
    }
    pdf_.setData({});
    expect(pdf_.open(QIODevice::WriteOnly));
    auto writer = std::make_unique<QPdfWriter>(&pdf_);
    writer->setTitle(toQt(title));
    writer->setResolution(twipsPerInch);
    writer->setPageSize(QPageSize(QPageSize::A4));
    return writer;
}

void QtPrinter::setFont(const Text& name) {
    font_.setFamily(familyFor(toQt(name)));
    font_.setKerning(false);
}

void QtPrinter::setFontSize(double points) { font_.setPointSizeF(points); }

int QtPrinter::pageWidth() { return device_->width(); }

int QtPrinter::pageHeight() { return device_->height(); }

int QtPrinter::textWidth(const Text& text) {
    return static_cast<int>(std::lround(QFontMetricsF(font_, device_.get()).horizontalAdvance(toQt(text))));
}

int QtPrinter::textHeight(const Text&) {
    return static_cast<int>(std::ceil(QFontMetricsF(font_, device_.get()).height()));
}

void QtPrinter::print(const Text& text) {
    painter_.setFont(font_);
    const double ascent = QFontMetricsF(font_, device_.get()).ascent();
    painter_.drawText(QPointF(place_.x(), place_.y() + ascent), toQt(text));
    place_.rx() += textWidth(text);
}

void QtPrinter::newPage() {
    expect(device_->newPage());
    place_ = {};
}

void QtPrinter::end() {
    expect(painter_.end());
    device_.reset();
    pdf_.close();
    if (!pdfPath_.empty()) {
        const QByteArray& bytes = pdf_.data();
        talk_.keepPdf(std::exchange(pdfPath_, {}),
                      BytesView(bytes.constData(), static_cast<std::size_t>(bytes.size())));
    }
}

// A document that a failure has left open must not come out with the next one.
void QtPrinter::discard() {
    if (painter_.isActive()) {
        if (auto* printer = dynamic_cast<QPrinter*>(device_.get())) {
            printer->abort();
        }
        painter_.end();
    }
    device_.reset();
    pdf_.close();
    pdfPath_.clear();
}
