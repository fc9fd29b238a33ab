#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
#
# draw-slide.sh FILE.png: a slide for the program to float above.
set -euo pipefail

bold="$(fc-match -f '%{file}' 'DejaVu Sans:bold')"
book="$(fc-match -f '%{file}' 'DejaVu Sans:book')"
convert -size 1280x800 gradient:'#fdf6ec'-'#f3d9c4' \
    -fill '#d9481c' -draw 'rectangle 80,96 152,104' \
    -fill '#2a2438' -font "$bold" -pointsize 56 -annotate +78+182 'A year in' -annotate +78+252 'four quarters' \
    -fill '#6d6478' -font "$book" -pointsize 24 -annotate +80+306 'Fewer meetings, more finished work' \
    -fill '#f2b999' -draw 'roundrectangle 90,600 250,720 10,10' \
    -fill '#eb9068' -draw 'roundrectangle 290,540 450,720 10,10' \
    -fill '#e0693b' -draw 'roundrectangle 490,470 650,720 10,10' \
    -fill '#d9481c' -draw 'roundrectangle 690,380 850,720 10,10' \
    -fill '#6d6478' -font "$book" -pointsize 20 \
    -annotate +157+752 'Q1' -annotate +357+752 'Q2' -annotate +557+752 'Q3' -annotate +757+752 'Q4' \
    "$1"
