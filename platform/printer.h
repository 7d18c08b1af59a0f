#pragma once
// The printer as the logic sees it: text put at places of a page, nothing else. Lengths are twips (1440 to the inch, 20
// to the point) from the top left corner of the paper. A printer that fails throws RuntimeFailure{FailureKind::printing}.

#include "platform/text.h"

/// One document at a time, from begin() to end().
class Printer {
public:
    virtual ~Printer() = default;
    /// Lets the user choose where the document goes and starts it at the top of its first page. False: given up, and no
    /// other call may follow. `title` is the document's name. A document that was never ended is thrown away.
    virtual bool begin(const Text& title) = 0;
    /// The font of what is printed next. A font that the system lacks is replaced by a fixed-pitch one of the same kind
    /// in which a full-width character is exactly two half-width ones.
    virtual void setFont(const Text& name) = 0;
    virtual void setFontSize(double points) = 0;
    /// Size of the paper.
    virtual int pageWidth() = 0;
    virtual int pageHeight() = 0;
    /// Size of a text in the font in force. The height is that of a line, whatever the text.
    virtual int textWidth(const Text& text) = 0;
    virtual int textHeight(const Text& text) = 0;
    /// The place of the top left corner of what is printed next.
    virtual void moveTo(int x, int y) = 0;
    /// Prints a text in one line; the place moves on to behind it.
    virtual void print(const Text& text) = 0;
    /// Goes on at the top left corner of a new page.
    virtual void newPage() = 0;
    /// Ends the document and sends it on its way.
    virtual void end() = 0;
};
