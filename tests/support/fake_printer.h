#pragma once
// A printer that remembers every text with its place.

#include "platform/printer.h"

#include <string>
#include <vector>

/// Prints on A4; a half-width character is half as wide as the font is high, and a line is as high as the font.
class FakePrinter : public Printer {
public:
    struct Drawn {
        int page;
        int x;
        int y;
        std::string text; ///< UTF-8
        std::string font;
        double points;
    };
    bool begin(const Text& title) override;
    void setFont(const Text& name) override;
    void setFontSize(double size) override { points = size; }
    int pageWidth() override { return 11906; }
    int pageHeight() override { return 16838; }
    int textWidth(const Text& text) override;
    int textHeight(const Text&) override { return static_cast<int>(points * 20); }
    void moveTo(int toX, int toY) override { x = toX; y = toY; }
    void print(const Text& text) override;
    void newPage() override;
    void end() override { ++documents; }

    bool givesUp = false;    ///< the user chooses no printer
    int failsAtText = -1;    ///< number of the text, from 0, at which the printer fails
    std::string title;
    std::string font;
    double points = 10;
    int x = 0;
    int y = 0;
    int page = 1;
    int documents = 0;       ///< documents that were ended
    std::vector<Drawn> drawn;
};
