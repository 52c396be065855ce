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


def supersample(shape, n=4):
    """Anti-aliases a shape: the average of n x n samples inside each pixel."""
    def pixel(x, y):
        acc = [0.0, 0.0, 0.0, 0.0]
        for i in range(n):
            for j in range(n):
                r, g, b, a = shape(x + (i + 0.5) / n, y + (j + 0.5) / n)
                acc[0] += r * a
                acc[1] += g * a
                acc[2] += b * a
                acc[3] += a
        if acc[3] == 0:
            return CLEAR
        return (int(acc[0] / acc[3]), int(acc[1] / acc[3]), int(acc[2] / acc[3]), int(acc[3] / (n * n)))
    return pixel


def segment_distance(px, py, ax, ay, bx, by):
    dx, dy = bx - ax, by - ay
    t = max(0.0, min(1.0, ((px - ax) * dx + (py - ay) * dy) / (dx * dx + dy * dy)))
    return math.hypot(px - ax - t * dx, py - ay - t * dy)


def rounded_box(px, py, left, top, right, bottom, radius):
    """True inside a rectangle with rounded corners."""
    cx = min(max(px, left + radius), right - radius)
    cy = min(max(py, top + radius), bottom - radius)
    return math.hypot(px - cx, py - cy) <= radius


GREEN = (46, 170, 90, 255)
DEEP = (14, 38, 84, 255)
TEAL = (38, 132, 206, 255)


def letter(px, py, left, top, right, bottom, line):
    """A modern envelope: white body, rounded corners, a flap drawn as two soft lines."""
    if not rounded_box(px, py, left, top, right, bottom, (bottom - top) * 0.08):
        return None
    mid = (left + right) / 2
    apex = top + (bottom - top) * 0.58
    d = min(segment_distance(px, py, left, top, mid, apex), segment_distance(px, py, right, top, mid, apex))
    if d < line:
        return (178, 196, 222, 255)
    return PAPER


def shield(px, py, cx, top, width, height, fill, mark):
    """A shield with a check mark: flat top, sides curving to a point."""
    v = (py - top) / height
    if v < 0 or v > 1:
        return None
    half = width / 2 if v < 0.45 else width / 2 * math.sqrt(max(0.0, 1 - ((v - 0.45) / 0.55) ** 2))
    if abs(px - cx) > half:
        return None
    edge = half - abs(px - cx) < width * 0.06 or v < 0.04
    check = min(segment_distance(px, py, cx - width * 0.22, top + height * 0.45, cx - width * 0.05, top + height * 0.62),
                segment_distance(px, py, cx - width * 0.05, top + height * 0.62, cx + width * 0.25, top + height * 0.28))
    if check < width * 0.075:
        return mark
    return blend(fill, PAPER, 0.25) if edge else fill


def watermark_shape(w, h):
    def shape(x, y):
        base = blend(DEEP, TEAL, (y / h) ** 1.2)
        # Soft light from the upper left, and faint arcs like a signal spreading.
        glow = max(0.0, 1 - math.hypot(x - w * 0.2, y - h * 0.15) / (w * 1.1))
        base = blend(base, (120, 180, 240, 255), glow * 0.35)
        for r in (150, 185, 220):
            if abs(math.hypot(x - w * 1.1, y - h * 1.02) - r) < 0.9:
                base = blend(base, PAPER, 0.18)
        body = letter(x, y, w * 0.16, h * 0.30, w * 0.84, h * 0.52, 2.2)
        if body:
            base = body
        mark = shield(x, y, w * 0.72, h * 0.44, w * 0.34, h * 0.19, GREEN, PAPER)
        if mark:
            base = mark
        return base
    return shape


def header_shape(size):
    def shape(x, y):
        color = CLEAR
        body = letter(x, y, size * 0.04, size * 0.22, size * 0.80, size * 0.74, size * 0.045)
        if body:
            # A thin dark rim keeps the white letter visible on a white header.
            inner = rounded_box(x, y, size * 0.04 + 1.2, size * 0.22 + 1.2, size * 0.80 - 1.2, size * 0.74 - 1.2,
                                size * 0.04)
            color = body if inner else NAVY
        mark = shield(x, y, size * 0.74, size * 0.46, size * 0.40, size * 0.50, GREEN, PAPER)
        if mark:
            color = mark
        return color
    return shape


def toolbar_shape(kind):
    """16-pixel tool-bar pictures: add, delete, move up, move down."""
    def shape(x, y):
        if kind == "add":
            d = min(segment_distance(x, y, 8, 2.5, 8, 13.5), segment_distance(x, y, 2.5, 8, 13.5, 8))
            return GREEN if d < 1.6 else CLEAR
        if kind == "delete":
            d = min(segment_distance(x, y, 3.5, 3.5, 12.5, 12.5), segment_distance(x, y, 12.5, 3.5, 3.5, 12.5))
            return (204, 52, 45, 255) if d < 1.5 else CLEAR
        flip = kind == "down"
        yy = 16 - y if flip else y
        d = min(segment_distance(x, yy, 8, 2.5, 8, 13.5), segment_distance(x, yy, 3, 7.5, 8, 2.5),
                segment_distance(x, yy, 13, 7.5, 8, 2.5))
        return (38, 104, 190, 255) if d < 1.4 else CLEAR
    return shape


def main():
    os.makedirs(ROOT, exist_ok=True)
    for size in (16, 32, 64):
        png(os.path.join(ROOT, f"velbrook-{size}.png"), size, size, lambda x, y, s=size: envelope(x, y, s))
    png(os.path.join(ROOT, "folder-16.png"), 16, 16, lambda x, y: folder(x, y, 16))
    png(os.path.join(ROOT, "folder-32.png"), 32, 32, lambda x, y: folder(x, y, 32))
    png(os.path.join(ROOT, "wizard-watermark.png"), 164, 314, supersample(watermark_shape(164, 314), 3))
    png(os.path.join(ROOT, "wizard-header.png"), 49, 49, supersample(header_shape(49)))
    for kind, name in (("add", "list-add"), ("delete", "list-delete"), ("up", "go-up"), ("down", "go-down")):
        png(os.path.join(ROOT, f"{name}-16.png"), 16, 16, supersample(toolbar_shape(kind)))


if __name__ == "__main__":
    main()
