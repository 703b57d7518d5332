# Shared by the scripts that render drawings; source it. Installs what they need.

"$(dirname "${BASH_SOURCE[0]}")/../../tools/install-packages" --drawing

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

# render_png DRAWING SIZE OUTPUT
render_png() {
  rsvg-convert --width "$2" --height "$2" --output "$3" "$1"
}

# render_icon DRAWING OUTPUT: 32-bit images of 16 to 48 pixels. DRAWING goes without ".svg"; the sizes up to 20
# are made from DRAWING_small.svg where there is one.
render_icon() {
  local size drawing images=()
  for size in 16 20 24 32 48; do
    drawing=$1.svg
    if [ "$size" -le 20 ] && [ -f "$1_small.svg" ]; then drawing=$1_small.svg; fi
    render_png "$drawing" "$size" "$scratch/$size.png"
    images+=("$scratch/$size.png")
  done
  icotool --create --bit-depth=32 --output="$2" "${images[@]}"
}

# render_bitmap SIZE OUTPUT DRAWING...: the drawings, without ".svg", laid over each other on magenta, 24-bit.
# A pixel is either ground or drawing: edges are smoothed against a light grey, never against the magenta.
render_bitmap() {
  local size=$1 output=$2 drawing layers=()
  shift 2
  for drawing in "$@"; do
    layers+=("$scratch/layer${#layers[@]}.png")
    render_png "$drawing.svg" "$size" "${layers[-1]}"
  done
  convert -background none "${layers[@]}" -flatten "$scratch/drawing.png"
  convert \( "$scratch/drawing.png" -background '#F4F4F4' -flatten \) \
    \( "$scratch/drawing.png" -alpha extract -threshold 35% \) \
    -alpha off -compose CopyOpacity -composite -compose Over -background '#FF00FF' -flatten \
    -type TrueColor "BMP3:$output"
}
