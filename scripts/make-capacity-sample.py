#!/usr/bin/env python3
"""Writes samples/capacity_sample.txt, a capacity curve for `tremorvault-cli capacity`.

The curve is made up, not taken from any analysis program. A building of effective period
T1 = 0.5 s yields smoothly: the spectral acceleration follows Sa = Say * tanh(Sd / Sdy) with
Sdy = Say * g * (T1 / 2 pi)^2, so the first slope is the elastic one, and softens until Sd reaches
SD_MAX. Units: Sd in mm, Sa in g (so g = 9810 mm/s^2 per g, the wizard's default).

Columns, as the capacity reader wants them after a disposable leading blank:
  Step Teff Betaeff Sd_C Sa_C Sd_d Sa_d ALPHA Pf_fi
Teff is the secant period 2 pi sqrt(Sd / (Sa g)) (the elastic period at step 0); Betaeff is a
plain 5 % plus a hysteretic share that grows with the softening; Sd_d and Sa_d repeat Sd_C and
Sa_C; ALPHA (modal mass ratio) and Pf_fi (participation factor times roof mode shape) are fixed.
Three title lines stand ahead of the heading line that holds "Teff".
"""
import math
import sys
from pathlib import Path

G = 9810.0          # mm/s^2 per g
T1 = 0.5            # elastic period, s
SAY = 1.0          # plateau of the spectral acceleration, g
SD_MAX = 400.0     # last spectral displacement, mm
STEPS = 24
ALPHA = 0.82
PF_PHI = 1.31


def curve():
    sdy = SAY * G * (T1 / (2 * math.pi)) ** 2
    rows = []
    for step in range(STEPS + 1):
        sd = SD_MAX * step / STEPS
        sa = SAY * math.tanh(sd / sdy)
        teff = T1 if sd == 0 else 2 * math.pi * math.sqrt(sd / (sa * G))
        # Equivalent damping grows with the loss of secant stiffness.
        softening = 1 - (T1 / teff) ** 2
        beta = 5.0 + 30.0 * softening
        rows.append((step, teff, beta, sd, sa, sd, sa, ALPHA, PF_PHI))
    return rows


def main():
    out = Path(sys.argv[1] if len(sys.argv) > 1 else Path(__file__).resolve().parent.parent / "samples")
    out.mkdir(parents=True, exist_ok=True)
    lines = [
        "Tremorvault sample capacity spectrum (made up, not from an analysis)",
        f"Smooth yielding curve: T1 = {T1} s, Say = {SAY} g, Sd in mm, Sa in g",
        "",
        "  Step      Teff   Betaeff      Sd_C      Sa_C      Sd_d      Sa_d     ALPHA     Pf_fi",
    ]
    for r in curve():
        lines.append(" {:d} {:.6f} {:.4f} {:.4f} {:.6f} {:.4f} {:.6f} {:.4f} {:.4f}".format(*r))
    (out / "capacity_sample.txt").write_text("\n".join(lines) + "\n")


if __name__ == "__main__":
    main()
