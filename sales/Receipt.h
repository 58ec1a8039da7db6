#pragma once
// The receipt texts: a wide layout for the dot-matrix printer and a narrow
// one for the POS slip printer, each for the first print at checkout and for
// the reprint of the last sale. The text is laid out with blanks only and
// goes to the printer as it is built; any failure (a value too long for its
// column, no printer) is thrown to the caller.
#include <QList>
#include <QString>

class TextPrinter;

struct ReceiptRow {
    QString TypeNo, Brand, Name, Size, Quantity, Price, Abate, Amount;
};

struct ReceiptData {
    QString ShopName;
    QString Now;
    QString User;
    QString SellNo;
    QString Paid;
    QString Change;
    QList<ReceiptRow> Rows;
};

namespace Receipt {

// Dot-matrix layout: the first print, and the reprint (title alone first,
// other indent and header, smaller type).
void Big(const ReceiptData& d, TextPrinter& p);
void BigAgain(const ReceiptData& d, TextPrinter& p);
// Slip layout: the first print, and the reprint (a long feed after each row).
void Small(const ReceiptData& d, TextPrinter& p);
void SmallAgain(const ReceiptData& d, TextPrinter& p);

// n blanks; a negative count is an invalid call (RuntimeError).
QString Blanks(int n);

}  // namespace Receipt
