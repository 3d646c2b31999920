#!/usr/bin/env python3
"""Writes the pushover samples shipped in samples/: a text listing and a spreadsheet.

The curve is made up: a frame of initial stiffness 20,000 kg/cm that softens smoothly to a
plateau of about 52 t, with 3 % hardening after (units kg and cm, as the coefficient window
demands). Steps run 0, 1, 2, ... from the origin, as the step numbers index the curve.
"""
import math
import sys
import zipfile
from pathlib import Path

K0 = 20000.0     # kg/cm
VY = 52000.0     # kg
HARDENING = 0.03
STEPS = 24


def curve():
    points = []
    for step in range(STEPS + 1):
        d = 0.25 * step  # cm
        # Smooth transition from the elastic line to the post-yield line.
        v = VY * math.tanh(K0 * d / VY) + HARDENING * K0 * d
        points.append((step, round(d, 4), round(v, 1)))
    return points


def write_listing(path, points):
    lines = [
        "Tremorvault sample pushover curve (made up, not from a real building)",
        "Units: kg, cm",
        "",
        "  Step  Displacement     BaseForce   AtoB  BtoIO",
    ]
    for step, d, v in points:
        lines.append(f"  {step:4d}  {d:12.4f}  {v:12.1f}  {step:5d}  0")
    Path(path).write_text("\n".join(lines) + "\n")


def cell(ref, value):
    if isinstance(value, str):
        return f'<c r="{ref}" t="inlineStr"><is><t>{value}</t></is></c>'
    return f'<c r="{ref}"><v>{value}</v></c>'


def write_workbook(path, points):
    rows = ['<row r="1">' + cell("A1", "Step") + cell("B1", "Displacement") + cell("C1", "Base Force") + "</row>"]
    for i, (step, d, v) in enumerate(points, start=2):
        rows.append(f'<row r="{i}">' + cell(f"A{i}", step) + cell(f"B{i}", d) + cell(f"C{i}", v) + "</row>")
    sheet = ('<?xml version="1.0" encoding="UTF-8" standalone="yes"?>\n'
             '<worksheet xmlns="http://schemas.openxmlformats.org/spreadsheetml/2006/main"><sheetData>'
             + "".join(rows) + "</sheetData></worksheet>")
    parts = {
        "[Content_Types].xml": (
            '<?xml version="1.0" encoding="UTF-8" standalone="yes"?>\n'
            '<Types xmlns="http://schemas.openxmlformats.org/package/2006/content-types">'
            '<Default Extension="rels" ContentType="application/vnd.openxmlformats-package.relationships+xml"/>'
            '<Default Extension="xml" ContentType="application/xml"/>'
            '<Override PartName="/xl/workbook.xml" ContentType="application/vnd.openxmlformats-officedocument.spreadsheetml.sheet.main+xml"/>'
            '<Override PartName="/xl/worksheets/sheet1.xml" ContentType="application/vnd.openxmlformats-officedocument.spreadsheetml.worksheet+xml"/>'
            "</Types>"),
        "_rels/.rels": (
            '<?xml version="1.0" encoding="UTF-8" standalone="yes"?>\n'
            '<Relationships xmlns="http://schemas.openxmlformats.org/package/2006/relationships">'
            '<Relationship Id="rId1" Type="http://schemas.openxmlformats.org/officeDocument/2006/relationships/officeDocument" Target="xl/workbook.xml"/>'
            "</Relationships>"),
        "xl/workbook.xml": (
            '<?xml version="1.0" encoding="UTF-8" standalone="yes"?>\n'
            '<workbook xmlns="http://schemas.openxmlformats.org/spreadsheetml/2006/main" '
            'xmlns:r="http://schemas.openxmlformats.org/officeDocument/2006/relationships">'
            '<sheets><sheet name="Pushover" sheetId="1" r:id="rId1"/></sheets></workbook>'),
        "xl/_rels/workbook.xml.rels": (
            '<?xml version="1.0" encoding="UTF-8" standalone="yes"?>\n'
            '<Relationships xmlns="http://schemas.openxmlformats.org/package/2006/relationships">'
            '<Relationship Id="rId1" Type="http://schemas.openxmlformats.org/officeDocument/2006/relationships/worksheet" Target="worksheets/sheet1.xml"/>'
            "</Relationships>"),
        "xl/worksheets/sheet1.xml": sheet,
    }
    with zipfile.ZipFile(path, "w", zipfile.ZIP_DEFLATED) as z:
        for name, text in parts.items():
            info = zipfile.ZipInfo(name, date_time=(2026, 1, 1, 0, 0, 0))  # fixed, so the file is reproducible
            info.compress_type = zipfile.ZIP_DEFLATED
            z.writestr(info, text)


def main():
    out = Path(sys.argv[1] if len(sys.argv) > 1 else Path(__file__).resolve().parent.parent / "samples")
    out.mkdir(parents=True, exist_ok=True)
    points = curve()
    write_listing(out / "pushover_listing.txt", points)
    write_workbook(out / "pushover.xlsx", points)


if __name__ == "__main__":
    main()
