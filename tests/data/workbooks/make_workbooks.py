#!/usr/bin/python3
# Makes the workbooks of this folder: .xls by xlwt, .xlsx by openpyxl, the rest by ssconvert (gnumeric).
import datetime
import os
import subprocess

import openpyxl
import xlwt

DAY = datetime.date(2024, 3, 1)
CELLS = [  # text or value, number format
    [("  Müller, Ž 日本  ", None), ("007", "@"), (42, None)],
    [(7, "0000"), (DAY, "dd/mm/yyyy"), (1234.5, "#,##0.00")],
    [None, None, None],
    [("two\nlines", None), (True, None), (0.1, None)],
    [("=1+2", "formula"), ('="a"&"b"', "formula"), (-0.25, "0.0%")],
]
HEADER = [["vErsion 8"], ["office printer", "dL_v", 4, 2], [1.5, -2], ["arial", 12, True, False, False, 0, 1],
          ["arial", 10, "false", "false", "false", 1, 1], ["arial", 8, False, False, False, 2, 1], ["Smith", 2024]]


def xls(name, sheets):
    book = xlwt.Workbook(encoding="utf-8")
    for title, rows, hidden in sheets:
        sheet = book.add_sheet(title)
        sheet.visibility = 1 if hidden else 0
        for r, row in enumerate(rows):
            for c, cell in enumerate(row):
                value, look = cell if isinstance(cell, tuple) else (cell, None)
                if value is None:
                    continue
                style = xlwt.easyxf(num_format_str=look if look and look != "formula" else "General")
                sheet.write(r, c, xlwt.Formula(value[1:]) if look == "formula" else value, style)
    book.save(name)


def xlsx(name, sheets):
    book = openpyxl.Workbook()
    book.remove(book.active)
    for title, rows, hidden in sheets:
        sheet = book.create_sheet(title)
        sheet.sheet_state = "hidden" if hidden else "visible"
        for r, row in enumerate(rows):
            for c, cell in enumerate(row):
                value, look = cell if isinstance(cell, tuple) else (cell, None)
                if value is None:
                    continue
                made = sheet.cell(r + 1, c + 1, value)
                if look and look != "formula":
                    made.number_format = look
    book.save(name)


def convert(source, target, exporter):
    subprocess.run(["ssconvert", "--recalc", "-T", exporter, source, target], check=True)


if __name__ == "__main__":
    cells = [("Cells", CELLS, False)]
    three = [("Erste", [["one"]], False), ("Hidden", [["no"]], True), ("Zweite é", [["two"]], False),
             ("Third", [["three"]], False)]
    xls("three.xls", three)
    xlsx("three.xlsx", three)
    xls("header.xls", [("Tabs", HEADER, False)])
    xlsx("header.xlsx", [("Tabs", HEADER, False)])
    xls("plain.xls", cells)  # its formulas have no results yet
    xlsx("plain.xlsx", cells)
    convert("plain.xls", "cells.xls", "Gnumeric_Excel:excel_biff8")
    xls("latin.xls", [("Cells", [[("Müller", None), ("007", None), (42, None)]] + CELLS[1:], False)])
    convert("latin.xls", "cells95.xls", "Gnumeric_Excel:excel_biff7")
    convert("plain.xlsx", "cells.xlsx", "Gnumeric_Excel:xlsx2")
    convert("plain.xlsx", "cells.ods", "Gnumeric_OpenCalc:odf")
    convert("three.xlsx", "three.ods", "Gnumeric_OpenCalc:odf")
    convert("header.xlsx", "header.ods", "Gnumeric_OpenCalc:odf")
    for passing in ("plain.xls", "plain.xlsx", "latin.xls"):
        os.remove(passing)
