#!/bin/bash
# Renders the pictures of the sample machine from their drawings; run it after every change of a drawing.
set -euo pipefail
cd "$(dirname "$0")"
. ../src/resources/rendering.sh

tessaly="drive_c/Program Files/Tessaly"

# drawing_of NAME: the drawing of the picture called NAME.
drawing_of() {
  echo "drawings/$(tr 'A-Z -' 'a-z__' <<<"$1")"
}

# render_bitmaps SIZE FOLDER NAME...
render_bitmaps() {
  local size=$1 folder=$2 name
  shift 2
  for name in "$@"; do render_bitmap "$size" "$tessaly/$folder/$name.bmp" "$(drawing_of "$name")"; done
}

# The shell's own pictures, the school's, and those that the program copies to the shell's when it starts.
render_bitmaps 32 "Kelvanstead/Pictures" "Blue Folder" "Green Folder" "Open Folder" "Red Folder"
render_bitmaps 48 "Kelvanstead/Pictures" Art Maths Music Reading Science "Web Link"
render_bitmaps 48 "Kelvanstead/User Pictures" Football "Nature Garden" "School Badge"
render_bitmaps 32 "Kelvanstead Scheme Manager" "Closed Folder"
render_bitmaps 48 "Kelvanstead Scheme Manager" "On-Line Resources"

for icon in Book Computer Globe Pencil; do
  render_icon "$(drawing_of "$icon")" "$tessaly/Kelvanstead/Icons/$icon.ico"
done
