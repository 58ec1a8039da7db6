#pragma once
// Stands in for the receipt printer: records each operation and the text,
// and can play a printer that is not there.
#include <QStringList>
#include <memory>

#include "RuntimeError.h"
#include "TextPrinter.h"

class RecordingPrinter : public TextPrinter {
public:
    QStringList ops;    // "size 10", "bold 1", "print", "end"
    QStringList texts;  // the texts printed, in order
    bool missing = false;

    void SetFontSize(float size) override { step("size " + QString::number(double(size))); }
    void SetBold(bool on) override { step(on ? "bold 1" : "bold 0"); }
    void Print(const QString& text) override {
        step("print");
        texts << text;
    }
    void EndDoc() override { step("end"); }

private:
    void step(const QString& op) {
        if (missing) throw RuntimeError("no printer");
        ops << op;
    }
};

// Installs a recording printer for the life of the object.
class PrinterScope {
public:
    PrinterScope() {
        auto p = std::make_unique<RecordingPrinter>();
        printer = p.get();
        old_ = TextPrinter::SetCurrent(std::move(p));
    }
    ~PrinterScope() { TextPrinter::SetCurrent(std::move(old_)); }
    RecordingPrinter* operator->() { return printer; }
    RecordingPrinter* printer;

private:
    std::unique_ptr<TextPrinter> old_;
};
