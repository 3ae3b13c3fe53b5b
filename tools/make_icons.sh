#!/usr/bin/env bash
# Renders the application icon packaging/icons/norvane.svg into the PNG sizes
# of the hicolor theme (packaging/icons/SIZExSIZE/norvane.png). Needs
# rsvg-convert (Debian package librsvg2-bin).
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
icons=$root/packaging/icons
for size in 16 22 24 32 48 64 128 256; do
  mkdir -p "$icons/${size}x${size}"
  rsvg-convert -w "$size" -h "$size" "$icons/norvane.svg" -o "$icons/${size}x${size}/norvane.png"
done
