#!/usr/bin/env python3
"""Draws the library's small pictures (PNG) from simple shapes; run again after changing a shape.

Writes tavidlg/res/icons/*.png. Only the standard library is used."""
import math
import os
import struct
import zlib

ROOT = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "tavidlg", "res", "icons")


def png(path, w, h, pixel):
    rows = bytearray()
    for y in range(h):
        rows.append(0)
        for x in range(w):
            rows.extend(bytes(pixel(x, y)))
    def chunk(kind, data):
        c = struct.pack(">I", len(data)) + kind + data
        return c + struct.pack(">I", zlib.crc32(kind + data) & 0xFFFFFFFF)
    data = b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">IIBBBBB", w, h, 8, 6, 0, 0, 0))
    data += chunk(b"IDAT", zlib.compress(bytes(rows), 9)) + chunk(b"IEND", b"")
    with open(path, "wb") as f:
        f.write(data)


def blend(a, b, t):
    return tuple(int(a[i] + (b[i] - a[i]) * t) for i in range(len(a)))


NAVY = (26, 54, 104, 255)
SKY = (92, 150, 220, 255)
PAPER = (250, 250, 246, 255)
CLEAR = (0, 0, 0, 0)
GOLD = (236, 180, 50, 255)


def envelope(x, y, size):
    """A letter: a light rectangle with a dark border and the flap's V."""
    m = size // 8
    left, right, top, bottom = m, size - m - 1, size // 4, size - size // 4
    if not (left <= x <= right and top <= y <= bottom):
        return CLEAR
    if x in (left, right) or y in (top, bottom):
        return NAVY
    flap = top + (x - left) * (bottom - top) * 0.6 / ((right - left) / 2) if x <= (left + right) / 2 else \
        top + (right - x) * (bottom - top) * 0.6 / ((right - left) / 2)
    if abs(y - flap) < max(1.0, size / 24):
        return NAVY
    return PAPER


def folder(x, y, size):
    m = size // 8
    tab = (m, size // 2 - 1, size // 4 - 2, size // 4 + 1)
    if tab[0] <= x <= tab[1] and tab[2] <= y <= tab[3]:
        return GOLD
    if m <= x <= size - m - 1 and size // 4 + 1 <= y <= size - m - 1:
        edge = x in (m, size - m - 1) or y in (size // 4 + 1, size - m - 1)
        return blend(GOLD, (150, 100, 20, 255), 0.6) if edge else GOLD
    return CLEAR


def watermark(x, y, w, h):
    """The wizard's welcome-page picture: a deep-blue gradient with rising envelopes' outlines."""
    base = blend(NAVY, SKY, y / h)
    for i, (cx, cy, r) in enumerate(((82, 120, 34), (60, 210, 22), (110, 270, 16))):
        d = math.hypot(x - cx, y - cy)
        if abs(d - r) < 1.6:
            return blend(base, PAPER, 0.55)
    return base


def header(x, y, size):
    s = envelope(x, y, size)
    return s if s != CLEAR else CLEAR


def main():
    os.makedirs(ROOT, exist_ok=True)
    for size in (16, 32, 64):
        png(os.path.join(ROOT, f"velbrook-{size}.png"), size, size, lambda x, y, s=size: envelope(x, y, s))
    png(os.path.join(ROOT, "folder-16.png"), 16, 16, lambda x, y: folder(x, y, 16))
    png(os.path.join(ROOT, "folder-32.png"), 32, 32, lambda x, y: folder(x, y, 32))
    png(os.path.join(ROOT, "wizard-watermark.png"), 164, 314, lambda x, y: watermark(x, y, 164, 314))
    png(os.path.join(ROOT, "wizard-header.png"), 49, 49, lambda x, y: header(x, y, 49))


if __name__ == "__main__":
    main()
