#!/bin/bash
# Renders the program's icons and bitmaps from the drawings; run it after every change of a drawing.
set -euo pipefail
cd "$(dirname "$0")"
. ./rendering.sh

for icon in app scheme built_in_scheme help allocate helper; do
  render_icon "drawings/$icon" "icons/$icon.ico"
done

# render_bitmaps SIZE NAME...
render_bitmaps() {
  local size=$1 name
  shift
  for name in "$@"; do render_bitmap "$size" "bitmaps/$name.bmp" "drawings/$name"; done
}

render_bitmaps 16 class user user_group
render_bitmaps 32 tab_links tab_programs tab_files
render_bitmaps 96 merlin peedy robby genie

for helper in merlin peedy robby genie; do
  render_bitmap 96 "bitmaps/${helper}_selected.bmp" \
    drawings/selected_ground "drawings/$helper" drawings/selected_tick
done
