"""Makes the .xls files of the stock-in tests (Excel 97-2003, with xlwt).

make_xls.py SHEET.json OUT_DIR writes into OUT_DIR:
  supplier.xls       the rows of SHEET.json on the first sheet, a different
                     second sheet behind it. A cell is a number, a text, null
                     for none, or {"date": "yyyy-mm-dd"} / {"number": n} with
                     an optional "format".
  encrypted.xlsx     a compound document holding an encrypted package and no
                     workbook, as Excel saves an .xlsx with a password.
  encrypted.xls      the workbook as Excel saves it with a password: a FILEPASS
                     record behind the first BOF, the records behind it ciphered.
  notabook.xls       a compound document holding something else than a workbook.
"""
import datetime
import json
import os
import random
import struct
import sys

import xlwt
from xlwt import CompoundDoc


def write_cell(sheet, r, c, cell):
    if cell is None:
        return
    if isinstance(cell, dict):
        if "date" in cell:
            value = datetime.datetime.strptime(cell["date"], "%Y-%m-%d")
            fmt = cell.get("format", "yyyy-mm-dd")
        else:
            value = cell["number"]
            fmt = cell.get("format", "General")
        sheet.write(r, c, value, xlwt.easyxf(num_format_str=fmt))
    else:
        sheet.write(r, c, cell)


def renamed_stream(data, old, new):
    """The compound document with one stream's directory entry renamed."""
    at = data.index(old.encode("utf-16-le"))
    name = new.encode("utf-16-le").ljust(64, b"\0")
    size = (len(new) + 1) * 2
    return data[:at] + name + size.to_bytes(2, "little") + data[at + 66:]


def with_password(stream):
    """The workbook stream as a password leaves it: a FILEPASS record behind
    the first BOF, the contents of the records other than BOF ciphered."""
    noise = random.Random(12)
    out = bytearray(stream[:20]) + struct.pack("<5H", 0x2F, 54, 1, 1, 1) + bytes(48)
    at = 20
    while at < len(stream):
        kind, size = struct.unpack_from("<HH", stream, at)
        body = stream[at + 4:at + 4 + size]
        if kind != 0x0809:
            body = bytes(b ^ noise.randrange(256) for b in body)
        out += stream[at:at + 4] + body
        at += 4 + size
    return bytes(out)


def main():
    rows = json.load(open(sys.argv[1], encoding="utf-8"))
    out = sys.argv[2]
    book = xlwt.Workbook(encoding="utf-8")
    first = book.add_sheet("订货单")
    for r, row in enumerate(rows):
        for c, cell in enumerate(row):
            write_cell(first, r, c, cell)
    book.add_sheet("其他").write(0, 0, "第二张表")
    path = os.path.join(out, "supplier.xls")
    book.save(path)

    CompoundDoc.XlsDoc().save(os.path.join(out, "encrypted.xls"),
                              with_password(book.get_biff_data()))

    data = open(path, "rb").read()
    open(os.path.join(out, "encrypted.xlsx"), "wb").write(
        renamed_stream(data, "Workbook", "EncryptedPackage"))
    open(os.path.join(out, "notabook.xls"), "wb").write(
        renamed_stream(data, "Workbook", "Contents"))


main()
