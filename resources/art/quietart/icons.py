"""The application's icons: scalable, and symbolic in one colour."""

import os

from .marks import dashed_ring, handset
from .path import squircle


def write(folder):
    with open(os.path.join(folder, "quietdial.svg"), "w", encoding="ascii", newline="\n") as file:
        file.write(scalable())
    with open(os.path.join(folder, "quietdial-symbolic.svg"), "w", encoding="ascii", newline="\n") as file:
        file.write(symbolic())


def scalable():
    ground = squircle(8, 8, 112)
    dashes = dashed_ring(41, 6.2).moved(64, 64)
    receiver = handset(54).moved(64, 64)
    return f"""<svg xmlns="http://www.w3.org/2000/svg" width="128" height="128" viewBox="0 0 128 128">
  <title>QuietDial</title>
  <linearGradient id="ground" x1="0" y1="8" x2="0" y2="120" gradientUnits="userSpaceOnUse">
    <stop offset="0" stop-color="#4a5263"/>
    <stop offset="1" stop-color="#1e222b"/>
  </linearGradient>
  <path fill="url(#ground)" d="{ground.svg()}"/>
  <path fill="#4cd964" d="{dashes.svg()}"/>
  <path fill="#fff" d="{receiver.svg()}"/>
</svg>
"""


def symbolic():
    # Filled outlines only: desktops recolour fills, not strokes.
    dashes = dashed_ring(7.2, 1.4, dashes=10).moved(8, 8)
    receiver = handset(9.4).moved(8, 8)
    return f"""<svg xmlns="http://www.w3.org/2000/svg" width="16" height="16" viewBox="0 0 16 16">
  <title>QuietDial</title>
  <path fill="#2e3436" d="{dashes.svg()} {receiver.svg()}"/>
</svg>
"""
