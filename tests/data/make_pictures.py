#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Makes the picture fixtures of this folder with other programs' encoders: netpbm and ImageMagick.

They are kept in the repository; this runs only when one is added. Every picture follows level(), which the tests
know as well, so no decoder is asked what a fixture shows.
"""
import os
import subprocess

HERE = os.path.dirname(os.path.abspath(__file__))
CONVERT = "convert-im6.q16"


def level(x, y, channel):
    return (37 * x + 59 * y + 83 * channel + x * y) & 255


def palette_entry(k):
    return (k * 53 & 255, k * 101 & 255, 255 - k * 29 & 255)


def run(command, data, name):
    with open(os.path.join(HERE, name), "wb") as out:
        subprocess.run(command, input=data, stdout=out, check=True)


def pam(w, h, channels, depth):
    """Samples of `depth` bits; 16-bit ones have another value in the low byte."""
    kinds = {1: "GRAYSCALE", 2: "GRAYSCALE_ALPHA", 3: "RGB", 4: "RGB_ALPHA"}
    head = f"P7\nWIDTH {w}\nHEIGHT {h}\nDEPTH {channels}\nMAXVAL {(1 << depth) - 1}\nTUPLTYPE {kinds[channels]}\nENDHDR\n"
    body = bytearray()
    for y in range(h):
        for x in range(w):
            for c in range(channels):
                v = level(x, y, c)
                body += bytes([v, v ^ 0x5a]) if depth == 16 else bytes([v & (1 << depth) - 1])
    return head.encode() + bytes(body)


def indexed_ppm(w, h, depth):
    body = bytearray()
    for y in range(h):
        for x in range(w):
            body += bytes(palette_entry(level(x, y, 0) & (1 << depth) - 1))
    return f"P6\n{w} {h}\n255\n".encode() + bytes(body)


def png():
    names = {1: "grey", 2: "greyalpha", 3: "rgb", 4: "rgba"}
    for channels, depths in {1: (1, 2, 4, 8, 16), 2: (8, 16), 3: (8, 16), 4: (8, 16)}.items():
        for depth in depths:
            data = pam(13, 11, channels, depth)
            run(["pamtopng"], data, f"png/{names[channels]}-{depth}.png")
            run(["pamtopng", "-interlace"], data, f"png/{names[channels]}-{depth}-interlaced.png")
    for depth in (1, 2, 4, 8):
        data = indexed_ppm(13, 11, depth)
        run(["pnmtopng"], data, f"png/indexed-{depth}.png")
        run(["pnmtopng", "-interlace"], data, f"png/indexed-{depth}-interlaced.png")
    for name in ("sub", "up", "avg", "paeth"):
        for channels, depth in ((1, 8), (3, 8), (3, 16)):
            run(["pnmtopng", "-force", f"-{name}"], pam(13, 11, channels, depth), f"png/{names[channels]}-{depth}-{name}.png")
    # Pictures so small that passes of the interlacing are empty.
    for w, h in ((1, 1), (2, 3), (5, 1), (1, 6)):
        run(["pamtopng", "-interlace"], pam(w, h, 3, 8), f"png/small-{w}x{h}-interlaced.png")


def gif():
    run(["ppmtogif"], indexed_ppm(13, 11, 4), "gif/plain.gif")
    run(["ppmtogif", "-interlace"], indexed_ppm(13, 11, 4), "gif/interlaced.gif")
    r, g, b = palette_entry(5)
    run(["ppmtogif", "-transparent", f"#{r:02x}{g:02x}{b:02x}"], indexed_ppm(13, 11, 4), "gif/transparent.gif")
    run([CONVERT, "ppm:-", "gif:-"], indexed_ppm(257, 64, 8), "gif/colours256.gif")
    run([CONVERT, "-delay", "7", "-loop", "300", "ppm:-", "(", "+clone", "-negate", ")", "-set", "comment", ",;! frame",
         "gif:-"], indexed_ppm(13, 11, 4), "gif/animated.gif")
    run([CONVERT, "ppm:-", "gif:-"], indexed_ppm(1, 1, 1), "gif/small-1x1.gif")
    run([CONVERT, "ppm:-", "gif:-"], indexed_ppm(13, 11, 1), "gif/two-colours.gif")


def smooth(channels):
    """A ramp, which JPEG keeps within a few steps."""
    body = bytearray()
    for y in range(19):
        for x in range(37):
            body += bytes((6 * x, 12 * y, 255 - 6 * x)[:channels])
    return f"P{5 if channels == 1 else 6}\n37 19\n255\n".encode() + bytes(body)


def pcx():
    for depth in (1, 2, 4, 8):
        run(["ppmtopcx"], indexed_ppm(13, 11, depth), f"pcx/indexed-{depth}.pcx")
        run(["ppmtopcx", "-packed"], indexed_ppm(13, 11, depth), f"pcx/indexed-{depth}-packed.pcx")
    run(["ppmtopcx", "-24bit"], pam(13, 11, 3, 8), "pcx/rgb-8.pcx")
    run([CONVERT, "pam:-", "pcx:-"], pam(13, 11, 3, 8), "pcx/rgb-8-convert.pcx")


def lbm():
    for depth in (1, 4, 8):
        run(["ppmtoilbm", "-maxplanes", "8", "-compress"], indexed_ppm(13, 11, depth), f"lbm/indexed-{depth}.lbm")
        run(["ppmtoilbm", "-maxplanes", "8", "-nocompress"], indexed_ppm(13, 11, depth), f"lbm/indexed-{depth}-plain.lbm")
    run(["ppmtoilbm", "-24force"], pam(13, 11, 3, 8), "lbm/rgb-8.lbm")


def ico():
    for depth in (1, 4, 8):
        run(["ppmtowinicon"], indexed_ppm(13, 11, depth), f"ico/indexed-{depth}.ico")
    run(["pamtowinicon"], pam(13, 11, 4, 8), "ico/rgba-8.ico")
    run(["pamtowinicon", "-pngthreshold=1"], pam(13, 11, 3, 8), "ico/indexed-8-png.ico")


def bmp():
    for depth in (1, 4, 8):
        run(["ppmtobmp", f"-bpp={depth}"], indexed_ppm(13, 11, depth), f"bmp/indexed-{depth}.bmp")
    run(["ppmtobmp", "-os2", "-bpp=8"], indexed_ppm(13, 11, 8), "bmp/indexed-8-oldest.bmp")
    run([CONVERT, "ppm:-", "-type", "Palette", "-compress", "RLE", "bmp3:-"], indexed_ppm(13, 11, 4), "bmp/indexed-4-runs.bmp")
    run([CONVERT, "pam:-", "bmp3:-"], pam(13, 11, 3, 8), "bmp/rgb-8.bmp")
    run([CONVERT, "pam:-", "bmp:-"], pam(13, 11, 4, 8), "bmp/rgb-8-masks.bmp")
    run([CONVERT, "pam:-", "-define", "bmp:subtype=RGB565", "bmp:-"], pam(13, 11, 3, 8), "bmp/rgb-565.bmp")
    run([CONVERT, "pam:-", "-define", "bmp:subtype=RGB555", "bmp:-"], pam(13, 11, 3, 8), "bmp/rgb-555.bmp")


def jpeg():
    run(["pnmtojpeg", "-quality", "95"], smooth(3), "jpeg/rgb.jpg")
    run(["pnmtojpeg", "-quality", "95", "-progressive"], smooth(3), "jpeg/progressive.jpg")
    run(["pnmtojpeg", "-quality", "95"], smooth(1), "jpeg/grey.jpg")


if __name__ == "__main__":
    for make in (png, gif, pcx, lbm, bmp, ico, jpeg):
        make()
