#!/bin/bash
# Renders the program's icons and bitmaps from the drawings; run it after every change of a drawing.
set -euo pipefail
cd "$(dirname "$0")"
. ./rendering.sh

# Number (as in picture_ids.h), kind, output, pixels (0: the icon sizes), drawings from back to front.
while read -r number kind output size drawings; do
  case $kind in
  icon) render_icon "drawings/$drawings" "icons/$output.ico" ;;
  bitmap) render_bitmap "$size" "bitmaps/$output.bmp" $(printf 'drawings/%s ' $drawings) ;;
  *) echo "$number: what is a $kind?" >&2; exit 1 ;;
  esac
done <<'PICTURES'
100 icon   app              0 app
186 icon   scheme           0 scheme
187 icon   built_in_scheme  0 built_in_scheme
188 icon   help             0 help
225 icon   allocate         0 allocate
226 icon   helper           0 helper
209 bitmap class           16 class
210 bitmap user            16 user
211 bitmap user_group      16 user_group
220 bitmap tab_links       32 tab_links
221 bitmap tab_programs    32 tab_programs
224 bitmap tab_files       32 tab_files
228 bitmap merlin          96 merlin
229 bitmap peedy           96 peedy
230 bitmap robby           96 robby
235 bitmap genie           96 genie
232 bitmap merlin_selected 96 selected_ground merlin selected_tick
233 bitmap peedy_selected  96 selected_ground peedy selected_tick
231 bitmap robby_selected  96 selected_ground robby selected_tick
234 bitmap genie_selected  96 selected_ground genie selected_tick
PICTURES
