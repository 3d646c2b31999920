#!/usr/bin/env python3
"""Writes the synthetic record pair shipped in samples/.

Each component is white noise passed through a Kanai-Tajimi ground filter and shaped by a
trapezoid-and-exponential envelope, then scaled to a chosen peak. The seed is fixed, so the files
are the same on every run. Four header lines stand ahead of the samples: the first data line is 5.
"""
import math
import random
import sys
from pathlib import Path

DT = 0.01
NPTS = 2000
WG, ZG = 15.0, 0.6  # ground filter: rad/s, damping


def envelope(t):
    if t < 2.0:
        return (t / 2.0) ** 2
    if t < 10.0:
        return 1.0
    return math.exp(-0.25 * (t - 10.0))


def component(seed, peak):
    rng = random.Random(seed)
    x = v = 0.0
    out = []
    sub = 10  # filter sub-steps per sample, for a stable explicit update
    h = DT / sub
    for i in range(NPTS):
        t = i * DT
        w = rng.gauss(0.0, 1.0) * envelope(t)
        for _ in range(sub):
            acc = -2.0 * ZG * WG * v - WG * WG * x + w
            v += acc * h
            x += v * h
        out.append(-(2.0 * ZG * WG * v + WG * WG * x))  # absolute acceleration of the ground filter
    scale = peak / max(abs(a) for a in out)
    return [a * scale for a in out]


def write(path, name, seed, peak):
    samples = component(seed, peak)
    lines = [
        f"Tremorvault synthetic accelerogram, component {name} (not a real earthquake)",
        f"Kanai-Tajimi filtered white noise, wg={WG} rad/s, zg={ZG}, envelope rise 2 s, strong 8 s, decay 0.25/s, seed {seed}",
        "Units: g",
        f"NPTS= {NPTS}, DT= {DT:.2f} SEC, first data line 5",
    ]
    lines += [f"{round(a, 6) + 0.0:.6f}" for a in samples]
    Path(path).write_text("\n".join(lines) + "\n")


def main():
    out = Path(sys.argv[1] if len(sys.argv) > 1 else Path(__file__).resolve().parent.parent / "samples")
    out.mkdir(parents=True, exist_ok=True)
    write(out / "synthetic_X.txt", "X", 2800, 0.35)
    write(out / "synthetic_Y.txt", "Y", 2801, 0.30)


if __name__ == "__main__":
    main()
