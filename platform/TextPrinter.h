#pragma once
// The receipt printer: the system's default printer used as a text device.
// The receipts need exactly four operations: the font size, bold on or off,
// printing a text (which ends with one more line break) and ending the
// document. Every operation throws RuntimeError when there is no printer, so
// that the receipt routine's trap reports it.
#include <QString>
#include <memory>

class TextPrinter {
public:
    virtual ~TextPrinter() = default;

    virtual void SetFontSize(float size) = 0;
    virtual void SetBold(bool on) = 0;
    // Prints the text from the current line on; CR LF pairs (or single line
    // feeds) start new lines, and one more line break follows the text.
    virtual void Print(const QString& text) = 0;
    // Ends the document and sends it to the printer.
    virtual void EndDoc() = 0;

    // The process-wide printer the receipts use (the system's default printer
    // unless replaced).
    static TextPrinter& Current();
    // Replaces the process-wide printer; returns the former one. Passing
    // nullptr puts the default printer back.
    static std::unique_ptr<TextPrinter> SetCurrent(std::unique_ptr<TextPrinter> printer);
};

// The system's default printer through Qt's print support (CUPS on Linux).
// Text is painted line by line in the default typeface the painter takes on
// the printer, at the size set; a new page starts when a line would run past
// the foot of the page.
class QtTextPrinter : public TextPrinter {
public:
    QtTextPrinter();
    ~QtTextPrinter() override;

    void SetFontSize(float size) override;
    void SetBold(bool on) override;
    void Print(const QString& text) override;
    void EndDoc() override;

private:
    struct Doc;
    void requirePrinter();
    void beginDoc();

    float size_ = 10;
    bool bold_ = false;
    std::unique_ptr<Doc> doc_;
};
